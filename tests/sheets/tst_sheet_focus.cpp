// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-sheet.h"
#include "sheets/sheet-focus_p.h"
#include "sheets/sheet-stack_p.h"
#include "support/modal-sheet.h"

#include <QLineEdit>
#include <QtTest>

using namespace Vela::Private;

namespace {

// A sheet of two fields that is up for as long as it lives.
class FieldSheet : public VelaSheet
{
public:
    explicit FieldSheet(QWidget *window) : VelaSheet(window), first(new QLineEdit(this)), second(new QLineEdit(this))
    {
        SheetStack::push(this);
    }
    ~FieldSheet() override { SheetStack::remove(this); }
    Q_DISABLE_COPY_MOVE(FieldSheet)

    void showSheet() override { show(); }

    QLineEdit *const first;
    QLineEdit *const second;
};

// What becomes of the field that had the focus before.
using Change = void (*)(QLineEdit *field);

} // namespace

Q_DECLARE_METATYPE(Change)

// The order of sheets, and the focus that is kept in one and returned from it.
class SheetFocusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLastVisibleSheetOfAWindowIsOnTop();
    void aSheetIsInTheStackOnce();

    void itMovesAlongTheSheet();
    void itEntersTheSheetFromOutside();
    void itStaysWhereNothingTakesIt();
    void itGoesBackToWhereItWas();
    void itGoesBackToNoWidgetThatCannotTakeIt_data();
    void itGoesBackToNoWidgetThatCannotTakeIt();
    void itGoesNotBackFromElsewhere();
    void itGoesBackIntoTheSheetBelow_data();
    void itGoesBackIntoTheSheetBelow();
    void aHiddenSheetLetsItGo();
};

void SheetFocusTest::theLastVisibleSheetOfAWindowIsOnTop()
{
    SheetWindow window;
    SheetWindow other;
    QVERIFY(window.showAndWait());
    QVERIFY(!SheetStack::top(&window));
    FieldSheet first(&window);
    FieldSheet second(&window);
    QVERIFY(!SheetStack::top(&window)); // neither is visible
    first.show();
    second.show();
    QCOMPARE(SheetStack::top(&window), &second);
    QCOMPARE(SheetStack::top(&window, &second), &first);
    QVERIFY(!SheetStack::top(&other));
    second.hide();
    QCOMPARE(SheetStack::top(&window), &first);
    second.show();
    QCOMPARE(SheetStack::top(&window), &second);
    first.setParent(&other);
    QVERIFY(!SheetStack::top(&window, &second));
}

void SheetFocusTest::aSheetIsInTheStackOnce()
{
    Shown<SheetWindow> window;
    FieldSheet first(&window);
    FieldSheet second(&window);
    first.show();
    second.show();
    SheetStack::push(&first);
    QCOMPARE(SheetStack::top(&window), &first);
    SheetStack::remove(&first);
    QCOMPARE(SheetStack::top(&window), &second);
    SheetStack::remove(&first);
    QCOMPARE(SheetStack::top(&window), &second);
}

void SheetFocusTest::itMovesAlongTheSheet()
{
    Shown<SheetWindow> window;
    FieldSheet sheet(&window);
    sheet.show();
    sheet.first->setFocus();
    SheetFocus focus(&sheet);
    for (const bool next : {true, false}) {
        focus.move(next);
        QCOMPARE(QApplication::focusWidget(), sheet.second);
        focus.move(next);
        QCOMPARE(QApplication::focusWidget(), sheet.first);
    }
}

void SheetFocusTest::itEntersTheSheetFromOutside()
{
    Shown<SheetWindow> window;
    FieldSheet sheet(&window);
    sheet.show();
    SheetFocus focus(&sheet);
    focus.move(true);
    QCOMPARE(QApplication::focusWidget(), sheet.first);
    window.below->setFocus();
    focus.move(false);
    QCOMPARE(QApplication::focusWidget(), sheet.second);
}

void SheetFocusTest::itStaysWhereNothingTakesIt()
{
    Shown<SheetWindow> window;
    FieldSheet sheet(&window);
    sheet.show();
    sheet.first->setEnabled(false);
    sheet.second->setFocusPolicy(Qt::ClickFocus);
    SheetFocus(&sheet).move(true);
    QCOMPARE(QApplication::focusWidget(), window.above);
}

void SheetFocusTest::itGoesBackToWhereItWas()
{
    Shown<SheetWindow> window;
    window.below->setFocus();
    FieldSheet sheet(&window);
    SheetFocus focus(&sheet);
    focus.remember();
    sheet.show();
    sheet.second->setFocus();
    focus.giveBack();
    QCOMPARE(QApplication::focusWidget(), window.below);
}

void SheetFocusTest::itGoesBackToNoWidgetThatCannotTakeIt_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("disabled") << Change([](QLineEdit *field) { field->setEnabled(false); });
    QTest::newRow("hidden") << Change([](QLineEdit *field) { field->hide(); });
    QTest::newRow("deleted") << Change([](QLineEdit *field) { delete field; });
}

void SheetFocusTest::itGoesBackToNoWidgetThatCannotTakeIt()
{
    QFETCH(Change, change);
    Shown<SheetWindow> window;
    window.below->setFocus();
    FieldSheet sheet(&window);
    SheetFocus focus(&sheet);
    focus.remember();
    sheet.show();
    sheet.first->setFocus();
    change(window.below);
    focus.giveBack();
    QCOMPARE(QApplication::focusWidget(), sheet.first);
}

void SheetFocusTest::itGoesNotBackFromElsewhere()
{
    Shown<SheetWindow> window;
    FieldSheet sheet(&window);
    SheetFocus focus(&sheet);
    focus.remember();
    sheet.show();
    window.below->setFocus();
    focus.giveBack();
    QCOMPARE(QApplication::focusWidget(), window.below);
}

void SheetFocusTest::itGoesBackIntoTheSheetBelow_data()
{
    QTest::addColumn<bool>("wasInTheSheet");
    QTest::addColumn<bool>("isHiddenMeanwhile");
    QTest::newRow("where it was") << true << false;
    QTest::newRow("elsewhere where that is hidden") << true << true;
    QTest::newRow("from the window") << false << false;
}

void SheetFocusTest::itGoesBackIntoTheSheetBelow()
{
    QFETCH(bool, wasInTheSheet);
    QFETCH(bool, isHiddenMeanwhile);
    Shown<SheetWindow> window;
    FieldSheet below(&window);
    below.show();
    (wasInTheSheet ? below.second : window.above)->setFocus();
    FieldSheet above(&window);
    SheetFocus focus(&above);
    focus.remember();
    above.show();
    above.first->setFocus();
    below.second->setHidden(isHiddenMeanwhile);
    focus.giveBack();
    QCOMPARE(QApplication::focusWidget(), wasInTheSheet && !isHiddenMeanwhile ? below.second : below.first);
}

void SheetFocusTest::aHiddenSheetLetsItGo()
{
    Shown<SheetWindow> window;
    FieldSheet sheet(&window);
    SheetFocus focus(&sheet);
    sheet.show();
    window.below->setFocus();
    focus.letGo();
    QCOMPARE(QApplication::focusWidget(), window.below);
    sheet.first->setFocus();
    focus.letGo();
    QVERIFY(!sheet.isAncestorOf(QApplication::focusWidget()));
}

QTEST_MAIN(SheetFocusTest)
#include "tst_sheet_focus.moc"
