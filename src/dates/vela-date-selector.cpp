// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/vela-date-selector.h"

#include "controls/mouse-filters.h"
#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"

#include <QPointer>
#include <QTableView>

using namespace Vela;

namespace {

// Logical pixels.
constexpr int PopupWidth = 280;
constexpr int PopupHeight = 260;

} // namespace

class VelaDateSelectorPrivate
{
public:
    explicit VelaDateSelectorPrivate(QString text) : emptyText(std::move(text)) { }

    void showMonthOf(const QDate &date);

    QPointer<VelaCalanderView> calendarView; // calendar in the popup, null once a client sets another view
    const QString emptyText;
};

void VelaDateSelectorPrivate::showMonthOf(const QDate &date)
{
    if (calendarView) {
        calendarView->setCurrentPage(date.year(), date.month());
    }
}

VelaDateSelector::VelaDateSelector(QString emptyText, QWidget *parent) :
    QComboBox(parent), d(std::make_unique<VelaDateSelectorPrivate>(std::move(emptyText)))
{
    d->calendarView = new VelaCalanderView;
    setView(d->calendarView);
    for (QWidget *filtered : {view()->viewport(), static_cast<QWidget *>(view())}) {
        auto *filter = new MouseReleaseFilter;
        filter->setParent(filtered);
        filtered->installEventFilter(filter);
    }
    addItem(d->emptyText, QDate());
    connect(d->calendarView, &VelaCalanderView::sigDateSelect, this, &VelaDateSelector::dateSelect);

    view()->setFixedWidth(scaled(PopupWidth));
    view()->setFixedHeight(scaled(PopupHeight));
    setFixedHeight(scaled(Metric::ButtonHeight));
    const QString sheet = Look::sheet(Style::DateSelector);
    setStyleSheet(sheet + Look::sheet(Style::Menu));
}

VelaDateSelector::VelaDateSelector(QWidget *parent) : VelaDateSelector(QString(), parent) { }

VelaDateSelector::~VelaDateSelector() = default;

void VelaDateSelector::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::DateSelector, Style::Menu);
    }
    QComboBox::customEvent(event);
}

void VelaDateSelector::dateSelect(const QDate &date)
{
    clear();
    if (!date.isValid()) {
        addItem(d->emptyText, QDate());
        return;
    }
    addItem(QLocale().toString(date, QLocale::ShortFormat), date);
    setCurrentIndex(0);
    d->showMonthOf(date);
    update();
    hidePopup();
}

QDate VelaDateSelector::date() const
{
    return itemData(0).toDate();
}

void VelaDateSelector::clearDate()
{
    const QDate today = QDate::currentDate();
    clear();
    addItem(d->emptyText, QDate());
    setCurrentIndex(0);
    d->showMonthOf(today);
}

// The popup gives the focus to the view, from where the days would be six stops away.
void VelaDateSelector::showPopup()
{
    QComboBox::showPopup();
    if (d->calendarView && d->calendarView->isVisible()) {
        d->calendarView->findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"))
            ->setFocus(Qt::PopupFocusReason);
    }
}

VelaCalanderView *VelaDateSelector::getCalendarView()
{
    return d->calendarView;
}
