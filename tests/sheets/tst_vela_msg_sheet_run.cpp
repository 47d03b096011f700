// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"
#include "support/window-hints.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMovie>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

constexpr int Shortcuts = 200;
constexpr int ShortcutsOnX = 20; // messages; each keeps two connections to the server, which takes 255

const QString Text = QStringLiteral("Is it so?");

// A message in its mask over a window that is active and can be closed.
class ShownMessage
{
public:
    explicit ShownMessage(VelaMessageSheet::MessageType type = VelaMessageSheet::QuestionMessage)
    {
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

    Shown<SheetWindow> window;
    std::unique_ptr<VelaMessageSheet> sheet;
};

// Notes why the widgets of a sheet get the focus.
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

// A GIF of two frames.
QByteArray animation()
{
    return QByteArray::fromHex("474946383961010001008000000000ffffffff21ff0b4e45545343415045322e300301000000"
                               "21f90400050000002c00000000010001000002024401"
                               "0021f90400050000002c000000000100010000020244010"
                               "03b");
}

} // namespace

// What only messages do while they are up.
class VelaMessageSheetRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void theMessageHasTheFocusAtFirst();
    void aSheetThatDoesNotBlockLeavesTheFocus();
    void theButtonsTakeTheFocusButNotTheirBox();
    void processingIsAnimated();
    void otherTypesAreNotAnimated();
    void escapeOnAnInformationSheetIsSwallowed();
    void enterOnAProcessingSheetIsSwallowed();
    void aHiddenSheetLetsKeysPass();
    void tabAndBacktabStayInTheSheet_data();
    void tabAndBacktabStayInTheSheet();
    void aTabForTheWindowGoesToTheFirstAndABacktabToTheLast();
    void aTabForTheWindowTakesTheWidgetNextToItIfItIsTheSheets();
    void firstAndLastCanBeMarkedAgain();
    void firstAndLastCanBeMarkedAfterButtonsAreGone();
    void whatIsNoWidgetGetsNoTab();
    void aTabForTheWindowDoesNothingWhereNothingTakesTheFocus();
    void aSheetThatIsUpKeepsItsMarginsWhenItWaits();
    void eachShortcutLeavesAMaskAndNothingElse();

private:
    ResourceFolder m_folder;
};

void VelaMessageSheetRunTest::initTestCase()
{
    installSheetTheme(m_folder);
}

void VelaMessageSheetRunTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void VelaMessageSheetRunTest::theMessageHasTheFocusAtFirst()
{
    ShownMessage shown;
    const FocusReasons focus(shown.sheet.get());
    shown.execute([&] {
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.sheet->quit();
    });
    QCOMPARE(focus.reasons, QList<Qt::FocusReason> {Qt::TabFocusReason});
}

void VelaMessageSheetRunTest::aSheetThatDoesNotBlockLeavesTheFocus()
{
    ShownMessage shown;
    shown.sheet->showSheet();
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
    shown.sheet->done(0);
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
}

void VelaMessageSheetRunTest::theButtonsTakeTheFocusButNotTheirBox()
{
    ShownMessage shown;
    auto *box = shown.sheet->findChild<QDialogButtonBox *>();
    box->setFocusPolicy(Qt::TabFocus);
    shown.ok()->setFocusPolicy(Qt::NoFocus);
    shown.cancel()->setFocusPolicy(Qt::ClickFocus);
    shown.sheet->showSheet();
    QCOMPARE(box->focusPolicy(), Qt::NoFocus);
    QCOMPARE(shown.ok()->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(shown.cancel()->focusPolicy(), Qt::StrongFocus);
}

void VelaMessageSheetRunTest::processingIsAnimated()
{
    m_folder.writeFile(QStringLiteral("busy.gif"), animation());
    Shown<SheetWindow> window;
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
    ShownMessage shown(VelaMessageSheet::AppMessage);
    QMovie movie(m_folder.path() + QStringLiteral("/busy.gif"));
    shown.icon()->setMovie(&movie);
    shown.execute([&] {
        QCOMPARE(movie.state(), QMovie::NotRunning);
        shown.sheet->quit();
    });
}

void VelaMessageSheetRunTest::escapeOnAnInformationSheetIsSwallowed()
{
    for (const auto type : {VelaMessageSheet::InfoMessage, VelaMessageSheet::WarningMessage}) {
        ShownMessage shown(type);
        const int answer = shown.execute([&] {
            shown.window.press(Qt::Key_Escape);
            shown.window.send(Qt::Key_Escape);
            QVERIFY(shown.sheet->isVisible());
            shown.sheet->done(3);
        });
        QCOMPARE(answer, 3);
        QCOMPARE(shown.window.keys, 0);
    }
}

void VelaMessageSheetRunTest::enterOnAProcessingSheetIsSwallowed()
{
    ShownMessage shown(VelaMessageSheet::ProcessingMessage);
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

void VelaMessageSheetRunTest::aHiddenSheetLetsKeysPass()
{
    ShownMessage shown;
    shown.sheet->showSheet();
    shown.sheet->hide();
    shown.window.send(Qt::Key_A);
    QCOMPARE(shown.window.keys, 1);
}

void VelaMessageSheetRunTest::tabAndBacktabStayInTheSheet_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("hasInformativeText");
    QTest::newRow("a question with more to say") << int(VelaMessageSheet::QuestionMessage) << true;
    QTest::newRow("an information") << int(VelaMessageSheet::InfoMessage) << false;
    QTest::newRow("a message without buttons") << int(VelaMessageSheet::AppMessage) << false;
}

void VelaMessageSheetRunTest::tabAndBacktabStayInTheSheet()
{
    QFETCH(int, type);
    QFETCH(bool, hasInformativeText);
    ShownMessage shown(static_cast<VelaMessageSheet::MessageType>(type));
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

// A field of its own takes the focus next to the window here.
void VelaMessageSheetRunTest::aTabForTheWindowGoesToTheFirstAndABacktabToTheLast()
{
    ShownMessage shown;
    shown.execute([&] {
        auto *last = new QLineEdit(&shown.window); // lies behind the sheet in the focus chain
        last->show();
        shown.cancel()->setFocus();
        const FocusReasons focus(shown.sheet.get());
        shown.window.send(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), shown.text());
        shown.window.send(Qt::Key_Tab); // goes on from the window, not from the message
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
    ShownMessage shown;
    // The order is the message, the window, the icon and the buttons' box, neither of which takes the focus, and Ok.
    shown.window.setFocusPolicy(Qt::TabFocus); // gives it a place in the order
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
    ShownMessage shown;
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
    ShownMessage shown;
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
    ShownMessage shown;
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
    ShownMessage shown(VelaMessageSheet::AppMessage);
    shown.text()->setFocusPolicy(Qt::NoFocus);
    shown.sheet->showSheet();
    shown.window.send(Qt::Key_Tab);
    shown.window.send(Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), shown.window.above);
    QCOMPARE(shown.window.keys, 0);
}

void VelaMessageSheetRunTest::aSheetThatIsUpKeepsItsMarginsWhenItWaits()
{
    ShownMessage shown;
    shown.sheet->showSheet();
    const QMargins margins(1, 2, 3, 4);
    shown.sheet->setContentsMargins(margins);
    QMargins waiting;
    shown.execute([&] {
        waiting = shown.sheet->contentsMargins();
        shown.sheet->quit();
    });
    QCOMPARE(waiting, margins);
}

void VelaMessageSheetRunTest::eachShortcutLeavesAMaskAndNothingElse()
{
    const int shortcuts = isOnX() ? ShortcutsOnX : Shortcuts;
    Shown<SheetWindow> window;
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
