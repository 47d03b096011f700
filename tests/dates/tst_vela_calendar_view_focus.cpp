// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-calendar-view.h"
#include "dates/calendar-test.h"

#include <QLineEdit>
#include <QVBoxLayout>

class VelaCalendarViewFocusTest : public CalendarTest
{
    Q_OBJECT

private Q_SLOTS:
    void tabVisitsEveryStopAndComesBack();
    void betweenOthersTabVisitsTheViewAfterItsParts();
    void fromTheYearEditTabGoesOnToTheGridAndRound();
    void tabInTheYearEditIsNotSeenByTheSpinBox();
    void theFilterSwallowsTabAndBacktabOnly();
    void tabOntoTheGridSetsItsCurrentCellAnew();
};

void VelaCalendarViewFocusTest::tabVisitsEveryStopAndComesBack()
{
    const ShownCalendar calendar;
    const QStringList stops = calendar.stops();
    QCOMPARE(calendar.visit(Qt::Key_Tab, stops.size()), rotated(stops, 1));
    QVERIFY(calendar.view->hasFocus());
    QCOMPARE(calendar.visit(Qt::Key_Backtab, stops.size()), reversed(stops));
    QVERIFY(calendar.view->hasFocus());
}

void VelaCalendarViewFocusTest::betweenOthersTabVisitsTheViewAfterItsParts()
{
    QWidget host;
    auto *column = new QVBoxLayout(&host);
    auto *before = new QLineEdit(&host);
    auto *view = new VelaCalanderView(&host);
    auto *after = new QLineEdit(&host);
    for (QWidget *widget :
         {static_cast<QWidget *>(before), static_cast<QWidget *>(view), static_cast<QWidget *>(after)}) {
        column->addWidget(widget);
    }
    before->setObjectName(QStringLiteral("before"));
    after->setObjectName(QStringLiteral("after"));
    host.show();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    before->setFocus();

    const Calendar calendar(view);
    const QStringList order = rotated(calendar.stops(), 1) + QStringList {after->objectName(), before->objectName()};
    QCOMPARE(calendar.visit(Qt::Key_Tab, order.size()), order);
}

void VelaCalendarViewFocusTest::fromTheYearEditTabGoesOnToTheGridAndRound()
{
    const ShownCalendar calendar;
    const QStringList stops = calendar.stops();
    const int grid = stops.indexOf(calendar.grid()->objectName());
    const int month = stops.indexOf(calendar.month()->objectName());
    for (int time = 0; time < 2; ++time) { // editing leaves the cycle as it was
        calendar.click(calendar.year());
        QVERIFY(calendar.yearEdit()->hasFocus());
        QCOMPARE(calendar.visit(Qt::Key_Tab, stops.size()), rotated(stops, grid));
        QVERIFY(!calendar.yearEdit()->isVisible());

        calendar.click(calendar.year());
        QVERIFY(calendar.yearEdit()->hasFocus());
        QCOMPARE(calendar.visit(Qt::Key_Backtab, stops.size()), rotated(reversed(stops), stops.size() - 1 - month));

        calendar.click(calendar.year());
        calendar.key(Qt::Key_Return);
        QVERIFY(!calendar.yearEdit()->isVisible());
        calendar.click(calendar.year());
        calendar.click(calendar.weekdays());
        QVERIFY(!calendar.yearEdit()->isVisible());
        calendar.click(calendar.weekdays());
        QVERIFY(calendar.grid()->hasFocus()); // the grid, whose header was clicked
        QCOMPARE(calendar.visit(Qt::Key_Tab, stops.size()), rotated(stops, grid + 1));
    }
}

void VelaCalendarViewFocusTest::tabInTheYearEditIsNotSeenByTheSpinBox()
{
    const ShownCalendar calendar;
    calendar.click(calendar.year());
    QVERIFY(calendar.yearEdit()->hasFocus());

    // With Ctrl no widget takes a Tab of its own accord: let through, it would leave the focus where it is.
    calendar.key(Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(calendar.grid()->hasFocus());
    calendar.click(calendar.year());
    QVERIFY(calendar.yearEdit()->hasFocus());
    calendar.key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(calendar.month()->hasFocus());
}

void VelaCalendarViewFocusTest::theFilterSwallowsTabAndBacktabOnly()
{
    const ShownCalendar calendar;
    for (QWidget *watched : {static_cast<QWidget *>(calendar.year()), static_cast<QWidget *>(calendar.yearEdit()),
                             static_cast<QWidget *>(calendar.grid()), static_cast<QWidget *>(calendar.today())}) {
        for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Left, Qt::Key_A, Qt::Key_Escape, Qt::Key_Return}) {
            const bool isTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QCOMPARE(calendar.view->eventFilter(watched, &press), isTab);
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
            QVERIFY(!calendar.view->eventFilter(watched, &release));
            QKeyEvent shortcut(QEvent::ShortcutOverride, key, Qt::NoModifier);
            QVERIFY(!calendar.view->eventFilter(watched, &shortcut));
        }
        QFocusEvent focus(QEvent::FocusIn);
        QVERIFY(!calendar.view->eventFilter(watched, &focus));
    }

    // With Ctrl only the filter makes a Tab go on, and it watches neither the arrows nor the month.
    const QPair<QWidget *, QWidget *> steps[] = {
        {calendar.year(), calendar.grid()}, {calendar.grid(), calendar.today()},
        {calendar.today(), calendar.view},  {calendar.previous(), calendar.previous()},
        {calendar.next(), calendar.next()}, {calendar.month(), calendar.month()},
    };
    for (const auto &step : steps) {
        step.first->setFocus();
        calendar.key(Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY2(step.second->hasFocus(), qPrintable(step.first->objectName()));
    }
}

void VelaCalendarViewFocusTest::tabOntoTheGridSetsItsCurrentCellAnew()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    calendar.click(17);
    const QModelIndex current = calendar.grid()->currentIndex();
    QCOMPARE(current.data().toInt(), 17);
    QSignalSpy changed(calendar.grid()->selectionModel(), &QItemSelectionModel::currentChanged);
    calendar.year()->setFocus();
    QCOMPARE(changed.count(), 0);
    calendar.key(Qt::Key_Tab);
    QVERIFY(calendar.grid()->hasFocus());
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.first(), (QVariantList {QModelIndex(), current}));
    QCOMPARE(changed.last(), (QVariantList {current, QModelIndex()}));
    QCOMPARE(calendar.widget()->selectedDate(), SomeDay);

    calendar.today()->setFocus();
    calendar.key(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(calendar.grid()->hasFocus());
    QCOMPARE(changed.count(), 4);
    calendar.key(Qt::Key_Tab);
    QVERIFY(calendar.today()->hasFocus());
    QCOMPARE(changed.count(), 4);

    calendar.grid()->setCurrentIndex(QModelIndex());
    changed.clear();
    calendar.key(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(calendar.grid()->hasFocus());
    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(VelaCalendarViewFocusTest)
#include "tst_vela_calendar_view_focus.moc"
