// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-calendar-view.h"
#include "dates/calendar-test.h"
#include "style-manager/style-manager.h"
#include "support/color-counts.h"
#include "support/controls.h"
#include "support/environment.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QStandardItemModel>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <functional>
#include <memory>

Q_DECLARE_METATYPE(Qt::Key)

namespace {

QStringList numbered(const QString &pattern, int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i) {
        names.append(pattern.arg(i, 2, 10, QLatin1Char('0')));
    }
    return names;
}

int countReddish(const QImage &image)
{
    const QHash<QRgb, int> counts = colorCounts(image);
    int count = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        const QColor color(it.key());
        count += color.red() > color.green() + 100 && color.red() > color.blue() + 100 ? it.value() : 0;
    }
    return count;
}

} // namespace

// Of a view that has no parent, or that lies in a window.
using Change = std::function<void(VelaCalanderView *view, QWidget *window)>;
Q_DECLARE_METATYPE(Change)

class VelaCalendarViewTest : public CalendarTest
{
    Q_OBJECT

private Q_SLOTS:
    void itTellsItsLimits();
    void theViewsItemsAreInert();

    void theTodayButtonStandsCentredBelowTheCalendar();
    void theWeekStartsOnSundayWithoutHeadersOfQt();
    void saturdayAndSundayAreDrawnInBlack();
    void daysThatCannotBeChosenLookAsInADisabledGrid_data();
    void daysThatCannotBeChosenLookAsInADisabledGrid();
    void thePartsAreNamedForAssistiveTools();
    void theButtonsOfTheBarTakeTheFocus();
    void theArrowsShowTheirImages();
    void theBarIsNotFilledAndTheYearEditHasNoMacFocusRectangle();
    void aPressOnTheEmptyPartOfTheBarHasNoEffect();
    void theButtonsOfTheBarWork();
    void theMonthMenuShowsThreeLettersAndTheButtonTheWholeName();
    void shortAndForeignMonthNamesAreCutAfterThreeCharacters();
    void theMonthButtonStartsWithThisMonth();
    void theMonthButtonFollowsThePage_data();
    void theMonthButtonFollowsThePage();
    void aChosenMonthIsShownByItsWholeName();
    void theSlotsWriteTheMonthOnly();
    void aLaterLanguageIsNotPickedUp();
    void anotherLocaleChangesNeitherWeekNorMonths_data();
    void anotherLocaleChangesNeitherWeekNorMonths();
    void anotherLocaleLeavesTheSelectedDayWhereItIs();
    void theYearFollowsTheLocale();
    void anotherLayoutDirectionLeavesTheArrowsTheirImages_data();
    void anotherLayoutDirectionLeavesTheArrowsTheirImages();
    void theWeekdayRowShowsOneLetterPerDayStartingWithSunday_data();
    void theWeekdayRowShowsOneLetterPerDayStartingWithSunday();
    void theWeekdayRowIsSetUpAsAHeader();
    void theWeekdayRowHasTheSheetsOfTheTable();
    void theWeekdaysStandAboveTheirDays();
    void theWeeksAskForTheRoomThatQtGivesThemAndGetByWithLess();

    void aClickOnADaySaysSo();
    void aDoubleClickAndEnterSaySoAgain();
    void arrowsMoveAndEnterChooses();
    void todaySelectsTodayAndSaysSoOnce_data();
    void todaySelectsTodayAndSaysSoOnce();
    void daysOutsideOfTheLimitsCannotBeChosen();
    void turningThePageSelectsNothing();

    void aViewCanBeDeletedWhileItsYearIsEdited();
};

void VelaCalendarViewTest::theViewsItemsAreInert()
{
    class OpenView : public VelaCalanderView
    {
    public:
        using VelaCalanderView::horizontalOffset;
        using VelaCalanderView::isIndexHidden;
        using VelaCalanderView::setSelection;
        using VelaCalanderView::verticalOffset;
        using VelaCalanderView::visualRegionForSelection;

        bool anyActionMoves()
        {
            for (int action = MoveUp; action <= MovePrevious; ++action) {
                if (moveCursor(static_cast<CursorAction>(action), {}).isValid()) {
                    return true;
                }
            }
            return false;
        }
    } view;
    QStandardItemModel model(20, 20);
    view.setModel(&model);
    view.setSelectionMode(QAbstractItemView::MultiSelection);
    const QModelIndex index = model.index(3, 4);
    view.setCurrentIndex(index);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    QCOMPARE(view.visualRect(index), QRect());
    view.scrollTo(index);
    QCOMPARE(view.horizontalOffset(), 0);
    QCOMPARE(view.verticalOffset(), 0);
    for (int x = 0; x < view.width(); x += 10) {
        QVERIFY(!view.indexAt(QPoint(x, x)).isValid());
    }
    QVERIFY(!view.anyActionMoves());
    QVERIFY(view.isIndexHidden(index));
    view.selectionModel()->clear();
    view.setSelection(view.rect(), QItemSelectionModel::Select);
    QVERIFY(!view.selectionModel()->hasSelection());
    QVERIFY(view.visualRegionForSelection(QItemSelection(index, index)).isEmpty());
}

void VelaCalendarViewTest::theTodayButtonStandsCentredBelowTheCalendar()
{
    const ShownCalendar calendar;
    QCOMPARE(calendar.view->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(calendar.today()->text(), QStringLiteral("Today!"));
    QCOMPARE(calendar.today()->height(), expectedPixels(24));
    QCOMPARE(calendar.today()->styleSheet(), getStyleSheet("component.cancel_button", false));
    QCOMPARE(paintedColor(calendar.today(), QPoint(2, 2)), QColor("#e0e010"));

    auto *column = qobject_cast<QVBoxLayout *>(calendar.view->layout());
    QVERIFY(column);
    QCOMPARE(column->count(), 2);
    QCOMPARE(column->itemAt(0)->widget(), calendar.widget());
    QCOMPARE(column->itemAt(0)->alignment(), Qt::Alignment());
    QCOMPARE(column->itemAt(1)->widget(), calendar.today());
    QCOMPARE(column->itemAt(1)->alignment(), Qt::AlignHCenter);
    QCOMPARE(column->stretch(0), 0);
    QCOMPARE(column->stretch(1), 0);
    QVERIFY(calendar.today()->y() >= calendar.widget()->geometry().bottom());
    const int left = calendar.today()->x();
    const int right = calendar.view->width() - calendar.today()->geometry().right() - 1;
    QVERIFY2(qAbs(left - right) <= 2, qPrintable(QStringLiteral("%1 left, %2 right").arg(left).arg(right)));

    QWidget plain;
    const QVBoxLayout untouched(&plain);
    QCOMPARE(column->contentsMargins(), untouched.contentsMargins());
    QCOMPARE(column->spacing(), untouched.spacing());
}

void VelaCalendarViewTest::theWeekStartsOnSundayWithoutHeadersOfQt()
{
    QLocale::setDefault(QLocale(QLocale::German)); // a locale whose week starts on Monday
    VelaCalanderView view;
    const Calendar calendar(&view);
    QCOMPARE(calendar.widget()->parentWidget(), &view);
    QCOMPARE(calendar.widget()->firstDayOfWeek(), Qt::Sunday);
    QCOMPARE(calendar.widget()->horizontalHeaderFormat(), QCalendarWidget::NoHorizontalHeader);
    QCOMPARE(calendar.widget()->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
    QCOMPARE(calendar.grid()->model()->columnCount(), DaysPerWeek);
}

void VelaCalendarViewTest::saturdayAndSundayAreDrawnInBlack()
{
    QCalendarWidget plain;
    plain.setCurrentPage(2024, 4);
    plain.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plain));
    auto *plainGrid = plain.findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    QVERIFY(countReddish(plainGrid->viewport()->grab().toImage()) > 0);

    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    QCOMPARE(countReddish(calendar.grid()->viewport()->grab().toImage()), 0);
    for (Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        QTextCharFormat expected = plain.weekdayTextFormat(day);
        expected.setForeground(QBrush(Qt::black, Qt::SolidPattern));
        QCOMPARE(calendar.widget()->weekdayTextFormat(day), expected);
    }
    QCOMPARE(calendar.widget()->weekdayTextFormat(Qt::Friday), plain.weekdayTextFormat(Qt::Friday));
}

void VelaCalendarViewTest::daysThatCannotBeChosenLookAsInADisabledGrid_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QColor>("expected");
    const QString plain = QStringLiteral("QTableView { background-color: #ffffff } ");
    QTest::newRow("no sheet, Qt's mark") << QString() << QPalette().color(QPalette::Window);
    QTest::newRow("no look of a disabled grid") << plain << QColor(Qt::white);
    QTest::newRow("another text only") << plain + QStringLiteral("QTableView:disabled { color: #ff0000 }")
                                       << QColor(Qt::white);
    QTest::newRow("another surface") << plain + QStringLiteral("QTableView:disabled { background-color: #00ff00 }")
                                     << QColor(Qt::green);
}

void VelaCalendarViewTest::daysThatCannotBeChosenLookAsInADisabledGrid()
{
    QFETCH(QString, sheet);
    QFETCH(QColor, expected);
    VelaCalanderView view;
    auto *grid = view.findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"));
    grid->setStyleSheet(sheet);
    view.resize(expectedPixels(280), expectedPixels(260));
    view.setCurrentPage(2024, 4);
    view.setMinimumDate(SomeDay);
    view.setMaximumDate(SomeDay.addDays(7));
    view.show();
    const auto surface = [grid](int row) {
        const QRect rect = grid->visualRect(grid->model()->index(row, 0));
        return paintedColor(grid->viewport(), rect.topLeft() + QPoint(2, 2));
    };
    QCOMPARE(surface(1), expected); // the seventh of the month
    QCOMPARE(surface(3), grid->palette().color(QPalette::Base)); // the 21st of the month
}

void VelaCalendarViewTest::thePartsAreNamedForAssistiveTools()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    QCOMPARE(view.accessibleName(), QStringLiteral("the calendar"));
    QCOMPARE(calendar.previous()->accessibleName(), QStringLiteral("back"));
    QCOMPARE(calendar.next()->accessibleName(), QStringLiteral("on"));
}

void VelaCalendarViewTest::theButtonsOfTheBarTakeTheFocus()
{
    const ShownCalendar calendar;
    for (QToolButton *button : {calendar.previous(), calendar.next(), calendar.month(), calendar.year()}) {
        QCOMPARE(button->focusPolicy(), Qt::StrongFocus);
        button->setFocus(Qt::TabFocusReason);
        QVERIFY(button->hasFocus());
    }
}

void VelaCalendarViewTest::theArrowsShowTheirImages()
{
    const ShownCalendar calendar;
    // The icon size is the image's, in pixels: a ratio of 2 has twice as many of the device in it.
    QCOMPARE(calendar.previous()->iconSize(), expectedImageSize(QSize(64, 48)) / expectedRatio());
    QCOMPARE(calendar.next()->iconSize(), expectedImageSize(QSize(48, 64)) / expectedRatio());
    QCOMPARE(paintedColor(calendar.previous()), QColor(Qt::magenta));
    QCOMPARE(paintedColor(calendar.next()), QColor(Qt::blue));
}

void VelaCalendarViewTest::theBarIsNotFilledAndTheYearEditHasNoMacFocusRectangle()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    QVERIFY(!calendar.bar()->autoFillBackground());
    QVERIFY(!calendar.yearEdit()->testAttribute(Qt::WA_MacShowFocusRect));
}

void VelaCalendarViewTest::aPressOnTheEmptyPartOfTheBarHasNoEffect()
{
    const ShownCalendar calendar;
    const int x = (calendar.previous()->geometry().right() + calendar.month()->x()) / 2;
    const QPoint empty = calendar.bar()->mapTo(calendar.view, QPoint(x, calendar.bar()->height() / 2));
    QCOMPARE(calendar.view->childAt(empty), calendar.bar());
    const QDate page = calendar.page();
    const QDate selected = calendar.widget()->selectedDate();
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);

    // What the bar did not take would be passed on to the calendar.
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
        EventCounter reached(calendar.bar(), type);
        EventCounter passedOn(calendar.widget(), type);
        QTest::mouseClick(calendar.window(), Qt::LeftButton, {}, empty);
        QTest::mouseDClick(calendar.window(), Qt::LeftButton, {}, empty);
        QVERIFY(reached.take() > 0);
        QCOMPARE(passedOn.take(), 0);
    }
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(calendar.page(), page);
    QCOMPARE(calendar.widget()->selectedDate(), selected);
    QVERIFY(!calendar.yearEdit()->isVisible());
}

void VelaCalendarViewTest::theButtonsOfTheBarWork()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    calendar.click(calendar.next());
    QCOMPARE(calendar.page(), QDate(2024, 5, 1));
    calendar.click(calendar.previous());
    calendar.click(calendar.previous());
    QCOMPARE(calendar.page(), QDate(2024, 3, 1));

    calendar.click(calendar.year());
    QVERIFY(calendar.yearEdit()->isVisible());
    QVERIFY(calendar.yearEdit()->hasFocus());
    QTest::keyClick(calendar.window(), Qt::Key_Up);
    calendar.key(Qt::Key_Return);
    QCOMPARE(calendar.page(), QDate(2025, 3, 1));
    QVERIFY(!calendar.yearEdit()->isVisible());
}

void VelaCalendarViewTest::theMonthMenuShowsThreeLettersAndTheButtonTheWholeName()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    const QList<QAction *> actions = calendar.month()->menu()->actions();
    QCOMPARE(actions.size(), MonthsPerYear);
    QCOMPARE(actions[8]->text(), QStringLiteral("Sep"));
    for (int i = 0; i < MonthsPerYear; ++i) {
        QCOMPARE(actions[i]->data().toInt(), i + 1);
        QCOMPARE(actions[i]->text(), EnglishMonths[i].left(3));
    }
    view.setCurrentPage(2024, 9);
    QCOMPARE(calendar.month()->text(), QStringLiteral("September"));
}

void VelaCalendarViewTest::shortAndForeignMonthNamesAreCutAfterThreeCharacters()
{
    QStringList months = numbered(QStringLiteral("Ünï%1"), MonthsPerYear);
    months[0] = QStringLiteral("1月");
    months[1] = QStringLiteral("двенадцать");
    installTexts(months, EnglishWeekdays);
    VelaCalanderView view;
    const Calendar calendar(&view);
    const QList<QAction *> actions = calendar.month()->menu()->actions();
    QCOMPARE(actions[0]->text(), QStringLiteral("1月"));
    QCOMPARE(actions[1]->text(), QStringLiteral("две"));
    QCOMPARE(actions[2]->text(), QStringLiteral("Ünï"));
    view.setCurrentPage(2024, 2);
    QCOMPARE(calendar.month()->text(), QStringLiteral("двенадцать"));
}

void VelaCalendarViewTest::theMonthButtonStartsWithThisMonth()
{
    const QStringList months = numbered(QStringLiteral("month %1"), MonthsPerYear); // names that no locale has
    installTexts(months, EnglishWeekdays);
    VelaCalanderView view;
    const QDate today = QDate::currentDate();
    QCOMPARE(Calendar(&view).month()->text(), months[today.month() - 1]);
    QCOMPARE(Calendar(&view).page(), QDate(today.year(), today.month(), 1));
}

void VelaCalendarViewTest::theMonthButtonFollowsThePage_data()
{
    QTest::addColumn<int>("month");
    for (int month = 1; month <= MonthsPerYear; ++month) {
        QTest::newRow(qPrintable(EnglishMonths[month - 1])) << month;
    }
}

void VelaCalendarViewTest::theMonthButtonFollowsThePage()
{
    QFETCH(int, month);
    QLocale::setDefault(QLocale(QLocale::German)); // a locale whose names the calendar would have of itself
    VelaCalanderView view;
    const Calendar calendar(&view);
    view.setCurrentPage(2021, month);
    QCOMPARE(calendar.page(), QDate(2021, month, 1));
    QCOMPARE(calendar.month()->text(), EnglishMonths[month - 1]);
    calendar.next()->click();
    QCOMPARE(calendar.month()->text(), EnglishMonths[month % MonthsPerYear]);
}

void VelaCalendarViewTest::aChosenMonthIsShownByItsWholeName()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    QMenu *menu = calendar.month()->menu();
    const MenuUser user(menu, [menu] {
        QTest::keyClick(menu->windowHandle(), Qt::Key_Down);
        QTest::keyClick(menu->windowHandle(), Qt::Key_Down);
        QTest::keyClick(menu->windowHandle(), Qt::Key_Return);
    });
    calendar.click(calendar.month());
    QVERIFY(user.hasUsed());
    QVERIFY(!menu->isVisible());
    QCOMPARE(calendar.page(), QDate(2024, 2, 1));
    QCOMPARE(calendar.month()->text(), QStringLiteral("February"));
}

void VelaCalendarViewTest::theSlotsWriteTheMonthOnly()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    view.setCurrentPage(2024, 4);
    view.pageChanged(1999, 9);
    QCOMPARE(calendar.month()->text(), QStringLiteral("September"));
    QCOMPARE(calendar.page(), QDate(2024, 4, 1));

    QAction action;
    action.setData(12);
    view.slotMonthTriggered(&action);
    QCOMPARE(calendar.month()->text(), QStringLiteral("December"));
    QCOMPARE(calendar.page(), QDate(2024, 4, 1));
}

void VelaCalendarViewTest::aLaterLanguageIsNotPickedUp()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    installTexts(numbered(QStringLiteral("m%1"), MonthsPerYear), JapaneseWeekdays);
    QEvent change(QEvent::LanguageChange);
    QApplication::sendEvent(&view, &change);
    view.setCurrentPage(2024, 4);
    QCOMPARE(calendar.month()->text(), QStringLiteral("April"));
    QCOMPARE(calendar.weekdays()->item(0, 0)->text(), QStringLiteral("S"));
}

void VelaCalendarViewTest::anotherLocaleChangesNeitherWeekNorMonths_data()
{
    QTest::addColumn<Change>("change");
    const QLocale german(QLocale::German); // a locale whose week starts on Monday
    QTest::newRow("of the view") << Change([german](VelaCalanderView *view, QWidget *) { view->setLocale(german); });
    QTest::newRow("of the window") << Change([german](VelaCalanderView *view, QWidget *window) {
        view->setParent(window);
        window->setLocale(german);
    });
    QTest::newRow("by another parent") << Change([german](VelaCalanderView *view, QWidget *window) {
        window->setLocale(german);
        view->setParent(window);
    });
    QTest::newRow("and back") << Change([german](VelaCalanderView *view, QWidget *) {
        view->setLocale(german);
        view->unsetLocale();
    });
    QTest::newRow("as a popup") << Change([german](VelaCalanderView *view, QWidget *window) {
        auto *comboBox = new QComboBox(window);
        comboBox->setView(view);
        comboBox->setLocale(german);
    });
}

void VelaCalendarViewTest::anotherLocaleChangesNeitherWeekNorMonths()
{
    QFETCH(Change, change);
    QWidget window;
    auto *view = new VelaCalanderView;
    const Calendar calendar(view);
    view->setCurrentPage(2024, 4);
    EventCounter changes(view, QEvent::LocaleChange);
    change(view, &window);
    QVERIFY(changes.take() > 0);
    const std::unique_ptr<VelaCalanderView> owned(view->parent() ? nullptr : view);

    QCOMPARE(calendar.widget()->firstDayOfWeek(), Qt::Sunday);
    QCOMPARE(calendar.weekdays()->item(0, 1)->text(), QStringLiteral("M"));
    QCOMPARE(calendar.cell(1).column(), 1); // a Monday's column
    QCOMPARE(calendar.month()->text(), QStringLiteral("April"));
    QCOMPARE(calendar.page(), QDate(2024, 4, 1));
    const QList<QAction *> actions = calendar.month()->menu()->actions();
    QCOMPARE(actions.size(), MonthsPerYear);
    for (int i = 0; i < MonthsPerYear; ++i) {
        QCOMPARE(actions[i]->text(), EnglishMonths[i].left(3));
    }
    calendar.next()->click();
    QCOMPARE(calendar.month()->text(), QStringLiteral("May"));
    QCOMPARE(calendar.cell(1).column(), 3);
    calendar.previous()->click();
    QCOMPARE(calendar.page(), QDate(2024, 4, 1));
}

void VelaCalendarViewTest::anotherLocaleLeavesTheSelectedDayWhereItIs()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    calendar.click(17);
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    const QSignalSpy selected(calendar.widget(), &QCalendarWidget::selectionChanged);
    const QSignalSpy turned(calendar.widget(), &QCalendarWidget::currentPageChanged);
    const QPoint place = calendar.middleOf(17);
    calendar.view->setLocale(QLocale(QLocale::German));
    QCOMPARE(calendar.widget()->selectedDate(), SomeDay);
    QCOMPARE(calendar.grid()->currentIndex(), calendar.cell(17));
    QCOMPARE(calendar.middleOf(17), place);
    QCOMPARE(chosen.count() + selected.count() + turned.count(), 0);
    calendar.click(18);
    QCOMPARE(dates(chosen), QList<QDate> {SomeDay.addDays(1)});
}

void VelaCalendarViewTest::theYearFollowsTheLocale()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    view.setCurrentPage(2024, 4);
    view.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QString year = QStringLiteral("٢٠٢٤");
    QCOMPARE(calendar.yearEdit()->text(), year);
    QCOMPARE(calendar.year()->text(), year);
    view.setCurrentPage(2025, 4);
    QCOMPARE(calendar.year()->text(), calendar.yearEdit()->text());
    QCOMPARE(calendar.month()->text(), QStringLiteral("April"));
}

void VelaCalendarViewTest::anotherLayoutDirectionLeavesTheArrowsTheirImages_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("of the view") << Change(
        [](VelaCalanderView *view, QWidget *) { view->setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("of the window") << Change(
        [](VelaCalanderView *, QWidget *window) { window->setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("of the application") << Change(
        [](VelaCalanderView *, QWidget *) { QApplication::setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("and back") << Change([](VelaCalanderView *view, QWidget *) {
        view->setLayoutDirection(Qt::RightToLeft);
        view->setLayoutDirection(Qt::LeftToRight);
    });
}

void VelaCalendarViewTest::anotherLayoutDirectionLeavesTheArrowsTheirImages()
{
    QFETCH(Change, change);
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *view = new VelaCalanderView(&window);
    column->addWidget(view);
    const Calendar calendar(view);
    view->setCurrentPage(2024, 4);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    EventCounter changes(view, QEvent::LayoutDirectionChange);
    change(view, &window);
    QVERIFY(changes.take() > 0);
    QCoreApplication::processEvents(); // lays the bar out

    const bool isMirrored = view->isRightToLeft();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(calendar.previous()->iconSize(), expectedImageSize(QSize(64, 48)) / expectedRatio());
    QCOMPARE(calendar.next()->iconSize(), expectedImageSize(QSize(48, 64)) / expectedRatio());
    QCOMPARE(paintedColor(calendar.previous()), QColor(Qt::magenta));
    QCOMPARE(paintedColor(calendar.next()), QColor(Qt::blue));
    QCOMPARE(calendar.month()->text(), QStringLiteral("April"));
    QCOMPARE(calendar.previous()->x() > calendar.next()->x(), isMirrored);
    QCOMPARE(calendar.widget()->firstDayOfWeek(), Qt::Sunday);
}

void VelaCalendarViewTest::theWeekdayRowShowsOneLetterPerDayStartingWithSunday_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << EnglishWeekdays << QStringLiteral("SMTWTFS");
    QTest::newRow("Japanese") << JapaneseWeekdays << QStringLiteral("日月火水木金土");
}

void VelaCalendarViewTest::theWeekdayRowShowsOneLetterPerDayStartingWithSunday()
{
    QFETCH(QStringList, names);
    QFETCH(QString, expected);
    installTexts(EnglishMonths, names);
    VelaCalanderView view;
    const Calendar calendar(&view);
    QCOMPARE(calendar.weekdays()->rowCount(), 1);
    QCOMPARE(calendar.weekdays()->columnCount(), DaysPerWeek);
    for (int i = 0; i < DaysPerWeek; ++i) {
        const QTableWidgetItem *item = calendar.weekdays()->item(0, i);
        QCOMPARE(item->text(), QString(expected[i]));
        QCOMPARE(item->textAlignment(), static_cast<int>(Qt::AlignHCenter | Qt::AlignVCenter));
    }
}

void VelaCalendarViewTest::theWeekdayRowIsSetUpAsAHeader()
{
    const ShownCalendar calendar;
    const QTableWidget *row = calendar.weekdays();
    QCOMPARE(row->focusPolicy(), Qt::NoFocus);
    QCOMPARE(row->height(), expectedPixels(30));
    QCOMPARE(row->minimumHeight(), row->maximumHeight());
    QVERIFY(row->horizontalHeader()->isHidden());
    QVERIFY(row->verticalHeader()->isHidden());
    QCOMPARE(row->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(row->sizeAdjustPolicy(), QAbstractScrollArea::AdjustToContents);
    QCOMPARE(row->editTriggers(), QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
    QCOMPARE(row->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(row->frameStyle(), 0);
    QVERIFY(!row->showGrid());
    QCOMPARE(row->horizontalHeader()->defaultSectionSize(), 30);
    QCOMPARE(calendar.grid()->horizontalHeader()->defaultSectionSize(), 30);
    QCOMPARE(row->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);

    auto *column = qobject_cast<QVBoxLayout *>(calendar.widget()->layout());
    QVERIFY(column);
    QCOMPARE(column->indexOf(calendar.weekdays()), 1);
    QCOMPARE(column->stretch(1), 0);
    QCOMPARE(column->itemAt(1)->alignment(), Qt::Alignment());
    QVERIFY(row->y() > calendar.bar()->geometry().bottom());
    QVERIFY(row->geometry().bottom() < calendar.grid()->y());
}

void VelaCalendarViewTest::theWeekdayRowHasTheSheetsOfTheTable()
{
    const ShownCalendar calendar;
    QCOMPARE(calendar.weekdays()->styleSheet(), getStyleSheet("component.table", false));
    QVERIFY(calendar.weekdays()->styleSheet().contains(QStringLiteral("min-width: %1px").arg(expectedPixels(9))));
    QCOMPARE(calendar.weekdays()->horizontalHeader()->styleSheet(), getStyleSheet("component.table_header", false));
    QVERIFY(calendar.weekdays()->horizontalHeader()->styleSheet().contains(
        QStringLiteral("max-height: %1px").arg(expectedPixels(91))));
    QCOMPARE(paintedColor(calendar.weekdays(), QPoint(2, 2)), QColor("#10e0e0"));
}

void VelaCalendarViewTest::theWeekdaysStandAboveTheirDays()
{
    const ShownCalendar calendar;
    for (int i = 0; i < DaysPerWeek; ++i) {
        const auto middle = [&](const QTableView *table) {
            const QRect cell = table->visualRect(table->model()->index(0, i));
            return table->viewport()->mapTo(calendar.view, cell.center()).x();
        };
        const int distance = qAbs(middle(calendar.weekdays()) - middle(calendar.grid()));
        QVERIFY2(distance <= 3, qPrintable(QStringLiteral("column %1: %2 pixels").arg(i).arg(distance)));
    }
}

void VelaCalendarViewTest::theWeeksAskForTheRoomThatQtGivesThemAndGetByWithLess()
{
    QFont font = QApplication::font();
    font.setPixelSize(40);
    QCalendarWidget ofQt;
    ofQt.setHorizontalHeaderFormat(QCalendarWidget::NoHorizontalHeader);
    ofQt.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    ofQt.setFont(font);
    VelaCalanderView view;
    view.setFont(font);
    const Calendar calendar(&view);
    ofQt.findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth"))
        ->setIconSize(calendar.previous()->iconSize());
    ofQt.findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth"))->setIconSize(calendar.next()->iconSize());
    QCOMPARE(calendar.widget()->minimumSizeHint().height(), ofQt.minimumSizeHint().height());

    view.setFixedSize(280, 260);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTRY_VERIFY(calendar.grid()->verticalHeader()->length() <= calendar.grid()->viewport()->height());
}

void VelaCalendarViewTest::aClickOnADaySaysSo()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    QTest::mousePress(calendar.window(), Qt::LeftButton, {}, calendar.middleOf(17));
    QCOMPARE(chosen.count(), 0);
    QTest::mouseRelease(calendar.window(), Qt::LeftButton, {}, calendar.middleOf(17));
    QCOMPARE(dates(chosen), QList<QDate> {SomeDay});
    QCOMPARE(calendar.widget()->selectedDate(), SomeDay);
}

void VelaCalendarViewTest::aDoubleClickAndEnterSaySoAgain()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    const QSignalSpy clicked(calendar.widget(), &QCalendarWidget::clicked);
    const QSignalSpy activated(calendar.widget(), &QCalendarWidget::activated);

    calendar.doubleClick(17);
    QVERIFY(activated.count() > 0);
    QVERIFY(chosen.count() > 1);
    QCOMPARE(chosen.count(), clicked.count() + activated.count());
    const int before = chosen.count();
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        calendar.key(key);
    }
    QCOMPARE(chosen.count(), before + 2);
    for (const QDate &date : dates(chosen)) {
        QCOMPARE(date, SomeDay);
    }
}

void VelaCalendarViewTest::arrowsMoveAndEnterChooses()
{
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    calendar.click(17);
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    for (Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left, Qt::Key_Up, Qt::Key_Up}) {
        calendar.key(key);
    }
    QCOMPARE(chosen.count(), 0);
    calendar.key(Qt::Key_Return);
    QCOMPARE(dates(chosen), QList<QDate> {QDate(2024, 4, 9)});
    for (int week = 0; week < 2; ++week) {
        calendar.key(Qt::Key_Up);
    }
    QCOMPARE(calendar.page(), QDate(2024, 3, 1));
    QCOMPARE(calendar.month()->text(), QStringLiteral("March"));
    calendar.key(Qt::Key_Enter);
    QCOMPARE(dates(chosen).last(), QDate(2024, 3, 26));
}

void VelaCalendarViewTest::todaySelectsTodayAndSaysSoOnce_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("click") << Qt::Key(0);
    QTest::newRow("space") << Qt::Key_Space;
}

void VelaCalendarViewTest::todaySelectsTodayAndSaysSoOnce()
{
    QFETCH(Qt::Key, key);
    const QDate today = QDate::currentDate();
    const ShownCalendar calendar;
    calendar.view->setCurrentPage(2024, 4);
    calendar.click(17);
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    QDate selectedWhenSaid;
    connect(calendar.view, &VelaCalanderView::sigDateSelect, calendar.view,
            [&] { selectedWhenSaid = calendar.widget()->selectedDate(); });
    const QPoint middle = Calendar::middleIn(calendar.today());
    if (key == 0) {
        QTest::mousePress(calendar.window(), Qt::LeftButton, {}, middle);
        QCOMPARE(chosen.count(), 0);
        QTest::mouseRelease(calendar.window(), Qt::LeftButton, {}, middle);
    } else {
        calendar.today()->setFocus();
        QTest::keyPress(calendar.window(), key);
        QCOMPARE(chosen.count(), 0);
        QTest::keyRelease(calendar.window(), key);
    }
    QCOMPARE(dates(chosen), QList<QDate> {today});
    QCOMPARE(selectedWhenSaid, today);
    QCOMPARE(calendar.widget()->selectedDate(), today);
    QCOMPARE(calendar.page(), QDate(today.year(), today.month(), 1));
    QCOMPARE(calendar.month()->text(), EnglishMonths[today.month() - 1]);
}

void VelaCalendarViewTest::daysOutsideOfTheLimitsCannotBeChosen()
{
    const ShownCalendar calendar;
    calendar.view->setMinimumDate(QDate(2024, 4, 10));
    calendar.view->setMaximumDate(QDate(2024, 4, 20));
    QCOMPARE(calendar.widget()->minimumDate(), QDate(2024, 4, 10));
    QCOMPARE(calendar.widget()->maximumDate(), QDate(2024, 4, 20));
    QCOMPARE(calendar.page(), QDate(2024, 4, 1));
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    for (int day : {9, 21, 10, 20}) {
        calendar.click(day);
    }
    QCOMPARE(dates(chosen), (QList<QDate> {QDate(2024, 4, 10), QDate(2024, 4, 20)}));
    calendar.click(calendar.next());
    calendar.click(calendar.previous());
    QCOMPARE(calendar.page(), QDate(2024, 4, 1));

    const QDate today = QDate::currentDate(); // a day that is said, though it cannot be selected
    calendar.click(10);
    calendar.view->selectToday();
    QCOMPARE(dates(chosen).last(), today);
    QCOMPARE(calendar.widget()->selectedDate(), QDate(2024, 4, 20));
}

void VelaCalendarViewTest::turningThePageSelectsNothing()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    const QDate selected = calendar.widget()->selectedDate();
    const QSignalSpy chosen(&view, &VelaCalanderView::sigDateSelect);
    view.setCurrentPage(2021, 2);
    QCOMPARE(calendar.page(), QDate(2021, 2, 1));
    QCOMPARE(calendar.widget()->selectedDate(), selected);
    QCOMPARE(chosen.count(), 0);
}

void VelaCalendarViewTest::aViewCanBeDeletedWhileItsYearIsEdited()
{
    auto calendar = std::make_unique<ShownCalendar>();
    calendar->click(calendar->year());
    QVERIFY(calendar->yearEdit()->hasFocus());
    calendar->key(Qt::Key_Up);
    QVERIFY(calendar->yearEdit()->value() != calendar->page().year());
    const QSignalSpy turned(calendar->widget(), &QCalendarWidget::currentPageChanged);
    calendar.reset();
    QCOMPARE(turned.count(), 1); // the end of the editing, when there is no view any longer, turns the page
}

void VelaCalendarViewTest::itTellsItsLimits()
{
    VelaCalanderView view;
    view.setMinimumDate(QDate(2026, 2, 3));
    view.setMaximumDate(QDate(2026, 4, 5));
    QCOMPARE(view.minimumDate(), QDate(2026, 2, 3));
    QCOMPARE(view.maximumDate(), QDate(2026, 4, 5));
}

QTEST_MAIN(VelaCalendarViewTest)
#include "tst_vela_calendar_view.moc"
