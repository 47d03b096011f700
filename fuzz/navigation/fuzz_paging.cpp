// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A paging bar that is clicked and told numbers of all sizes, against what a page is in numbers that have no end.

#include "navigation/vela-paging-bar.h"
#include "support/input.h"
#include "support/widgets.h"

#include <QAbstractButton>

namespace {

struct Numbers
{
    qint64 rowLimit = 1;
    qint64 itemCount = 0;
    qint64 nowPage = 1;

    // Only an item count below zero leaves a remainder below zero, which counts as one.
    qint64 pageCount() const
    {
        const qint64 pages = itemCount / rowLimit + (itemCount % rowLimit != 0 ? 1 : 0);
        return pages > 1 ? pages : 1;
    }
    // Of that page, the number on a button; 0 for a blank one.
    qint64 numberOn(int button, qint64 page) const
    {
        const qint64 number = page - 2 + button;
        return number > 0 && number <= pageCount() ? number : 0;
    }
};

class Bar
{
public:
    Bar()
    {
        const auto all = m_bar.findChildren<QAbstractButton *>();
        for (QAbstractButton *button : all) {
            (button->inherits("VelaButton") ? m_pages : m_others).append(button);
        }
        QObject::connect(&m_bar, &VelaPagingBar::sigPageChanged, [this] { ++m_signals; });
    }

    void begin(int rowLimit)
    {
        m_numbers = {rowLimit};
        m_model.setRowLimit(rowLimit);
        m_model.setNowPage(1);
        m_bar.setItemCount(0);
        m_signals = m_expectedSignals = 0;
    }

    void step(FuzzInput &input)
    {
        switch (input.takeIndex(9)) {
        case 0: {
            const int count = input.take<qint32>();
            m_numbers.itemCount = count;
            m_bar.setItemCount(count);
            break;
        }
        case 1: {
            const int page = input.take<qint32>();
            m_numbers.nowPage = page;
            m_bar.setPage(page);
            break;
        }
        case 2:
            turn(1, [this] { m_bar.reset(); });
            break;
        case 3:
            turn(1, [this] { m_bar.first_page(); });
            break;
        case 4:
            turn(m_numbers.pageCount(), [this] { m_bar.last_page(); });
            break;
        case 5:
            turn(qMin(m_numbers.nowPage + 5, m_numbers.pageCount()), [this] { m_bar.next_5_page(); });
            break;
        case 6:
            turn(qMax(m_numbers.nowPage - 5, qint64(1)), [this] { m_bar.prev_5_page(); });
            break;
        case 7: {
            const int button = input.takeIndex(5);
            turn(m_numbers.numberOn(button, m_numbers.nowPage), [this, button] { m_bar.pageClick(button); });
            break;
        }
        default: {
            const int button = input.takeIndex(5);
            if (const qint64 number = m_numbers.numberOn(button, m_numbers.nowPage)) {
                turn(number, [this, button] { m_pages.at(button)->click(); });
            } else {
                m_pages.at(button)->click(); // a blank one is disabled
            }
        }
        }
        check();
    }

private:
    template<typename Call>
    void turn(qint64 page, Call call)
    {
        ++m_expectedSignals;
        m_numbers.nowPage = page;
        call();
    }

    void check() const
    {
        agree("page", qint64(m_model.nowPage()), m_numbers.nowPage);
        agree("pages", qint64(m_model.pageCount()), m_numbers.pageCount());
        agree("signals", m_signals, m_expectedSignals);
        const qint64 start = (m_numbers.nowPage - 1) * m_numbers.rowLimit;
        if (start >= INT_MIN && start <= INT_MAX) {
            agree("first item", qint64(m_model.startItem()), start);
        }
        for (int i = 0; i < m_pages.size(); ++i) {
            const qint64 number = m_numbers.numberOn(i, m_numbers.nowPage);
            agree("button", m_pages.at(i)->text(), number > 0 ? QString::number(number) : QStringLiteral(" "));
            agree("button is enabled", m_pages.at(i)->isEnabled(), number > 0);
        }
        // Without texts a tool tip is its key.
        const bool isForward = m_numbers.pageCount() > m_numbers.nowPage;
        const bool isBack = m_numbers.nowPage != 1;
        int forward = 0;
        int back = 0;
        for (const QAbstractButton *button : m_others) {
            const QString toolTip = button->toolTip();
            if (toolTip == QLatin1String("last_page") || toolTip == QLatin1String("next_5_pages")) {
                agree("way on", button->isEnabled(), isForward);
                ++forward;
            } else if (!toolTip.isEmpty()) {
                agree("way back", button->isEnabled(), isBack);
                ++back;
            }
        }
        agree("ways on", forward, 2);
        agree("ways back", back, 2);
    }

    VelaPagingModel m_model {1};
    VelaPagingBar m_bar {&m_model};
    QList<QAbstractButton *> m_pages;
    QList<QAbstractButton *> m_others;
    Numbers m_numbers;
    int m_signals = 0;
    int m_expectedSignals = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static auto *const bar = new Bar;
    FuzzInput input(data, size);
    bar->begin(qMax(1, input.take<qint32>()));
    while (!input.isAtEnd()) {
        bar->step(input);
    }
    return 0;
}
