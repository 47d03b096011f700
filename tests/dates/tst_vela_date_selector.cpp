// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "component/vela-date-selector.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QDir>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

Q_DECLARE_METATYPE(Qt::Key)
Q_DECLARE_METATYPE(Qt::KeyboardModifier)

namespace {

constexpr int MonthsPerYear = 12;
constexpr int DaysPerWeek = 7;

const QStringList MonthKeys {QStringLiteral("month_jan"), QStringLiteral("month_feb"), QStringLiteral("month_mar"),
                             QStringLiteral("month_apr"), QStringLiteral("month_may"), QStringLiteral("month_jun"),
                             QStringLiteral("month_jul"), QStringLiteral("month_aug"), QStringLiteral("month_sep"),
                             QStringLiteral("month_oct"), QStringLiteral("month_nov"), QStringLiteral("month_dec")};
const QStringList WeekdayKeys {QStringLiteral("sunday"),    QStringLiteral("monday"),   QStringLiteral("tuesday"),
                               QStringLiteral("wednesday"), QStringLiteral("thursday"), QStringLiteral("friday"),
                               QStringLiteral("saturday")};

const QStringList EnglishMonths {QStringLiteral("January"), QStringLiteral("February"), QStringLiteral("March"),
                                 QStringLiteral("April"),   QStringLiteral("May"),      QStringLiteral("June"),
                                 QStringLiteral("July"),    QStringLiteral("August"),   QStringLiteral("September"),
                                 QStringLiteral("October"), QStringLiteral("November"), QStringLiteral("December")};
const QStringList EnglishWeekdays {QStringLiteral("Sunday"),    QStringLiteral("Monday"),   QStringLiteral("Tuesday"),
                                   QStringLiteral("Wednesday"), QStringLiteral("Thursday"), QStringLiteral("Friday"),
                                   QStringLiteral("Saturday")};
const QStringList JapaneseWeekdays {QStringLiteral("日曜日"), QStringLiteral("月曜日"), QStringLiteral("火曜日"),
                                    QStringLiteral("水曜日"), QStringLiteral("木曜日"), QStringLiteral("金曜日"),
                                    QStringLiteral("土曜日")};

// No two sheets give the same colour.
const char *const Sheets =
    "== component.table ==\nQTableView { background: #10e0e0; border: none; min-width: 9px }\n"
    "== component.table_header ==\nQHeaderView { max-height: 91px }\n"
    "== component.cancel_button ==\nQPushButton { background: #e0e010; padding: 0px 9px }\n"
    "== component.date_selector ==\nQComboBox { background: #f0d0d0; border: 3px solid #a01010 }\n"
    "== component.menu ==\nQComboBox { background: #d0f0d0; padding: 0px 9px }\n";

// In year 2024: Monday the 1st of April, Sunday the 1st of September.
const QDate SomeDay(2024, 4, 17);
const QString EmptyText = QStringLiteral("no date");
const QPoint Outside(1, 1);

QStringList numbered(const QString &pattern, int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i) {
        names.append(pattern.arg(i, 2, 10, QLatin1Char('0')));
    }
    return names;
}

void installTexts(const QStringList &months, const QStringList &weekdays)
{
    QMap<QString, QString> texts {
        {QStringLiteral("today"), QStringLiteral("Today!")},
        {QStringLiteral("accessible_calendar"), QStringLiteral("the calendar")},
        {QStringLiteral("accessible_calendar_prev_month"), QStringLiteral("back")},
        {QStringLiteral("accessible_calendar_next_month"), QStringLiteral("on")},
    };
    for (int i = 0; i < months.size(); ++i) {
        texts.insert(MonthKeys[i], months[i]);
    }
    for (int i = 0; i < weekdays.size(); ++i) {
        texts.insert(WeekdayKeys[i], weekdays[i]);
    }
    ComponentStrings::getInstance()->installStrings(texts);
}

/// Installs the texts of one of the reference theme's languages.
void installTextsOf(const QString &fileName)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QMap<QString, QString> texts;
    const QVariantMap entries = QJsonDocument::fromJson(file.readAll()).toVariant().toMap();
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        texts.insert(it.key(), it.value().toString());
    }
    ComponentStrings::getInstance()->installStrings(texts);
}

/// Waits for the new day at midnight, if that is near: today is read by the library too.
void keepClearOfMidnight()
{
    constexpr int Margin = 20000; // milliseconds, longer than any test takes
    const int left = QTime::currentTime().msecsTo(QTime(23, 59, 59, 999)) + 1;
    if (left < Margin) {
        QTest::qSleep(left);
    }
}

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

    /// The page shown.
    QDate page() const { return QDate(widget()->yearShown(), widget()->monthShown(), 1); }

    /// The cell of a day of the page: the days follow upon the first 1 that is seen.
    QModelIndex cell(int day) const
    {
        const QAbstractItemModel *model = grid()->model();
        for (int i = 0; i < model->rowCount() * model->columnCount(); ++i) {
            if (model->index(i / DaysPerWeek, i % DaysPerWeek).data().toInt() == 1) {
                const int position = i + day - 1;
                return model->index(position / DaysPerWeek, position % DaysPerWeek);
            }
        }
        return QModelIndex();
    }

    QWindow *window() const { return view->window()->windowHandle(); }
    static QPoint middleIn(const QWidget *widget) { return widget->mapTo(widget->window(), widget->rect().center()); }
    QPoint middleOf(int day) const
    {
        return grid()->viewport()->mapTo(view->window(), grid()->visualRect(cell(day)).center());
    }
    void click(const QPoint &position) const { QTest::mouseClick(window(), Qt::LeftButton, {}, position); }
    void click(const QWidget *widget) const { click(middleIn(widget)); }
    void click(int day) const { click(middleOf(day)); }
    /// As the system tells of it: the second press of a pair.
    void doubleClick(int day) const
    {
        click(day);
        QTest::mouseDClick(window(), Qt::LeftButton, {}, middleOf(day));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const { QTest::keyClick(window(), key, modifiers); }

    /// The names of the stops of the tab cycle in their order; the view, the first, has an empty one.
    QStringList stops() const
    {
        QStringList names;
        for (const QWidget *stop :
             {static_cast<QWidget *>(view), static_cast<QWidget *>(previous()), static_cast<QWidget *>(next()),
              static_cast<QWidget *>(month()), static_cast<QWidget *>(year()), static_cast<QWidget *>(grid()),
              static_cast<QWidget *>(today())}) {
            names.append(stop->objectName());
        }
        return names;
    }
    /// Presses Tab or Backtab some times; the names of what has the focus after each.
    QStringList visit(Qt::Key key, int times) const
    {
        QStringList names;
        for (int i = 0; i < times; ++i) {
            this->key(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            names.append(QApplication::focusWidget() ? QApplication::focusWidget()->objectName()
                                                     : QStringLiteral("nothing"));
        }
        return names;
    }

    VelaCalanderView *const view;
};

/// A calendar view in a window of its own.
class ShownCalendar : public Calendar
{
public:
    ShownCalendar() : Calendar(new VelaCalanderView)
    {
        view->show();
        isActive = QTest::qWaitForWindowActive(view);
        QTest::mouseMove(window(), Outside);
        view->setFocus();
    }
    ~ShownCalendar() { delete view; }
    Q_DISABLE_COPY_MOVE(ShownCalendar)

    bool isActive = false;
};

/// A date selector in a window, with room around, and its popup.
class ShownSelector : public Calendar
{
public:
    ShownSelector() : ShownSelector(new VelaDateSelector(EmptyText)) { }

    void showPopup()
    {
        selector->showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(view->window()));
    }
    void open()
    {
        QTest::mouseClick(host.windowHandle(), Qt::LeftButton, {}, middleIn(selector));
        QVERIFY(QTest::qWaitForWindowExposed(view->window()));
        waitForTheSecondClick();
    }
    bool isOpen() const { return view->isVisible(); }
    QDate date() const { return selector->currentData().toDate(); }

    /// A combo box does not let a release close the popup as long as it may belong to the click that has opened it.
    static void waitForTheSecondClick() { QTest::qWait(QApplication::doubleClickInterval() + 50); }

    VelaDateSelector *const selector;
    ControlWindow host;
    const bool isActive;

private:
    explicit ShownSelector(VelaDateSelector *shown) :
        Calendar(shown->getCalendarView()), selector(shown), host(shown), isActive(host.showAndWait())
    {
    }
};

QStringList rotated(QStringList names, int first)
{
    std::rotate(names.begin(), names.begin() + first % names.size(), names.end());
    return names;
}

QStringList reversed(QStringList names)
{
    std::reverse(names.begin(), names.end());
    return names;
}

QList<QDate> dates(const QSignalSpy &spy)
{
    QList<QDate> dates;
    for (const QList<QVariant> &arguments : spy) {
        dates.append(arguments.first().toDate());
    }
    return dates;
}

int countReddish(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            count += color.red() > color.green() + 100 && color.red() > color.blue() + 100;
        }
    }
    return count;
}

} // namespace

/// Of a view that has no parent, or that lies in a window.
using Change = std::function<void(VelaCalanderView *view, QWidget *window)>;
Q_DECLARE_METATYPE(Change)

class VelaDateSelectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void missingTextsShowTheirKeysAndMissingSheetsAreLogged();
    void theViewDeclaresASignalAndThreeSlotsInOrder();
    void theSelectorDeclaresASlotOnly();
    void parentsMayBeLeftOut();
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

    void aClickOnADaySaysSo();
    void aDoubleClickAndEnterSaySoAgain();
    void arrowsMoveAndEnterChooses();
    void todaySelectsTodayAndSaysSoOnce_data();
    void todaySelectsTodayAndSaysSoOnce();
    void daysOutsideOfTheLimitsCannotBeChosen();
    void turningThePageSelectsNothing();

    void tabVisitsEveryStopAndComesBack();
    void betweenOthersTabVisitsTheViewAfterItsParts();
    void fromTheYearEditTabGoesOnToTheGridAndRound();
    void tabInTheYearEditIsNotSeenByTheSpinBox();
    void theFilterSwallowsTabAndBacktabOnly();
    void tabOntoTheGridSetsItsCurrentCellAnew();

    void aFreshSelectorHasNoDate();
    void theSelectorsSizesAreScaled();
    void theMenusRulesWinOverTheSelectors();
    void aDateFromCodeIsShownInTheLocalesShortFormat_data();
    void aDateFromCodeIsShownInTheLocalesShortFormat();
    void aDateFromCodeTurnsThePageButSelectsNothing();
    void anInvalidDateEmptiesTheField();
    void clearingGoesBackToThisMonth();
    void itHoldsOneItemWhateverIsDone();

    void thePopupOpensByClickAndKey_data();
    void thePopupOpensByClickAndKey();
    void aClickOnADayClosesThePopupAndShowsTheDay();
    void aReleaseAloneDoesNotCloseThePopup();
    void aDoubleClickOnADayShowsIt();
    void arrowsAndEnterChooseInThePopup_data();
    void arrowsAndEnterChooseInThePopup();
    void todayInThePopupShowsTodayAndClosesIt();
    void anInvalidDateLeavesThePopupOpen();
    void escapeClosesThePopupAndChangesNothing();
    void aClickElsewhereClosesThePopupAndChangesNothing();
    void tabVisitsEveryStopOfThePopupAndComesBack();
    void aMonthIsChosenInThePopupWhichStaysOpen();
    void theYearIsEditedInThePopup_data();
    void theYearIsEditedInThePopup();
    void theLimitsHoldInThePopup();
    void thePopupShowsItsCalendarWithoutCuttingAnything();
    void clearingWhileThePopupIsOpenLeavesItOpen();
    void theCalendarGoesWithTheSelector();
    void aViewCanBeDeletedWhileItsYearIsEdited();

    // The last: the reference theme's texts and sheets stay.
    void thePopupFitsItsCalendarInTheReferenceTheme_data();
    void thePopupFitsItsCalendarInTheReferenceTheme();

private:
    ResourceFolder m_folder;
};

void VelaDateSelectorTest::initTestCase()
{
    m_folder.writeImage(QStringLiteral("bt_pagebar_backend"), QSize(64, 48), Qt::magenta);
    m_folder.writeImage(QStringLiteral("bt_pagebar_nextend"), QSize(48, 64), Qt::blue);
    m_folder.writeCatalogue({QStringLiteral("bt_pagebar_backend"), QStringLiteral("bt_pagebar_nextend")});
    installSheets(m_folder, "");
}

void VelaDateSelectorTest::init()
{
    const QByteArray function = QTest::currentTestFunction();
    if (function.endsWith("InTheReferenceTheme")) {
        installReferenceTheme();
    } else if (function != "missingTextsShowTheirKeysAndMissingSheetsAreLogged") {
        installSheets(m_folder, Sheets);
        installTexts(EnglishMonths, EnglishWeekdays);
    }
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    keepClearOfMidnight();
}

void VelaDateSelectorTest::cleanup()
{
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

// The first: no sheets or texts are installed yet.
void VelaDateSelectorTest::missingTextsShowTheirKeysAndMissingSheetsAreLogged()
{
    LogCapture log;
    VelaDateSelector selector(EmptyText);
    const Calendar calendar(selector.getCalendarView());
    QStringList logged = log.takeTexts();
    QStringList expected;
    for (const char *key : {"cancel_button", "table", "table_header", "date_selector", "menu"}) {
        expected.append(QStringLiteral("Cannot find stylesheet \"component.%1\"").arg(QLatin1String(key)));
    }
    QStringList sheetWarnings = logged.filter(QStringLiteral("stylesheet"));
    sheetWarnings.sort();
    expected.sort();
    QCOMPARE(sheetWarnings, expected);
    QCOMPARE(logged.size() - sheetWarnings.size(), 1 + 3 + MonthsPerYear + DaysPerWeek);

    QCOMPARE(calendar.today()->text(), QStringLiteral("today"));
    QCOMPARE(calendar.view->accessibleName(), QStringLiteral("accessible_calendar"));
    QCOMPARE(calendar.month()->text(), MonthKeys[QDate::currentDate().month() - 1]);
    QCOMPARE(calendar.month()->menu()->actions().first()->text(), QStringLiteral("mon"));
    QCOMPARE(calendar.weekdays()->item(0, 6)->text(), QStringLiteral("s"));
}

void VelaDateSelectorTest::theViewDeclaresASignalAndThreeSlotsInOrder()
{
    QCOMPARE(VelaCalanderView::staticMetaObject.className(), "VelaCalanderView");
    QCOMPARE(VelaCalanderView::staticMetaObject.superClass(), &QAbstractItemView::staticMetaObject);
    QCOMPARE(ownDeclarations(VelaCalanderView::staticMetaObject),
             (QStringList {QStringLiteral("sigDateSelect(QDate)"), QStringLiteral("selectToday()"),
                           QStringLiteral("pageChanged(int,int)"), QStringLiteral("slotMonthTriggered(QAction*)")}));
}

void VelaDateSelectorTest::theSelectorDeclaresASlotOnly()
{
    QCOMPARE(VelaDateSelector::staticMetaObject.className(), "VelaDateSelector");
    QCOMPARE(VelaDateSelector::staticMetaObject.superClass(), &QComboBox::staticMetaObject);
    QCOMPARE(ownDeclarations(VelaDateSelector::staticMetaObject), QStringList {QStringLiteral("dateSelect(QDate)")});
}

void VelaDateSelectorTest::parentsMayBeLeftOut()
{
    QWidget parent;
    QCOMPARE(VelaCalanderView(&parent).parentWidget(), &parent);
    QCOMPARE(VelaDateSelector(EmptyText, &parent).parentWidget(), &parent);
    QVERIFY(!VelaCalanderView().parent());
    QVERIFY(!VelaDateSelector(EmptyText).parent());
}

void VelaDateSelectorTest::theViewsItemsAreInert()
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

void VelaDateSelectorTest::theTodayButtonStandsCentredBelowTheCalendar()
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

void VelaDateSelectorTest::theWeekStartsOnSundayWithoutHeadersOfQt()
{
    QLocale::setDefault(QLocale(QLocale::German)); // whose week starts on Monday
    VelaCalanderView view;
    const Calendar calendar(&view);
    QCOMPARE(calendar.widget()->parentWidget(), &view);
    QCOMPARE(calendar.widget()->firstDayOfWeek(), Qt::Sunday);
    QCOMPARE(calendar.widget()->horizontalHeaderFormat(), QCalendarWidget::NoHorizontalHeader);
    QCOMPARE(calendar.widget()->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
    QCOMPARE(calendar.grid()->model()->columnCount(), DaysPerWeek);
}

void VelaDateSelectorTest::saturdayAndSundayAreDrawnInBlack()
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

void VelaDateSelectorTest::daysThatCannotBeChosenLookAsInADisabledGrid_data()
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

void VelaDateSelectorTest::daysThatCannotBeChosenLookAsInADisabledGrid()
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
    QCOMPARE(surface(1), expected); // the seventh
    QCOMPARE(surface(3), grid->palette().color(QPalette::Base)); // the 21st
}

void VelaDateSelectorTest::thePartsAreNamedForAssistiveTools()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    QCOMPARE(view.accessibleName(), QStringLiteral("the calendar"));
    QCOMPARE(calendar.previous()->accessibleName(), QStringLiteral("back"));
    QCOMPARE(calendar.next()->accessibleName(), QStringLiteral("on"));
}

void VelaDateSelectorTest::theButtonsOfTheBarTakeTheFocus()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
    for (QToolButton *button : {calendar.previous(), calendar.next(), calendar.month(), calendar.year()}) {
        QCOMPARE(button->focusPolicy(), Qt::StrongFocus);
        button->setFocus(Qt::TabFocusReason);
        QVERIFY(button->hasFocus());
    }
}

void VelaDateSelectorTest::theArrowsShowTheirImages()
{
    const ShownCalendar calendar;
    // An icon size is the image's, in pixels: a ratio of 2 has twice as many of the device in it.
    QCOMPARE(calendar.previous()->iconSize(), expectedImageSize(QSize(64, 48)) / expectedRatio());
    QCOMPARE(calendar.next()->iconSize(), expectedImageSize(QSize(48, 64)) / expectedRatio());
    QCOMPARE(paintedColor(calendar.previous()), QColor(Qt::magenta));
    QCOMPARE(paintedColor(calendar.next()), QColor(Qt::blue));
}

void VelaDateSelectorTest::theBarIsNotFilledAndTheYearEditHasNoMacFocusRectangle()
{
    VelaCalanderView view;
    const Calendar calendar(&view);
    QVERIFY(!calendar.bar()->autoFillBackground());
    QVERIFY(!calendar.yearEdit()->testAttribute(Qt::WA_MacShowFocusRect));
}

void VelaDateSelectorTest::aPressOnTheEmptyPartOfTheBarHasNoEffect()
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

void VelaDateSelectorTest::theButtonsOfTheBarWork()
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

void VelaDateSelectorTest::theMonthMenuShowsThreeLettersAndTheButtonTheWholeName()
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

void VelaDateSelectorTest::shortAndForeignMonthNamesAreCutAfterThreeCharacters()
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

void VelaDateSelectorTest::theMonthButtonStartsWithThisMonth()
{
    const QStringList months = numbered(QStringLiteral("month %1"), MonthsPerYear); // as no locale names any
    installTexts(months, EnglishWeekdays);
    VelaCalanderView view;
    const QDate today = QDate::currentDate();
    QCOMPARE(Calendar(&view).month()->text(), months[today.month() - 1]);
    QCOMPARE(Calendar(&view).page(), QDate(today.year(), today.month(), 1));
}

void VelaDateSelectorTest::theMonthButtonFollowsThePage_data()
{
    QTest::addColumn<int>("month");
    for (int month = 1; month <= MonthsPerYear; ++month) {
        QTest::newRow(qPrintable(EnglishMonths[month - 1])) << month;
    }
}

void VelaDateSelectorTest::theMonthButtonFollowsThePage()
{
    QFETCH(int, month);
    QLocale::setDefault(QLocale(QLocale::German)); // which the calendar's own names would be of
    VelaCalanderView view;
    const Calendar calendar(&view);
    view.setCurrentPage(2021, month);
    QCOMPARE(calendar.page(), QDate(2021, month, 1));
    QCOMPARE(calendar.month()->text(), EnglishMonths[month - 1]);
    calendar.next()->click();
    QCOMPARE(calendar.month()->text(), EnglishMonths[month % MonthsPerYear]);
}

void VelaDateSelectorTest::aChosenMonthIsShownByItsWholeName()
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

void VelaDateSelectorTest::theSlotsWriteTheMonthOnly()
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

void VelaDateSelectorTest::aLaterLanguageIsNotPickedUp()
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

void VelaDateSelectorTest::anotherLocaleChangesNeitherWeekNorMonths_data()
{
    QTest::addColumn<Change>("change");
    const QLocale german(QLocale::German); // whose week starts on Monday
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

void VelaDateSelectorTest::anotherLocaleChangesNeitherWeekNorMonths()
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
    QCOMPARE(calendar.cell(1).column(), 1); // a Monday
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

void VelaDateSelectorTest::anotherLocaleLeavesTheSelectedDayWhereItIs()
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

void VelaDateSelectorTest::theYearFollowsTheLocale()
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

void VelaDateSelectorTest::anotherLayoutDirectionLeavesTheArrowsTheirImages_data()
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

void VelaDateSelectorTest::anotherLayoutDirectionLeavesTheArrowsTheirImages()
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
    QCoreApplication::processEvents(); // which lays the bar out

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

void VelaDateSelectorTest::theWeekdayRowShowsOneLetterPerDayStartingWithSunday_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << EnglishWeekdays << QStringLiteral("SMTWTFS");
    QTest::newRow("Japanese") << JapaneseWeekdays << QStringLiteral("日月火水木金土");
}

void VelaDateSelectorTest::theWeekdayRowShowsOneLetterPerDayStartingWithSunday()
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

void VelaDateSelectorTest::theWeekdayRowIsSetUpAsAHeader()
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

void VelaDateSelectorTest::theWeekdayRowHasTheSheetsOfTheTable()
{
    const ShownCalendar calendar;
    QCOMPARE(calendar.weekdays()->styleSheet(), getStyleSheet("component.table", false));
    QVERIFY(calendar.weekdays()->styleSheet().contains(QStringLiteral("min-width: %1px").arg(expectedPixels(9))));
    QCOMPARE(calendar.weekdays()->horizontalHeader()->styleSheet(), getStyleSheet("component.table_header", false));
    QVERIFY(calendar.weekdays()->horizontalHeader()->styleSheet().contains(
        QStringLiteral("max-height: %1px").arg(expectedPixels(91))));
    QCOMPARE(paintedColor(calendar.weekdays(), QPoint(2, 2)), QColor("#10e0e0"));
}

void VelaDateSelectorTest::theWeekdaysStandAboveTheirDays()
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

void VelaDateSelectorTest::aClickOnADaySaysSo()
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

void VelaDateSelectorTest::aDoubleClickAndEnterSaySoAgain()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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

void VelaDateSelectorTest::arrowsMoveAndEnterChooses()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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

void VelaDateSelectorTest::todaySelectsTodayAndSaysSoOnce_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("click") << Qt::Key(0);
    QTest::newRow("space") << Qt::Key_Space;
}

void VelaDateSelectorTest::todaySelectsTodayAndSaysSoOnce()
{
    QFETCH(Qt::Key, key);
    const QDate today = QDate::currentDate();
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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

void VelaDateSelectorTest::daysOutsideOfTheLimitsCannotBeChosen()
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

    const QDate today = QDate::currentDate(); // which is said, though it cannot be selected
    calendar.click(10);
    calendar.view->selectToday();
    QCOMPARE(dates(chosen).last(), today);
    QCOMPARE(calendar.widget()->selectedDate(), QDate(2024, 4, 20));
}

void VelaDateSelectorTest::turningThePageSelectsNothing()
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

void VelaDateSelectorTest::tabVisitsEveryStopAndComesBack()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
    const QStringList stops = calendar.stops();
    QCOMPARE(calendar.visit(Qt::Key_Tab, stops.size()), rotated(stops, 1));
    QVERIFY(calendar.view->hasFocus());
    QCOMPARE(calendar.visit(Qt::Key_Backtab, stops.size()), reversed(stops));
    QVERIFY(calendar.view->hasFocus());
}

void VelaDateSelectorTest::betweenOthersTabVisitsTheViewAfterItsParts()
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

void VelaDateSelectorTest::fromTheYearEditTabGoesOnToTheGridAndRound()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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
        QVERIFY(calendar.grid()->hasFocus()); // of which this is the header
        QCOMPARE(calendar.visit(Qt::Key_Tab, stops.size()), rotated(stops, grid + 1));
    }
}

void VelaDateSelectorTest::tabInTheYearEditIsNotSeenByTheSpinBox()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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

void VelaDateSelectorTest::theFilterSwallowsTabAndBacktabOnly()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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

void VelaDateSelectorTest::tabOntoTheGridSetsItsCurrentCellAnew()
{
    const ShownCalendar calendar;
    QVERIFY(calendar.isActive);
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

void VelaDateSelectorTest::aFreshSelectorHasNoDate()
{
    LogCapture log;
    VelaDateSelector selector(EmptyText);
    QCOMPARE(selector.count(), 1);
    QCOMPARE(selector.currentIndex(), 0);
    QCOMPARE(selector.currentText(), EmptyText);
    QCOMPARE(selector.currentData().userType(), static_cast<int>(QMetaType::QDate));
    QVERIFY(selector.currentData().toDate().isNull());
    QCOMPARE(selector.view(), selector.getCalendarView());
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaDateSelectorTest::theSelectorsSizesAreScaled()
{
    const QMap<double, QVector<int>> known {{1.0, {280, 260, 32}}, {1.25, {350, 325, 40}}, {1.5, {420, 390, 48}}};
    QVERIFY(known.contains(expectedScale()));
    const QVector<int> expected = known.value(expectedScale());
    ShownSelector shown;
    QCOMPARE(shown.selector->height(), expected[2]);
    QCOMPARE(shown.selector->minimumHeight(), expected[2]);
    QCOMPARE(shown.selector->maximumHeight(), expected[2]);
    QCOMPARE(shown.selector->maximumWidth(), QWIDGETSIZE_MAX);
    shown.open();
    QCOMPARE(shown.view->size(), QSize(expected[0], expected[1]));
    QCOMPARE(shown.view->minimumSize(), shown.view->maximumSize());
    shown.key(Qt::Key_Escape);
}

void VelaDateSelectorTest::theMenusRulesWinOverTheSelectors()
{
    ShownSelector shown;
    QCOMPARE(shown.selector->styleSheet(),
             QString(getStyleSheet("component.date_selector", false) + getStyleSheet("component.menu", false)));
    QVERIFY(shown.selector->styleSheet().contains(QStringLiteral("padding: 0px %1px").arg(expectedPixels(9))));
    const QPoint inside(expectedPixels(3) + 2, expectedPixels(3) + 2);
    QCOMPARE(paintedColor(shown.selector, inside), QColor("#d0f0d0"));
    QCOMPARE(paintedColor(shown.selector, QPoint(1, shown.selector->height() / 2)), QColor("#a01010"));
}

void VelaDateSelectorTest::aDateFromCodeIsShownInTheLocalesShortFormat_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("en_US") << QStringLiteral("en_US") << QStringLiteral("4/7/24");
    QTest::newRow("en_GB") << QStringLiteral("en_GB") << QStringLiteral("07/04/2024");
    QTest::newRow("de_DE") << QStringLiteral("de_DE") << QStringLiteral("07.04.24");
    QTest::newRow("fr_FR") << QStringLiteral("fr_FR") << QStringLiteral("07/04/2024");
    QTest::newRow("ja_JP") << QStringLiteral("ja_JP") << QStringLiteral("2024/04/07");
    QTest::newRow("zh_CN") << QStringLiteral("zh_CN") << QStringLiteral("2024/4/7");
    QTest::newRow("sv_SE") << QStringLiteral("sv_SE") << QStringLiteral("2024-04-07");
    QTest::newRow("C") << QStringLiteral("C") << QStringLiteral("7 Apr 2024");
}

void VelaDateSelectorTest::aDateFromCodeIsShownInTheLocalesShortFormat()
{
    QFETCH(QString, locale);
    QFETCH(QString, expected);
    VelaDateSelector selector(EmptyText);
    QLocale::setDefault(QLocale(locale)); // the default as it is when the date comes
    selector.setLocale(QLocale(QLocale::Hungarian)); // and not the widget's
    const QDate date(2024, 4, 7);
    selector.dateSelect(date);
    QCOMPARE(selector.currentText(), expected);
    QCOMPARE(selector.currentData().toDate(), date);
}

void VelaDateSelectorTest::aDateFromCodeTurnsThePageButSelectsNothing()
{
    VelaDateSelector selector(EmptyText);
    const Calendar calendar(selector.getCalendarView());
    const QDate selected = calendar.widget()->selectedDate();
    const QSignalSpy chosen(calendar.view, &VelaCalanderView::sigDateSelect);
    const QDate inThisYear(selected.year(), selected.month() % MonthsPerYear + 1, 5);
    for (const QDate &date : {inThisYear, QDate(2021, 11, 30), QDate(2021, 2, 28), inThisYear}) {
        selector.dateSelect(date);
        QCOMPARE(calendar.page(), QDate(date.year(), date.month(), 1));
        QCOMPARE(calendar.month()->text(), EnglishMonths[date.month() - 1]);
        QCOMPARE(calendar.widget()->selectedDate(), selected);
    }
    QCOMPARE(chosen.count(), 0);
}

void VelaDateSelectorTest::anInvalidDateEmptiesTheField()
{
    VelaDateSelector selector(EmptyText);
    const Calendar calendar(selector.getCalendarView());
    for (const QDate &invalid : {QDate(), QDate(2023, 2, 29)}) {
        selector.dateSelect(SomeDay);
        QCOMPARE(selector.currentData().toDate(), SomeDay);
        selector.dateSelect(invalid);
        QCOMPARE(selector.count(), 1);
        QCOMPARE(selector.currentIndex(), 0);
        QCOMPARE(selector.currentText(), EmptyText);
        QCOMPARE(selector.currentData(), QVariant(QDate()));
        QCOMPARE(calendar.page(), QDate(2024, 4, 1));
    }
}

void VelaDateSelectorTest::clearingGoesBackToThisMonth()
{
    const QDate today = QDate::currentDate();
    ShownSelector shown;
    shown.view->setCurrentPage(2024, 4);
    shown.open();
    shown.click(17);
    QCOMPARE(shown.date(), SomeDay);
    const QSignalSpy chosen(shown.view, &VelaCalanderView::sigDateSelect);
    shown.selector->clearDate();
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(shown.selector->currentText(), EmptyText);
    QCOMPARE(shown.selector->currentIndex(), 0);
    QCOMPARE(shown.selector->currentData(), QVariant(QDate()));
    QCOMPARE(shown.page(), QDate(today.year(), today.month(), 1));
    QCOMPARE(shown.month()->text(), EnglishMonths[today.month() - 1]);
    QCOMPARE(shown.widget()->selectedDate(), SomeDay);
}

void VelaDateSelectorTest::itHoldsOneItemWhateverIsDone()
{
    ShownSelector shown;
    for (const QDate &date : {SomeDay, SomeDay, QDate(), QDate(), SomeDay.addYears(1)}) {
        shown.selector->dateSelect(date);
        QCOMPARE(shown.selector->count(), 1);
        QCOMPARE(shown.date(), date);
    }
    shown.selector->clearDate();
    shown.selector->clearDate();
    QCOMPARE(shown.selector->count(), 1);

    shown.selector->dateSelect(SomeDay);
    shown.selector->setFocus();
    for (Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_4}) {
        shown.host.key(key);
    }
    QCOMPARE(shown.selector->count(), 1);
    QCOMPARE(shown.date(), SomeDay);
}

void VelaDateSelectorTest::thePopupOpensByClickAndKey_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifier>("modifier");
    QTest::newRow("click") << Qt::Key(0) << Qt::NoModifier;
    QTest::newRow("space") << Qt::Key_Space << Qt::NoModifier;
    QTest::newRow("F4") << Qt::Key_F4 << Qt::NoModifier;
    QTest::newRow("Alt+Down") << Qt::Key_Down << Qt::AltModifier;
}

void VelaDateSelectorTest::thePopupOpensByClickAndKey()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifier, modifier);
    ShownSelector shown;
    QVERIFY(shown.isActive);
    QVERIFY(!shown.isOpen());
    if (key == 0) {
        shown.host.click();
    } else {
        shown.selector->setFocus();
        shown.host.key(key, modifier);
    }
    QVERIFY(shown.isOpen());
    QVERIFY(QTest::qWaitForWindowExposed(shown.view->window()));
    QVERIFY(shown.grid()->isVisible());
    QVERIFY(shown.view->hasFocus());
    shown.key(Qt::Key_Escape);
    QVERIFY(!shown.isOpen());
}

void VelaDateSelectorTest::aClickOnADayClosesThePopupAndShowsTheDay()
{
    ShownSelector shown;
    shown.view->setCurrentPage(2024, 4);
    shown.open();
    const QSignalSpy chosen(shown.view, &VelaCalanderView::sigDateSelect);
    QTest::mousePress(shown.window(), Qt::LeftButton, {}, shown.middleOf(17));
    QVERIFY(shown.isOpen());
    QTest::mouseRelease(shown.window(), Qt::LeftButton, {}, shown.middleOf(17));
    QVERIFY(!shown.isOpen());
    QCOMPARE(dates(chosen), QList<QDate> {SomeDay});
    QCOMPARE(shown.date(), SomeDay);
    QCOMPARE(shown.selector->currentText(), QStringLiteral("4/17/24"));
}

void VelaDateSelectorTest::aReleaseAloneDoesNotCloseThePopup()
{
    ShownSelector shown;
    shown.open();
    const QPoint margin(2, shown.view->height() / 2); // of the view, where no child of it takes the mouse
    QCOMPARE(shown.view->childAt(margin), shown.view->viewport());
    for (QWidget *target : {static_cast<QWidget *>(shown.view), shown.view->viewport()}) {
        EventCounter arrived(target, QEvent::MouseButtonRelease);
        QTest::mouseRelease(target, Qt::LeftButton, {}, margin);
        QCOMPARE(arrived.take(), 1);
        QVERIFY(shown.isOpen());
    }
    shown.click(shown.view->mapTo(shown.view->window(), margin));
    shown.click(shown.weekdays());
    QVERIFY(shown.isOpen());
    QCOMPARE(shown.selector->currentText(), EmptyText);
    shown.key(Qt::Key_Escape);
}

void VelaDateSelectorTest::aDoubleClickOnADayShowsIt()
{
    ShownSelector shown;
    shown.view->setCurrentPage(2024, 4);
    shown.open();
    const QPoint position = shown.middleOf(17);
    const QPointer<QWindow> popup = shown.window();
    shown.click(17);
    if (popup && shown.isOpen()) {
        QTest::mouseDClick(popup, Qt::LeftButton, {}, position);
    }
    QVERIFY(!shown.isOpen());
    QCOMPARE(shown.date(), SomeDay);
}

void VelaDateSelectorTest::arrowsAndEnterChooseInThePopup_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void VelaDateSelectorTest::arrowsAndEnterChooseInThePopup()
{
    QFETCH(Qt::Key, key);
    ShownSelector shown;
    QVERIFY(shown.isActive);
    shown.widget()->setSelectedDate(SomeDay);
    shown.open();
    for (int i = 1; i < shown.stops().size() - 1; ++i) {
        shown.key(Qt::Key_Tab);
    }
    QVERIFY(shown.grid()->hasFocus());
    shown.key(Qt::Key_Right);
    shown.key(Qt::Key_Down);
    QVERIFY(shown.isOpen());
    QCOMPARE(shown.selector->currentText(), EmptyText);
    shown.key(key);
    QVERIFY(!shown.isOpen());
    QCOMPARE(shown.date(), QDate(2024, 4, 25));
    QCOMPARE(shown.selector->currentText(), QStringLiteral("4/25/24"));
}

void VelaDateSelectorTest::todayInThePopupShowsTodayAndClosesIt()
{
    const QDate today = QDate::currentDate();
    ShownSelector shown;
    shown.view->setCurrentPage(2024, 4);
    shown.open();
    const QSignalSpy chosen(shown.view, &VelaCalanderView::sigDateSelect);
    shown.click(shown.today());
    QVERIFY(!shown.isOpen());
    QCOMPARE(dates(chosen), QList<QDate> {today});
    QCOMPARE(shown.date(), today);
    QCOMPARE(shown.selector->currentText(), QLocale().toString(today, QLocale::ShortFormat));
    QCOMPARE(shown.widget()->selectedDate(), today);
}

void VelaDateSelectorTest::anInvalidDateLeavesThePopupOpen()
{
    ShownSelector shown;
    shown.selector->dateSelect(SomeDay);
    shown.showPopup();
    shown.selector->dateSelect(QDate());
    QVERIFY(shown.isOpen());
    QCOMPARE(shown.selector->currentText(), EmptyText);
    QVERIFY(shown.date().isNull());
    shown.selector->dateSelect(SomeDay);
    QVERIFY(!shown.isOpen());
}

void VelaDateSelectorTest::escapeClosesThePopupAndChangesNothing()
{
    ShownSelector shown;
    QVERIFY(shown.isActive);
    shown.selector->dateSelect(SomeDay);
    for (int tabs = 0; tabs < shown.stops().size(); ++tabs) {
        shown.showPopup();
        for (int i = 0; i < tabs; ++i) {
            shown.key(Qt::Key_Tab);
        }
        shown.key(Qt::Key_Escape);
        QVERIFY2(!shown.isOpen(), qPrintable(QStringLiteral("after %1 tabs").arg(tabs)));
        QCOMPARE(shown.date(), SomeDay);
    }
}

void VelaDateSelectorTest::aClickElsewhereClosesThePopupAndChangesNothing()
{
    ShownSelector shown;
    shown.selector->dateSelect(SomeDay);
    shown.open();
    QTest::mouseClick(shown.host.windowHandle(), Qt::LeftButton, {}, Outside);
    QVERIFY(!shown.isOpen());
    QCOMPARE(shown.date(), SomeDay);
}

void VelaDateSelectorTest::tabVisitsEveryStopOfThePopupAndComesBack()
{
    ShownSelector shown;
    QVERIFY(shown.isActive);
    shown.showPopup();
    const QStringList stops = shown.stops();
    QVERIFY(shown.view->hasFocus());
    QCOMPARE(shown.visit(Qt::Key_Tab, stops.size()), rotated(stops, 1));
    QVERIFY(shown.view->hasFocus());
    QCOMPARE(shown.visit(Qt::Key_Backtab, stops.size()), reversed(stops));
    QVERIFY(shown.view->hasFocus());

    shown.click(shown.year());
    QVERIFY(shown.yearEdit()->hasFocus());
    QCOMPARE(shown.visit(Qt::Key_Tab, 2), (QStringList {shown.grid()->objectName(), shown.today()->objectName()}));
    QCOMPARE(shown.visit(Qt::Key_Backtab, 1), QStringList {shown.grid()->objectName()});
    QVERIFY(shown.isOpen());
    shown.key(Qt::Key_Escape);
}

void VelaDateSelectorTest::aMonthIsChosenInThePopupWhichStaysOpen()
{
    ShownSelector shown;
    QVERIFY(shown.isActive);
    shown.view->setCurrentPage(2024, 4);
    shown.showPopup();
    QMenu *menu = shown.month()->menu();
    const MenuUser user(menu, [menu] {
        const QPoint september = menu->actionGeometry(menu->actions().at(8)).center();
        QTest::mouseMove(menu->windowHandle(), september);
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, september);
    });
    // The press opens the menu, and the release belongs to the menu.
    QTest::mousePress(shown.window(), Qt::LeftButton, {}, Calendar::middleIn(shown.month()));
    QVERIFY(user.hasUsed());
    QVERIFY(!menu->isVisible());
    QCOMPARE(shown.page(), QDate(2024, 9, 1));
    QCOMPARE(shown.month()->text(), QStringLiteral("September"));
    QVERIFY(shown.isOpen());
    QCOMPARE(shown.selector->currentText(), EmptyText);
    shown.click(17);
    QVERIFY(!shown.isOpen());
    QCOMPARE(shown.date(), QDate(2024, 9, 17));
}

void VelaDateSelectorTest::theYearIsEditedInThePopup_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Enter") << Qt::Key_Enter;
}

void VelaDateSelectorTest::theYearIsEditedInThePopup()
{
    QFETCH(Qt::Key, key);
    ShownSelector shown;
    QVERIFY(shown.isActive);
    shown.view->setCurrentPage(2024, 4);
    shown.showPopup();
    shown.click(shown.year());
    QVERIFY(shown.yearEdit()->hasFocus());
    shown.key(Qt::Key_Up);
    shown.key(key);
    QVERIFY(!shown.yearEdit()->isVisible());
    QVERIFY(shown.isOpen());
    QCOMPARE(shown.page(), QDate(2025, 4, 1));

    shown.click(shown.year());
    shown.key(Qt::Key_Up);
    shown.key(Qt::Key_Escape);
    QVERIFY(!shown.isOpen());
    QCOMPARE(shown.selector->currentText(), EmptyText);
}

void VelaDateSelectorTest::theLimitsHoldInThePopup()
{
    ShownSelector shown;
    shown.selector->getCalendarView()->setMinimumDate(QDate(2024, 4, 10));
    shown.selector->getCalendarView()->setMaximumDate(QDate(2024, 4, 20));
    for (int day : {9, 21}) {
        shown.open();
        shown.click(day);
        shown.key(Qt::Key_Escape);
        QCOMPARE(shown.selector->currentText(), EmptyText);
        QVERIFY(shown.date().isNull());
    }
    shown.open();
    shown.click(20);
    QVERIFY(!shown.isOpen());
    QCOMPARE(shown.date(), QDate(2024, 4, 20));

    shown.selector->dateSelect(QDate(2030, 1, 1)); // the limits are the calendar's
    QCOMPARE(shown.date(), QDate(2030, 1, 1));
}

void VelaDateSelectorTest::thePopupShowsItsCalendarWithoutCuttingAnything()
{
    ShownSelector shown;
    shown.view->setCurrentPage(2024, 9);
    shown.open();
    const QRect inside = shown.view->rect();
    for (const QWidget *part : {shown.bar(), static_cast<QWidget *>(shown.weekdays()),
                                static_cast<QWidget *>(shown.grid()), static_cast<QWidget *>(shown.today())}) {
        QVERIFY2(inside.contains(QRect(part->mapTo(shown.view, QPoint()), part->size())),
                 qPrintable(part->objectName()));
    }
    QVERIFY(shown.month()->width() >= shown.month()->sizeHint().width());
    QVERIFY(shown.bar()->rect().contains(shown.month()->geometry()));
    QVERIFY(shown.bar()->rect().contains(shown.year()->geometry()));
    const QTableView *grid = shown.grid();
    const QFontMetrics metrics = grid->fontMetrics();
    QRect previous;
    for (int i = 0; i < grid->model()->rowCount() * DaysPerWeek; ++i) {
        const QModelIndex index = grid->model()->index(i / DaysPerWeek, i % DaysPerWeek);
        const QRect cell = grid->visualRect(index);
        QVERIFY(grid->viewport()->rect().contains(cell));
        QVERIFY2(cell.height() >= metrics.height() - metrics.descent(), qPrintable(QString::number(cell.height())));
        QVERIFY(cell.width() >= metrics.horizontalAdvance(QStringLiteral("30")));
        QVERIFY(!cell.intersects(previous));
        previous = cell;
    }
    shown.key(Qt::Key_Escape);
}

void VelaDateSelectorTest::clearingWhileThePopupIsOpenLeavesItOpen()
{
    ShownSelector shown;
    shown.selector->dateSelect(SomeDay);
    shown.showPopup();
    shown.selector->clearDate();
    QVERIFY(shown.isOpen());
    QCOMPARE(shown.selector->currentText(), EmptyText);
    shown.key(Qt::Key_Escape);
    QVERIFY(!shown.isOpen());
}

void VelaDateSelectorTest::theCalendarGoesWithTheSelector()
{
    auto *selector = new VelaDateSelector(EmptyText);
    const QPointer<VelaCalanderView> neverShown = selector->getCalendarView();
    delete selector;
    QVERIFY(!neverShown);
    QPointer<VelaCalanderView> shown;
    {
        ShownSelector open;
        open.open();
        shown = open.view;
    }
    QVERIFY(!shown);
}

void VelaDateSelectorTest::aViewCanBeDeletedWhileItsYearIsEdited()
{
    auto calendar = std::make_unique<ShownCalendar>();
    QVERIFY(calendar->isActive);
    calendar->click(calendar->year());
    QVERIFY(calendar->yearEdit()->hasFocus());
    calendar->key(Qt::Key_Up);
    QVERIFY(calendar->yearEdit()->value() != calendar->page().year());
    const QSignalSpy turned(calendar->widget(), &QCalendarWidget::currentPageChanged);
    calendar.reset();
    QCOMPARE(turned.count(), 1); // by the end of the editing, when there is no view any longer
}

void VelaDateSelectorTest::thePopupFitsItsCalendarInTheReferenceTheme_data()
{
    QTest::addColumn<QString>("file");
    const QDir folder(QStringLiteral(VELA_THEME_DIR "/strings"));
    const QFileInfoList files = folder.entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        QTest::newRow(qPrintable(file.baseName())) << file.filePath();
    }
}

void VelaDateSelectorTest::thePopupFitsItsCalendarInTheReferenceTheme()
{
    QFETCH(QString, file);
    installTextsOf(file);
    ShownSelector shown;
    QVERIFY(shown.isActive);
    shown.showPopup();
    QCOMPARE(shown.view->size(), QSize(expectedPixels(280), expectedPixels(260)));

    for (int month = 1; month <= MonthsPerYear; ++month) {
        shown.view->setCurrentPage(2024, month);
        QCoreApplication::processEvents(); // which lays the bar out
        int end = 0;
        for (const QToolButton *button : {shown.previous(), shown.month(), shown.year(), shown.next()}) {
            const QByteArray place = QString(button->objectName() + QLatin1Char(' ') + button->text()).toUtf8();
            QVERIFY2(button->size().expandedTo(button->sizeHint()) == button->size(), place.constData());
            QVERIFY2(shown.bar()->rect().contains(button->geometry()), place.constData());
            QVERIFY2(button->x() >= end, place.constData());
            end = button->geometry().right() + 1;
        }
    }
    const QSize today = shown.today()->size();
    QVERIFY(today.width() >= shown.today()->sizeHint().width());
    QVERIFY(today.height() >= shown.today()->minimumSizeHint().height());

    const QFontMetrics metrics = shown.grid()->fontMetrics();
    const QSize day(metrics.horizontalAdvance(QStringLiteral("30")), metrics.height());
    const auto contains = [&](const QTableView *table, int i, const QSize &text) {
        const QRect cell = table->visualRect(table->model()->index(i / DaysPerWeek, i % DaysPerWeek));
        return table->viewport()->rect().contains(cell) && cell.size().expandedTo(text) == cell.size();
    };
    for (int i = 0; i < shown.grid()->model()->rowCount() * DaysPerWeek; ++i) {
        QVERIFY2(contains(shown.grid(), i, day), qPrintable(QString::number(i)));
    }
    for (int i = 0; i < DaysPerWeek; ++i) {
        const QString name = shown.weekdays()->item(0, i)->text();
        const QFontMetrics nameMetrics = shown.weekdays()->fontMetrics();
        const QSize size(nameMetrics.horizontalAdvance(name), nameMetrics.height());
        QVERIFY2(contains(shown.weekdays(), i, size), qPrintable(name));
    }

    shown.click(shown.year());
    QVERIFY(shown.yearEdit()->isVisible());
    QVERIFY(shown.yearEdit()->width() >= shown.yearEdit()->minimumSizeHint().width());
    QVERIFY(shown.bar()->rect().contains(shown.yearEdit()->geometry()));
    shown.key(Qt::Key_Escape);
}

QTEST_MAIN(VelaDateSelectorTest)
#include "tst_vela_date_selector.moc"
