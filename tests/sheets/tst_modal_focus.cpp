// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-sheet.h"
#include "support/controls.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QtTest>

namespace {

// Why a widget is not reached by Tab.
enum Flaw { Disabled, Hidden, ByClickOnly };

} // namespace

// Where the focus goes while a sheet of either kind is up, and after it.
class ModalFocusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void cleanup();

    void theFocusGoesBackFromAnAnsweredSheet_data();
    void theFocusGoesBackFromAnAnsweredSheet();
    void theFocusPassesToTheSheetBelow_data();
    void theFocusPassesToTheSheetBelow();
    void theFocusPassesOverASheetThatWasHidden();

    void tabAndBacktabStayInTheSheet();
    void tabVisitsWhatTakesTheFocusInOrder();
    void arrowsOnAButtonStayInTheSheet();
    void tabPassesOverWhatDoesNotTakeTheFocus_data();
    void tabPassesOverWhatDoesNotTakeTheFocus();
    void theFocusStaysWhenItsWidgetIsDisabledOrHidden();
    void aClickBelowTheMaskReachesNothing();

private:
    ResourceFolder m_folder;
};

void ModalFocusTest::initTestCase_data()
{
    ModalSheet::addKinds();
}

void ModalFocusTest::initTestCase()
{
    installSheetTheme(m_folder);
}

void ModalFocusTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void ModalFocusTest::theFocusGoesBackFromAnAnsweredSheet_data()
{
    QTest::addColumn<bool>("hasMask");
    QTest::newRow("mask") << true;
    QTest::newRow("no mask") << false;
}

void ModalFocusTest::theFocusGoesBackFromAnAnsweredSheet()
{
    QFETCH(bool, hasMask);
    ShownSheet shown;
    SheetWindow &window = shown.window;
    if (!hasMask) {
        shown.sheet->setParent(&window);
    }
    window.below->setFocus();
    shown.execute([&] {
        QVERIFY(shown.sheet->isAncestorOf(QApplication::focusWidget()));
        window.press(Qt::Key_Return);
    });
    QCOMPARE(QApplication::focusWidget(), window.below);

    // Any other widget will do where that one is gone.
    shown.execute([&] {
        window.below->hide();
        window.press(Qt::Key_Return);
    });
    QCOMPARE(QApplication::focusWidget(), window.above);
}

void ModalFocusTest::theFocusPassesToTheSheetBelow_data()
{
    QTest::addColumn<bool>("isInACover"); // whether it is in a cover, or on the button that had the focus before
    QTest::newRow("to the button that had it") << false;
    QTest::newRow("to the first that takes it") << true;
}

// Qt would move the focus to what is below the mask.
void ModalFocusTest::theFocusPassesToTheSheetBelow()
{
    QFETCH(bool, isInACover);
    ShownSheet shown;
    shown.window.below->setFocus();
    shown.execute([&] {
        if (isInACover) {
            shown.window.below->setFocus(); // an application may do so
        } else {
            shown.cancel()->setFocus();
        }
        ModalSheet above(&shown.window);
        above.setBlockWindowButton(false);
        above.execute([&] { shown.window.press(Qt::Key_Return); });
        QCOMPARE(QApplication::focusWidget(), isInACover ? shown.sheet.firstFocus() : shown.cancel());
        shown.window.press(Qt::Key_Tab);
        QVERIFY(shown.sheet->isAncestorOf(QApplication::focusWidget()));
        shown.ok()->setFocus();
        shown.window.press(Qt::Key_A);
        shown.sheet.quit();
    });
    QCOMPARE(shown.window.above->text() + shown.window.below->text(), QString());
}

// The sheet is up still, but nobody sees it.
void ModalFocusTest::theFocusPassesOverASheetThatWasHidden()
{
    ShownSheet shown;
    ModalSheet hidden(&shown.window);
    hidden->showSheet();
    hidden->hide();
    shown.window.below->setFocus();
    shown.execute([&] { shown.window.press(Qt::Key_Return); });
    QCOMPARE(QApplication::focusWidget(), shown.window.below);
}

void ModalFocusTest::tabAndBacktabStayInTheSheet()
{
    ShownSheet shown;
    shown.execute([&] {
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            for (int i = 0; i < 12; ++i) {
                shown.window.press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
                QVERIFY(shown.sheet->isAncestorOf(QApplication::focusWidget()));
            }
        }
        shown.sheet.quit();
    });
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
}

void ModalFocusTest::tabVisitsWhatTakesTheFocusInOrder()
{
    ShownSheet shown;
    shown.execute([&] {
        QList<QWidget *> forwards;
        for (int i = 0; i < 3; ++i) {
            shown.window.press(Qt::Key_Tab);
            forwards.append(QApplication::focusWidget());
        }
        QCOMPARE(forwards, (QList<QWidget *> {shown.ok(), shown.cancel(), shown.sheet.firstFocus()}));
        QList<QWidget *> backwards;
        for (int i = 0; i < 3; ++i) {
            shown.window.press(Qt::Key_Backtab, Qt::ShiftModifier);
            backwards.append(QApplication::focusWidget());
        }
        QCOMPARE(backwards, (QList<QWidget *> {shown.cancel(), shown.ok(), shown.sheet.firstFocus()}));
        shown.sheet.quit();
    });
}

void ModalFocusTest::arrowsOnAButtonStayInTheSheet()
{
    ShownSheet shown;
    shown.execute([&] {
        shown.cancel()->setFocus();
        QSet<QWidget *> visited;
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down}) {
            for (int i = 0; i < 3; ++i) {
                shown.window.press(key);
                visited.insert(QApplication::focusWidget());
                shown.cancel()->setFocus();
            }
        }
        QCOMPARE(visited, (QSet<QWidget *> {shown.ok(), shown.sheet.firstFocus()}));
        shown.sheet.quit();
    });
}

void ModalFocusTest::tabPassesOverWhatDoesNotTakeTheFocus_data()
{
    QTest::addColumn<int>("flaw");
    QTest::newRow("disabled") << int(Disabled);
    QTest::newRow("hidden") << int(Hidden);
    QTest::newRow("by click only") << int(ByClickOnly);
}

void ModalFocusTest::tabPassesOverWhatDoesNotTakeTheFocus()
{
    QFETCH(int, flaw);
    ShownSheet shown;
    shown.execute([&] {
        QWidget *first = shown.sheet.firstFocus();
        shown.ok()->setEnabled(flaw != Disabled);
        shown.ok()->setVisible(flaw != Hidden);
        shown.ok()->setFocusPolicy(flaw == ByClickOnly ? Qt::ClickFocus : Qt::StrongFocus);
        for (QWidget *expected : QList<QWidget *> {shown.cancel(), first, shown.cancel()}) {
            shown.window.press(Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), expected);
        }
        shown.window.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), first);
        shown.sheet.quit();
    });
}

void ModalFocusTest::theFocusStaysWhenItsWidgetIsDisabledOrHidden()
{
    ShownSheet shown;
    shown.execute([&] {
        shown.ok()->setFocus();
        shown.ok()->setEnabled(false);
        QCOMPARE(QApplication::focusWidget(), shown.cancel());
        shown.cancel()->hide();
        QCOMPARE(QApplication::focusWidget(), shown.sheet.firstFocus());
        shown.sheet.quit();
    });
}

void ModalFocusTest::aClickBelowTheMaskReachesNothing()
{
    ShownSheet shown;
    shown.execute([&] {
        EventCounter presses(shown.window.below, QEvent::MouseButtonPress);
        shown.window.click(shown.window.below);
        QCOMPARE(presses.take(), 0);
        QVERIFY(!shown.window.below->hasFocus());
        shown.sheet.quit();
    });
}

QTEST_MAIN(ModalFocusTest)
#include "tst_modal_focus.moc"
