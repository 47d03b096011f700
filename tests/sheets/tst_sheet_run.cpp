// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-sheet.h"
#include "sheets/fake-window-hints.h"
#include "sheets/sheet-run_p.h"
#include "sheets/sheet-stack_p.h"
#include "support/modal-sheet.h"

#include <QTimer>
#include <QtTest>

#include <memory>

using Vela::Private::SheetRun;
using Vela::Private::SheetStack;

namespace {

constexpr int Hints = 7; // hints of a window at first

// A sheet with nothing in it and a run that is its own child, as those of the library are.
class BareSheet : public VelaSheet
{
public:
    explicit BareSheet(QWidget *window) : VelaSheet(window), run(new SheetRun(this)) { run->setParent(this); }

    void showSheet() override
    {
        show();
        run->watchWindow();
    }

    SheetRun *const run;
};

} // namespace

// The states of a run and the ways between them.
class SheetRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aNewRunIsDown();
    void aShownSheetIsUp();
    void aSheetWaitsUntilItIsAnswered();
    void aWaitingSheetThatIsShownAgainWaits();
    void anAnswerIsOneUntilItHasBeenTold();
    void aSheetThatIsShownAgainByASlotIsUp();
    void aSlotThatThrowsLeavesTheRunDown();
    void anAnswerWithoutARunIsToldToo();
    void aSheetThatWaitsInVainIsUp();
    void aDyingWindowBringsTheRunDown();
    void aSheetMayBeginInAnotherWindowThen();
    void aMovedSheetIsUpInItsNewWindow();
    void theSheetThatBeginsIsUppermost();
    void aDestroyedRunEndsItsWait();
    void aCloseIsRefusedWhileItIsToldTo();

    void theCloseButtonIsAwayBetweenBeginAndEnd();
    void theCloseButtonIsTakenOnlyWhenItIsToldTo();
    void theCloseButtonComesBackWithTheRunsEnd_data();
    void theCloseButtonComesBackWithTheRunsEnd();
    void theCloseButtonFollowsTheSheet();
};

void SheetRunTest::cleanup()
{
    QCOMPARE(fakeHintsKept(), 0);
    fakeHints().clear();
}

void SheetRunTest::aNewRunIsDown()
{
    SheetWindow window;
    const BareSheet sheet(&window);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

void SheetRunTest::aShownSheetIsUp()
{
    SheetWindow window;
    BareSheet sheet(&window);
    sheet.showSheet();
    QCOMPARE(sheet.run->state(), SheetRun::State::Up);
    sheet.run->end(0);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

void SheetRunTest::aSheetWaitsUntilItIsAnswered()
{
    SheetWindow window;
    BareSheet sheet(&window);
    sheet.run->begin();
    QCOMPARE(sheet.run->state(), SheetRun::State::Up);
    QTimer::singleShot(0, &sheet, [&] {
        QCOMPARE(sheet.run->state(), SheetRun::State::Waiting);
        sheet.run->end(5);
        QCOMPARE(sheet.run->state(), SheetRun::State::Down);
    });
    QCOMPARE(sheet.run->wait(), 5);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

void SheetRunTest::aWaitingSheetThatIsShownAgainWaits()
{
    SheetWindow window;
    BareSheet sheet(&window);
    sheet.run->begin();
    QTimer::singleShot(0, &sheet, [&] {
        sheet.showSheet();
        QCOMPARE(sheet.run->state(), SheetRun::State::Waiting);
        sheet.run->end(5);
    });
    QCOMPARE(sheet.run->wait(), 5);
}

void SheetRunTest::anAnswerIsOneUntilItHasBeenTold()
{
    SheetWindow window;
    BareSheet sheet(&window);
    sheet.showSheet();
    QSignalSpy finished(&sheet, &VelaSheet::finished);
    connect(&sheet, &VelaSheet::finished, this, [&] {
        QCOMPARE(sheet.run->state(), SheetRun::State::Answering);
        sheet.run->end(2);
    });
    sheet.run->end(1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

void SheetRunTest::aSheetThatIsShownAgainByASlotIsUp()
{
    SheetWindow window;
    BareSheet sheet(&window);
    sheet.showSheet();
    connect(&sheet, &VelaSheet::finished, &sheet, &BareSheet::showSheet);
    sheet.run->end(1);
    QCOMPARE(sheet.run->state(), SheetRun::State::Up);
}

void SheetRunTest::aSlotThatThrowsLeavesTheRunDown()
{
    SheetWindow window;
    BareSheet sheet(&window);
    sheet.showSheet();
    connect(&sheet, &VelaSheet::finished, this, [] { throw 1; });
    QVERIFY_EXCEPTION_THROWN(sheet.run->end(1), int);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

void SheetRunTest::anAnswerWithoutARunIsToldToo()
{
    SheetWindow window;
    BareSheet sheet(&window);
    QSignalSpy finished(&sheet, &VelaSheet::finished);
    sheet.run->end(1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

// A sheet waits in vain whose loop ends with the application's.
void SheetRunTest::aSheetThatWaitsInVainIsUp()
{
    SheetWindow window;
    BareSheet sheet(&window);
    QTimer::singleShot(0, &sheet, [&] {
        sheet.run->begin();
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(9); });
        QCOMPARE(sheet.run->wait(), 9);
        QCOMPARE(sheet.run->state(), SheetRun::State::Up);
    });
    QCOMPARE(QCoreApplication::exec(), 9);
}

void SheetRunTest::aDyingWindowBringsTheRunDown()
{
    auto window = std::make_unique<SheetWindow>();
    BareSheet sheet(window.get());
    sheet.run->begin();
    QTimer::singleShot(0, &sheet, [&] { window.reset(); });
    QCOMPARE(sheet.run->wait(), 0);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
    QVERIFY(!sheet.parent());
}

void SheetRunTest::aSheetMayBeginInAnotherWindowThen()
{
    SheetWindow window;
    auto former = std::make_unique<SheetWindow>();
    fakeHints()[former.get()] = Hints;
    BareSheet sheet(former.get());
    sheet.run->begin();
    QTimer::singleShot(0, &sheet, [&] { former.reset(); });
    QCOMPARE(sheet.run->wait(), 0);

    fakeHints()[&window] = Hints + 1;
    sheet.setParent(&window);
    sheet.run->begin();
    QCOMPARE(sheet.run->state(), SheetRun::State::Up);
    QCOMPARE(fakeHints().value(&window), FakeHintsAway);
    sheet.run->end(0);
    QCOMPARE(fakeHints().value(&window), Hints + 1);
}

void SheetRunTest::aMovedSheetIsUpInItsNewWindow()
{
    SheetWindow former;
    SheetWindow window;
    BareSheet sheet(&former);
    sheet.showSheet();
    sheet.setParent(&window);
    QCOMPARE(sheet.run->state(), SheetRun::State::Up);
    sheet.run->end(1);
    QCOMPARE(sheet.run->state(), SheetRun::State::Down);
}

// The sheet was shown before the other one.
void SheetRunTest::theSheetThatBeginsIsUppermost()
{
    SheetWindow window;
    window.show();
    BareSheet first(&window);
    BareSheet second(&window);
    first.showSheet();
    second.showSheet();
    QCOMPARE(SheetStack::top(&window), &second);
    first.run->begin();
    QCOMPARE(SheetStack::top(&window), &first);
    first.run->end(0);
    QCOMPARE(SheetStack::top(&window), &second);
}

void SheetRunTest::aDestroyedRunEndsItsWait()
{
    SheetWindow window;
    auto *sheet = new BareSheet(&window);
    sheet->run->begin();
    QTimer::singleShot(0, this, [sheet] { delete sheet; });
    QCOMPARE(sheet->run->wait(), 0);
}

void SheetRunTest::aCloseIsRefusedWhileItIsToldTo()
{
    SheetWindow window;
    BareSheet sheet(&window);
    QCloseEvent close;
    QVERIFY(sheet.run->refusesClose(&close));
    QVERIFY(!close.isAccepted());
    QEvent hide(QEvent::Hide);
    QVERIFY(!sheet.run->refusesClose(&hide));
    sheet.run->setBlockWindowButton(false);
    QCloseEvent another;
    QVERIFY(!sheet.run->refusesClose(&another));
    QVERIFY(another.isAccepted());
}

void SheetRunTest::theCloseButtonIsAwayBetweenBeginAndEnd()
{
    SheetWindow window;
    fakeHints()[&window] = Hints;
    BareSheet sheet(&window);
    sheet.showSheet(); // shows the sheet without taking the button
    QCOMPARE(fakeHints().value(&window), Hints);
    sheet.run->begin();
    QCOMPARE(fakeHints().value(&window), FakeHintsAway);
    sheet.run->end(0);
    QCOMPARE(fakeHints().value(&window), Hints);
}

void SheetRunTest::theCloseButtonIsTakenOnlyWhenItIsToldTo()
{
    SheetWindow window;
    fakeHints()[&window] = Hints;
    BareSheet sheet(&window);
    sheet.run->setBlockWindowButton(false);
    sheet.run->begin();
    QCOMPARE(fakeHints().value(&window), Hints);
    sheet.run->end(0);

    // The button does not come back either: the next answer does that.
    sheet.run->setBlockWindowButton(true);
    sheet.run->begin();
    sheet.run->setBlockWindowButton(false);
    sheet.run->end(0);
    QCOMPARE(fakeHints().value(&window), FakeHintsAway);
    sheet.run->setBlockWindowButton(true);
    sheet.run->begin();
    sheet.run->end(0);
    QCOMPARE(fakeHints().value(&window), Hints);
}

void SheetRunTest::theCloseButtonComesBackWithTheRunsEnd_data()
{
    QTest::addColumn<bool>("isPanelsEnd"); // whether the panel ends, or else the sheet
    QTest::newRow("the sheet is deleted") << false;
    QTest::newRow("what it is in is deleted while it waits") << true;
}

void SheetRunTest::theCloseButtonComesBackWithTheRunsEnd()
{
    QFETCH(bool, isPanelsEnd);
    SheetWindow window;
    fakeHints()[&window] = Hints;
    auto *panel = new QWidget(&window);
    auto sheet = std::make_unique<BareSheet>(panel);
    sheet->run->begin();
    QTimer::singleShot(0, this, [&] {
        if (isPanelsEnd) {
            delete panel;
        } else {
            sheet.reset();
        }
    });
    QCOMPARE(sheet->run->wait(), 0);
    QCOMPARE(fakeHints().value(&window), Hints);
}

void SheetRunTest::theCloseButtonFollowsTheSheet()
{
    SheetWindow former;
    SheetWindow window;
    fakeHints()[&former] = Hints;
    fakeHints()[&window] = Hints + 1;
    BareSheet sheet(&former);
    sheet.run->begin();
    sheet.setParent(&window);
    QCOMPARE(fakeHints().value(&former), Hints);
    QCOMPARE(fakeHints().value(&window), FakeHintsAway);
    sheet.run->end(0);
    QCOMPARE(fakeHints().value(&window), Hints + 1);
}

QTEST_MAIN(SheetRunTest)
#include "tst_sheet_run.moc"
