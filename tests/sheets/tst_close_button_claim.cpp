// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/close-button-claim_p.h"
#include "sheets/fake-window-hints.h"

#include <QtTest>

#include <algorithm>
#include <memory>

using namespace Vela::Private;

namespace {

constexpr int Hints = 7; // hints of a window at first

class HintedWindow : public QWidget
{
public:
    explicit HintedWindow(int hints = Hints) { fakeHints()[this] = hints; }
    ~HintedWindow() override { fakeHints().remove(this); }
    Q_DISABLE_COPY_MOVE(HintedWindow)

    int hints() const { return fakeHints().value(this); }
};

} // namespace

class CloseButtonClaimTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void itTakesTheButtonAndGivesItBack();
    void itGivesTheButtonBackWhenItIsDestroyed();
    void itIsMadeOnce();
    void itCanBeMadeAgain();
    void withoutHintsItIsNotMade();
    void theButtonIsAwayUntilTheLastClaimHasGone_data();
    void theButtonIsAwayUntilTheLastClaimHasGone();
    void claimsToTwoWindowsDoNotMeet();
    void droppedHintsAreNotGivenBack();
    void aWindowThatIsGoneIsLeftAlone();
};

void CloseButtonClaimTest::cleanup()
{
    QCOMPARE(fakeHintsKept(), 0);
    QVERIFY(fakeHints().isEmpty());
}

void CloseButtonClaimTest::itTakesTheButtonAndGivesItBack()
{
    HintedWindow window;
    CloseButtonClaim claim;
    QVERIFY(!claim.isMade());
    claim.make(&window);
    QVERIFY(claim.isMade());
    QCOMPARE(window.hints(), FakeHintsAway);
    claim.giveBack(&window);
    QVERIFY(!claim.isMade());
    QCOMPARE(window.hints(), Hints);
    claim.giveBack(&window);
    QCOMPARE(window.hints(), Hints);
}

void CloseButtonClaimTest::itGivesTheButtonBackWhenItIsDestroyed()
{
    HintedWindow window;
    {
        CloseButtonClaim claim;
        claim.make(&window);
    }
    QCOMPARE(window.hints(), Hints);
}

// A second making would take what the claim has changed itself for the window's hints.
void CloseButtonClaimTest::itIsMadeOnce()
{
    HintedWindow window;
    CloseButtonClaim claim;
    claim.make(&window);
    claim.make(&window);
    claim.giveBack(&window);
    QCOMPARE(window.hints(), Hints);
}

void CloseButtonClaimTest::itCanBeMadeAgain()
{
    HintedWindow window;
    HintedWindow other;
    CloseButtonClaim claim;
    claim.make(&window);
    claim.giveBack(&window);
    claim.make(&other);
    QCOMPARE(window.hints(), Hints);
    QCOMPARE(other.hints(), FakeHintsAway);
    claim.giveBack(&other);
    QCOMPARE(other.hints(), Hints);
}

void CloseButtonClaimTest::withoutHintsItIsNotMade()
{
    QWidget window; // a window without hints, as on other platforms
    CloseButtonClaim claim;
    claim.make(&window);
    QVERIFY(!claim.isMade());
}

void CloseButtonClaimTest::theButtonIsAwayUntilTheLastClaimHasGone_data()
{
    QTest::addColumn<QVector<int>>("order");
    QVector<int> order {0, 1, 2};
    do {
        QTest::addRow("%d %d %d", order.at(0), order.at(1), order.at(2)) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

void CloseButtonClaimTest::theButtonIsAwayUntilTheLastClaimHasGone()
{
    QFETCH(QVector<int>, order);
    for (const bool isDestroyed : {false, true}) {
        HintedWindow window;
        std::unique_ptr<CloseButtonClaim> claims[3];
        for (auto &claim : claims) {
            claim = std::make_unique<CloseButtonClaim>();
            claim->make(&window);
        }
        for (const int index : qAsConst(order)) {
            QCOMPARE(window.hints(), FakeHintsAway);
            if (isDestroyed) {
                claims[index].reset();
            } else {
                claims[index]->giveBack(&window);
            }
        }
        QCOMPARE(window.hints(), Hints);
    }
}

void CloseButtonClaimTest::claimsToTwoWindowsDoNotMeet()
{
    HintedWindow window;
    HintedWindow other(Hints + 1);
    CloseButtonClaim first;
    CloseButtonClaim second;
    first.make(&window);
    second.make(&other);
    first.giveBack(&window);
    QCOMPARE(window.hints(), Hints);
    QCOMPARE(other.hints(), FakeHintsAway);
    second.giveBack(&other);
    QCOMPARE(other.hints(), Hints + 1);
}

void CloseButtonClaimTest::droppedHintsAreNotGivenBack()
{
    HintedWindow window;
    CloseButtonClaim claim;
    claim.make(&window);
    claim.drop();
    QVERIFY(!claim.isMade());
    claim.giveBack(&window);
    QCOMPARE(window.hints(), FakeHintsAway);
}

void CloseButtonClaimTest::aWindowThatIsGoneIsLeftAlone()
{
    CloseButtonClaim claim;
    {
        HintedWindow window;
        claim.make(&window);
    }
    QVERIFY(claim.isMade());
    claim.giveBack(nullptr);
    QVERIFY(!claim.isMade());
    QVERIFY(fakeHints().isEmpty());
}

QTEST_MAIN(CloseButtonClaimTest)
#include "tst_close_button_claim.moc"
