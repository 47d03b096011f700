// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A path in its bar: the buttons, what a click asks for, and what the menu lists of it.

#include "navigation/vela-button-path.h"
#include "scale/dpi-info.h"
#include "support/input.h"
#include "support/widgets.h"

#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

namespace {

QStringList namesIn(const QString &path)
{
    QStringList names {QString()};
    for (const QChar character : path) {
        if (character != QLatin1Char('/')) {
            names.last() += character;
        } else if (!names.constLast().isEmpty()) {
            names.append(QString());
        }
    }
    if (names.constLast().isEmpty()) {
        names.removeLast();
    }
    return names;
}

// The columns that the menu lists, by the widths of all.
QList<int> columnsInMenu(const QList<int> &widths, int overflow)
{
    QList<int> columns;
    int left = 0;
    for (int column = 0; column < widths.size(); ++column) {
        const int right = left + widths.at(column);
        if (column % 2 == 0) {
            if (left < overflow || right > overflow) {
                columns.append(column);
            }
            if (right > overflow) {
                break;
            }
        }
        left = right;
    }
    return columns;
}

class Bar
{
public:
    Bar()
    {
        m_bar.resize(200, m_bar.height());
        m_bar.show();
        QObject::connect(&m_bar, &VelaButtonPath::sigUpdatePath, [this](const QString &path) { m_asked.append(path); });
        const auto buttons = m_bar.findChildren<QToolButton *>();
        agree("tool buttons", buttons.size(), 1);
        m_menuButton = buttons.first();
    }

    void check(const QString &path, int width)
    {
        m_bar.resize(width, m_bar.height());
        QCoreApplication::processEvents();
        const QStringList names = namesIn(path);
        for (const QString &name : names) {
            m_bar.fontMetrics().horizontalAdvance(name); // the toolkit's first answer may not be its last
        }
        const int visibleWidth = m_bar.horizontalScrollBar()->pageStep();
        m_bar.refresh(path);

        const double scale = DPIinfo::getInstance()->getDPI();
        agree("columns", m_bar.columnCount(), int(qMax(0, 2 * names.size() - 1)));
        QList<int> widths;
        int total = 0;
        QString upToHere;
        for (int column = 0; column < m_bar.columnCount(); ++column) {
            auto *button = qobject_cast<QPushButton *>(m_bar.cellWidget(0, column));
            int expected = int(6 * scale);
            if (column % 2 == 0) {
                const QString name = names.at(column / 2);
                agree("name", button->text(), QString(name).replace(QLatin1String("&"), QLatin1String("&&")));
                expected = int((button->fontMetrics().horizontalAdvance(name) + 16) * scale);
                upToHere += name;
                agree("path", m_bar.getPath(column), upToHere);
                m_asked.clear();
                button->click();
                agree("path asked for", m_asked, QStringList(upToHere));
            } else {
                upToHere += QLatin1Char('/');
            }
            agree("width of a button", button->width(), expected);
            widths.append(m_bar.columnWidth(column));
            total += expected;
        }
        checkMenu(widths, total, visibleWidth);
    }

private:
    void checkMenu(const QList<int> &widths, int total, int visibleWidth)
    {
        const bool isTooWide = visibleWidth < total;
        agree("menu's button is hidden", m_menuButton->isHidden(), !isTooWide);
        const QList<QAction *> actions = m_menuButton->menu()->actions();
        const QList<int> columns = isTooWide ? columnsInMenu(widths, total - visibleWidth) : QList<int>();
        agree("names in the menu", actions.size(), columns.size());
        for (int i = 0; i < actions.size(); ++i) {
            m_asked.clear();
            actions.at(i)->trigger();
            agree("path asked for in the menu", m_asked, QStringList(m_bar.getPath(columns.at(i))));
        }
        if (isTooWide) {
            agree("scrolled to the end", m_bar.horizontalScrollBar()->value(), m_bar.horizontalScrollBar()->maximum());
        }
    }

    VelaButtonPath m_bar;
    QToolButton *m_menuButton = nullptr;
    QStringList m_asked;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    static auto *const bar = new Bar;
    FuzzInput input(data, size);
    const int width = 50 + 2 * input.take<quint8>();
    bar->check(textOf(input.rest()), width);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
