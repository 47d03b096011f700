// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "support/controls.h"
#include "support/resource-folder.h"
#include "support/x-connection.h"
#include "utils/component-strings.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMovie>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

constexpr int OkCode = 0x400;
constexpr int CancelCode = 0x800000;
constexpr int NoAnswer = -1; // of a sheet that nobody answered in time
constexpr int Patience = 10000; // milliseconds
constexpr int Shortcuts = 200;
constexpr int ShortcutsOnX = 20; // each keeps two connections to the server, of which it takes 255

// What _MOTIF_WM_HINTS holds while the close button is away, and once it is back in a window that had no such property.
const QVector<quint32> ButtonAway {1, 0, 6, 0, 0};
const QVector<quint32> ButtonBack {0, 0, 1, 0, 1};

/// Why a widget is not reached by Tab.
enum Flaw { Disabled, Hidden, ByClickOnly };

/// Where a key is pressed.
enum Target { ForTheWindow, InTheMessage, OnOk, OnCancel };

const QString Text = QStringLiteral("Is it so?");

/// A window of two fields that ends up below a sheet. Counts what reaches it.
class Window : public QWidget
{
public:
    Window()
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(above);
        column->addWidget(below);
        resize(640, 400);
        above->setFocus();
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }

    /// What an application would be sent by its user, through the window and whatever has the focus in it.
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }
    void clickOn(const QWidget *widget)
    {
        QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, widget->mapTo(this, widget->rect().center()));
    }
    /// A key that nothing in the window has wanted.
    bool send(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        return QCoreApplication::sendEvent(this, &event);
    }

    QLineEdit *const above = new QLineEdit;
    QLineEdit *const below = new QLineEdit;
    int closings = 0;
    int keys = 0;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        ++closings;
        event->ignore();
    }
    void keyPressEvent(QKeyEvent *event) override
    {
        ++keys;
        QWidget::keyPressEvent(event);
    }
};

/// Runs exec() with @p action in its event loop; nobody waits for ever.
template<typename Sheet>
int execute(Sheet *sheet, const std::function<void()> &action)
{
    QTimer::singleShot(0, sheet, action);
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, sheet, [sheet] { sheet->done(NoAnswer); });
    guard.start(Patience);
    return sheet->exec();
}

/// A sheet in its mask over a window that is active. The window can be closed: each run that takes its close button
/// away and gives it back keeps two connections to an X server, which all tests of this program share.
class ShownSheet
{
public:
    explicit ShownSheet(VelaMessageSheet::MessageType type = VelaMessageSheet::QuestionMessage)
    {
        isActive = window.showAndWait();
        sheet = std::make_unique<VelaMessageSheet>(type, Text, &window);
        VelaMask::createMask(sheet.get(), &window, QColor(0, 0, 0, 20));
        sheet->setBlockWindowButton(false);
    }

    QPushButton *ok() const { return sheet->button(QMessageBox::Ok); }
    QPushButton *cancel() const { return sheet->button(QMessageBox::Discard); }
    QLabel *text() const { return sheet->findChildren<MessageLabel *>().first(); }
    QLabel *icon() const
    {
        QLabel *plain = nullptr;
        for (QLabel *label : sheet->findChildren<QLabel *>()) {
            plain = qobject_cast<MessageLabel *>(label) ? plain : label;
        }
        return plain;
    }
    int execute(const std::function<void()> &action) { return ::execute(sheet.get(), action); }

    Window window;
    std::unique_ptr<VelaMessageSheet> sheet;
    bool isActive = false;
};

const auto Nothing = [] {};

/// Notes why the widgets of a sheet get the focus.
class FocusReasons : public QObject
{
public:
    explicit FocusReasons(const QWidget *sheet)
    {
        for (QWidget *widget : sheet->findChildren<QWidget *>()) {
            widget->installEventFilter(this);
        }
    }

    QList<Qt::FocusReason> reasons;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            reasons.append(static_cast<QFocusEvent *>(event)->reason());
        }
        return false;
    }
};

bool isOnX()
{
    return QGuiApplication::platformName() == QStringLiteral("xcb");
}

/// What tells the window manager of the buttons of a window, which is given some that every program gives.
class Hints
{
public:
    explicit Hints(const QWidget &window) : m_window(static_cast<XWindow>(window.winId()))
    {
        if (isOnX()) {
            m_x = std::make_unique<XConnection>();
            m_x->setProperty(m_window, "_MOTIF_WM_HINTS", {"_MOTIF_WM_HINTS", 32, {3, 62, 126, 0, 0}});
            before = now();
        }
    }

    QVector<quint32> now() const { return m_x->property(m_window, "_MOTIF_WM_HINTS").elements; }

    QVector<quint32> before;

private:
    const XWindow m_window;
    std::unique_ptr<XConnection> m_x;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(VelaMessageSheet *, Window *)>)
Q_DECLARE_METATYPE(std::function<void(VelaMessageSheet *, VelaMessageSheet *, QWidget *)>)

/// The modal run of the message sheet, from being shown to being answered, and what may happen meanwhile.
class VelaMessageSheetRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void showSheetReturnsAtOnce();
    void execReturnsWhatDoneIsGiven_data();
    void execReturnsWhatDoneIsGiven();
    void aClickReturnsTheButtonsCode_data();
    void aClickReturnsTheButtonsCode();
    void aButtonOfNoCodeReturnsNone();
    void theMaskComesAndGoesWithTheSheet();
    void theMessageHasTheFocusAtFirst();
    void theFocusGoesBackFromAnAnsweredSheet_data();
    void theFocusGoesBackFromAnAnsweredSheet();
    void aSheetThatDoesNotBlockLeavesTheFocus();
    void theButtonsTakeTheFocusButNotTheirBox();
    void processingIsAnimated();
    void otherTypesAreNotAnimated();

    void keysAnswer_data();
    void keysAnswer();
    void escapeOnAnInformationSheetIsSwallowed();
    void enterOnAProcessingSheetIsSwallowed();
    void otherKeysEndAtTheWindow();
    void releasesAndOtherObjectsPass();
    void aHiddenSheetLetsKeysPass();
    void keysAnswerASheetThatDoesNotBlock();
    void afterTheAnswerTheWindowHasItsKeysBack();

    void tabAndBacktabStayInTheSheet_data();
    void tabAndBacktabStayInTheSheet();
    void tabVisitsWhatTakesTheFocusInOrder();
    void arrowsOnAButtonStayInTheSheet();
    void tabPassesOverWhatDoesNotTakeTheFocus_data();
    void tabPassesOverWhatDoesNotTakeTheFocus();
    void theFocusStaysWhenItsWidgetIsDisabledOrHidden();
    void aTabForTheWindowGoesToTheFirstAndABacktabToTheLast();
    void aTabForTheWindowTakesTheWidgetNextToItIfItIsTheSheets();
    void firstAndLastCanBeMarkedAgain();
    void firstAndLastCanBeMarkedAfterButtonsAreGone();
    void whatIsNoWidgetGetsNoTab();
    void aTabForTheWindowDoesNothingWhereNothingTakesTheFocus();
    void aClickBelowTheMaskReachesNothing();

    void closingTheWindowIsRefused_data();
    void closingTheWindowIsRefused();
    void theWindowCannotBeClosedAtFirst();
    void aRefusedCloseIsIgnoredAndConsumed();
    void theWindowManagersRequestToCloseIsRefused_data();
    void theWindowManagersRequestToCloseIsRefused();
    void theCloseButtonGoesAndComesBack_data();
    void theCloseButtonGoesAndComesBack();
    void theCloseButtonComesBackWhenBlockingEndsMeanwhile();
    void theCloseButtonIsAwayUntilTheLastSheetIsAnswered_data();
    void theCloseButtonIsAwayUntilTheLastSheetIsAnswered();
    void theCloseButtonIsAwayWhateverBecomesOfTheSheets_data();
    void theCloseButtonIsAwayWhateverBecomesOfTheSheets();
    void theCloseButtonIsAwayWhenAPanelBelowAnotherSheetDies();
    void theCloseButtonIsAwayWhenAShownSheetWaits();

    void anAnswerEmitsFinishedOnce();
    void aKeyAfterAClickIsNoSecondAnswer();
    void anAnswerEmitsFinishedOnceAfterTheTypeWasSetAgain();
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
    void aSecondSheetMayBeAnInputSheet();
    void theFocusPassesToTheSheetBelow_data();
    void theFocusPassesToTheSheetBelow();
    void theFocusPassesOverASheetThatWasHidden();
    void aSheetThatIsMovedWatchesItsNewWindow_data();
    void aSheetThatIsMovedWatchesItsNewWindow();
    void theWindowMayBeResizedHiddenAndShown();
    void quittingEndsTheWait();
    void quittingMayDestroyTheWindow();

    void theWindowMayDieWhileASheetIsShown();
    void theWindowMayDieWhileASheetWaits_data();
    void theWindowMayDieWhileASheetWaits();
    void theWindowMayDieWhileTwoSheetsWait();
    void theWindowMayDieWhileASheetWaitsAgain();
    void theWindowThatASheetIsMovedToMayDieWhileItWaits();
    void theWindowMayDieAfterTheAnswerThatExecStillReturns();
    void aSheetOnTheHeapOutlivesItsWindow();
    void anAnsweredSheetOnTheHeapDiesWithItsWindow();
    void theWindowMayDieWhileAnInputSheetWaits();
    void theSheetMayBeDeletedWhileItWaits();
    void theSheetMayBeDeletedInASlotOfFinished_data();
    void theSheetMayBeDeletedInASlotOfFinished();
    void aPanelInTheWindowMayDieWhileTheSheetWaits();

    void eachShortcutLeavesAMaskAndNothingElse();

private:
    ResourceFolder m_folder;
};

void VelaMessageSheetRunTest::initTestCase()
{
    QStringList images;
    for (const char *name :
         {"app_img", "icon_information", "icon_question", "icon_warning", "bg_tutorial_l", "bg_tutorial_r",
          "bg_tutorial_t", "bg_tutorial_b", "bg_tutorial_lt", "bg_tutorial_rt", "bg_tutorial_lb", "bg_tutorial_rb"}) {
        images.append(QString::fromLatin1(name));
        m_folder.writeImage(images.last(), QSize(64, 64), Qt::gray);
    }
    m_folder.writeCatalogue(images);
    ComponentStrings::getInstance()->installStrings(
        {{QStringLiteral("ok"), QStringLiteral("OK")}, {QStringLiteral("cancel"), QStringLiteral("Cancel")}});
    installSheets(m_folder,
                  "== component.apply_button ==\nQPushButton { color: lime }\n"
                  "== component.cancel_button ==\nQPushButton { color: blue }\n"
                  "== component.message_sheet_other ==\nQLabel { color: navy }\n"
                  "== component.message_sheet_processing ==\nQLabel { color: teal }\n"
                  "== component.message_sheet_text ==\nQLabel { color: maroon }\n");
}

void VelaMessageSheetRunTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void VelaMessageSheetRunTest::showSheetReturnsAtOnce()
{
    ShownSheet shown;
    shown.sheet->showSheet();
    QVERIFY(shown.sheet->isVisible());
    shown.sheet->done(7);
    QVERIFY(!shown.sheet->isVisible());
}

void VelaMessageSheetRunTest::execReturnsWhatDoneIsGiven_data()
{
    QTest::addColumn<int>("result");
    for (const int result : {0, 1, -5, OkCode, CancelCode, 0x7fffffff}) {
        QTest::addRow("%d", result) << result;
    }
}

void VelaMessageSheetRunTest::execReturnsWhatDoneIsGiven()
{
    QFETCH(int, result);
    ShownSheet shown;
    QCOMPARE(shown.execute([&] { shown.sheet->done(result); }), result);
    QCOMPARE(shown.execute([&] { shown.sheet->quit(); }), 0);
}

void VelaMessageSheetRunTest::aClickReturnsTheButtonsCode_data()
{
    QTest::addColumn<bool>("onOk");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << true << OkCode;
    QTest::newRow("cancel") << false << CancelCode;
}

void VelaMessageSheetRunTest::aClickReturnsTheButtonsCode()
{
    QFETCH(bool, onOk);
    QFETCH(int, result);
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.clickOn(onOk ? shown.ok() : shown.cancel()); }), result);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), result);
    shown.sheet->buttonClick(onOk ? shown.ok() : shown.cancel());
    QCOMPARE(finished.last().first().toInt(), result);
}

void VelaMessageSheetRunTest::aButtonOfNoCodeReturnsNone()
{
    ShownSheet shown;
    QPushButton own;
    QCOMPARE(shown.execute([&] { shown.sheet->buttonClick(&own); }), 0);
    QCOMPARE(shown.execute([&] { shown.sheet->buttonClick(nullptr); }), 0);
}

void VelaMessageSheetRunTest::theMaskComesAndGoesWithTheSheet()
{
    ShownSheet shown;
    const auto *mask = shown.window.findChild<VelaMask *>();
    QVERIFY(!mask->isVisible());
    shown.execute([&] {
        QVERIFY(mask->isVisible());
        QCOMPARE(mask->size(), shown.window.size());
        shown.sheet->quit();
    });
    QVERIFY(!mask->isVisible());
}

void VelaMessageSheetRunTest::theMessageHasTheFocusAtFirst()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    const FocusReasons focus(shown.sheet.get());
    shown.execute([&] {
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.sheet->quit();
    });
    QCOMPARE(focus.reasons, QList<Qt::FocusReason> {Qt::TabFocusReason});
}

void VelaMessageSheetRunTest::theFocusGoesBackFromAnAnsweredSheet_data()
{
    QTest::addColumn<bool>("hasMask");
    QTest::newRow("mask") << true;
    QTest::newRow("no mask") << false;
}

void VelaMessageSheetRunTest::theFocusGoesBackFromAnAnsweredSheet()
{
    QFETCH(bool, hasMask);
    Window window;
    QVERIFY(window.showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, &window);
    sheet.setBlockWindowButton(false);
    if (hasMask) {
        VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    }
    window.below->setFocus();
    execute(&sheet, [&] {
        QVERIFY(sheet.isAncestorOf(QApplication::focusWidget()));
        window.press(Qt::Key_Return);
    });
    QCOMPARE(QApplication::focusWidget(), window.below);

    // Where that is gone any other will do.
    execute(&sheet, [&] {
        window.below->hide();
        window.press(Qt::Key_Return);
    });
    QCOMPARE(QApplication::focusWidget(), window.above);
}

void VelaMessageSheetRunTest::aSheetThatDoesNotBlockLeavesTheFocus()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->showSheet();
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
    shown.sheet->done(0);
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
}

void VelaMessageSheetRunTest::theButtonsTakeTheFocusButNotTheirBox()
{
    ShownSheet shown;
    auto *box = shown.sheet->findChild<QDialogButtonBox *>();
    box->setFocusPolicy(Qt::TabFocus);
    shown.ok()->setFocusPolicy(Qt::NoFocus);
    shown.cancel()->setFocusPolicy(Qt::ClickFocus);
    shown.sheet->showSheet();
    QCOMPARE(box->focusPolicy(), Qt::NoFocus);
    QCOMPARE(shown.ok()->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(shown.cancel()->focusPolicy(), Qt::StrongFocus);
}

/// A GIF of two frames.
static QByteArray animation()
{
    return QByteArray::fromHex("474946383961010001008000000000ffffffff21ff0b4e45545343415045322e300301000000"
                               "21f90400050000002c00000000010001000002024401"
                               "0021f90400050000002c000000000100010000020244010"
                               "03b");
}

void VelaMessageSheetRunTest::processingIsAnimated()
{
    m_folder.writeFile(QStringLiteral("busy.gif"), animation());
    Window window;
    QVERIFY(window.showAndWait());
    VelaMessageSheet sheet(Text, m_folder.path() + QStringLiteral("/busy.gif"), &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    QMovie *movie = nullptr;
    for (const QLabel *label : sheet.findChildren<QLabel *>()) {
        movie = label->movie() ? label->movie() : movie;
    }
    QVERIFY(movie && movie->isValid());
    QCOMPARE(movie->state(), QMovie::NotRunning);
    sheet.showSheet();
    QCOMPARE(movie->state(), QMovie::NotRunning); // only a sheet that blocks is at work
    sheet.done(0);
    connect(&sheet, &VelaSheet::finished, this, [movie] { QCOMPARE(movie->state(), QMovie::NotRunning); });
    for (int i = 0; i < 2; ++i) {
        execute(&sheet, [&] {
            QCOMPARE(movie->state(), QMovie::Running);
            sheet.quit();
            QCOMPARE(movie->state(), QMovie::NotRunning);
        });
    }
}

void VelaMessageSheetRunTest::otherTypesAreNotAnimated()
{
    m_folder.writeFile(QStringLiteral("busy.gif"), animation());
    ShownSheet shown(VelaMessageSheet::AppMessage);
    QMovie movie(m_folder.path() + QStringLiteral("/busy.gif"));
    shown.icon()->setMovie(&movie);
    shown.execute([&] {
        QCOMPARE(movie.state(), QMovie::NotRunning);
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::keysAnswer_data()
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
    const char *const targets[] = {"for the window", "in the message", "on Ok", "on cancel"};
    for (const auto &key : keys) {
        for (const int target : {ForTheWindow, InTheMessage, OnOk, OnCancel}) {
            // A button presses itself by Space. The other keys it passes on, and for the window Return means Ok.
            const bool pressesItself = target == OnCancel && key.key == Qt::Key_Space;
            QTest::addRow("%s %s", key.name, targets[target])
                << key.key << target << (pressesItself ? CancelCode : key.result);
        }
    }
}

void VelaMessageSheetRunTest::keysAnswer()
{
    QFETCH(int, key);
    QFETCH(int, target);
    QFETCH(int, result);
    ShownSheet shown;
    QVERIFY(shown.isActive);
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    const int answer = shown.execute([&] {
        if (target == ForTheWindow) {
            shown.window.send(key);
            return;
        }
        QWidget *const widgets[] = {nullptr, shown.text(), shown.ok(), shown.cancel()};
        widgets[target]->setFocus();
        shown.window.press(key);
    });
    QCOMPARE(answer, result);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::escapeOnAnInformationSheetIsSwallowed()
{
    ShownSheet shown(VelaMessageSheet::InfoMessage);
    const int answer = shown.execute([&] {
        shown.window.press(Qt::Key_Escape);
        shown.window.send(Qt::Key_Escape);
        QVERIFY(shown.sheet->isVisible());
        shown.sheet->done(3);
    });
    QCOMPARE(answer, 3);
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::enterOnAProcessingSheetIsSwallowed()
{
    ShownSheet shown(VelaMessageSheet::ProcessingMessage);
    const int answer = shown.execute([&] {
        for (const int key : {Qt::Key_Enter, Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape}) {
            shown.window.press(key);
            shown.window.send(key);
        }
        QVERIFY(shown.sheet->isVisible());
        shown.sheet->done(3);
    });
    QCOMPARE(answer, 3);
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::otherKeysEndAtTheWindow()
{
    ShownSheet shown;
    shown.execute([&] {
        for (const int key : {Qt::Key_A, Qt::Key_F1, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Alt}) {
            QVERIFY(shown.window.send(key));
            shown.window.press(key);
        }
        QVERIFY(shown.sheet->isVisible());
        shown.sheet->quit();
    });
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::releasesAndOtherObjectsPass()
{
    ShownSheet shown;
    shown.sheet->showSheet();
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QEvent other(QEvent::User);
    QVERIFY(!shown.sheet->eventFilter(&shown.window, &release));
    QVERIFY(!shown.sheet->eventFilter(&shown.window, &other));
    QVERIFY(!shown.sheet->eventFilter(shown.text(), &press));
    QVERIFY(!shown.sheet->eventFilter(shown.ok(), &press));
    QVERIFY(!shown.sheet->eventFilter(shown.window.above, &press));
    QVERIFY(shown.sheet->isVisible());
    QVERIFY(shown.sheet->eventFilter(&shown.window, &press));
    QVERIFY(!shown.sheet->isVisible());
}

void VelaMessageSheetRunTest::aHiddenSheetLetsKeysPass()
{
    ShownSheet shown;
    shown.sheet->showSheet();
    shown.sheet->hide();
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
}

void VelaMessageSheetRunTest::keysAnswerASheetThatDoesNotBlock()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    shown.sheet->showSheet();
    shown.window.send(Qt::Key_Return);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), OkCode);
    QVERIFY(!shown.sheet->isVisible());
}

void VelaMessageSheetRunTest::afterTheAnswerTheWindowHasItsKeysBack()
{
    ShownSheet shown;
    shown.sheet->setBlockWindowButton(true);
    shown.execute([&] { shown.window.press(Qt::Key_Escape); });
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
    shown.window.close();
    QCOMPARE(shown.window.closings, 1);
}

void VelaMessageSheetRunTest::tabAndBacktabStayInTheSheet_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("hasInformativeText");
    QTest::newRow("a question") << int(VelaMessageSheet::QuestionMessage) << false;
    QTest::newRow("a question with more to say") << int(VelaMessageSheet::QuestionMessage) << true;
    QTest::newRow("an information") << int(VelaMessageSheet::InfoMessage) << false;
    QTest::newRow("a message without buttons") << int(VelaMessageSheet::AppMessage) << false;
}

void VelaMessageSheetRunTest::tabAndBacktabStayInTheSheet()
{
    QFETCH(int, type);
    QFETCH(bool, hasInformativeText);
    ShownSheet shown(static_cast<VelaMessageSheet::MessageType>(type));
    QVERIFY(shown.isActive);
    if (hasInformativeText) {
        shown.sheet->setInformativeText(QStringLiteral("Think <a href='x'>twice</a>."));
    }
    shown.execute([&] {
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            for (int i = 0; i < 12; ++i) {
                shown.window.press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
                QVERIFY(shown.sheet->isAncestorOf(QApplication::focusWidget()));
            }
        }
        shown.sheet->quit();
    });
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
}

void VelaMessageSheetRunTest::arrowsOnAButtonStayInTheSheet()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
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
        QCOMPARE(visited, (QSet<QWidget *> {shown.ok(), shown.text()}));
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::tabPassesOverWhatDoesNotTakeTheFocus_data()
{
    QTest::addColumn<int>("flaw");
    QTest::newRow("disabled") << int(Disabled);
    QTest::newRow("hidden") << int(Hidden);
    QTest::newRow("by click only") << int(ByClickOnly);
}

void VelaMessageSheetRunTest::tabPassesOverWhatDoesNotTakeTheFocus()
{
    QFETCH(int, flaw);
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.execute([&] {
        shown.ok()->setEnabled(flaw != Disabled);
        shown.ok()->setVisible(flaw != Hidden);
        shown.ok()->setFocusPolicy(flaw == ByClickOnly ? Qt::ClickFocus : Qt::StrongFocus);
        for (QWidget *expected : QList<QWidget *> {shown.cancel(), shown.text(), shown.cancel()}) {
            shown.window.press(Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), expected);
        }
        shown.window.press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::theFocusStaysWhenItsWidgetIsDisabledOrHidden()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.execute([&] {
        shown.ok()->setFocus();
        shown.ok()->setEnabled(false);
        QCOMPARE(QApplication::focusWidget(), shown.cancel());
        shown.cancel()->hide();
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::tabVisitsWhatTakesTheFocusInOrder()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.execute([&] {
        QList<QWidget *> forwards;
        for (int i = 0; i < 3; ++i) {
            shown.window.press(Qt::Key_Tab);
            forwards.append(QApplication::focusWidget());
        }
        QCOMPARE(forwards, (QList<QWidget *> {shown.ok(), shown.cancel(), shown.text()}));
        QList<QWidget *> backwards;
        for (int i = 0; i < 3; ++i) {
            shown.window.press(Qt::Key_Backtab, Qt::ShiftModifier);
            backwards.append(QApplication::focusWidget());
        }
        QCOMPARE(backwards, (QList<QWidget *> {shown.cancel(), shown.ok(), shown.text()}));
        shown.sheet->quit();
    });
}

// What takes the focus next to the window is a field of its own here.
void VelaMessageSheetRunTest::aTabForTheWindowGoesToTheFirstAndABacktabToTheLast()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.execute([&] {
        auto *last = new QLineEdit(&shown.window); // behind the sheet in the focus chain
        last->show();
        shown.cancel()->setFocus();
        const FocusReasons focus(shown.sheet.get());
        shown.window.send(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.window.send(Qt::Key_Tab); // from the window again, not from the message
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.window.send(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), shown.cancel());
        shown.window.send(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), shown.cancel());
        QCOMPARE(focus.reasons, (QList<Qt::FocusReason> {Qt::TabFocusReason, Qt::TabFocusReason}));
        shown.sheet->quit();
    });
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::aTabForTheWindowTakesTheWidgetNextToItIfItIsTheSheets()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    // The message, the window, then the icon and the buttons' box, neither of which takes the focus, and Ok.
    shown.window.setFocusPolicy(Qt::TabFocus); // or it has no place in the order
    QWidget::setTabOrder(shown.text(), &shown.window);
    shown.window.setFocusPolicy(Qt::NoFocus);
    shown.execute([&] {
        QCOMPARE(shown.window.nextInFocusChain(), shown.icon());
        QCOMPARE(shown.window.previousInFocusChain(), shown.text());
        shown.window.send(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), shown.ok());
        shown.window.send(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.sheet->quit();
    });
}

// Their focus policies may change while the sheet is up; the widgets it knows are those of the moment it was shown.
void VelaMessageSheetRunTest::firstAndLastCanBeMarkedAgain()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.execute([&] {
        new QLineEdit(&shown.window);
        shown.text()->setFocusPolicy(Qt::NoFocus);
        shown.cancel()->setFocusPolicy(Qt::NoFocus);
        shown.sheet->markFirstFocusWidget();
        shown.window.send(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), shown.ok());

        shown.text()->setFocusPolicy(Qt::StrongFocus);
        shown.ok()->setFocusPolicy(Qt::NoFocus);
        shown.sheet->markLastFocusWidget();
        shown.window.send(Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), shown.text());

        shown.icon()->setFocusPolicy(Qt::StrongFocus);
        shown.text()->setFocusPolicy(Qt::NoFocus);
        shown.sheet->markFirstFocusWidget();
        shown.window.send(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), shown.icon());
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::firstAndLastCanBeMarkedAfterButtonsAreGone()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->showSheet();
    shown.sheet->setMessageType(VelaMessageSheet::ProcessingMessage);
    shown.sheet->markFirstFocusWidget();
    shown.sheet->markLastFocusWidget();
    for (int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        shown.window.above->setFocus();
        shown.window.send(key);
        QCOMPARE(QApplication::focusWidget(), shown.text());
    }
}

void VelaMessageSheetRunTest::whatIsNoWidgetGetsNoTab()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->showSheet();
    QObject object;
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    shown.sheet->restrictedFocus(&object, &tab);
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
    shown.sheet->restrictedFocus(&shown.window, &tab);
    QCOMPARE(QApplication::focusWidget(), shown.text());
}

void VelaMessageSheetRunTest::aTabForTheWindowDoesNothingWhereNothingTakesTheFocus()
{
    ShownSheet shown(VelaMessageSheet::AppMessage);
    QVERIFY(shown.isActive);
    shown.text()->setFocusPolicy(Qt::NoFocus);
    shown.sheet->showSheet();
    shown.window.send(Qt::Key_Tab);
    shown.window.send(Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::aClickBelowTheMaskReachesNothing()
{
    ShownSheet shown;
    shown.execute([&] {
        EventCounter presses(shown.window.below, QEvent::MouseButtonPress);
        shown.window.clickOn(shown.window.below);
        QCOMPARE(presses.take(), 0);
        QVERIFY(!shown.window.below->hasFocus());
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::closingTheWindowIsRefused_data()
{
    QTest::addColumn<bool>("isBlocked");
    QTest::newRow("blocked") << true;
    QTest::newRow("not blocked") << false;
}

void VelaMessageSheetRunTest::closingTheWindowIsRefused()
{
    QFETCH(bool, isBlocked);
    ShownSheet shown;
    shown.sheet->setBlockWindowButton(isBlocked);
    shown.execute([&] {
        shown.window.close();
        shown.sheet->quit();
    });
    QCOMPARE(shown.window.closings, isBlocked ? 0 : 1);

    shown.sheet->showSheet();
    shown.window.close();
    QCOMPARE(shown.window.closings, isBlocked ? 0 : 2);
    QVERIFY(shown.window.isVisible());
}

void VelaMessageSheetRunTest::theWindowCannotBeClosedAtFirst()
{
    Window window;
    QVERIFY(window.showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    sheet.showSheet();
    window.close();
    QCOMPARE(window.closings, 0);
    sheet.done(0);
    window.close();
    QCOMPARE(window.closings, 1);
}

void VelaMessageSheetRunTest::aRefusedCloseIsIgnoredAndConsumed()
{
    ShownSheet shown;
    shown.sheet->setBlockWindowButton(true);
    for (QObject *watched : QList<QObject *> {&shown.window, shown.text()}) { // visible or not
        QCloseEvent close;
        QVERIFY(shown.sheet->eventFilter(watched, &close));
        QVERIFY(!close.isAccepted());
    }
    shown.sheet->setBlockWindowButton(false);
    QCloseEvent close;
    QVERIFY(!shown.sheet->eventFilter(&shown.window, &close));
    QVERIFY(close.isAccepted());
}

void VelaMessageSheetRunTest::theWindowManagersRequestToCloseIsRefused_data()
{
    closingTheWindowIsRefused_data();
}

void VelaMessageSheetRunTest::theWindowManagersRequestToCloseIsRefused()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(bool, isBlocked);
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->setBlockWindowButton(isBlocked);
    const XConnection x;
    shown.execute([&] {
        EventCounter requests(&shown.window, QEvent::Close); // sees them before the sheet does
        x.askToClose(static_cast<XWindow>(shown.window.winId()));
        int arrived = 0;
        QTRY_COMPARE_WITH_TIMEOUT(arrived += requests.take(), 1, Patience);
        QVERIFY(shown.sheet->isVisible());
        shown.sheet->quit();
    });
    QCOMPARE(shown.window.closings, isBlocked ? 0 : 1);
}

void VelaMessageSheetRunTest::theCloseButtonGoesAndComesBack_data()
{
    closingTheWindowIsRefused_data();
}

void VelaMessageSheetRunTest::theCloseButtonGoesAndComesBack()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(bool, isBlocked);
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->setBlockWindowButton(isBlocked);
    const XConnection x;
    const auto hints = [&] { return x.property(static_cast<XWindow>(shown.window.winId()), "_MOTIF_WM_HINTS"); };
    const XProperty before = hints();
    shown.execute([&] {
        QCOMPARE(hints().elements, isBlocked ? ButtonAway : before.elements);
        shown.sheet->quit();
    });
    const XProperty after = hints();
    QCOMPARE(after.elements, isBlocked && before.elements.isEmpty() ? ButtonBack : before.elements);

    shown.sheet->showSheet(); // takes no button away
    QCOMPARE(hints(), after);
    shown.sheet->quit();
    QCOMPARE(hints(), after);
}

// It stays away then, and the next answer gives back what was there before the first one took it.
void VelaMessageSheetRunTest::theCloseButtonComesBackWhenBlockingEndsMeanwhile()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    ShownSheet shown;
    shown.sheet->setBlockWindowButton(true);
    const XConnection x;
    const auto hints = [&] { return x.property(static_cast<XWindow>(shown.window.winId()), "_MOTIF_WM_HINTS"); };
    shown.execute([&] { shown.sheet->quit(); });
    const XProperty before = hints();
    shown.execute([&] {
        shown.sheet->setBlockWindowButton(false);
        shown.sheet->quit();
    });
    QCOMPARE(hints().elements, ButtonAway);
    shown.sheet->setBlockWindowButton(true);
    shown.execute([&] { shown.sheet->quit(); });
    QCOMPARE(hints(), before);

    shown.execute([&] {
        shown.sheet->setBlockWindowButton(false);
        shown.sheet->quit();
    });
    shown.sheet.reset();
    QCOMPARE(hints(), before);
}

void VelaMessageSheetRunTest::theCloseButtonIsAwayUntilTheLastSheetIsAnswered_data()
{
    QTest::addColumn<QVector<int>>("order"); // of the answers to the sheets, which come up as 0, 1, 2
    QTest::newRow("last first") << QVector<int> {2, 1, 0};
    QTest::newRow("first first") << QVector<int> {0, 1, 2};
    QTest::newRow("middle first") << QVector<int> {1, 0, 2};
}

void VelaMessageSheetRunTest::theCloseButtonIsAwayUntilTheLastSheetIsAnswered()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(QVector<int>, order);
    Window window;
    QVERIFY(window.showAndWait());
    const Hints hints(window);

    QVector<VelaMessageSheet *> sheets;
    const std::function<void()> step = [&] {
        if (sheets.size() == order.size()) {
            for (int index : order) {
                QCOMPARE(hints.now(), ButtonAway);
                sheets.at(index)->done(index);
            }
            return;
        }
        VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, Text, &window);
        const int index = sheets.size();
        sheets.append(&sheet);
        QCOMPARE(execute(&sheet, step), index);
    };
    step();
    QTRY_COMPARE(hints.now(), hints.before);
}

void VelaMessageSheetRunTest::theCloseButtonIsAwayWhateverBecomesOfTheSheets_data()
{
    using Change = std::function<void(VelaMessageSheet *, VelaMessageSheet *, QWidget *)>;
    QTest::addColumn<Change>("change"); // of two sheets that wait, the second one in a panel
    QTest::newRow("first is shown again")
        << Change([](VelaMessageSheet *first, VelaMessageSheet *, QWidget *) { first->showSheet(); });
    QTest::newRow("the second one's panel dies")
        << Change([](VelaMessageSheet *, VelaMessageSheet *, QWidget *panel) { delete panel; });
    QTest::newRow("first leaves and comes back") << Change([](VelaMessageSheet *first, VelaMessageSheet *, QWidget *) {
        QWidget *window = first->parentWidget();
        Window other;
        first->setParent(&other);
        first->setParent(window);
    });
    QTest::newRow("the panel leaves and comes back")
        << Change([](VelaMessageSheet *first, VelaMessageSheet *, QWidget *panel) {
               Window other;
               panel->setParent(&other);
               panel->setParent(first->parentWidget());
           });
    QTest::newRow("second is answered and waits again")
        << Change([](VelaMessageSheet *, VelaMessageSheet *second, QWidget *) {
               second->done(2);
               execute(second, [second] { second->done(3); });
           });
}

void VelaMessageSheetRunTest::theCloseButtonIsAwayWhateverBecomesOfTheSheets()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(std::function<void(VelaMessageSheet *, VelaMessageSheet *, QWidget *)>, change);
    Window window;
    QVERIFY(window.showAndWait());
    const Hints hints(window);
    auto *panel = new QWidget(&window);
    VelaMessageSheet first(VelaMessageSheet::InfoMessage, Text, &window);
    VelaMessageSheet second(VelaMessageSheet::InfoMessage, Text, panel);
    execute(&first, [&] {
        execute(&second, [&] {
            change(&first, &second, panel);
            QCOMPARE(hints.now(), ButtonAway);
            first.done(1);
            QTimer::singleShot(0, &second, &VelaMessageSheet::quit);
        });
    });
    QTRY_COMPARE(hints.now(), hints.before);
}

void VelaMessageSheetRunTest::theCloseButtonIsAwayWhenAPanelBelowAnotherSheetDies()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    Window window;
    QVERIFY(window.showAndWait());
    const Hints hints(window);
    auto *panel = new QWidget(&window);
    VelaMessageSheet first(VelaMessageSheet::InfoMessage, Text, panel);
    VelaMessageSheet second(VelaMessageSheet::InfoMessage, Text, &window);
    execute(&first, [&] {
        execute(&second, [&] {
            delete panel;
            QCOMPARE(hints.now(), ButtonAway);
            second.quit();
        });
    });
    QTRY_COMPARE(hints.now(), hints.before);
}

void VelaMessageSheetRunTest::theCloseButtonIsAwayWhenAShownSheetWaits()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    Window window;
    QVERIFY(window.showAndWait());
    const Hints hints(window);
    VelaMessageSheet first(VelaMessageSheet::InfoMessage, Text, &window);
    VelaMessageSheet second(VelaMessageSheet::InfoMessage, Text, &window);
    first.showSheet();
    execute(&second, [&] {
        execute(&first, [&] {
            second.quit();
            QCOMPARE(hints.now(), ButtonAway);
            first.quit();
        });
    });
    QTRY_COMPARE(hints.now(), hints.before);
}

void VelaMessageSheetRunTest::anAnswerEmitsFinishedOnce()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    shown.execute([&] { shown.window.press(Qt::Key_Return); });
    QCOMPARE(finished.count(), 1);
}

// Nothing else takes the focus there, so it has nowhere to go from the button.
void VelaMessageSheetRunTest::aKeyAfterAClickIsNoSecondAnswer()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    delete shown.window.above;
    delete shown.window.below;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.clickOn(shown.ok()); }), OkCode);
    QVERIFY(!QApplication::focusWidget());
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
        shown.window.press(key);
    }
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.window.keys, 2);
}

void VelaMessageSheetRunTest::anAnswerEmitsFinishedOnceAfterTheTypeWasSetAgain()
{
    ShownSheet shown;
    for (int i = 0; i < 3; ++i) {
        shown.sheet->setMessageType(VelaMessageSheet::WarningQuestionMessage);
    }
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.clickOn(shown.cancel()); }), CancelCode);
    QCOMPARE(finished.count(), 1);
}

void VelaMessageSheetRunTest::allIsUndoneWhenFinishedIsEmitted()
{
    ShownSheet shown;
    shown.sheet->setBlockWindowButton(true);
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
    shown.execute([&] { shown.sheet->done(1); });
    QVERIFY(wasSeen);
}

void VelaMessageSheetRunTest::eachDoneIsReportedAndExecReturnsTheLast()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] {
        shown.sheet->done(1);
        shown.sheet->done(2);
    }),
             2);
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.at(0).first().toInt(), 1);
    QCOMPARE(finished.at(1).first().toInt(), 2);
    QCOMPARE(shown.execute([&] { shown.sheet->done(3); }), 3);
}

void VelaMessageSheetRunTest::doneBeforeExecIsNoAnswerToIt()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    shown.sheet->done(5);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.execute([&] { shown.sheet->done(6); }), 6);
}

void VelaMessageSheetRunTest::doneInASlotOfFinishedIsNoSecondAnswer()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&] { shown.sheet->done(9); });
    QCOMPARE(shown.execute([&] { shown.sheet->done(4); }), 4);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.execute([&] { shown.sheet->done(5); }), 5); // the next one is an answer again
    QCOMPARE(finished.count(), 2);
}

void VelaMessageSheetRunTest::aSlotOfFinishedMayThrow()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    const auto connection = connect(shown.sheet.get(), &VelaSheet::finished, this, [] { throw 1; });
    shown.sheet->showSheet();
    QVERIFY_EXCEPTION_THROWN(shown.sheet->done(1), int);
    disconnect(connection);
    shown.sheet->done(2);
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.last().first().toInt(), 2);
}

void VelaMessageSheetRunTest::itCanBeExecutedAgain()
{
    ShownSheet shown;
    for (int i = 1; i < 5; ++i) {
        QCOMPARE(shown.execute([&] {
            QVERIFY(shown.sheet->isVisible());
            shown.sheet->done(i);
        }),
                 i);
    }
}

void VelaMessageSheetRunTest::itCanBeExecutedAgainFromASlotOfFinished()
{
    ShownSheet shown;
    QList<int> answers;
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&](int result) {
        if (result == 1) {
            answers.append(shown.execute([&] { shown.sheet->done(2); }));
        }
    });
    answers.append(shown.execute([&] { shown.sheet->done(1); }));
    QCOMPARE(answers, (QList<int> {2, 1}));
    QVERIFY(!shown.sheet->isVisible());
}

void VelaMessageSheetRunTest::itCanBeShownAgainFromASlotOfFinished()
{
    ShownSheet shown;
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    connect(shown.sheet.get(), &VelaSheet::finished, this, [&](int result) {
        if (result == 1) {
            shown.sheet->showSheet();
        }
    });
    QCOMPARE(shown.execute([&] { shown.sheet->done(1); }), 1);
    QVERIFY(shown.sheet->isVisible());
    shown.window.send(Qt::Key_Escape);
    QVERIFY(!shown.sheet->isVisible());
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.last().first().toInt(), CancelCode);
}

void VelaMessageSheetRunTest::whatIsShownAlreadyCanBeExecuted()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->showSheet();
    shown.ok()->setFocus();
    QSignalSpy finished(shown.sheet.get(), &VelaSheet::finished);
    QCOMPARE(shown.execute([&] { shown.window.press(Qt::Key_Return); }), OkCode);
    QCOMPARE(finished.count(), 1);
}

void VelaMessageSheetRunTest::execWhileItWaitsReturnsAtOnce()
{
    ShownSheet shown;
    int inner = NoAnswer;
    QCOMPARE(shown.execute([&] {
        inner = shown.sheet->exec();
        QVERIFY(shown.sheet->isVisible());
        shown.sheet->done(8);
    }),
             8);
    QCOMPARE(inner, 0);
}

void VelaMessageSheetRunTest::timersRunWhileItWaits()
{
    ShownSheet shown;
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (++ticks == 5) {
            shown.sheet->done(ticks);
        }
    });
    timer.start(1);
    QCOMPARE(shown.execute(Nothing), 5);
}

void VelaMessageSheetRunTest::aSecondSheetMayBeAnsweredFirst()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    int second = NoAnswer;
    const int first = shown.execute([&] {
        VelaMessageSheet above(VelaMessageSheet::InfoMessage, Text, &shown.window);
        VelaMask::createMask(&above, &shown.window, QColor(0, 0, 0, 20));
        second = execute(&above, [&] {
            QVERIFY(above.isAncestorOf(QApplication::focusWidget()));
            shown.window.press(Qt::Key_Return);
        });
        QVERIFY(shown.sheet->isVisible());
        QTimer::singleShot(0, shown.sheet.get(), [&] { shown.window.send(Qt::Key_Escape); });
    });
    QCOMPARE(second, OkCode);
    QCOMPARE(first, CancelCode);
}

// Its result waits until the second one, whose loop runs inside, is answered as well.
void VelaMessageSheetRunTest::aFirstSheetMayBeAnsweredFirst()
{
    ShownSheet shown;
    int second = NoAnswer;
    const int first = shown.execute([&] {
        VelaMessageSheet above(VelaMessageSheet::InfoMessage, Text, &shown.window);
        VelaMask::createMask(&above, &shown.window, QColor(0, 0, 0, 20));
        second = execute(&above, [&] {
            shown.sheet->done(11);
            QVERIFY(!shown.sheet->isVisible());
            QVERIFY(above.isVisible());
            QTimer::singleShot(0, &above, [&] { above.done(12); });
        });
    });
    QCOMPARE(second, 12);
    QCOMPARE(first, 11);
}

void VelaMessageSheetRunTest::aSecondSheetMayBeAnInputSheet()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.sheet->setBlockWindowButton(true);
    const Hints hints(shown.window);
    QString typed;
    const int first = shown.execute([&] {
        shown.cancel()->setFocus();
        VelaInputSheet above(Text, &shown.window);
        VelaMask::createMask(&above, &shown.window, QColor(0, 0, 0, 20));
        const int second = execute(&above, [&] {
            shown.window.press(Qt::Key_A);
            shown.window.close();
            shown.window.press(Qt::Key_Return);
        });
        QCOMPARE(second, OkCode);
        typed = above.getContent();
        QCOMPARE(shown.window.closings, 0);
        QCOMPARE(QApplication::focusWidget(), shown.cancel());
        if (isOnX()) {
            QCOMPARE(hints.now(), ButtonAway);
        }
        shown.window.press(Qt::Key_Return);
    });
    QCOMPARE(first, OkCode);
    QCOMPARE(typed, QStringLiteral("a"));
    if (isOnX()) {
        QTRY_COMPARE(hints.now(), hints.before);
    }
}

void VelaMessageSheetRunTest::theFocusPassesToTheSheetBelow_data()
{
    QTest::addColumn<bool>("isInACover"); // or on the button, which had the focus before
    QTest::newRow("to the button that had it") << false;
    QTest::newRow("to the first that takes it") << true;
}

// And not to what is below its mask, where Qt would move it.
void VelaMessageSheetRunTest::theFocusPassesToTheSheetBelow()
{
    QFETCH(bool, isInACover);
    ShownSheet shown;
    QVERIFY(shown.isActive);
    shown.window.below->setFocus();
    shown.execute([&] {
        QWidget *expected = isInACover ? static_cast<QWidget *>(shown.text()) : shown.cancel();
        if (isInACover) {
            shown.window.below->setFocus(); // as an application may do
        } else {
            shown.cancel()->setFocus();
        }
        VelaMessageSheet above(VelaMessageSheet::InfoMessage, Text, &shown.window);
        VelaMask::createMask(&above, &shown.window, QColor(0, 0, 0, 20));
        execute(&above, [&] { shown.window.press(Qt::Key_Return); });
        QCOMPARE(QApplication::focusWidget(), expected);
        shown.window.press(Qt::Key_Tab);
        QVERIFY(shown.sheet->isAncestorOf(QApplication::focusWidget()));
        shown.window.press(Qt::Key_A);
        shown.sheet->quit();
    });
    QCOMPARE(shown.window.above->text() + shown.window.below->text(), QString());
}

// It is up still, but nobody sees it.
void VelaMessageSheetRunTest::theFocusPassesOverASheetThatWasHidden()
{
    ShownSheet shown;
    QVERIFY(shown.isActive);
    VelaMessageSheet hidden(VelaMessageSheet::InfoMessage, Text, &shown.window);
    hidden.showSheet();
    hidden.hide();
    shown.window.below->setFocus();
    shown.execute([&] { shown.window.press(Qt::Key_Return); });
    QCOMPARE(QApplication::focusWidget(), shown.window.below);
}

void VelaMessageSheetRunTest::aSheetThatIsMovedWatchesItsNewWindow_data()
{
    QTest::addColumn<bool>("isInAPanel"); // that moves with it
    QTest::newRow("the sheet") << false;
    QTest::newRow("a panel with it") << true;
}

void VelaMessageSheetRunTest::aSheetThatIsMovedWatchesItsNewWindow()
{
    QFETCH(bool, isInAPanel);
    Window former;
    Window window;
    QVERIFY(former.showAndWait());
    QVERIFY(window.showAndWait());
    auto *panel = new QWidget(&former);
    panel->resize(600, 300);
    panel->show();
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, panel);
    QWidget *moved = isInAPanel ? panel : &sheet;
    const Hints hintsOfFormer(former);
    const Hints hints(window);
    QCOMPARE(execute(&sheet,
                     [&] {
                         moved->setParent(&window);
                         moved->show();
                         if (isOnX()) {
                             QCOMPARE(hintsOfFormer.now(), hintsOfFormer.before);
                             QCOMPARE(hints.now(), ButtonAway);
                         }
                         former.send(Qt::Key_A);
                         QCOMPARE(former.keys, 1);
                         former.close();
                         QCOMPARE(former.closings, 1);
                         window.close();
                         QCOMPARE(window.closings, 0);
                         window.send(Qt::Key_Escape);
                     }),
             CancelCode);
    QCOMPARE(window.keys, 0);
    window.send(Qt::Key_A);
    QCOMPARE(window.keys, 1);
    if (isOnX()) {
        QCOMPARE(hints.now(), hints.before);
    }
}

void VelaMessageSheetRunTest::theWindowMayBeResizedHiddenAndShown()
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

void VelaMessageSheetRunTest::quittingEndsTheWait()
{
    ShownSheet shown;
    QList<int> answers;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(0, qApp, &QApplication::quit);
        answers.append(shown.sheet->exec());
    });
    QApplication::exec();
    QCOMPARE(answers, QList<int> {0});
    QVERIFY(shown.sheet->isVisible()); // as it was not answered
}

void VelaMessageSheetRunTest::quittingMayDestroyTheWindow()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    connect(qApp, &QCoreApplication::aboutToQuit, window, [window] { delete window; });
    QList<int> answers;
    QTimer::singleShot(0, this, [&] {
        VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, window);
        VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
        QTimer::singleShot(0, qApp, &QApplication::quit);
        answers.append(sheet.exec());
    });
    QApplication::exec();
    QCOMPARE(answers, QList<int> {0});
}

void VelaMessageSheetRunTest::theWindowMayDieWhileASheetIsShown()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    const QPointer<VelaMessageSheet> sheet = new VelaMessageSheet(VelaMessageSheet::InfoMessage, Text, window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    sheet->showSheet();
    delete window;
    QVERIFY(!sheet); // as any widget in it
}

void VelaMessageSheetRunTest::theWindowMayDieWhileASheetWaits_data()
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
void VelaMessageSheetRunTest::theWindowMayDieWhileASheetWaits()
{
    QFETCH(bool, hasMask);
    QFETCH(bool, isBlocked);
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, window);
    if (hasMask) {
        VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    }
    sheet.setBlockWindowButton(isBlocked);
    QCOMPARE(execute(&sheet, [window] { delete window; }), 0);
    QVERIFY(!sheet.parentWidget());
    QVERIFY(!sheet.isVisible());
    sheet.setText(QStringLiteral("still in use"));
    sheet.done(1);
}

void VelaMessageSheetRunTest::theWindowMayDieWhileTwoSheetsWait()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    VelaMessageSheet below(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(&below, window, QColor(0, 0, 0, 20));
    int second = NoAnswer;
    const int first = execute(&below, [&] {
        VelaMessageSheet above(VelaMessageSheet::InfoMessage, Text, window);
        VelaMask::createMask(&above, window, QColor(0, 0, 0, 20));
        second = execute(&above, [window] { delete window; });
    });
    QCOMPARE(second, 0);
    QCOMPARE(first, 0);
}

void VelaMessageSheetRunTest::theWindowMayDieWhileASheetWaitsAgain()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    QList<int> answers;
    connect(&sheet, &VelaSheet::finished, this, [&] { answers.append(execute(&sheet, [window] { delete window; })); });
    answers.append(execute(&sheet, [&] { sheet.done(6); }));
    QCOMPARE(answers, (QList<int> {0, 6}));
}

void VelaMessageSheetRunTest::theWindowThatASheetIsMovedToMayDieWhileItWaits()
{
    Window former;
    auto *window = new Window;
    QVERIFY(former.showAndWait());
    QVERIFY(window->showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, &former);
    QCOMPARE(execute(&sheet,
                     [&] {
                         VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
                         delete window;
                     }),
             0);
    QVERIFY(!sheet.parentWidget());
}

void VelaMessageSheetRunTest::theWindowMayDieAfterTheAnswerThatExecStillReturns()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    connect(&sheet, &VelaSheet::finished, this, [window] { delete window; });
    QCOMPARE(execute(&sheet, [&] { window->send(Qt::Key_Escape); }), CancelCode);
}

void VelaMessageSheetRunTest::aSheetOnTheHeapOutlivesItsWindow()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    const QPointer<VelaMessageSheet> sheet = new VelaMessageSheet(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    QSignalSpy finished(sheet.data(), &VelaSheet::finished);
    QCOMPARE(execute(sheet.data(), [window] { delete window; }), 0);
    QVERIFY(sheet);
    QVERIFY(!sheet->parent());
    QCOMPARE(finished.count(), 0);
    delete sheet;
}

// Once it is answered it is the window's again.
void VelaMessageSheetRunTest::anAnsweredSheetOnTheHeapDiesWithItsWindow()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    const QPointer<VelaMessageSheet> sheet = new VelaMessageSheet(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    QCOMPARE(execute(sheet.data(), [&] { sheet->done(3); }), 3);
    delete window;
    QVERIFY(!sheet);
}

void VelaMessageSheetRunTest::theWindowMayDieWhileAnInputSheetWaits()
{
    auto *window = new Window;
    QVERIFY(window->showAndWait());
    VelaInputSheet sheet(Text, window);
    VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    sheet.getLineEdit()->setText(QStringLiteral("typed"));
    QCOMPARE(execute(&sheet, [window] { delete window; }), 0);
    QCOMPARE(sheet.getContent(), QStringLiteral("typed"));
}

void VelaMessageSheetRunTest::theSheetMayBeDeletedWhileItWaits()
{
    ShownSheet shown;
    int answer = NoAnswer;
    auto *sheet = shown.sheet.release();
    QTimer::singleShot(0, this, [sheet] { delete sheet; });
    answer = sheet->exec();
    QCOMPARE(answer, 0);
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
}

void VelaMessageSheetRunTest::theSheetMayBeDeletedInASlotOfFinished_data()
{
    using Answer = std::function<void(VelaMessageSheet *, Window *)>;
    QTest::addColumn<Answer>("answer");
    QTest::newRow("done()") << Answer([](VelaMessageSheet *sheet, Window *) { sheet->done(OkCode); });
    QTest::newRow("Return") << Answer([](VelaMessageSheet *, Window *window) { window->press(Qt::Key_Return); });
    QTest::newRow("Space on the button") << Answer([](VelaMessageSheet *sheet, Window *window) {
        sheet->button(QMessageBox::Ok)->setFocus();
        window->press(Qt::Key_Space);
    });
    QTest::newRow("click") << Answer(
        [](VelaMessageSheet *sheet, Window *window) { window->clickOn(sheet->button(QMessageBox::Ok)); });
}

void VelaMessageSheetRunTest::theSheetMayBeDeletedInASlotOfFinished()
{
    QFETCH(std::function<void(VelaMessageSheet *, Window *)>, answer);
    ShownSheet shown;
    QVERIFY(shown.isActive);
    const QPointer<VelaMessageSheet> sheet = shown.sheet.release();
    connect(sheet, &VelaSheet::finished, this, [sheet] { delete sheet; });
    QTimer::singleShot(0, this, [&] { answer(sheet, &shown.window); });
    QCOMPARE(sheet->exec(), OkCode);
    QVERIFY(!sheet);
}

void VelaMessageSheetRunTest::aPanelInTheWindowMayDieWhileTheSheetWaits()
{
    Window window;
    auto *panel = new QWidget(&window);
    panel->setGeometry(0, 0, 600, 300);
    QVERIFY(window.showAndWait());
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, panel);
    VelaMask::createMask(&sheet, panel, QColor(0, 0, 0, 20));
    QCOMPARE(execute(&sheet, [panel] { delete panel; }), 0);
    window.send(Qt::Key_A);
    QCOMPARE(window.keys, 1);
    window.close();
    QCOMPARE(window.closings, 1);
}

void VelaMessageSheetRunTest::eachShortcutLeavesAMaskAndNothingElse()
{
    const int shortcuts = isOnX() ? ShortcutsOnX : Shortcuts;
    Window window;
    QVERIFY(window.showAndWait());
    QTimer answers;
    connect(&answers, &QTimer::timeout, &window, [&] { window.press(Qt::Key_Return); });

    const int own = window.findChildren<QObject *>().size();
    delete VelaMask::createMask(new QWidget(&window), &window, QColor(0, 0, 0, 20));
    const int ofAMask = window.findChildren<QObject *>().size() - own;
    QVERIFY(ofAMask > 0);
    const int widgets = QApplication::allWidgets().size();

    answers.start(0);
    for (int i = 0; i < shortcuts; ++i) {
        showInfoMsg(QString(), Text, &window);
    }
    answers.stop();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(window.findChildren<QObject *>().size(), own + (1 + shortcuts) * ofAMask);
    QCOMPARE(QApplication::allWidgets().size(), widgets + shortcuts);

    const auto masks = window.findChildren<VelaMask *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(masks.size(), 1 + shortcuts);
    for (const VelaMask *mask : masks) {
        QVERIFY(mask->isHidden());
        QVERIFY(mask->findChildren<QWidget *>().isEmpty());
    }
}

QTEST_MAIN(VelaMessageSheetRunTest)
#include "tst_vela_msg_sheet_run.moc"
