// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"

#include <VelaButton>
#include <VelaCalanderView>
#include <VelaDateSelector>

#include <QDate>

namespace {

constexpr int SelectorWidth = 200;
constexpr QSize CalendarSize(280, 260);
constexpr int LimitDays = 14;

VelaDateSelector *createSelector(GalleryPage *page, const QString &caption)
{
    auto *selector = new VelaDateSelector(QStringLiteral("No date"));
    selector->setFixedWidth(scaled(SelectorWidth));
    page->logSignal(caption, selector->getCalendarView(), &VelaCalanderView::sigDateSelect);
    return selector;
}

VelaCalanderView *createCalendar(GalleryPage *page, const QString &caption)
{
    auto *calendar = new VelaCalanderView;
    followSections(calendar, {QStringLiteral("component.date_selector"), QStringLiteral("component.menu")});
    calendar->setFixedSize(scaled(CalendarSize.width()), scaled(CalendarSize.height()));
    page->logSignal(caption, calendar, &VelaCalanderView::sigDateSelect);
    return calendar;
}

void limitDates(VelaCalanderView *calendar)
{
    const QDate today = QDate::currentDate();
    calendar->setMinimumDate(today.addDays(-LimitDays));
    calendar->setMaximumDate(today.addDays(LimitDays));
}

} // namespace

GalleryPage *createDatesPage(const QString &title)
{
    auto *page =
        new GalleryPage(title, QStringLiteral("A field with a calendar to choose from, and the calendar alone."));
    page->addSection(QStringLiteral("VelaDateSelector"), QStringLiteral("component.date_selector, component.menu"));

    VelaDateSelector *plain = createSelector(page, QStringLiteral("Selector"));
    auto *clear = new VelaButton(QStringLiteral("Clear"), VelaButton::DefaultButton);
    QObject::connect(clear, &VelaButton::clicked, plain, &VelaDateSelector::clearDate);
    page->addExample(QStringLiteral("Without a date at first"), QStringLiteral("clearDate()"), {plain, clear});

    VelaDateSelector *limited = createSelector(page, QStringLiteral("Limited selector"));
    limitDates(limited->getCalendarView());
    limited->dateSelect(QDate::currentDate());
    page->addExample(QStringLiteral("Two weeks around today"), QStringLiteral("setMinimumDate(), setMaximumDate()"),
                     {limited});

    VelaDateSelector *disabled = createSelector(page, QStringLiteral("Disabled selector"));
    disabled->setEnabled(false);
    page->addExample(QStringLiteral("Disabled"), {}, {disabled});

    page->addSection(QStringLiteral("VelaCalanderView"), QStringLiteral("Tab visits all that can be used, in turn."));
    page->addExample(QStringLiteral("On its own"), {}, {createCalendar(page, QStringLiteral("Calendar"))});
    VelaCalanderView *limitedCalendar = createCalendar(page, QStringLiteral("Limited calendar"));
    limitDates(limitedCalendar);
    page->addExample(QStringLiteral("Two weeks around today"), QStringLiteral("setMinimumDate(), setMaximumDate()"),
                     {limitedCalendar});
    return page;
}
