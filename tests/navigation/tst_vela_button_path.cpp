// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button-path.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalMapper>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace {

const char Sheets[] = "== component.menu ==\nQMenu { background: #ffff00; margin: 3px }\n"
                      "== component.button_path_change_folder_btn ==\n"
                      "QToolButton { background: #ff0000; border: none; margin: 0px }\n"
                      "QToolButton::menu-indicator { image: none }\n"
                      "== component.button_path ==\nQTableView { background: #123456; border: none }\n"
                      "== component.button_path_arrow ==\nQPushButton { background: #00ff00; border: none }\n"
                      "== component.button_path_name_button ==\n"
                      "QPushButton { background: #0000ff; border: none; font-size: 14px }\n";

const QString LongPath = QStringLiteral("first/second/third/fourth");
constexpr int WideBar = 4000;

using Reaction = void (*)(VelaButtonPath *, const QString &);

QString sheet(const QString &key)
{
    return getStyleSheet(key, false);
}

/// The parts of @p path that have a character, found one character at a time.
QStringList namesIn(const QString &path)
{
    QStringList names;
    bool isInName = false;
    for (const QChar character : path) {
        if (character == QLatin1Char('/')) {
            isInName = false;
            continue;
        }
        if (!isInName) {
            names.append(QString());
        }
        isInName = true;
        names.last() += character;
    }
    return names;
}

} // namespace

/// A bar in a window, wide enough for any path of the tests at first.
class PathWindow : public QWidget
{
public:
    explicit PathWindow(int width = WideBar) :
        bar(new VelaButtonPath(this)), chosen(bar, &VelaButtonPath::sigUpdatePath)
    {
        bar->resize(width, bar->maximumHeight());
        resize(600, 100);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowExposed(this);
    }

    /// Refreshes the bar and lays the row out.
    void refresh(const QString &path)
    {
        bar->refresh(path);
        QCoreApplication::processEvents();
    }

    /// Gives the row of the next refresh this visible width.
    void setVisibleWidth(int width) { bar->resize(bar->width() + width - bar->viewport()->width(), bar->height()); }

    QPushButton *button(int column) const { return qobject_cast<QPushButton *>(bar->cellWidget(0, column)); }
    QPushButton *nameButton(int i) const { return button(2 * i); }
    QList<QPushButton *> allButtons() const { return bar->findChildren<QPushButton *>(); }
    QToolButton *menuButton() const { return bar->findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly); }
    QScrollBar *scrollBar() const { return bar->horizontalScrollBar(); }

    QStringList buttonTexts() const
    {
        QStringList texts;
        for (int column = 0; column < bar->columnCount(); ++column) {
            texts.append(button(column)->text());
        }
        return texts;
    }

    QStringList menuTexts() const
    {
        QStringList texts;
        const QList<QAction *> actions = menuButton()->menu()->actions();
        for (const QAction *action : actions) {
            texts.append(action->text());
        }
        return texts;
    }

    int totalWidth() const
    {
        int total = 0;
        for (int column = 0; column < bar->columnCount(); ++column) {
            total += bar->columnWidth(column);
        }
        return total;
    }

    /// Where each name ends, from the row's left end.
    QVector<int> rightEdges() const
    {
        QVector<int> edges;
        int right = 0;
        for (int column = 0; column < bar->columnCount(); ++column) {
            right += bar->columnWidth(column);
            if (column % 2 == 0) {
                edges.append(right);
            }
        }
        return edges;
    }

    void click(const QWidget *widget)
    {
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, widget->mapTo(this, widget->rect().center()));
    }

    /// Presses the menu's button and does @p choose with the open menu; returns when the menu is closed.
    void useMenu(const std::function<void(QMenu *)> &choose)
    {
        QMenu *menu = menuButton()->menu();
        const MenuUser user(menu, [&] { choose(menu); });
        const QPoint center = menuButton()->mapTo(this, menuButton()->rect().center());
        QTest::mousePress(windowHandle(), Qt::LeftButton, {}, center);
        QTest::mouseRelease(windowHandle(), Qt::LeftButton, {}, center);
        QVERIFY(user.hasUsed());
    }

    void clickInMenu(int i)
    {
        useMenu([i](QMenu *menu) {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(i)).center());
        });
    }

    VelaButtonPath *const bar;
    QSignalSpy chosen;
};

/// A bar between two others that take the focus.
class Neighbours : public PathWindow
{
public:
    explicit Neighbours(int width = WideBar) :
        PathWindow(width), before(new QLineEdit(this)), after(new QLineEdit(this))
    {
        before->move(0, bar->maximumHeight());
        after->move(width / 2, bar->maximumHeight());
        setTabOrder(before, menuButton());
        setTabOrder(menuButton(), after);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }
    void tab() { QTest::keyClick(windowHandle(), Qt::Key_Tab); }
    void backtab() { QTest::keyClick(windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier); }

    QLineEdit *const before;
    QLineEdit *const after;
};

/// Has the focus, and refreshes a bar with its own path when a closing menu gives it back, as a list in step with the
/// bar would. (Window managers give and take the focus of windows when they get round to it, a menu being open or not.)
class Follower : public QWidget
{
public:
    explicit Follower(PathWindow *window) : QWidget(window), m_bar(window->bar)
    {
        move(0, m_bar->maximumHeight());
        setFocusPolicy(Qt::StrongFocus);
    }

    bool takeFocus()
    {
        window()->activateWindow();
        if (!QTest::qWaitForWindowActive(window())) {
            return false;
        }
        setFocus();
        m_popupClosings = 0;
        return hasFocus();
    }

    /// How many there were since the focus was taken.
    int popupClosings() const { return m_popupClosings; }

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        if (event->reason() == Qt::PopupFocusReason) {
            ++m_popupClosings;
            m_bar->refresh(QString());
            m_bar->refresh(LongPath);
        }
    }

private:
    VelaButtonPath *const m_bar;
    int m_popupClosings = 0;
};

Q_DECLARE_METATYPE(Reaction)

class VelaButtonPathTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void missingSheetsAreLoggedFromTheMenuToTheBar();
    void theParentMayBeLeftOut();
    void itDeclaresOneSignalAndTwoSlots();
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
    void aRefreshAsTheMenuClosesLosesNoChoice_data();
    void aRefreshAsTheMenuClosesLosesNoChoice();
    void onlyARefreshEmptiesTheMenu();

    void tabVisitsTheNamesAndLeavesAtTheEnds_data();
    void tabVisitsTheNamesAndLeavesAtTheEnds();
    void arrowsTakeNoFocus();
    void cursorKeysGoFromNameToName();
    void aNameThatTheKeyboardFindsIsInFullView_data();
    void aNameThatTheKeyboardFindsIsInFullView();
    void aNameThatIsTooLongShowsItsBeginning_data();
    void aNameThatIsTooLongShowsItsBeginning();
    void aPressMovesNoNameOutFromUnderTheMenu();
    void aClickThatRebuildsTheRowGivesNoNeighbourTheFocus();

    void aSlotMayRefreshAndSoDeleteTheClickedButton_data();
    void aSlotMayRefreshAndSoDeleteTheClickedButton();
    void aSlotMayRefreshAndSoDeleteTheChosenAction_data();
    void aSlotMayRefreshAndSoDeleteTheChosenAction();
    void aSlotMayClickTheRowThatItMade();
    void aSlotMayHaveTheBarDeletedLater();
    void theBarMayBeDeletedWhenItsSlotIsCalled();
    void theMenuGoesWithTheBar();

private:
    void addDirections();
    void addReactions();
    void checkAfterReaction(PathWindow *window, const QPointer<QObject> &source, const QString &path);

    ResourceFolder m_folder;
    QStringList m_loggedWithoutSheets;
};

void VelaButtonPathTest::initTestCase()
{
    LogCapture log;
    VelaButtonPath bar;
    bar.refresh(QStringLiteral("a/b"));
    m_loggedWithoutSheets = log.takeTexts().filter(QStringLiteral("stylesheet"));

    m_folder.writeImage(QStringLiteral("folder"), QSize(80, 80), Qt::cyan);
    m_folder.writeImage(QStringLiteral("bt_next"), QSize(80, 80), Qt::magenta);
    m_folder.writeCatalogue({QStringLiteral("folder"), QStringLiteral("bt_next")});
    installSheets(m_folder, Sheets);
}

void VelaButtonPathTest::missingSheetsAreLoggedFromTheMenuToTheBar()
{
    QStringList expected;
    for (const char *key : {"menu", "button_path_change_folder_btn", "button_path", "button_path_name_button",
                            "button_path_arrow", "button_path_name_button"}) {
        expected.append(QStringLiteral("Cannot find stylesheet \"component.%1\"").arg(QLatin1String(key)));
    }
    QCOMPARE(m_loggedWithoutSheets, expected);
}

void VelaButtonPathTest::theParentMayBeLeftOut()
{
    QWidget parent;
    const VelaButtonPath child(&parent);
    QCOMPARE(child.parentWidget(), &parent);
    QVERIFY(!VelaButtonPath().parent());
}

void VelaButtonPathTest::itDeclaresOneSignalAndTwoSlots()
{
    QCOMPARE(VelaButtonPath::staticMetaObject.className(), "VelaButtonPath");
    QCOMPARE(VelaButtonPath::staticMetaObject.superClass(), &QTableWidget::staticMetaObject);
    QCOMPARE(ownDeclarations(VelaButtonPath::staticMetaObject),
             (QStringList {QStringLiteral("sigUpdatePath(QString)"), QStringLiteral("slotUpdatePath(QString)"),
                           QStringLiteral("slotPathBarClicked(int)")}));
}

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
    PathWindow window(expectedPixels(40));
    QVERIFY(window.showAndWait());
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
    QCOMPARE(window.childAt(center), button); // in front of the row
    QCOMPARE(window.bar->cellWidget(0, 0)->parentWidget(), window.bar->viewport());
}

void VelaButtonPathTest::theBarOwnsTwoMappers()
{
    const VelaButtonPath bar;
    QCOMPARE(bar.findChildren<QSignalMapper *>(QString(), Qt::FindDirectChildrenOnly).size(), 2);
}

void VelaButtonPathTest::everyPartTakesItsOwnSheet()
{
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window(expectedPixels(40));
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
    window.refresh(QStringLiteral("x/") + name);
    const QPushButton *button = window.nameButton(1);
    QCOMPARE(button->font().pixelSize(), expectedPixels(14)); // the sheet's
    const int width = expectedPixels(button->fontMetrics().horizontalAdvance(name) + 16);
    QCOMPARE(button->minimumSize(), QSize(width, expectedPixels(26)));
    QCOMPARE(button->maximumSize(), QSize(width, expectedPixels(26)));
    QCOMPARE(button->width(), width);
    QCOMPARE(window.bar->columnWidth(2), width);
}

void VelaButtonPathTest::arrowsAreNarrow()
{
    PathWindow window;
    QVERIFY(window.showAndWait());
    window.refresh(QStringLiteral("a/b"));
    const QPushButton *arrow = window.button(1);
    QCOMPARE(arrow->minimumSize(), QSize(expectedPixels(6), expectedPixels(28)));
    QCOMPARE(arrow->maximumSize(), QSize(expectedPixels(6), expectedPixels(28)));
    QCOMPARE(arrow->width(), expectedPixels(6));
    QCOMPARE(window.bar->columnWidth(1), expectedPixels(6));
}

void VelaButtonPathTest::everyButtonIsMadeAnew()
{
    PathWindow window(expectedPixels(60));
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
    window.refresh(QStringLiteral("a/b"));
    window.click(window.button(1));
    QVERIFY(window.chosen.isEmpty());
}

void VelaButtonPathTest::aClickDoesNotNavigate()
{
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
    const QString path = QStringLiteral("first/second/third");
    window.refresh(path);
    window.setVisibleWidth(window.totalWidth()); // exactly
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
    const QString path = QStringLiteral("first/second/third");
    window.refresh(path);
    window.setVisibleWidth(window.totalWidth() - window.button(0)->width() - 1);
    window.refresh(path);
    QCOMPARE(window.button(1)->x(), -1);
    QVERIFY(window.button(2)->x() > 0); // in full view
    QCOMPARE(window.menuTexts(), (QStringList {QStringLiteral("first"), QStringLiteral("second")}));
}

void VelaButtonPathTest::menuTextsHaveTheirAmpersandsDoubled()
{
    PathWindow window(expectedPixels(60));
    QVERIFY(window.showAndWait());
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
    PathWindow window(expectedPixels(150));
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window(expectedPixels(150));
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
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
    PathWindow window;
    QVERIFY(window.showAndWait());
    window.refresh(QStringLiteral("a/b"));
    window.bar->setChangeFolderBtn(2 * WideBar); // more than there is
    QVERIFY(window.menuButton()->isVisible());
    QCOMPARE(window.menuTexts(), (QStringList {QStringLiteral("a"), QStringLiteral("b")}));
}

void VelaButtonPathTest::choosingInTheMenuEmitsWhatItsButtonDoes()
{
    PathWindow window(expectedPixels(60));
    QVERIFY(window.showAndWait());
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
    PathWindow window(expectedPixels(60));
    QVERIFY(window.showAndWait());
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

void VelaButtonPathTest::aRefreshAsTheMenuClosesLosesNoChoice_data()
{
    QTest::addColumn<bool>("isByKey");
    QTest::newRow("by the mouse") << false;
    QTest::newRow("by the keyboard") << true;
}

void VelaButtonPathTest::aRefreshAsTheMenuClosesLosesNoChoice()
{
    QFETCH(bool, isByKey);
    PathWindow window(expectedPixels(60));
    Follower follower(&window);
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    QVERIFY(follower.takeFocus());
    QTRY_VERIFY(window.menuButton()->isVisible());
    const QStringList menuTexts = window.menuTexts();
    QPointer<QAction> action;
    window.useMenu([&](QMenu *menu) {
        action = menu->actions().at(1);
        if (isByKey) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
        } else {
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        }
    });
    QCOMPARE(follower.popupClosings(), 1);
    QCOMPARE(window.chosen.count(), 1);
    QCOMPARE(window.chosen.at(0).at(0).toString(), QStringLiteral("first/second"));
    QTRY_VERIFY(!action);
    QCOMPARE(window.menuTexts(), menuTexts);
    window.clickInMenu(0); // those made meanwhile are chosen from as well
    QCOMPARE(follower.popupClosings(), 2);
    QCOMPARE(window.chosen.count(), 2);
    QCOMPARE(window.chosen.at(1).at(0).toString(), QStringLiteral("first"));
}

void VelaButtonPathTest::onlyARefreshEmptiesTheMenu()
{
    PathWindow window(expectedPixels(60));
    QVERIFY(window.showAndWait());
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

void VelaButtonPathTest::tabVisitsTheNamesAndLeavesAtTheEnds_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("hasMenu");
    QTest::newRow("wide") << WideBar << false;
    QTest::newRow("narrow") << expectedPixels(60) << true;
}

void VelaButtonPathTest::tabVisitsTheNamesAndLeavesAtTheEnds()
{
    QFETCH(int, width);
    QFETCH(bool, hasMenu);
    Neighbours window(width);
    QVERIFY(window.showAndWait());
    for (const QString &path : {LongPath, QStringLiteral("alone and long enough for a menu"), LongPath}) {
        window.refresh(path); // and what is made last is visited in its place
        QCOMPARE(window.menuButton()->isVisible(), hasMenu);
        QVector<QWidget *> order {window.before};
        if (hasMenu) {
            order.append(window.menuButton());
        }
        for (int i = 0; i < namesIn(path).size(); ++i) {
            order.append(window.nameButton(i));
        }
        order.append(window.after);

        window.before->setFocus();
        for (int i = 1; i < order.size(); ++i) {
            window.tab();
            QCOMPARE(QApplication::focusWidget(), order.at(i));
        }
        for (int i = order.size() - 2; i >= 0; --i) {
            window.backtab();
            QCOMPARE(QApplication::focusWidget(), order.at(i));
        }
    }
}

void VelaButtonPathTest::arrowsTakeNoFocus()
{
    Neighbours window;
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    window.before->setFocus();
    for (int column = 1; column < window.bar->columnCount(); column += 2) {
        QCOMPARE(window.button(column)->focusPolicy(), Qt::NoFocus);
        window.click(window.button(column));
        QVERIFY(window.before->hasFocus());
    }
}

void VelaButtonPathTest::cursorKeysGoFromNameToName()
{
    Neighbours window;
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    window.nameButton(0)->setFocus();
    for (int i : {1, 2, 3, 3}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Right);
        QVERIFY(window.nameButton(i)->hasFocus());
    }
    for (int i : {2, 1, 0, 0}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Left);
        QVERIFY(window.nameButton(i)->hasFocus());
    }
}

void VelaButtonPathTest::addDirections()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void VelaButtonPathTest::aNameThatTheKeyboardFindsIsInFullView_data()
{
    addDirections();
}

void VelaButtonPathTest::aNameThatTheKeyboardFindsIsInFullView()
{
    QFETCH(Qt::LayoutDirection, direction);
    Neighbours window(expectedPixels(150));
    window.setLayoutDirection(direction);
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    QVERIFY(window.menuButton()->isVisible());
    const auto isInFullView = [&window](const QWidget *name) {
        const QRect place(name->mapTo(window.bar, QPoint()), name->size());
        const bool isWithinTheBar = place.left() >= 0 && place.right() < window.bar->width();
        return isWithinTheBar && !place.intersects(window.menuButton()->geometry());
    };
    // The end of the row that lies under the menu's button cannot be moved any further.
    const bool isMirrored = direction == Qt::RightToLeft;
    const auto isAtTheEnd = [&](int i) {
        return isMirrored ? i == 3 && window.scrollBar()->value() == window.scrollBar()->maximum()
                          : i == 0 && window.scrollBar()->value() == 0;
    };

    for (int start : {0, window.scrollBar()->maximum() / 2, window.scrollBar()->maximum()}) {
        window.menuButton()->setFocus();
        window.scrollBar()->setValue(start);
        for (int i = 0; i < 4; ++i) {
            window.tab();
            QVERIFY(window.nameButton(i)->hasFocus());
            QVERIFY2(isInFullView(window.nameButton(i)) || isAtTheEnd(i), qPrintable(QString::number(i)));
        }
        window.scrollBar()->setValue(start);
        for (int i = 2; i >= 0; --i) {
            window.backtab();
            QVERIFY2(isInFullView(window.nameButton(i)) || isAtTheEnd(i), qPrintable(QString::number(i)));
        }
        window.after->setFocus();
        window.scrollBar()->setValue(start);
        window.nameButton(1)->setFocus(Qt::ShortcutFocusReason); // which is the current one
        QVERIFY(isInFullView(window.nameButton(1)));
    }
}

void VelaButtonPathTest::aNameThatIsTooLongShowsItsBeginning_data()
{
    addDirections();
}

void VelaButtonPathTest::aNameThatIsTooLongShowsItsBeginning()
{
    QFETCH(Qt::LayoutDirection, direction);
    Neighbours window(expectedPixels(150));
    window.setLayoutDirection(direction);
    QVERIFY(window.showAndWait());
    window.refresh(QStringLiteral("first/") + QString(200, QLatin1Char('n')) + QStringLiteral("/third"));
    for (int from : {0, 2}) {
        window.nameButton(from)->setFocus();
        from == 0 ? window.tab() : window.backtab();
        QVERIFY(window.nameButton(1)->hasFocus());
        const QRect place(window.nameButton(1)->mapTo(window.bar, QPoint()), window.nameButton(1)->size());
        if (direction == Qt::LeftToRight) {
            QCOMPARE(place.left(), window.menuButton()->geometry().right() + 1);
        } else {
            QCOMPARE(place.right(), window.bar->viewport()->geometry().right());
        }
    }
}

void VelaButtonPathTest::aPressMovesNoNameOutFromUnderTheMenu()
{
    Neighbours window(expectedPixels(150));
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    const int start = window.bar->horizontalHeader()->sectionPosition(2);
    window.scrollBar()->setValue(start);
    const QPushButton *name = window.nameButton(1);
    QCOMPARE(name->x(), 0);
    const QPoint visible(window.menuButton()->geometry().right() + 3, window.bar->height() / 2);
    QCOMPARE(window.childAt(window.bar->mapTo(&window, visible)), name);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.bar->mapTo(&window, visible));
    QVERIFY(name->hasFocus());
    QCOMPARE(window.scrollBar()->value(), start);
    QCOMPARE(window.chosen.count(), 1);
}

void VelaButtonPathTest::aClickThatRebuildsTheRowGivesNoNeighbourTheFocus()
{
    Neighbours window;
    QVERIFY(window.showAndWait());
    connect(window.bar, &VelaButtonPath::sigUpdatePath, window.bar, &VelaButtonPath::slotUpdatePath);
    for (int i = 0; i < 4; ++i) {
        window.refresh(LongPath);
        window.nameButton(i)->setFocus();
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        QCOMPARE(window.chosen.count(), i + 1);
        QVERIFY(!QApplication::focusWidget());
    }
}

/// What a client's slot may do to the bar while it hears of a click.
void VelaButtonPathTest::addReactions()
{
    QTest::addColumn<Reaction>("react");
    QTest::addColumn<QString>("path"); // after it
    const struct
    {
        const char *name;
        Reaction react;
        const char *path;
    } reactions[] = {
        {"goes there", [](VelaButtonPath *bar, const QString &chosen) { bar->refresh(chosen); }, "first/second"},
        {"stays", [](VelaButtonPath *bar, const QString &) { bar->refresh(LongPath); }, "first/second/third/fourth"},
        {"goes deeper", [](VelaButtonPath *bar, const QString &chosen) { bar->slotUpdatePath(chosen + LongPath); },
         "first/secondfirst/second/third/fourth"},
        {"goes nowhere", [](VelaButtonPath *bar, const QString &) { bar->refresh(QString()); }, ""},
        {"goes twice",
         [](VelaButtonPath *bar, const QString &chosen) {
             bar->refresh(QString());
             bar->refresh(chosen);
         },
         "first/second"},
        {"goes there while it waits",
         [](VelaButtonPath *bar, const QString &chosen) {
             QEventLoop loop;
             QTimer::singleShot(0, bar, [&] {
                 bar->refresh(chosen);
                 QTimer::singleShot(0, &loop, &QEventLoop::quit);
             });
             loop.exec();
         },
         "first/second"},
        {"goes there and chooses once more",
         [](VelaButtonPath *bar, const QString &chosen) {
             bar->refresh(chosen);
             const QSignalBlocker silence(bar);
             bar->slotPathBarClicked(0);
             bar->refresh(chosen);
         },
         "first/second"},
    };
    for (const auto &reaction : reactions) {
        QTest::newRow(reaction.name) << reaction.react << QString::fromLatin1(reaction.path);
    }
}

/// That @p window is in order after a slot's reaction to a click on @p source.
void VelaButtonPathTest::checkAfterReaction(PathWindow *window, const QPointer<QObject> &source, const QString &path)
{
    QTRY_VERIFY(!source);
    const QStringList names = namesIn(path);
    QCOMPARE(window->chosen.count(), 1);
    QCOMPARE(window->chosen.at(0).at(0).toString(), QStringLiteral("first/second"));
    QCOMPARE(window->allButtons().size(), qMax(0, 2 * names.size() - 1));
    QCOMPARE(window->bar->getPath(INT_MAX), names.join(QLatin1Char('/')));
    window->chosen.clear();
    window->bar->disconnect(this);
    for (int i = 0; i < names.size(); ++i) {
        window->nameButton(i)->click();
        QCOMPARE(window->chosen.takeFirst().at(0).toString(), names.mid(0, i + 1).join(QLatin1Char('/')));
    }
    QVERIFY(window->chosen.isEmpty());
}

void VelaButtonPathTest::aSlotMayRefreshAndSoDeleteTheClickedButton_data()
{
    addReactions();
}

void VelaButtonPathTest::aSlotMayRefreshAndSoDeleteTheClickedButton()
{
    QFETCH(Reaction, react);
    QFETCH(QString, path);
    for (bool isByKey : {false, true}) {
        PathWindow window;
        QVERIFY(window.showAndWait());
        window.refresh(LongPath);
        const QPointer<QPushButton> button(window.nameButton(1));
        connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&](const QString &chosen) {
            react(window.bar, chosen);
            QVERIFY(!window.allButtons().contains(button));
        });
        if (isByKey) {
            QTest::keyClick(button, Qt::Key_Space);
        } else {
            window.click(button);
        }
        checkAfterReaction(&window, button.data(), path);
    }
}

void VelaButtonPathTest::aSlotMayRefreshAndSoDeleteTheChosenAction_data()
{
    addReactions();
}

void VelaButtonPathTest::aSlotMayRefreshAndSoDeleteTheChosenAction()
{
    QFETCH(Reaction, react);
    QFETCH(QString, path);
    for (bool isFollowed : {false, true}) { // if it is, the action is no longer the menu's when it is triggered
        for (bool isByKey : {false, true}) {
            PathWindow window(expectedPixels(60));
            QVERIFY(window.showAndWait());
            window.refresh(LongPath);
            std::unique_ptr<Follower> follower;
            if (isFollowed) {
                follower = std::make_unique<Follower>(&window);
                follower->show();
                QVERIFY(follower->takeFocus());
            }
            const QPointer<QAction> action(window.menuButton()->menu()->actions().at(1));
            const QSignalSpy told(action, &QAction::triggered); // after the bar
            connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&](const QString &chosen) {
                react(window.bar, chosen);
                QVERIFY(!window.menuButton()->menu()->actions().contains(action));
            });
            if (isByKey) {
                window.useMenu([&](QMenu *menu) {
                    menu->setActiveAction(action);
                    QTest::keyClick(menu, Qt::Key_Return);
                });
            } else {
                window.clickInMenu(1);
            }
            QCOMPARE(told.count(), 1);
            checkAfterReaction(&window, action.data(), path);
        }
    }
}

void VelaButtonPathTest::aSlotMayClickTheRowThatItMade()
{
    PathWindow window;
    QVERIFY(window.showAndWait());
    window.bar->refresh(LongPath);
    constexpr int Clicks = 8;
    std::vector<std::unique_ptr<QSignalSpy>> told;
    const auto clickNext = [&] {
        if (told.size() < Clicks) {
            told.push_back(std::make_unique<QSignalSpy>(window.nameButton(1), &QPushButton::clicked)); // after the bar
            window.nameButton(1)->click();
        }
    };
    connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&] {
        window.bar->refresh(LongPath);
        clickNext();
    });
    clickNext();
    QCOMPARE(window.chosen.count(), Clicks);
    QCOMPARE(told.size(), std::size_t(Clicks));
    for (const std::unique_ptr<QSignalSpy> &spy : told) {
        QCOMPARE(spy->count(), 1);
    }
}

void VelaButtonPathTest::aSlotMayHaveTheBarDeletedLater()
{
    PathWindow window(expectedPixels(60));
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    const QPointer<VelaButtonPath> bar(window.bar);
    connect(window.bar, &VelaButtonPath::sigUpdatePath, this, [&] {
        bar->refresh(QString());
        bar->deleteLater();
    });
    window.nameButton(1)->click();
    QTRY_VERIFY(!bar);
}

void VelaButtonPathTest::theBarMayBeDeletedWhenItsSlotIsCalled()
{
    auto *bar = new VelaButtonPath;
    bar->refresh(LongPath);
    QString chosen;
    connect(bar, &VelaButtonPath::sigUpdatePath, this, [&](const QString &path) {
        chosen = path;
        delete bar;
    });
    bar->slotPathBarClicked(2);
    QCOMPARE(chosen, QStringLiteral("first/second"));
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
