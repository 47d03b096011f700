// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-sheet.h"
#include "support/environment.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"
#include "support/window-hints.h"

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

using Answer = std::function<void(ModalSheet &sheet, SheetWindow &window)>;

} // namespace

Q_DECLARE_METATYPE(Answer)

// Sheets of both kinds that are moved or deleted, and windows that die, while they are up.
class ModalLifetimeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void cleanup();

    void aSheetThatIsMovedWatchesItsNewWindow_data();
    void aSheetThatIsMovedWatchesItsNewWindow();

    void theWindowMayDieWhileASheetIsShown();
    void theWindowMayDieWhileASheetWaits_data();
    void theWindowMayDieWhileASheetWaits();
    void theWindowMayDieBeforeASheetWaits();
    void theWindowMayDieWhileTwoSheetsWait();
    void theWindowMayDieWhileASheetWaitsAgain();
    void theWindowThatASheetIsMovedToMayDieWhileItWaits();
    void theWindowMayDieAfterTheAnswerThatExecStillReturns();
    void theWindowMayDieWhenTheApplicationQuits();
    void aSheetOnTheHeapOutlivesItsWindow();
    void anAnsweredSheetOnTheHeapDiesWithItsWindow();
    void aPanelInTheWindowMayDieWhileTheSheetWaits();

    void theSheetMayBeDeletedWhileItWaits();
    void theSheetMayBeDeletedWhileItIsShown();
    void theSheetMayBeDeletedInASlotOfFinished_data();
    void theSheetMayBeDeletedInASlotOfFinished();
    void theSheetMayBeDeletedAfterTheApplication_data();
    void theSheetMayBeDeletedAfterTheApplication();
    void theSheetMayBeDeletedByWhatGetsTheFocus();
    void theSheetMayBeShownAgainByWhatGetsTheFocus();

private:
    ResourceFolder m_folder;
};

void ModalLifetimeTest::initTestCase_data()
{
    ModalSheet::addKinds();
}

void ModalLifetimeTest::initTestCase()
{
    installSheetTheme(m_folder);
}

void ModalLifetimeTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

// A window that is active and dies before the test ends.
static std::unique_ptr<SheetWindow> shownWindow()
{
    auto window = std::make_unique<SheetWindow>();
    return window->showAndWait() ? std::move(window) : nullptr;
}

void ModalLifetimeTest::aSheetThatIsMovedWatchesItsNewWindow_data()
{
    QTest::addColumn<bool>("isInAPanel"); // whether the sheet is in a panel that moves with it
    QTest::newRow("the sheet") << false;
    QTest::newRow("a panel with it") << true;
}

void ModalLifetimeTest::aSheetThatIsMovedWatchesItsNewWindow()
{
    QFETCH(bool, isInAPanel);
    SheetWindow former;
    SheetWindow window;
    QVERIFY(former.showAndWait());
    QVERIFY(window.showAndWait());
    auto *panel = new QWidget(&former);
    panel->resize(600, 300);
    panel->show();
    ModalSheet sheet(panel);
    QWidget *moved = isInAPanel ? panel : sheet.get();
    const WindowHints hintsOfFormer(former);
    const WindowHints hints(window);
    const int result = sheet.execute([&] {
        moved->setParent(&window);
        moved->show();
        QVERIFY(hintsOfFormer.isBack());
        QVERIFY(hints.isAway());
        former.send(Qt::Key_A);
        QCOMPARE(former.keys, 1);
        former.close();
        QCOMPARE(former.closings, 1);
        window.close();
        QCOMPARE(window.closings, 0);
        window.send(Qt::Key_Escape);
    });
    QCOMPARE(result, CancelCode);
    QCOMPARE(window.keys, 0);
    window.send(Qt::Key_A);
    QCOMPARE(window.keys, 1);
    QVERIFY(hints.isBack());
}

void ModalLifetimeTest::theWindowMayDieWhileASheetIsShown()
{
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(window.get());
    sheet->showSheet();
    window.reset();
    QVERIFY(!sheet.get()); // the sheet died like any widget in the window
}

void ModalLifetimeTest::theWindowMayDieWhileASheetWaits_data()
{
    QTest::addColumn<bool>("hasMask");
    QTest::addColumn<bool>("isBlocked");
    for (const bool hasMask : {true, false}) {
        for (const bool isBlocked : {true, false}) {
            QTest::addRow("%s, %s", hasMask ? "mask" : "no mask", isBlocked ? "blocked" : "not blocked")
                << hasMask << isBlocked;
        }
    }
}

// The caller's sheet stays the caller's.
void ModalLifetimeTest::theWindowMayDieWhileASheetWaits()
{
    QFETCH(bool, hasMask);
    QFETCH(bool, isBlocked);
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(window.get());
    if (!hasMask) {
        sheet->setParent(window.get());
    }
    sheet.setBlockWindowButton(isBlocked);
    QCOMPARE(sheet.execute([&] { window.reset(); }), 0);
    QVERIFY(!sheet->parentWidget());
    QVERIFY(!sheet->isVisible());
    sheet.ok()->setText(QStringLiteral("still in use"));
    sheet.done(1);
}

// By a widget that loses the focus to the sheet, and asks a question for instance.
void ModalLifetimeTest::theWindowMayDieBeforeASheetWaits()
{
    auto window = shownWindow();
    QVERIFY(window);
    window->below->setFocus();
    ModalSheet sheet(window.get());
    const QPointer<VelaSheet> alive(sheet.get());
    QMetaObject::Connection dying;
    dying = connect(qApp, &QApplication::focusChanged, this, [&](const QWidget *before) {
        if (window && before == window->below) {
            disconnect(dying);
            window.reset();
        }
    });
    QTimer::singleShot(5000, sheet.get(), [&sheet] { sheet.done(OkCode); });
    QCOMPARE(sheet.exec(), 0);
    QVERIFY(!window && alive);
}

void ModalLifetimeTest::theWindowMayDieWhileTwoSheetsWait()
{
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet below(window.get());
    int second = NoAnswer;
    const int first = below.execute([&] {
        ModalSheet above(window.get());
        second = above.execute([&] { window.reset(); });
    });
    QCOMPARE(second, 0);
    QCOMPARE(first, 0);
}

void ModalLifetimeTest::theWindowMayDieWhileASheetWaitsAgain()
{
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(window.get());
    QList<int> answers;
    connect(sheet.get(), &VelaSheet::finished, this, [&] { answers.append(sheet.execute([&] { window.reset(); })); });
    answers.append(sheet.execute([&] { sheet.done(6); }));
    QCOMPARE(answers, (QList<int> {0, 6}));
}

void ModalLifetimeTest::theWindowThatASheetIsMovedToMayDieWhileItWaits()
{
    Shown<SheetWindow> former;
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(&former);
    QCOMPARE(sheet.execute([&] {
        VelaMask::createMask(sheet.get(), window.get(), QColor(0, 0, 0, 20));
        window.reset();
    }),
             0);
    QVERIFY(!sheet->parentWidget());
}

void ModalLifetimeTest::theWindowMayDieAfterTheAnswerThatExecStillReturns()
{
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(window.get());
    connect(sheet.get(), &VelaSheet::finished, this, [&] { window.reset(); });
    QCOMPARE(sheet.execute([&] { window->send(Qt::Key_Escape); }), CancelCode);
    QVERIFY(sheet.get());
}

void ModalLifetimeTest::theWindowMayDieWhenTheApplicationQuits()
{
    auto window = shownWindow();
    QVERIFY(window);
    connect(qApp, &QCoreApplication::aboutToQuit, window.get(), [&] { window.reset(); });
    QList<int> answers;
    QTimer::singleShot(0, this, [&] {
        ModalSheet sheet(window.get());
        QTimer::singleShot(0, qApp, &QApplication::quit);
        answers.append(sheet.exec());
    });
    QApplication::exec();
    QCOMPARE(answers, QList<int> {0});
}

void ModalLifetimeTest::aSheetOnTheHeapOutlivesItsWindow()
{
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(window.get());
    QSignalSpy finished(sheet.get(), &VelaSheet::finished);
    QCOMPARE(sheet.execute([&] { window.reset(); }), 0);
    QVERIFY(sheet.get());
    QVERIFY(!sheet->parent());
    QCOMPARE(finished.count(), 0);
}

// The sheet is the window's again once it is answered.
void ModalLifetimeTest::anAnsweredSheetOnTheHeapDiesWithItsWindow()
{
    auto window = shownWindow();
    QVERIFY(window);
    ModalSheet sheet(window.get());
    QCOMPARE(sheet.execute([&] { sheet.done(3); }), 3);
    window.reset();
    QVERIFY(!sheet.get());
}

void ModalLifetimeTest::aPanelInTheWindowMayDieWhileTheSheetWaits()
{
    SheetWindow window;
    auto *panel = new QWidget(&window);
    panel->setGeometry(0, 0, 600, 300);
    QVERIFY(window.showAndWait());
    ModalSheet sheet(panel);
    QCOMPARE(sheet.execute([panel] { delete panel; }), 0);
    window.send(Qt::Key_A);
    QCOMPARE(window.keys, 1);
    window.close();
    QCOMPARE(window.closings, 1);
}

void ModalLifetimeTest::theSheetMayBeDeletedWhileItWaits()
{
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(true);
    const WindowHints hints(shown.window);
    QTimer::singleShot(0, this, [&] { shown.sheet.reset(); });
    QCOMPARE(shown.sheet.exec(), 0);
    QVERIFY(hints.isBack());
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
    shown.window.close();
    QCOMPARE(shown.window.closings, 1);
}

void ModalLifetimeTest::theSheetMayBeDeletedWhileItIsShown()
{
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(true);
    shown.sheet->showSheet();
    shown.sheet.reset();
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
    shown.window.close();
    QCOMPARE(shown.window.closings, 1);
}

void ModalLifetimeTest::theSheetMayBeDeletedInASlotOfFinished_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("done()") << Answer([](ModalSheet &sheet, SheetWindow &) { sheet.done(OkCode); });
    QTest::newRow("Return") << Answer([](ModalSheet &, SheetWindow &window) { window.press(Qt::Key_Return); });
    QTest::newRow("Space on the button") << Answer([](ModalSheet &sheet, SheetWindow &window) {
        sheet.ok()->setFocus();
        window.press(Qt::Key_Space);
    });
    QTest::newRow("click") << Answer([](ModalSheet &sheet, SheetWindow &window) { window.click(sheet.ok()); });
}

void ModalLifetimeTest::theSheetMayBeDeletedInASlotOfFinished()
{
    QFETCH(Answer, answer);
    ShownSheet shown;
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&] { shown.sheet.reset(); });
    QTimer::singleShot(0, this, [&] { answer(shown.sheet, shown.window); });
    QCOMPARE(shown.sheet.exec(), OkCode);
    QVERIFY(!shown.sheet.get());
}

void ModalLifetimeTest::theSheetMayBeDeletedAfterTheApplication_data()
{
    QTest::addColumn<QStringList>("kind");
    QTest::newRow("with its window") << QStringList();
    QTest::newRow("static") << QStringList {QStringLiteral("static")};
}

void ModalLifetimeTest::theSheetMayBeDeletedAfterTheApplication()
{
    QFETCH(QStringList, kind);
    const QString name =
        ModalSheet::currentKind() == ModalSheet::Message ? QStringLiteral("message") : QStringLiteral("input");
    bool crashed = true;
    const QString errors =
        runAndReadErrors(QStringLiteral(VELA_OUTLIVES_APPLICATION), QStringList {name} + kind, &crashed);
    QVERIFY2(!crashed && !errors.contains(QStringLiteral("Sanitizer")), qPrintable(errors));
}

void ModalLifetimeTest::theSheetMayBeDeletedByWhatGetsTheFocus()
{
    ShownSheet shown;
    shown.window.below->setFocus();
    shown.sheet->showSheet();
    shown.sheet.firstFocus()->setFocus();
    const auto deleter = connect(qApp, &QApplication::focusChanged, this, [&](QWidget *, const QWidget *now) {
        if (now == shown.window.below) {
            shown.sheet.reset();
        }
    });
    shown.sheet.done(OkCode);
    disconnect(deleter);
    QCOMPARE(QApplication::focusWidget(), shown.window.below);
    QVERIFY(!shown.sheet.get());
}

void ModalLifetimeTest::theSheetMayBeShownAgainByWhatGetsTheFocus()
{
    ShownSheet shown;
    shown.window.below->setFocus();
    shown.sheet->showSheet();
    shown.sheet.firstFocus()->setFocus();
    QMetaObject::Connection again;
    again = connect(qApp, &QApplication::focusChanged, this, [&](QWidget *, const QWidget *now) {
        if (now == shown.window.below) {
            disconnect(again);
            shown.sheet->showSheet();
        }
    });
    shown.sheet.done(OkCode);
    QVERIFY(shown.sheet->isVisible());
    shown.sheet.done(OkCode);
    QVERIFY(!shown.sheet->isVisible());
    shown.window.close();
    QCOMPARE(shown.window.closings, 1);
}

QTEST_MAIN(ModalLifetimeTest)
#include "tst_modal_lifetime.moc"
