// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-button.h"
#include "component/vela-calendar-view.h"
#include "support/resource-folder.h"

#include <QCalendarWidget>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolButton>
#include <QtTest>

constexpr int MonthsPerYear = 12;
constexpr int DaysPerWeek = 7;

inline const QStringList MonthKeys {
    QStringLiteral("month_jan"), QStringLiteral("month_feb"), QStringLiteral("month_mar"), QStringLiteral("month_apr"),
    QStringLiteral("month_may"), QStringLiteral("month_jun"), QStringLiteral("month_jul"), QStringLiteral("month_aug"),
    QStringLiteral("month_sep"), QStringLiteral("month_oct"), QStringLiteral("month_nov"), QStringLiteral("month_dec")};
inline const QStringList WeekdayKeys {
    QStringLiteral("sunday"),   QStringLiteral("monday"), QStringLiteral("tuesday"), QStringLiteral("wednesday"),
    QStringLiteral("thursday"), QStringLiteral("friday"), QStringLiteral("saturday")};

inline const QStringList EnglishMonths {
    QStringLiteral("January"),   QStringLiteral("February"), QStringLiteral("March"),    QStringLiteral("April"),
    QStringLiteral("May"),       QStringLiteral("June"),     QStringLiteral("July"),     QStringLiteral("August"),
    QStringLiteral("September"), QStringLiteral("October"),  QStringLiteral("November"), QStringLiteral("December")};
inline const QStringList EnglishWeekdays {
    QStringLiteral("Sunday"),   QStringLiteral("Monday"), QStringLiteral("Tuesday"), QStringLiteral("Wednesday"),
    QStringLiteral("Thursday"), QStringLiteral("Friday"), QStringLiteral("Saturday")};
inline const QStringList JapaneseWeekdays {QStringLiteral("日曜日"), QStringLiteral("月曜日"), QStringLiteral("火曜日"),
                                           QStringLiteral("水曜日"), QStringLiteral("木曜日"), QStringLiteral("金曜日"),
                                           QStringLiteral("土曜日")};

// Days of the year 2024: Monday the 1st of April, Sunday the 1st of September.
inline const QDate SomeDay(2024, 4, 17);
inline const QPoint Outside(1, 1);

void installTexts(const QStringList &months, const QStringList &weekdays);

QStringList rotated(QStringList names, int first);
QStringList reversed(QStringList names);
/// The dates that a signal was emitted with.
QList<QDate> dates(const QSignalSpy &spy);

/// What a user finds in a calendar view, and does with it.
class Calendar
{
public:
    explicit Calendar(VelaCalanderView *calendarView) : view(calendarView) { }

    template<typename Widget>
    Widget *child(const char *name) const
    {
        return view->findChild<Widget *>(QString::fromLatin1(name));
    }
    QCalendarWidget *widget() const { return view->findChild<QCalendarWidget *>(); }
    QToolButton *previous() const { return child<QToolButton>("qt_calendar_prevmonth"); }
    QToolButton *next() const { return child<QToolButton>("qt_calendar_nextmonth"); }
    QToolButton *month() const { return child<QToolButton>("qt_calendar_monthbutton"); }
    QToolButton *year() const { return child<QToolButton>("qt_calendar_yearbutton"); }
    QSpinBox *yearEdit() const { return child<QSpinBox>("qt_calendar_yearedit"); }
    QWidget *bar() const { return child<QWidget>("qt_calendar_navigationbar"); }
    QTableView *grid() const { return child<QTableView>("qt_calendar_calendarview"); }
    VelaButton *today() const { return child<VelaButton>("qt_calendar_today_button"); }
    QTableWidget *weekdays() const { return child<QTableWidget>("qt_calendar_weekdayview"); }

    /// The month and year of the page that is shown.
    QDate page() const { return QDate(widget()->yearShown(), widget()->monthShown(), 1); }

    /// The cell of a day of the page: the days follow upon the first 1 that is seen.
    QModelIndex cell(int day) const;

    QWindow *window() const { return view->window()->windowHandle(); }
    static QPoint middleIn(const QWidget *widget) { return widget->mapTo(widget->window(), widget->rect().center()); }
    QPoint middleOf(int day) const
    {
        return grid()->viewport()->mapTo(view->window(), grid()->visualRect(cell(day)).center());
    }
    void click(const QPoint &position) const { QTest::mouseClick(window(), Qt::LeftButton, {}, position); }
    void click(const QWidget *widget) const { click(middleIn(widget)); }
    void click(int day) const { click(middleOf(day)); }
    /// Clicks twice, which the system tells by the second press of a pair.
    void doubleClick(int day) const
    {
        click(day);
        QTest::mouseDClick(window(), Qt::LeftButton, {}, middleOf(day));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const { QTest::keyClick(window(), key, modifiers); }

    /// The names of the stops of the tab cycle in their order; the view, the first, has an empty one.
    QStringList stops() const;
    /// Presses Tab or Backtab some times; the names of what has the focus after each.
    QStringList visit(Qt::Key key, int times) const;

    VelaCalanderView *const view;
};

/// A calendar view in a window of its own.
class ShownCalendar : public Calendar
{
public:
    ShownCalendar();
    ~ShownCalendar() { delete view; }
    Q_DISABLE_COPY_MOVE(ShownCalendar)
};

/// Gives each test a theme of a calendar and English texts, on a day that lasts.
class CalendarTest : public QObject
{
    Q_OBJECT

protected:
    /// American English, and clear of midnight.
    static void prepareDay();

    ResourceFolder m_folder;

protected Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
};
