// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-date-selector.h"
#include "support/resource-folder.h"

#include <QCalendarWidget>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

namespace {

class Dates : public VelaCalanderView
{
public:
    Dates()
    {
        setCurrentPage(2024, 4);
        resize(320, 320);
    }

    template<typename Widget>
    Widget *part(const char *name) const
    {
        return findChild<Widget *>(QString::fromLatin1(name));
    }
    QTableView *grid() const { return part<QTableView>("qt_calendar_calendarview"); }

    // A day of April 2024, which begins on a Monday.
    QAccessibleInterface *day(int number) const
    {
        return spoken(grid())->tableInterface()->cellAt(number / 7, number % 7);
    }
};

QString longName(const QDate &date)
{
    return QLocale().toString(date, QLocale::LongFormat);
}

} // namespace

class AccessibleDatesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        installReferenceTheme();
    }

    void aCalendarTellsWhatCanBeReached();
    void theGridIsNamedByItsMonth();
    void daysHaveTheirFullDates_data();
    void daysHaveTheirFullDates();
    void todaySaysSo();
    void theChosenDayIsSelected();
    void daysBeyondTheLimitsAreUnavailable();
    void aDayIsChosenThroughTheInterface();
    void theDayWithTheFocusIsToldOf();
    void theYearsFieldHasAName();
    void whatThePartsOfTheCalendarAreNamedStays();

    void aDateSelectorTellsItsDate();
    void aDateSelectorIsNamedByTheApplication();
    void thePopupIsOpenedThroughTheInterface();
};

void AccessibleDatesTest::aCalendarTellsWhatCanBeReached()
{
    Dates calendar;
    calendar.show();
    QStringList lines = transcript(spoken(&calendar));
    const int firstDay = lines.indexOf(QStringLiteral("Table April 2024")) + 1;
    const QStringList bar {QStringLiteral("Grouping Calendar"), QStringLiteral("Button Previous month"),
                           QStringLiteral("Button Next month"), QStringLiteral("ButtonMenu April, Month"),
                           QStringLiteral("Button 2024, Year"), QStringLiteral("Table April 2024")};
    QCOMPARE(lines.mid(0, firstDay), bar);
    QCOMPARE(lines.size(), firstDay + 6 * 7 + 1);
    QCOMPARE(lines.at(firstDay), QStringLiteral("Cell Sunday, March 31, 2024"));
    QCOMPARE(lines.last(), QStringLiteral("Button Today"));
    QVERIFY(!spoken(calendar.findChild<QCalendarWidget *>())->state().focusable); // it hands the focus on
}

void AccessibleDatesTest::theGridIsNamedByItsMonth()
{
    Dates calendar;
    QCOMPARE(nameOf(calendar.grid()), QStringLiteral("April 2024"));
    calendar.setCurrentPage(2025, 12);
    QCOMPARE(nameOf(calendar.grid()), QStringLiteral("December 2025"));
}

void AccessibleDatesTest::daysHaveTheirFullDates_data()
{
    QTest::addColumn<QDate>("firstDay");
    for (int month = 1; month <= 24; ++month) { // months that begin on any weekday, in leap years or not
        const QDate firstDay = QDate(2023, 12, 1).addMonths(month);
        QTest::newRow(qPrintable(firstDay.toString(Qt::ISODate))) << firstDay;
    }
}

// The place of a day follows from its weekday; the calendar shows days before the first if there is no room else.
void AccessibleDatesTest::daysHaveTheirFullDates()
{
    QFETCH(QDate, firstDay);
    Dates calendar;
    calendar.setCurrentPage(firstDay.year(), firstDay.month());
    const QAccessibleTableInterface *grid = spoken(calendar.grid())->tableInterface();
    QCOMPARE(grid->rowCount(), 6);
    QCOMPARE(grid->columnCount(), 7);
    const int place = firstDay.dayOfWeek() % 7 == 0 ? 7 : firstDay.dayOfWeek();
    for (int i = 0; i < 6 * 7; ++i) {
        const QDate date = firstDay.addDays(i - place);
        QCOMPARE(grid->cellAt(i / 7, i % 7)->text(QAccessible::Name), longName(date));
        QCOMPARE(calendar.grid()->model()->index(i / 7, i % 7).data().toInt(), date.day()); // the number that is seen
    }
}

void AccessibleDatesTest::todaySaysSo()
{
    Dates calendar;
    if (QTime::currentTime() > QTime(23, 59, 50)) {
        QTest::qWait(15000); // time enough to be clear of midnight
    }
    const QDate today = QDate::currentDate();
    calendar.setCurrentPage(today.year(), today.month());
    QStringList described;
    for (const QAccessibleInterface *cell : childrenOf(spoken(calendar.grid()))) {
        if (!cell->text(QAccessible::Description).isEmpty()) {
            described << cell->text(QAccessible::Name) << cell->text(QAccessible::Description);
        }
    }
    QCOMPARE(described, QStringList()); // a view that is hidden tells of nothing
    calendar.show();
    for (const QAccessibleInterface *cell : childrenOf(spoken(calendar.grid()))) {
        if (!cell->text(QAccessible::Description).isEmpty()) {
            described << cell->text(QAccessible::Name) << cell->text(QAccessible::Description);
        }
    }
    const QStringList expected {longName(QDate::currentDate()), QStringLiteral("Today")};
    QCOMPARE(described, expected);
}

void AccessibleDatesTest::theChosenDayIsSelected()
{
    const Dates calendar;
    calendar.findChild<QCalendarWidget *>()->setSelectedDate(QDate(2024, 4, 17));
    QVERIFY(calendar.day(17)->state().selected);
    QVERIFY(!calendar.day(18)->state().selected);
}

void AccessibleDatesTest::daysBeyondTheLimitsAreUnavailable()
{
    Dates calendar;
    calendar.setMinimumDate(QDate(2024, 4, 10));
    calendar.setMaximumDate(QDate(2024, 4, 20));
    calendar.show();
    for (int number = 1; number <= 30; ++number) {
        const bool isWithin = number >= 10 && number <= 20;
        QCOMPARE(bool(calendar.day(number)->state().disabled), !isWithin);
        QCOMPARE(calendar.day(number)->actionInterface()->actionNames().isEmpty(), !isWithin);
    }
}

void AccessibleDatesTest::aDayIsChosenThroughTheInterface()
{
    Dates calendar;
    calendar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&calendar));
    const QSignalSpy chosen(&calendar, &VelaCalanderView::sigDateSelect);
    calendar.day(18)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.at(0).at(0).toDate(), QDate(2024, 4, 18));
}

void AccessibleDatesTest::theDayWithTheFocusIsToldOf()
{
    Dates calendar;
    calendar.findChild<QCalendarWidget *>()->setSelectedDate(QDate(2024, 4, 17));
    calendar.show();
    QVERIFY(QTest::qWaitForWindowActive(&calendar));
    calendar.grid()->setFocus();
    QCOMPARE(spoken(calendar.grid())->focusChild(), calendar.day(17));
    QTest::keyClick(calendar.grid(), Qt::Key_Right);
    QCOMPARE(spoken(calendar.grid())->focusChild(), calendar.day(18));
    QVERIFY(calendar.day(18)->state().focused);
}

void AccessibleDatesTest::theYearsFieldHasAName()
{
    const Dates calendar;
    QCOMPARE(nameOf(calendar.part<QSpinBox>("qt_calendar_yearedit")), QStringLiteral("Year"));
}

void AccessibleDatesTest::whatThePartsOfTheCalendarAreNamedStays()
{
    const Dates calendar;
    QCOMPARE(calendar.accessibleName(), QStringLiteral("Calendar"));
    QCOMPARE(calendar.part<QWidget>("qt_calendar_prevmonth")->accessibleName(), QStringLiteral("Previous month"));
    QCOMPARE(calendar.part<QWidget>("qt_calendar_nextmonth")->accessibleName(), QStringLiteral("Next month"));
    QCOMPARE(calendar.grid()->accessibleName(), QString());
}

void AccessibleDatesTest::aDateSelectorTellsItsDate()
{
    VelaDateSelector selector(QStringLiteral("No date"));
    QAccessibleInterface *interface = spoken(&selector);
    QCOMPARE(number(interface->role()), number(QAccessible::ComboBox));
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("No date"));
    QCOMPARE(nameOf(&selector), QStringLiteral("Date, No date"));
    selector.dateSelect(QDate(2024, 4, 17));
    QCOMPARE(interface->text(QAccessible::Value), selector.currentText());
    QCOMPARE(nameOf(&selector), QStringLiteral("Date, ") + selector.currentText());
}

void AccessibleDatesTest::aDateSelectorIsNamedByTheApplication()
{
    VelaDateSelector selector(QStringLiteral("none"));
    selector.setAccessibleName(QStringLiteral("From"));
    QCOMPARE(nameOf(&selector), QStringLiteral("From, none"));
}

void AccessibleDatesTest::thePopupIsOpenedThroughTheInterface()
{
    VelaDateSelector selector(QStringLiteral("No date"));
    selector.show();
    QVERIFY(QTest::qWaitForWindowActive(&selector));
    QVERIFY(spoken(&selector)->state().collapsed);
    QAccessibleActionInterface *actions = spoken(&selector)->actionInterface();
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_VERIFY(selector.getCalendarView()->isVisible());
    QVERIFY(spoken(&selector)->state().expanded);
    QCOMPARE(spoken(&selector)->child(0), spoken(selector.getCalendarView()));
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_VERIFY(!selector.getCalendarView()->isVisible());
}

QTEST_MAIN(AccessibleDatesTest)
#include "tst_accessible_dates.moc"
