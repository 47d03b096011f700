// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-sheet.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"
#include "support/toolkit-language.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

namespace {

// The widget that a key is pressed in.
enum Target { ForTheWindow, OnTheSheet, OnTheFirst, OnOk, OnCancel };

const auto Nothing = [] {};

} // namespace

// How sheets of both kinds are answered, and what their callers are told.
class ModalAnswersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void cleanup();

    void okIsTheDefaultButtonAndAnotherMayBeToo();
    void anotherLanguageOfTheToolkitLeavesTheCaptions();
    void showSheetReturnsAtOnce();
    void execReturnsWhatDoneIsGiven_data();
    void execReturnsWhatDoneIsGiven();
    void aClickReturnsTheButtonsCode_data();
    void aClickReturnsTheButtonsCode();
    void aButtonOfNoCodeReturnsNone();
    void theMaskComesAndGoesWithTheSheet();

    void keysAnswer_data();
    void keysAnswer();
    void keysAnswerASheetThatDoesNotBlock_data();
    void keysAnswerASheetThatDoesNotBlock();
    void inADialogTheKeysAnswerTheSheetOnly();
    void otherKeysEndAtTheWindow();
    void releasesAndOtherObjectsPass();
    void afterTheAnswerTheWindowHasItsKeysBack();

    void anAnswerEmitsFinishedOnce();
    void aKeyAfterAClickIsNoSecondAnswer();
    void allIsUndoneWhenFinishedIsEmitted();
    void eachDoneIsReportedAndExecReturnsTheLast();
    void doneBeforeExecIsNoAnswerToIt();
    void doneInASlotOfFinishedIsNoSecondAnswer();
    void aSlotOfFinishedMayThrow();
    void itCanBeExecutedAgain();
    void itCanBeExecutedAgainFromASlotOfFinished();
    void itCanBeShownAgainFromASlotOfFinished();
    void whatIsShownAlreadyCanBeExecuted();
    void execWhileItWaitsReturnsAtOnce();
    void timersRunWhileItWaits();
    void aSecondSheetMayBeAnsweredFirst();
    void aFirstSheetMayBeAnsweredFirst();
    void quittingEndsTheWait();
    void theWindowMayBeResizedHiddenAndShown();

private:
    ResourceFolder m_folder;
};

void ModalAnswersTest::initTestCase_data()
{
    ModalSheet::addKinds();
}

void ModalAnswersTest::initTestCase()
{
    installSheetTheme(m_folder);
}

void ModalAnswersTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

// The former default button keeps its look when another one becomes it.
void ModalAnswersTest::okIsTheDefaultButtonAndAnotherMayBeToo()
{
    QWidget window;
    ModalSheet sheet(&window);
    for (const bool isNoneSet : {false, true}) {
        if (isNoneSet) {
            sheet.setDefaultButton(nullptr);
        }
        QVERIFY(sheet.ok()->isDefault());
        QVERIFY(!sheet.cancel()->isDefault());
    }
    sheet.setDefaultButton(sheet.cancel());
    QVERIFY(sheet.cancel()->isDefault());
    QVERIFY(sheet.ok()->isDefault());
}

void ModalAnswersTest::anotherLanguageOfTheToolkitLeavesTheCaptions()
{
    const ShownSheet shown;
    const QString ok = shown.ok()->text();
    shown.cancel()->setText(QStringLiteral("Keep it"));
    shown.cancel()->setShortcut(Qt::Key_F5);
    const auto captions = [&shown] { return QStringList {shown.ok()->text(), shown.cancel()->text()}; };
    {
        const ToolkitLanguage other;
        QCOMPARE(captions(), QStringList({ok, QStringLiteral("Keep it")}));
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(captions(), QStringList({ok, QStringLiteral("Keep it")}));
    QCOMPARE(shown.cancel()->shortcut(), QKeySequence(Qt::Key_F5));

    class Translator : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::LanguageChange) {
                qobject_cast<QPushButton *>(watched)->setText(QStringLiteral("Behalten"));
            }
            return false;
        }
    } translator;
    shown.cancel()->installEventFilter(&translator);
    const ToolkitLanguage other;
    QCOMPARE(captions(), QStringList({ok, QStringLiteral("Behalten")}));
}

void ModalAnswersTest::showSheetReturnsAtOnce()
{
    ShownSheet shown;
    shown.sheet->showSheet();
    QVERIFY(shown.sheet->isVisible());
    shown.sheet.done(7);
    QVERIFY(!shown.sheet->isVisible());
}

void ModalAnswersTest::execReturnsWhatDoneIsGiven_data()
{
    QTest::addColumn<int>("result");
    for (const int result : {0, 1, -5, OkCode, CancelCode, 0x7fffffff}) {
        QTest::addRow("%d", result) << result;
    }
}

void ModalAnswersTest::execReturnsWhatDoneIsGiven()
{
    QFETCH(int, result);
    ShownSheet shown;
    QCOMPARE(shown.execute([&] { shown.sheet.done(result); }), result);
    QCOMPARE(shown.execute([&] { shown.sheet.quit(); }), 0);
}

void ModalAnswersTest::aClickReturnsTheButtonsCode_data()
{
    QTest::addColumn<bool>("onOk");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << true << OkCode;
    QTest::newRow("cancel") << false << CancelCode;
}

void ModalAnswersTest::aClickReturnsTheButtonsCode()
{
    QFETCH(bool, onOk);
    QFETCH(int, result);
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.click(onOk ? shown.ok() : shown.cancel()); }), result);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), result);
    shown.sheet.buttonClick(onOk ? shown.ok() : shown.cancel());
    QCOMPARE(finished.last().first().toInt(), result);
}

void ModalAnswersTest::aButtonOfNoCodeReturnsNone()
{
    ShownSheet shown;
    QPushButton own;
    QCOMPARE(shown.execute([&] { shown.sheet.buttonClick(&own); }), 0);
    QCOMPARE(shown.execute([&] { shown.sheet.buttonClick(nullptr); }), 0);
}

void ModalAnswersTest::theMaskComesAndGoesWithTheSheet()
{
    ShownSheet shown;
    const auto *mask = shown.window.findChild<VelaMask *>();
    QVERIFY(!mask->isVisible());
    shown.execute([&] {
        QVERIFY(mask->isVisible());
        QCOMPARE(mask->geometry(), shown.window.rect());
        QCOMPARE(shown.sheet->parentWidget(), static_cast<const QWidget *>(mask));
        shown.sheet.quit();
    });
    QVERIFY(!mask->isVisible());
}

void ModalAnswersTest::keysAnswer_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("target");
    QTest::addColumn<int>("result");
    const struct
    {
        const char *name;
        int key;
        int result;
    } keys[] = {
        {"Escape", Qt::Key_Escape, CancelCode},
        {"Return", Qt::Key_Return, OkCode},
        {"Enter", Qt::Key_Enter, OkCode},
        {"Space", Qt::Key_Space, OkCode},
    };
    const char *const targets[] = {"for the window", "on the sheet", "on the first", "on Ok", "on cancel"};
    for (const auto &key : keys) {
        for (const int target : {ForTheWindow, OnTheSheet, OnTheFirst, OnOk, OnCancel}) {
            // A button presses itself by Space. It passes the other keys on, and for the window Return means Ok.
            const bool pressesItself = target == OnCancel && key.key == Qt::Key_Space;
            QTest::addRow("%s %s", key.name, targets[target])
                << key.key << target << (pressesItself ? CancelCode : key.result);
        }
    }
}

void ModalAnswersTest::keysAnswer()
{
    QFETCH(int, key);
    QFETCH(int, target);
    QFETCH(int, result);
    ShownSheet shown;
    if (key == Qt::Key_Space && target == OnTheFirst && qobject_cast<QLineEdit *>(shown.sheet.firstFocus())) {
        return; // a line edit takes the key
    }
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    const int answer = shown.execute([&] {
        if (target == ForTheWindow) {
            shown.window.send(key);
            return;
        }
        QWidget *const widgets[] = {nullptr, shown.sheet.get(), shown.sheet.firstFocus(), shown.ok(), shown.cancel()};
        widgets[target]->setFocus();
        shown.window.press(key);
    });
    QCOMPARE(answer, result);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), result);
    QVERIFY(!shown.sheet->isVisible());
    QCOMPARE(shown.window.keys, 0);
}

void ModalAnswersTest::keysAnswerASheetThatDoesNotBlock_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("result");
    QTest::newRow("Return") << int(Qt::Key_Return) << OkCode;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << CancelCode;
}

void ModalAnswersTest::keysAnswerASheetThatDoesNotBlock()
{
    QFETCH(int, key);
    QFETCH(int, result);
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    shown.sheet->showSheet();
    shown.window.send(key);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), result);
    QVERIFY(!shown.sheet->isVisible());
}

void ModalAnswersTest::inADialogTheKeysAnswerTheSheetOnly()
{
    QDialog dialog;
    dialog.resize(640, 400);
    ModalSheet sheet(&dialog);
    sheet.setBlockWindowButton(false);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QCOMPARE(sheet.execute([&] { QTest::keyClick(dialog.windowHandle(), Qt::Key_Return); }), OkCode);
    QVERIFY(dialog.isVisible());
    QCOMPARE(sheet.execute([&] { QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape); }), CancelCode);
    QVERIFY(dialog.isVisible());
}

void ModalAnswersTest::otherKeysEndAtTheWindow()
{
    ShownSheet shown;
    shown.execute([&] {
        shown.sheet.firstFocus()->setFocus();
        shown.window.press(Qt::Key_F5); // a key that a line edit passes on
        shown.sheet->setFocus();
        for (const int key : {Qt::Key_A, Qt::Key_F1, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Down, Qt::Key_Alt}) {
            QVERIFY(shown.window.send(key));
            shown.window.press(key);
        }
        QVERIFY(shown.sheet->isVisible());
        shown.sheet.quit();
    });
    QCOMPARE(shown.window.keys, 0);
}

void ModalAnswersTest::releasesAndOtherObjectsPass()
{
    ShownSheet shown;
    shown.sheet->showSheet();
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QEvent other(QEvent::User);
    QVERIFY(!shown.sheet->eventFilter(&shown.window, &release));
    QVERIFY(!shown.sheet->eventFilter(&shown.window, &other));
    QVERIFY(!shown.sheet->eventFilter(shown.sheet.firstFocus(), &press));
    QVERIFY(!shown.sheet->eventFilter(shown.ok(), &press));
    QVERIFY(!shown.sheet->eventFilter(shown.window.above, &press));
    QVERIFY(shown.sheet->isVisible());
    QVERIFY(shown.sheet->eventFilter(&shown.window, &press));
    QVERIFY(!shown.sheet->isVisible());
}

void ModalAnswersTest::afterTheAnswerTheWindowHasItsKeysBack()
{
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(true);
    shown.execute([&] { shown.window.press(Qt::Key_Escape); });
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
    shown.window.close();
    QCOMPARE(shown.window.closings, 1);
}

void ModalAnswersTest::anAnswerEmitsFinishedOnce()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    shown.execute([&] { shown.window.press(Qt::Key_Return); });
    QCOMPARE(finished.count(), 1);
}

// Nothing else takes the focus there, so it has nowhere to go from the button.
void ModalAnswersTest::aKeyAfterAClickIsNoSecondAnswer()
{
    ShownSheet shown;
    delete shown.window.above;
    delete shown.window.below;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.click(shown.ok()); }), OkCode);
    QVERIFY(!QApplication::focusWidget());
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
        shown.window.press(key);
    }
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.window.keys, 2);
}

void ModalAnswersTest::allIsUndoneWhenFinishedIsEmitted()
{
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(true);
    const auto *mask = shown.window.findChild<VelaMask *>();
    bool wasSeen = false;
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&] {
        wasSeen = true;
        QVERIFY(!shown.sheet->isVisible());
        QVERIFY(!mask->isVisible());
        shown.window.send(Qt::Key_A);
        QCOMPARE(shown.window.keys, 1);
        shown.window.close();
        QCOMPARE(shown.window.closings, 1);
    });
    shown.execute([&] { shown.sheet.done(1); });
    QVERIFY(wasSeen);
}

void ModalAnswersTest::eachDoneIsReportedAndExecReturnsTheLast()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] {
        shown.sheet.done(1);
        shown.sheet.done(2);
    }),
             2);
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.at(0).first().toInt(), 1);
    QCOMPARE(finished.at(1).first().toInt(), 2);
    QCOMPARE(shown.execute([&] { shown.sheet.done(3); }), 3);
}

void ModalAnswersTest::doneBeforeExecIsNoAnswerToIt()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    shown.sheet.done(5);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.execute([&] { shown.sheet.done(6); }), 6);
}

void ModalAnswersTest::doneInASlotOfFinishedIsNoSecondAnswer()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&] { shown.sheet.done(9); });
    QCOMPARE(shown.execute([&] { shown.sheet.done(4); }), 4);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.execute([&] { shown.sheet.done(5); }), 5); // a run that is answered anew
    QCOMPARE(finished.count(), 2);
}

void ModalAnswersTest::aSlotOfFinishedMayThrow()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    const auto connection = connect(shown.sheet.get(), &VelaSheet::finished, this, [] { throw 1; });
    shown.sheet->showSheet();
    QVERIFY_EXCEPTION_THROWN(shown.sheet.done(1), int);
    disconnect(connection);
    shown.sheet.done(2);
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.last().first().toInt(), 2);
}

void ModalAnswersTest::itCanBeExecutedAgain()
{
    ShownSheet shown;
    for (int i = 1; i < 5; ++i) {
        QCOMPARE(shown.execute([&] {
            QVERIFY(shown.sheet->isVisible());
            shown.sheet.done(i);
        }),
                 i);
    }
}

void ModalAnswersTest::itCanBeExecutedAgainFromASlotOfFinished()
{
    ShownSheet shown;
    QList<int> answers;
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&](int result) {
        if (result == 1) {
            answers.append(shown.execute([&] { shown.sheet.done(2); }));
        }
    });
    answers.append(shown.execute([&] { shown.sheet.done(1); }));
    QCOMPARE(answers, (QList<int> {2, 1}));
    QVERIFY(!shown.sheet->isVisible());
}

void ModalAnswersTest::itCanBeShownAgainFromASlotOfFinished()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&](int result) {
        if (result == 1) {
            shown.sheet->showSheet();
        }
    });
    QCOMPARE(shown.execute([&] { shown.sheet.done(1); }), 1);
    QVERIFY(shown.sheet->isVisible());
    shown.window.send(Qt::Key_Escape);
    QVERIFY(!shown.sheet->isVisible());
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.last().first().toInt(), CancelCode);
}

void ModalAnswersTest::whatIsShownAlreadyCanBeExecuted()
{
    ShownSheet shown;
    shown.sheet->showSheet();
    shown.ok()->setFocus();
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.press(Qt::Key_Return); }), OkCode);
    QCOMPARE(finished.count(), 1);
}

void ModalAnswersTest::execWhileItWaitsReturnsAtOnce()
{
    ShownSheet shown;
    int inner = NoAnswer;
    QCOMPARE(shown.execute([&] {
        inner = shown.sheet.exec();
        QVERIFY(shown.sheet->isVisible());
        shown.sheet.done(8);
    }),
             8);
    QCOMPARE(inner, 0);
}

void ModalAnswersTest::timersRunWhileItWaits()
{
    ShownSheet shown;
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (++ticks == 5) {
            shown.sheet.done(ticks);
        }
    });
    timer.start(1);
    QCOMPARE(shown.execute(Nothing), 5);
}

void ModalAnswersTest::aSecondSheetMayBeAnsweredFirst()
{
    ShownSheet shown;
    int second = NoAnswer;
    const int first = shown.execute([&] {
        ModalSheet above(&shown.window);
        above.setBlockWindowButton(false);
        second = above.execute([&] {
            QVERIFY(above->isAncestorOf(QApplication::focusWidget()));
            shown.window.press(Qt::Key_Return);
        });
        QVERIFY(shown.sheet->isVisible());
        QTimer::singleShot(0, shown.sheet.get(), [&] { shown.window.send(Qt::Key_Escape); });
    });
    QCOMPARE(second, OkCode);
    QCOMPARE(first, CancelCode);
}

// The first sheet's result waits until the second one, whose loop runs inside, is answered as well.
void ModalAnswersTest::aFirstSheetMayBeAnsweredFirst()
{
    ShownSheet shown;
    int second = NoAnswer;
    const int first = shown.execute([&] {
        ModalSheet above(&shown.window);
        above.setBlockWindowButton(false);
        second = above.execute([&] {
            shown.sheet.done(11);
            QVERIFY(!shown.sheet->isVisible());
            QVERIFY(above->isVisible());
            QTimer::singleShot(0, above.get(), [&] { above.done(12); });
        });
    });
    QCOMPARE(second, 12);
    QCOMPARE(first, 11);
}

void ModalAnswersTest::quittingEndsTheWait()
{
    ShownSheet shown;
    QList<int> answers;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(0, qApp, &QApplication::quit);
        answers.append(shown.sheet.exec());
    });
    QApplication::exec();
    QCOMPARE(answers, QList<int> {0});
    QVERIFY(shown.sheet->isVisible()); // a sheet that was not answered
}

void ModalAnswersTest::theWindowMayBeResizedHiddenAndShown()
{
    ShownSheet shown;
    const auto *mask = shown.window.findChild<VelaMask *>();
    QCOMPARE(shown.execute([&] {
        shown.window.resize(700, 500);
        QTRY_COMPARE(mask->size(), shown.window.size());
        shown.window.hide();
        shown.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&shown.window));
        QVERIFY(shown.sheet->isVisible());
        shown.window.send(Qt::Key_Return);
    }),
             OkCode);
}

QTEST_MAIN(ModalAnswersTest)
#include "tst_modal_answers.moc"
