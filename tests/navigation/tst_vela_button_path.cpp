// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button-path.h"
#include "navigation/path-test.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"

#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSignalMapper>
#include <QtTest>

#include <algorithm>

namespace {

QString sheet(const QString &key)
{
    return getStyleSheet(key, false);
}

} // namespace

class VelaButtonPathTest : public PathTest
{
    Q_OBJECT

private Q_SLOTS:

    void theTableIsOneRowWithoutHeadersGridOrSelection();
    void theMenuButtonLiesOverTheLeftEnd();
    void theBarOwnsTwoMappers();
    void everyPartTakesItsOwnSheet();

    void anEmptyPathGivesAnEmptyRow_data();
    void anEmptyPathGivesAnEmptyRow();
    void aPathIsSplitAtSlashes_data();
    void aPathIsSplitAtSlashes();
    void namesAndArrowsTakeTurns();
    void namesAreAsWideAsTheRuleSays_data();
    void namesAreAsWideAsTheRuleSays();
    void theSheetMayGiveNamesAnotherHeight();
    void namesHaveTheApplicationsFontInAnyWindow();
    void arrowsAreNarrow();
    void everyButtonIsMadeAnew();
    void ampersandsAreDoubledInTheTextAndNotInThePath_data();
    void ampersandsAreDoubledInTheTextAndNotInThePath();
    void getPathStopsAtItsIndex();
    void aClickEmitsThePathUpToItsName();
    void aClickOnAnArrowEmitsNothing();
    void aClickDoesNotNavigate();
    void theSlotsRefreshAndEmit();

    void aPathThatFitsIsNotScrolled();
    void aPathOnePixelTooWideShowsTheMenu();
    void theMenuListsWhatIsHidden();
    void aNameAfterACutArrowIsListedToo();
    void menuTextsHaveTheirAmpersandsDoubled();
    void theRowIsScrolledToItsEnd();
    void theWidthIsThatAtTheLastRefresh();
    void aPathThatFitsAgainHidesTheMenu();
    void updateColumnSizeNarrowsTheArrows();
    void theWholeRowCanBeHidden();
    void choosingInTheMenuEmitsWhatItsButtonDoes();
    void theMenuIsUsedByKeys();
    void onlyARefreshEmptiesTheMenu();

    void theMenuIsStyledAsItOpens();
    void theMenuGoesWithTheBar();

private:
};

void VelaButtonPathTest::theTableIsOneRowWithoutHeadersGridOrSelection()
{
    LogCapture log;
    const VelaButtonPath bar;
    QCOMPARE(bar.rowCount(), 1);
    QCOMPARE(bar.columnCount(), 0);
    QVERIFY(bar.horizontalHeader()->isHidden());
    QVERIFY(bar.verticalHeader()->isHidden());
    QVERIFY(!bar.showGrid());
    QCOMPARE(bar.selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(bar.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(bar.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
    QCOMPARE(bar.minimumHeight(), expectedPixels(28));
    QCOMPARE(bar.maximumHeight(), expectedPixels(28));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaButtonPathTest::theMenuButtonLiesOverTheLeftEnd()
{
    Shown<PathWindow> window(expectedPixels(40));
    const QToolButton *button = window.menuButton();
    QVERIFY(button->isHidden());
    QCOMPARE(button->geometry(), QRect(expectedPixels(1), expectedPixels(1), expectedPixels(26), expectedPixels(26)));
    QCOMPARE(button->minimumSize(), button->size());
    QCOMPARE(button->maximumSize(), button->size());
    QCOMPARE(button->iconSize(), QSize(20, 20));
    QCOMPARE(button->icon().pixmap(QSize(20, 20)).toImage().pixelColor(3, 3), QColor(Qt::cyan));
    QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
    QVERIFY(button->menu()->isEmpty());
    QVERIFY(!button->menu()->parent());

    window.refresh(QStringLiteral("a long name/and another one"));
    QVERIFY(button->isVisible());
    const QPoint center = button->geometry().center();
    QCOMPARE(window.childAt(center), button); // the menu's button lies in front of the row
    QCOMPARE(window.bar->cellWidget(0, 0)->parentWidget(), window.bar->viewport());
}

void VelaButtonPathTest::theBarOwnsTwoMappers()
{
    const VelaButtonPath bar;
    QCOMPARE(bar.findChildren<QSignalMapper *>(QString(), Qt::FindDirectChildrenOnly).size(), 2);
}

void VelaButtonPathTest::everyPartTakesItsOwnSheet()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("abc/def"));
    QCOMPARE(window.bar->styleSheet(), sheet(QStringLiteral("component.button_path")));
    QCOMPARE(window.menuButton()->styleSheet(), sheet(QStringLiteral("component.button_path_change_folder_btn")));
    QCOMPARE(window.menuButton()->menu()->styleSheet(), sheet(QStringLiteral("component.menu")));
    QCOMPARE(window.button(0)->styleSheet(), sheet(QStringLiteral("component.button_path_name_button")));
    QCOMPARE(window.button(1)->styleSheet(), sheet(QStringLiteral("component.button_path_arrow")));
    QCOMPARE(paintedColor(window.button(0), QPoint(1, 1)), QColor(Qt::blue));
    QCOMPARE(paintedColor(window.button(1), QPoint(1, 1)), QColor(Qt::green));
    QCOMPARE(paintedColor(window.menuButton(), QPoint(1, 1)), QColor(Qt::red));
    QCOMPARE(paintedColor(window.bar, QPoint(window.totalWidth() + 20, 3)), QColor(0x12, 0x34, 0x56));
}

void VelaButtonPathTest::anEmptyPathGivesAnEmptyRow_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path : {"", "/", "//", "//////"}) {
        QTest::addRow("\"%s\"", path) << QString::fromLatin1(path);
    }
}

void VelaButtonPathTest::anEmptyPathGivesAnEmptyRow()
{
    QFETCH(QString, path);
    Shown<PathWindow> window(expectedPixels(40));
    for (bool isAfterALongPath : {false, true}) {
        if (isAfterALongPath) {
            window.refresh(QStringLiteral("a long name/and another one"));
            QVERIFY(window.menuButton()->isVisible());
        }
        window.refresh(path);
        QCOMPARE(window.bar->columnCount(), 0);
        QCOMPARE(window.bar->rowCount(), 1);
        QVERIFY(window.allButtons().isEmpty());
        QVERIFY(window.menuButton()->isHidden());
        QVERIFY(window.menuTexts().isEmpty());
        QCOMPARE(window.bar->getPath(0), QString());
    }
}

void VelaButtonPathTest::aPathIsSplitAtSlashes_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path :
         {"a", "a/b", "a/b/c", "/a/b", "a/b/", "/a/b/", "a//b", "///a////b//", "a\\b\\c", "\\\\a/b", "a/ /b", " / a",
          "./../~", "a:b/c|d", "\u2215a\u2044b\uff0fc/d", "\u00e9\u4e2d/\U0001f4c1"}) {
        QTest::addRow("%s", path) << QString::fromUtf8(path);
    }
}

void VelaButtonPathTest::aPathIsSplitAtSlashes()
{
    QFETCH(QString, path);
    const QStringList names = namesIn(path);
    Shown<PathWindow> window;
    window.refresh(path);
    QCOMPARE(window.bar->columnCount(), 2 * names.size() - 1);
    QCOMPARE(window.allButtons().size(), window.bar->columnCount());
    QCOMPARE(window.bar->rowCount(), 1);
    for (int i = 0; i < names.size(); ++i) {
        QCOMPARE(window.nameButton(i)->text(), names.at(i));
        QCOMPARE(window.bar->getPath(2 * i), names.mid(0, i + 1).join(QLatin1Char('/')));
    }
}

void VelaButtonPathTest::namesAndArrowsTakeTurns()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("abc/d/efg"));
    QCOMPARE(window.buttonTexts(),
             (QStringList {QStringLiteral("abc"), {}, QStringLiteral("d"), {}, QStringLiteral("efg")}));
    int left = 0;
    for (int column = 0; column < 5; ++column) {
        const QPushButton *button = window.button(column);
        QVERIFY(button->isVisible());
        QVERIFY(button->isFlat());
        QCOMPARE(button->metaObject()->className(), "QPushButton");
        QCOMPARE(button->icon().isNull(), column % 2 == 0);
        QCOMPARE(button->x(), left);
        QCOMPARE(window.bar->columnWidth(column), button->width());
        left += button->width();
    }
    QCOMPARE(window.button(1)->icon().pixmap(QSize(16, 16)).toImage().pixelColor(3, 3), QColor(Qt::magenta));
}

void VelaButtonPathTest::namesAreAsWideAsTheRuleSays_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"i", "W", "abc", "a name of several words", "&", "&&&&", "R&D", "\u4e2d\u6587"}) {
        QTest::addRow("%s", name) << QString::fromUtf8(name);
    }
    QTest::newRow("long") << QString(300, QLatin1Char('n'));
}

void VelaButtonPathTest::namesAreAsWideAsTheRuleSays()
{
    QFETCH(QString, name);
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("x/") + name);
    const QPushButton *button = window.nameButton(1);
    QCOMPARE(button->font().pixelSize(), expectedPixels(14)); // the font of the sheet
    const int width = expectedPixels(button->fontMetrics().horizontalAdvance(name) + 16);
    QCOMPARE(button->minimumSize(), QSize(width, expectedPixels(26)));
    QCOMPARE(button->maximumSize(), QSize(width, expectedPixels(26)));
    QCOMPARE(button->width(), width);
    QCOMPARE(window.bar->columnWidth(2), width);
}

void VelaButtonPathTest::theSheetMayGiveNamesAnotherHeight()
{
    const auto restore = qScopeGuard([this] { initTestCase(); });
    installSheets(m_folder,
                  "== component.button_path_name_button ==\n"
                  "QPushButton { min-height: 40px; max-height: 40px; border: none }\n");
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a"));
    QCOMPARE(window.nameButton(0)->minimumHeight(), expectedPixels(40));
    QCOMPARE(window.nameButton(0)->maximumHeight(), expectedPixels(40));
}

void VelaButtonPathTest::namesHaveTheApplicationsFontInAnyWindow()
{
    QWidget window;
    QFont font = window.font();
    font.setItalic(true);
    window.setFont(font);
    VelaButtonPath bar(&window);
    window.show();
    bar.refresh(QStringLiteral("name"));
    const QWidget *name = bar.cellWidget(0, 0);
    QVERIFY(!name->font().italic());
}

void VelaButtonPathTest::arrowsAreNarrow()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b"));
    const QPushButton *arrow = window.button(1);
    QCOMPARE(arrow->minimumSize(), QSize(expectedPixels(6), expectedPixels(28)));
    QCOMPARE(arrow->maximumSize(), QSize(expectedPixels(6), expectedPixels(28)));
    QCOMPARE(arrow->width(), expectedPixels(6));
    QCOMPARE(window.bar->columnWidth(1), expectedPixels(6));
}

void VelaButtonPathTest::everyButtonIsMadeAnew()
{
    Shown<PathWindow> window(expectedPixels(60));
    const QString path = QStringLiteral("first/second/third/fourth");
    window.refresh(path);
    QVector<QPointer<QPushButton>> buttons;
    for (QPushButton *button : window.allButtons()) {
        buttons.append(button);
    }
    QCOMPARE(buttons.size(), 7);
    QVector<QPointer<QAction>> actions;
    for (QAction *action : window.menuButton()->menu()->actions()) {
        actions.append(action);
    }
    QVERIFY(!actions.isEmpty());
    const QStringList texts = window.buttonTexts();
    const QStringList menuTexts = window.menuTexts();

    window.bar->refresh(path);
    for (const QPointer<QPushButton> &button : qAsConst(buttons)) {
        QVERIFY(!button);
    }
    for (const QPointer<QAction> &action : qAsConst(actions)) {
        QVERIFY(!window.menuButton()->menu()->findChildren<QAction *>().contains(action));
        QTRY_VERIFY(!action);
    }
    QCOMPARE(window.buttonTexts(), texts);
    QCOMPARE(window.menuTexts(), menuTexts);
    QCOMPARE(window.allButtons().size(), 7);
}

void VelaButtonPathTest::ampersandsAreDoubledInTheTextAndNotInThePath_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("within") << QStringLiteral("a&b") << QStringLiteral("a&&b");
    QTest::newRow("alone") << QStringLiteral("&") << QStringLiteral("&&");
    QTest::newRow("two") << QStringLiteral("a&&b") << QStringLiteral("a&&&&b");
    QTest::newRow("three") << QStringLiteral("&&&") << QStringLiteral("&&&&&&");
    QTest::newRow("at the ends") << QStringLiteral("&a&") << QStringLiteral("&&a&&");
}

void VelaButtonPathTest::ampersandsAreDoubledInTheTextAndNotInThePath()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    Shown<PathWindow> window;
    window.refresh(name + QStringLiteral("/x"));
    QCOMPARE(window.nameButton(0)->text(), text);
    QVERIFY(window.nameButton(0)->shortcut().isEmpty());
    window.click(window.nameButton(0));
    window.click(window.nameButton(1));
    QCOMPARE(window.chosen.count(), 2);
    QCOMPARE(window.chosen.at(0).at(0).toString(), name);
    QCOMPARE(window.chosen.at(1).at(0).toString(), QString(name + QStringLiteral("/x")));
}

void VelaButtonPathTest::getPathStopsAtItsIndex()
{
    VelaButtonPath bar;
    bar.refresh(QStringLiteral("/a/b&c/d/"));
    QCOMPARE(bar.getPath(0), QStringLiteral("a"));
    QCOMPARE(bar.getPath(1), QStringLiteral("a/"));
    QCOMPARE(bar.getPath(2), QStringLiteral("a/b&c"));
    QCOMPARE(bar.getPath(4), QStringLiteral("a/b&c/d"));
    QCOMPARE(bar.getPath(-1), QString());
    for (int beyond : {5, 100, INT_MAX}) {
        QCOMPARE(bar.getPath(beyond), QStringLiteral("a/b&c/d"));
    }
}

void VelaButtonPathTest::aClickEmitsThePathUpToItsName()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("/a/b/c"));
    const QStringList paths {QStringLiteral("a"), QStringLiteral("a/b"), QStringLiteral("a/b/c")};
    for (int i = 0; i < paths.size(); ++i) {
        window.click(window.nameButton(i));
        QCOMPARE(window.chosen.count(), i + 1);
        QCOMPARE(window.chosen.at(i).at(0).toString(), paths.at(i));
    }
}

void VelaButtonPathTest::aClickOnAnArrowEmitsNothing()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b"));
    window.click(window.button(1));
    QVERIFY(window.chosen.isEmpty());
}

void VelaButtonPathTest::aClickDoesNotNavigate()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b/c"));
    const QList<QPushButton *> buttons = window.allButtons();
    window.click(window.nameButton(0));
    QCOMPARE(window.chosen.count(), 1);
    QCOMPARE(window.allButtons(), buttons);
    QCOMPARE(window.bar->getPath(4), QStringLiteral("a/b/c"));
}

void VelaButtonPathTest::theSlotsRefreshAndEmit()
{
    PathWindow window;
    window.bar->slotUpdatePath(QStringLiteral("a/b"));
    QCOMPARE(window.buttonTexts(), (QStringList {QStringLiteral("a"), {}, QStringLiteral("b")}));
    QVERIFY(window.chosen.isEmpty());
    window.bar->slotPathBarClicked(2);
    QCOMPARE(window.chosen.count(), 1);
    QCOMPARE(window.chosen.at(0).at(0).toString(), QStringLiteral("a/b"));
}

void VelaButtonPathTest::aPathThatFitsIsNotScrolled()
{
    Shown<PathWindow> window;
    const QString path = QStringLiteral("first/second/third");
    window.refresh(path);
    window.setVisibleWidth(window.totalWidth()); // just enough room
    window.refresh(path);
    QVERIFY(window.menuButton()->isHidden());
    QVERIFY(window.menuTexts().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(window.scrollBar()->maximum(), 0);
    QCOMPARE(window.scrollBar()->value(), 0);
    QCOMPARE(window.button(0)->x(), 0);
}

void VelaButtonPathTest::aPathOnePixelTooWideShowsTheMenu()
{
    Shown<PathWindow> window;
    const QString path = QStringLiteral("first/second/third");
    window.refresh(path);
    window.setVisibleWidth(window.totalWidth() - 1);
    window.refresh(path);
    QVERIFY(window.menuButton()->isVisible());
    QCOMPARE(window.menuTexts(), QStringList {QStringLiteral("first")});
    QCOMPARE(window.scrollBar()->value(), 1);
    QCOMPARE(window.button(0)->x(), -1);
}

void VelaButtonPathTest::theMenuListsWhatIsHidden()
{
    Shown<PathWindow> window;
    const QStringList names {QStringLiteral("a"), QStringLiteral("bcd"), QStringLiteral("efghij"), QStringLiteral("k")};
    const QString path = names.join(QLatin1Char('/'));
    window.refresh(path);
    const int total = window.totalWidth();
    const QVector<int> rightEdges = window.rightEdges();
    for (int visible = total + 3; visible > 0; --visible) {
        window.setVisibleWidth(visible);
        window.refresh(path);
        const int hidden = total - visible;
        // All names that are hidden to the last pixel, and one more.
        const int listed = 1
            + int(std::count_if(rightEdges.begin(), rightEdges.end(), [hidden](int right) { return right <= hidden; }));
        QCOMPARE(window.menuTexts(), hidden > 0 ? names.mid(0, listed) : QStringList());
        QCOMPARE(window.menuButton()->isVisible(), hidden > 0);
        QCOMPARE(window.scrollBar()->value(), qMax(0, hidden));
    }
}

void VelaButtonPathTest::aNameAfterACutArrowIsListedToo()
{
    Shown<PathWindow> window;
    const QString path = QStringLiteral("first/second/third");
    window.refresh(path);
    window.setVisibleWidth(window.totalWidth() - window.button(0)->width() - 1);
    window.refresh(path);
    QCOMPARE(window.button(1)->x(), -1);
    QVERIFY(window.button(2)->x() > 0); // a button in full view
    QCOMPARE(window.menuTexts(), (QStringList {QStringLiteral("first"), QStringLiteral("second")}));
}

void VelaButtonPathTest::menuTextsHaveTheirAmpersandsDoubled()
{
    Shown<PathWindow> window(expectedPixels(60));
    window.refresh(QStringLiteral("Research & Development/R&&D/a folder of a long name"));
    QCOMPARE(window.menuTexts().mid(0, 2),
             (QStringList {QStringLiteral("Research && Development"), QStringLiteral("R&&&&D")}));
    window.clickInMenu(1);
    QCOMPARE(window.chosen.count(), 1);
    QCOMPARE(window.chosen.at(0).at(0).toString(), QStringLiteral("Research & Development/R&&D"));
    const QList<QAction *> actions = window.menuButton()->menu()->actions();
    for (const QAction *action : actions) {
        QCOMPARE(action->parent(), window.menuButton()->menu());
    }
}

void VelaButtonPathTest::theRowIsScrolledToItsEnd()
{
    Shown<PathWindow> window(expectedPixels(150));
    const QString longName(200, QLatin1Char('n'));
    for (const QString &path : {LongPath, QStringLiteral("the/deepest/names/are/the/ones/in/view"),
                                QString(longName + QLatin1Char('/') + longName)}) {
        window.bar->refresh(path);
        const QPushButton *last = window.button(window.bar->columnCount() - 1);
        for (bool isLaidOut : {false, true}) {
            if (isLaidOut) {
                QCoreApplication::processEvents();
            }
            QVERIFY(window.scrollBar()->value() > 0);
            QCOMPARE(window.scrollBar()->value(), window.totalWidth() - window.bar->viewport()->width());
            QCOMPARE(last->geometry().right(), window.bar->viewport()->width() - 1);
        }
    }
}

void VelaButtonPathTest::theWidthIsThatAtTheLastRefresh()
{
    Shown<PathWindow> window;
    const QString path = QStringLiteral("first/second/third");
    window.refresh(path);
    window.setVisibleWidth(window.totalWidth() / 2);
    window.bar->updateColumnSize();
    QVERIFY(window.menuButton()->isHidden());
    window.refresh(path);
    QVERIFY(window.menuButton()->isVisible());
    window.setVisibleWidth(WideBar);
    QVERIFY(window.menuButton()->isVisible());
    window.refresh(path);
    QVERIFY(window.menuButton()->isHidden());
}

void VelaButtonPathTest::aPathThatFitsAgainHidesTheMenu()
{
    Shown<PathWindow> window(expectedPixels(150));
    window.refresh(QStringLiteral("first/second/third/fourth/fifth"));
    QVERIFY(window.menuButton()->isVisible());
    window.refresh(QStringLiteral("a/b"));
    QVERIFY(window.menuButton()->isHidden());
    QVERIFY(window.menuTexts().isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(window.scrollBar()->value(), 0);
    QCOMPARE(window.button(0)->x(), 0);
}

void VelaButtonPathTest::updateColumnSizeNarrowsTheArrows()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b/c"));
    const int nameWidth = window.bar->columnWidth(2) + 11;
    window.bar->setColumnWidth(1, 77);
    window.bar->setColumnWidth(2, nameWidth);
    window.bar->setColumnWidth(3, 1);
    window.bar->updateColumnSize();
    QCOMPARE(window.bar->columnWidth(1), expectedPixels(6));
    QCOMPARE(window.bar->columnWidth(2), nameWidth);
    QCOMPARE(window.bar->columnWidth(3), expectedPixels(6));
}

void VelaButtonPathTest::theWholeRowCanBeHidden()
{
    Shown<PathWindow> window;
    window.refresh(QStringLiteral("a/b"));
    window.bar->setChangeFolderBtn(2 * WideBar); // more room than there is
    QVERIFY(window.menuButton()->isVisible());
    QCOMPARE(window.menuTexts(), (QStringList {QStringLiteral("a"), QStringLiteral("b")}));
}

void VelaButtonPathTest::choosingInTheMenuEmitsWhatItsButtonDoes()
{
    Shown<PathWindow> window(expectedPixels(60));
    window.refresh(QStringLiteral("/first/second/third/fourth"));
    QVERIFY(window.menuTexts().size() >= 3);
    for (int i = 0; i < 3; ++i) {
        window.chosen.clear();
        window.clickInMenu(i);
        QCOMPARE(window.chosen.count(), 1);
        window.nameButton(i)->click();
        QCOMPARE(window.chosen.count(), 2);
        QCOMPARE(window.chosen.at(0), window.chosen.at(1));
        QCOMPARE(window.chosen.at(0).at(0).toString(), window.bar->getPath(2 * i));
    }
}

void VelaButtonPathTest::theMenuIsUsedByKeys()
{
    Shown<PathWindow> window(expectedPixels(60));
    window.refresh(QStringLiteral("first/second/third/fourth"));
    window.useMenu([](QMenu *menu) {
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QCOMPARE(window.chosen.count(), 1);
    QCOMPARE(window.chosen.at(0).at(0).toString(), QStringLiteral("first/second"));
    window.useMenu([](QMenu *menu) { QTest::keyClick(menu, Qt::Key_Escape); });
    QCOMPARE(window.chosen.count(), 1);
}

void VelaButtonPathTest::onlyARefreshEmptiesTheMenu()
{
    Shown<PathWindow> window(expectedPixels(60));
    window.refresh(LongPath);
    const QStringList once = window.menuTexts();
    QVERIFY(!once.isEmpty());
    window.bar->updateColumnSize();
    QCOMPARE(window.menuTexts(), once + once);
    window.bar->setChangeFolderBtn(window.totalWidth());
    QCOMPARE(window.menuTexts(), once + once + once);
    window.bar->refresh(LongPath);
    QCOMPARE(window.menuTexts(), once);
}

void VelaButtonPathTest::theMenuIsStyledAsItOpens()
{
    Shown<PathWindow> window(expectedPixels(40));
    window.refresh(LongPath);
    const QMenu *menu = window.menuButton()->menu();
    QVERIFY(!menu->testAttribute(Qt::WA_WState_Polished));

    QColor margin;
    QSize size;
    window.useMenu([&](QMenu *open) {
        margin = paintedColor(open, QPoint(4, 4));
        size = open->size();
        open->close();
    });
    QCOMPARE(margin, QColor(Qt::yellow));
    QCOMPARE(size, menu->sizeHint());
    QMenu plain;
    plain.setStyleSheet(sheet(QStringLiteral("component.menu")));
    const QStringList texts = window.menuTexts();
    for (const QString &text : texts) {
        plain.addAction(text);
    }
    plain.ensurePolished();
    QCOMPARE(size, plain.sizeHint());
}

void VelaButtonPathTest::theMenuGoesWithTheBar()
{
    QPointer<QMenu> menu;
    {
        const VelaButtonPath bar;
        menu = bar.findChild<QToolButton *>()->menu();
        QVERIFY(menu);
    }
    QVERIFY(!menu);
}

QTEST_MAIN(VelaButtonPathTest)
#include "tst_vela_button_path.moc"
