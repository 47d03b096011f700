// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-countdown-msg-box.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/resource-folder.h"
#include "support/toolkit-language.h"
#include "utils/component-strings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QtTest>

#include <limits>
#include <memory>

static_assert(sizeof(MouseButtonFilter) > 0 && sizeof(MouseReleaseFilter) > 0, "declared by the box's header as well");

namespace {

constexpr int OkResult = 0x400;
constexpr int DiscardResult = 0x800000;
constexpr int VisibleClick = 100; // milliseconds
constexpr int Tolerance = 60; // milliseconds by which timers may be early
constexpr int Patience = 20000; // milliseconds

QString okCaption(const VelaCountdownMessageBox &box)
{
    return box.button(QMessageBox::Ok)->text();
}

QString captionAt(qint64 seconds)
{
    return QStringLiteral("Fine(%1)").arg(seconds);
}

// Makes all the steps until the count is over.
void countDown(VelaCountdownMessageBox *box, int seconds)
{
    for (int i = 0; i < seconds; ++i) {
        box->slotTick();
    }
}

} // namespace

class VelaCountdownMessageBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void itIsAWindowInsideAParentToo();
    void aStepCanBeInvokedByName();
    void theButtonsAreOkAndDiscard();
    void theSheetsAreSet();
    void titleTextAndIconAreTheCallers();

    void theWholeCountShowsUntilTheBoxIsShown_data();
    void theWholeCountShowsUntilTheBoxIsShown();
    void theTextsAreThoseOfTheLanguage();
    void showingIsTheFirstStep_data();
    void showingIsTheFirstStep();
    void eachStepShowsOneLess();
    void theStepBelowZeroClicksOk();
    void theClickIsSeenBeforeItTakesEffect();
    void noCountClicksAtOnce_data();
    void noCountClicksAtOnce();
    void aStepIsASecond();
    void anyCountIsSurvived();

    void discardEndsItWithoutAnAutomaticClick();
    void anAnswerDuringTheVisibleClickStands_data();
    void anAnswerDuringTheVisibleClickStands();
    void discardIsWhatExecReturns();
    void okMayBeClickedBefore();
    void showingAgainContinues();
    void showingAgainAfterAnAnswerCountsOn();
    void theDefaultButtonIsWhatIsClicked();
    void escapeAndCloseAreIgnoredWithoutAnEscapeButton();
    void otherButtonsAreSurvived();
    void anotherLanguageOfTheToolkitLeavesTheCaptions();
    void buttonsOfAClientFollowTheLanguageOfTheToolkit();
    void theCaptionIsWrittenOnDemand();

private:
    ResourceFolder m_folder;
};

void VelaCountdownMessageBoxTest::initTestCase()
{
    ComponentStrings::getInstance()->installStrings(
        {{QStringLiteral("ok"), QStringLiteral("Fine")}, {QStringLiteral("cancel"), QStringLiteral("Rather not")}});
    installSheets(m_folder,
                  "== component.info_message_box ==\nQMessageBox { background: red }\n"
                  "== component.apply_button ==\nQPushButton { background: lime; border: none; padding: 8px }\n"
                  "== component.cancel_button ==\nQPushButton { background: blue; border: none; padding: 8px }\n");
}

void VelaCountdownMessageBoxTest::itIsAWindowInsideAParentToo()
{
    QWidget parent;
    const VelaCountdownMessageBox child(3, &parent);
    QVERIFY(child.isWindow());
}

void VelaCountdownMessageBoxTest::aStepCanBeInvokedByName()
{
    QVERIFY(QMetaObject::invokeMethod(std::make_unique<VelaCountdownMessageBox>(3).get(), "slotTick"));
}

void VelaCountdownMessageBoxTest::theButtonsAreOkAndDiscard()
{
    const VelaCountdownMessageBox box(3);
    QCOMPARE(static_cast<int>(box.standardButtons()), OkResult | DiscardResult);
    QCOMPARE(box.buttons().size(), 2);
    QCOMPARE(box.button(QMessageBox::Discard)->text(), QStringLiteral("Rather not"));
    QCOMPARE(box.defaultButton(), box.button(QMessageBox::Ok));
}

void VelaCountdownMessageBoxTest::theSheetsAreSet()
{
    VelaCountdownMessageBox box(30);
    QCOMPARE(box.styleSheet(), getStyleSheet("component.info_message_box", false));
    QCOMPARE(box.button(QMessageBox::Ok)->styleSheet(), getStyleSheet("component.apply_button", false));
    QCOMPARE(box.button(QMessageBox::Discard)->styleSheet(), getStyleSheet("component.cancel_button", false));
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QCOMPARE(paintedColor(&box, QPoint(1, 1)), QColor(Qt::red));
    QCOMPARE(paintedColor(box.button(QMessageBox::Ok), QPoint(1, 1)), QColor(Qt::green));
    QCOMPARE(paintedColor(box.button(QMessageBox::Discard), QPoint(1, 1)), QColor(Qt::blue));
}

void VelaCountdownMessageBoxTest::titleTextAndIconAreTheCallers()
{
    const VelaCountdownMessageBox box(3);
    const QMessageBox plain;
    QCOMPARE(box.text(), plain.text());
    QCOMPARE(box.informativeText(), plain.informativeText());
    QCOMPARE(box.windowTitle(), plain.windowTitle());
    QCOMPARE(box.icon(), plain.icon());
}

void VelaCountdownMessageBoxTest::theWholeCountShowsUntilTheBoxIsShown_data()
{
    QTest::addColumn<int>("seconds");
    for (const int seconds :
         {3, 1, 0, -1, -5, 60, 1234567, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        QTest::addRow("%d", seconds) << seconds;
    }
}

void VelaCountdownMessageBoxTest::theWholeCountShowsUntilTheBoxIsShown()
{
    QFETCH(int, seconds);
    QCOMPARE(okCaption(VelaCountdownMessageBox(seconds)), captionAt(seconds));
}

void VelaCountdownMessageBoxTest::theTextsAreThoseOfTheLanguage()
{
    auto *strings = ComponentStrings::getInstance();
    const QString odd = QStringLiteral("%2 & %1"); // a text that has no place for the count
    strings->installStrings({{QStringLiteral("ok"), odd}, {QStringLiteral("cancel"), QStringLiteral("Zrušit")}});
    const VelaCountdownMessageBox box(3);
    strings->installStrings(
        {{QStringLiteral("ok"), QStringLiteral("Fine")}, {QStringLiteral("cancel"), QStringLiteral("Rather not")}});
    QCOMPARE(okCaption(box), odd + QStringLiteral("(3)"));
    QCOMPARE(box.button(QMessageBox::Discard)->text(), QStringLiteral("Zrušit"));
}

void VelaCountdownMessageBoxTest::showingIsTheFirstStep_data()
{
    QTest::addColumn<int>("seconds");
    for (const int seconds : {1, 2, 3, 60, std::numeric_limits<int>::max()}) {
        QTest::addRow("%d", seconds) << seconds;
    }
}

void VelaCountdownMessageBoxTest::showingIsTheFirstStep()
{
    QFETCH(int, seconds);
    VelaCountdownMessageBox box(seconds);
    QCOMPARE(okCaption(box), captionAt(seconds));
    box.show();
    QCOMPARE(okCaption(box), captionAt(seconds - 1));
}

void VelaCountdownMessageBoxTest::eachStepShowsOneLess()
{
    VelaCountdownMessageBox box(12);
    for (int count = 11; count >= 0; --count) {
        QVERIFY(QMetaObject::invokeMethod(&box, "slotTick"));
        QCOMPARE(okCaption(box), captionAt(count));
        QVERIFY(!box.button(QMessageBox::Ok)->isDown());
    }
}

void VelaCountdownMessageBoxTest::theStepBelowZeroClicksOk()
{
    VelaCountdownMessageBox box(3);
    const QSignalSpy finished(&box, &QDialog::finished);
    const QSignalSpy clicked(box.button(QMessageBox::Ok), &QAbstractButton::clicked);
    box.show();
    countDown(&box, 2);
    QCOMPARE(okCaption(box), captionAt(0));
    QVERIFY(!box.button(QMessageBox::Ok)->isDown());
    box.slotTick();
    QCOMPARE(okCaption(box), captionAt(0)); // the count never gets below zero
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, Patience);
    QCOMPARE(finished.at(0).at(0).toInt(), OkResult);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(box.clickedButton(), box.button(QMessageBox::Ok));
    QVERIFY(!box.isVisible());
}

void VelaCountdownMessageBoxTest::theClickIsSeenBeforeItTakesEffect()
{
    VelaCountdownMessageBox box(1);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    const QSignalSpy finished(&box, &QDialog::finished);
    QElapsedTimer sinceStep;
    sinceStep.start();
    qint64 duration = 0;
    connect(&box, &QDialog::finished, this, [&] { duration = sinceStep.elapsed(); });
    box.slotTick();
    QVERIFY(box.button(QMessageBox::Ok)->isDown());
    QVERIFY(box.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, Patience);
    QVERIFY2(duration >= VisibleClick - Tolerance / 3, qPrintable(QString::number(duration)));
    QVERIFY(!box.button(QMessageBox::Ok)->isDown());
}

void VelaCountdownMessageBoxTest::noCountClicksAtOnce_data()
{
    QTest::addColumn<int>("seconds");
    for (const int seconds : {0, -1, -100, std::numeric_limits<int>::min()}) {
        QTest::addRow("%d", seconds) << seconds;
    }
}

void VelaCountdownMessageBoxTest::noCountClicksAtOnce()
{
    QFETCH(int, seconds);
    VelaCountdownMessageBox box(seconds);
    const QSignalSpy clicked(box.button(QMessageBox::Ok), &QAbstractButton::clicked);
    QTimer::singleShot(Patience, &box, [&box] { box.done(0); });
    bool wasDown = false;
    QTimer::singleShot(0, &box, [&] { wasDown = box.button(QMessageBox::Ok)->isDown(); });
    QCOMPARE(box.exec(), OkResult);
    QVERIFY(wasDown);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(okCaption(box), captionAt(seconds)); // the count from before it was shown
}

void VelaCountdownMessageBoxTest::aStepIsASecond()
{
    VelaCountdownMessageBox box(2);
    QElapsedTimer sinceShown;
    QVector<QPair<QString, qint64>> seen;
    QTimer look;
    connect(&look, &QTimer::timeout, &box, [&] {
        if (seen.isEmpty() || seen.last().first != okCaption(box)) {
            seen.append({okCaption(box), sinceShown.elapsed()});
        }
    });
    // The click is as late on a machine that stalls as the box is.
    QTimer halfSeconds;
    halfSeconds.setTimerType(Qt::PreciseTimer);
    const QSignalSpy halfSecondsPassed(&halfSeconds, &QTimer::timeout);
    halfSeconds.start(500);
    QTimer::singleShot(Patience, &box, [&box] { box.done(0); });
    look.start(5);
    sinceShown.start();
    QCOMPARE(box.exec(), OkResult);
    const qint64 end = sinceShown.elapsed();
    QCOMPARE(seen.size(), 2);
    QCOMPARE(seen.at(0).first, captionAt(1));
    QCOMPARE(seen.at(1).first, captionAt(0));
    QVERIFY2(seen.at(1).second >= 1000 - Tolerance, qPrintable(QString::number(seen.at(1).second)));
    QVERIFY2(end >= 2000 + VisibleClick - 2 * Tolerance, qPrintable(QString::number(end)));
    QVERIFY2(halfSecondsPassed.count() < 8, qPrintable(QString::number(halfSecondsPassed.count())));
}

void VelaCountdownMessageBoxTest::anyCountIsSurvived()
{
    VelaCountdownMessageBox box(std::numeric_limits<int>::min());
    countDown(&box, 3);
    QCOMPARE(okCaption(box), captionAt(std::numeric_limits<int>::min()));
}

void VelaCountdownMessageBoxTest::discardEndsItWithoutAnAutomaticClick()
{
    VelaCountdownMessageBox box(4);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    const QSignalSpy finished(&box, &QDialog::finished);
    const QSignalSpy clicked(box.button(QMessageBox::Ok), &QAbstractButton::clicked);
    const QAbstractButton *discard = box.button(QMessageBox::Discard);
    QTest::mouseClick(box.windowHandle(), Qt::LeftButton, {}, discard->mapTo(&box, discard->rect().center()));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), DiscardResult);
    countDown(&box, 5); // the seconds go on all the same
    QTest::qWait(3 * VisibleClick);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(box.result(), DiscardResult);
}

void VelaCountdownMessageBoxTest::anAnswerDuringTheVisibleClickStands_data()
{
    QTest::addColumn<int>("result");
    QTest::newRow("Discard") << DiscardResult;
    QTest::newRow("Ok itself") << OkResult;
}

void VelaCountdownMessageBoxTest::anAnswerDuringTheVisibleClickStands()
{
    QFETCH(int, result);
    VelaCountdownMessageBox box(0);
    const QSignalSpy finished(&box, &QDialog::finished);
    QAbstractButton *ok = box.button(QMessageBox::Ok);
    box.show();
    QVERIFY(ok->isDown());
    box.button(static_cast<QMessageBox::StandardButton>(result))->click();
    QCOMPARE(finished.count(), 1);
    QTest::qWait(3 * VisibleClick);
    QTRY_VERIFY(!ok->isDown());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(box.result(), result);

    box.show(); // lets the next click be heard
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, Patience);
    QCOMPARE(finished.at(1).at(0).toInt(), OkResult);
}

void VelaCountdownMessageBoxTest::discardIsWhatExecReturns()
{
    VelaCountdownMessageBox box(60);
    QTimer::singleShot(0, &box, [&box] { box.button(QMessageBox::Discard)->click(); });
    QCOMPARE(box.exec(), DiscardResult);
}

void VelaCountdownMessageBoxTest::okMayBeClickedBefore()
{
    VelaCountdownMessageBox box(60);
    QTimer::singleShot(0, &box, [&box] { box.button(QMessageBox::Ok)->click(); });
    QCOMPARE(box.exec(), OkResult);
    QCOMPARE(okCaption(box), captionAt(59));
}

void VelaCountdownMessageBoxTest::showingAgainContinues()
{
    VelaCountdownMessageBox box(9);
    box.show();
    box.slotTick();
    QCOMPARE(okCaption(box), captionAt(7));
    box.hide();
    QCOMPARE(okCaption(box), captionAt(7));
    box.show();
    QCOMPARE(okCaption(box), captionAt(6));
}

void VelaCountdownMessageBoxTest::showingAgainAfterAnAnswerCountsOn()
{
    VelaCountdownMessageBox box(3);
    box.show();
    box.button(QMessageBox::Discard)->click();
    QVERIFY(!box.isVisible());
    const QSignalSpy finished(&box, &QDialog::finished);
    box.show();
    QCOMPARE(okCaption(box), captionAt(1));
    countDown(&box, 2);
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, Patience);
    QCOMPARE(finished.at(0).at(0).toInt(), OkResult);
}

void VelaCountdownMessageBoxTest::theDefaultButtonIsWhatIsClicked()
{
    VelaCountdownMessageBox box(1);
    box.setDefaultButton(QMessageBox::Discard);
    const QSignalSpy finished(&box, &QDialog::finished);
    box.show();
    box.slotTick();
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, Patience);
    QCOMPARE(finished.at(0).at(0).toInt(), DiscardResult);
}

void VelaCountdownMessageBoxTest::escapeAndCloseAreIgnoredWithoutAnEscapeButton()
{
    VelaCountdownMessageBox box(60);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_Escape);
    QVERIFY(box.isVisible());
    QVERIFY(!box.close());
    QVERIFY(box.isVisible());

    box.hide();
    box.setEscapeButton(QMessageBox::Discard);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_Escape);
    QVERIFY(!box.isVisible());
    QCOMPARE(box.result(), int(QMessageBox::Discard));
    box.show();
    QVERIFY(box.close());
}

void VelaCountdownMessageBoxTest::otherButtonsAreSurvived()
{
    VelaCountdownMessageBox box(2);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.updateButtonText();
    const QString yes = box.button(QMessageBox::Yes)->text();
    const QSignalSpy finished(&box, &QDialog::finished);
    box.show();
    countDown(&box, 3);
    QVERIFY(!box.button(QMessageBox::Yes)->isDown());
    QVERIFY(!box.button(QMessageBox::No)->isDown());
    QCOMPARE(box.button(QMessageBox::Yes)->text(), yes);

    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.slotTick();
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, Patience);
    QCOMPARE(finished.at(0).at(0).toInt(), static_cast<int>(QMessageBox::No));
}

void VelaCountdownMessageBoxTest::anotherLanguageOfTheToolkitLeavesTheCaptions()
{
    const VelaCountdownMessageBox box(7);
    const ToolkitLanguage other;
    QCOMPARE(okCaption(box), captionAt(7));
    QCOMPARE(box.button(QMessageBox::Discard)->text(), QStringLiteral("Rather not"));
}

void VelaCountdownMessageBoxTest::buttonsOfAClientFollowTheLanguageOfTheToolkit()
{
    VelaCountdownMessageBox box(7);
    box.addButton(QMessageBox::Help);
    const ToolkitLanguage other;
    QCOMPARE(box.button(QMessageBox::Help)->text(), ToolkitLanguage::text());
}

void VelaCountdownMessageBoxTest::theCaptionIsWrittenOnDemand()
{
    VelaCountdownMessageBox box(7);
    box.button(QMessageBox::Ok)->setText(QStringLiteral("Other"));
    box.updateButtonText();
    QCOMPARE(okCaption(box), captionAt(7));
}

QTEST_MAIN(VelaCountdownMessageBoxTest)
#include "tst_vela_countdown_msg_box.moc"
