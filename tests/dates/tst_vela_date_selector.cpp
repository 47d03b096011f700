// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-date-selector.h"
#include "dates/calendar-test.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "utils/component-strings.h"

#include <QDir>
#include <QJsonDocument>
#include <QListView>
#include <QMenu>
#include <QPointer>

Q_DECLARE_METATYPE(Qt::Key)
Q_DECLARE_METATYPE(Qt::KeyboardModifier)

namespace {

const QString EmptyText = QStringLiteral("no date");

// Installs the texts of one of the reference theme's languages.
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

// A date selector in a window, with room around, and its popup.
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
        host.click(selector);
        QVERIFY(QTest::qWaitForWindowExposed(view->window()));
        waitForTheSecondClick();
    }
    bool isOpen() const { return view->isVisible(); }
    QDate date() const { return selector->currentData().toDate(); }

    // A combo box does not let a release close the popup as long as it may belong to the click that has opened it.
    static void waitForTheSecondClick() { QTest::qWait(QApplication::doubleClickInterval() + 50); }

    VelaDateSelector *const selector;
    Shown<ControlWindow> host;

private:
    explicit ShownSelector(VelaDateSelector *shown) : Calendar(shown->getCalendarView()), selector(shown), host(shown)
    {
    }
};

} // namespace

class VelaDateSelectorTest : public CalendarTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void missingTextsShowTheirKeysAndAreLogged();

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

    // This test comes last: the reference theme's texts and sheets stay.
    void thePopupFitsItsCalendarInTheReferenceTheme_data();
    void thePopupFitsItsCalendarInTheReferenceTheme();

    void withAnotherViewItStillTakesDates();
    void itTellsItsDate();
};

void VelaDateSelectorTest::init()
{
    const QByteArray function = QTest::currentTestFunction();
    if (function.endsWith("InTheReferenceTheme")) {
        installReferenceTheme();
        prepareDay();
    } else if (function != "missingTextsShowTheirKeysAndAreLogged") {
        CalendarTest::init();
    }
}

// This test comes first: no texts are installed yet.
void VelaDateSelectorTest::missingTextsShowTheirKeysAndAreLogged()
{
    LogCapture log;
    VelaDateSelector selector(EmptyText);
    const Calendar calendar(selector.getCalendarView());
    const QStringList logged = log.takeTexts();
    QCOMPARE(logged.filter(QStringLiteral("key in ComponentStrings")).size(), 1 + 3 + MonthsPerYear + DaysPerWeek);
    QCOMPARE(calendar.today()->text(), QStringLiteral("today"));
    QCOMPARE(calendar.view->accessibleName(), QStringLiteral("accessible_calendar"));
    QCOMPARE(calendar.month()->text(), MonthKeys[QDate::currentDate().month() - 1]);
    QCOMPARE(calendar.month()->menu()->actions().first()->text(), QStringLiteral("mon"));
    QCOMPARE(calendar.weekdays()->item(0, 6)->text(), QStringLiteral("s"));
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
    QLocale::setDefault(QLocale(locale)); // the default when the date comes counts
    selector.setLocale(QLocale(QLocale::Hungarian)); // the widget's own does not
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
    QVERIFY(shown.grid()->hasFocus()); // the days are reached at once
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
    const QPoint margin(2, shown.view->height() / 2); // a place of the view where no child of it takes the mouse
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
    shown.widget()->setSelectedDate(SomeDay);
    shown.open();
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
    shown.showPopup();
    const QStringList stops = rotated(shown.stops(), shown.stops().indexOf(shown.grid()->objectName()));
    QVERIFY(shown.grid()->hasFocus());
    QCOMPARE(shown.visit(Qt::Key_Tab, stops.size()), rotated(stops, 1));
    QVERIFY(shown.grid()->hasFocus());
    QCOMPARE(shown.visit(Qt::Key_Backtab, stops.size()), reversed(stops));
    QVERIFY(shown.grid()->hasFocus());

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

    shown.selector->dateSelect(QDate(2030, 1, 1)); // a date beyond the limits, which are the calendar's
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
    shown.showPopup();
    QCOMPARE(shown.view->size(), QSize(expectedPixels(280), expectedPixels(260)));

    for (int month = 1; month <= MonthsPerYear; ++month) {
        shown.view->setCurrentPage(2024, month);
        QCoreApplication::processEvents(); // lays the bar out, or begins to
        int end = 0;
        for (const QToolButton *button : {shown.previous(), shown.month(), shown.year(), shown.next()}) {
            const QByteArray place = QString(button->objectName() + QLatin1Char(' ') + button->text()).toUtf8();
            QTRY_VERIFY2(button->size().expandedTo(button->sizeHint()) == button->size(), place.constData());
            QTRY_VERIFY2(shown.bar()->rect().contains(button->geometry()), place.constData());
            QTRY_VERIFY2(button->x() >= end, place.constData());
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

void VelaDateSelectorTest::itTellsItsDate()
{
    VelaDateSelector selector(QStringLiteral("none"));
    QCOMPARE(selector.date(), QDate());
    selector.dateSelect(QDate(2026, 2, 28));
    QCOMPARE(selector.date(), QDate(2026, 2, 28));
    selector.dateSelect(QDate());
    QCOMPARE(selector.date(), QDate());
    selector.dateSelect(QDate(2026, 3, 1));
    selector.clearDate();
    QCOMPARE(selector.date(), QDate());
}

void VelaDateSelectorTest::withAnotherViewItStillTakesDates()
{
    VelaDateSelector selector(QStringLiteral("none"));
    selector.setView(new QListView);
    QCOMPARE(selector.getCalendarView(), nullptr);
    selector.dateSelect(QDate(2026, 2, 28));
    QCOMPARE(selector.date(), QDate(2026, 2, 28));
    selector.clearDate();
    QCOMPARE(selector.date(), QDate());
}

QTEST_MAIN(VelaDateSelectorTest)
#include "tst_vela_date_selector.moc"
