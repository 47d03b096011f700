// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "support/toolkit-language.h"
#include "utils/component-strings.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <functional>
#include <memory>

namespace {

constexpr int OkCode = 0x400;
constexpr int DiscardCode = 0x800000;
constexpr int BoxCancelCode = 0x400000;
constexpr int NoResult = -2; // result of a shortcut that returns none
constexpr int NoAnswer = -1; // result of a message that nobody answered in time
constexpr int Patience = 5000; // milliseconds

const QString Title = QStringLiteral("A title");
const QString Text = QStringLiteral("What happened");
const QString Informative = QStringLiteral("What to do");
const QString OkCaption = QStringLiteral("Take it");
const QString CancelCaption = QStringLiteral("Leave it");
const QString UpgradeCaption = QStringLiteral("Renew it");

struct Icon
{
    const char *name;
    Qt::GlobalColor color;
};

constexpr Icon Icons[] = {
    {"icon_information", Qt::blue},
    {"icon_warning", Qt::yellow},
    {"icon_question", Qt::magenta},
};

constexpr const char *Keys[] = {
    "component.info_message_box",      "component.warning_message_box", "component.confirm_message_box",
    "component.upgrading_message_box", "component.apply_button",        "component.cancel_button",
    "component.message_sheet_other",   "component.message_sheet_text",  "component.message_sheet_informative_text",
};

// The text under key: another one for each, and without a look.
QString styleOf(const char *key)
{
    return QStringLiteral("\nNothing#%1 { color: red }").arg(QString::fromLatin1(key).section(QLatin1Char('.'), 1));
}

// A shortcut and its message, in a window and as one.
struct Shortcut
{
    const char *name;
    int (*call)(QWidget *parent);
    Qt::GlobalColor sheetIcon;
    const QString &sheetOkCaption;
    bool sheetHasCancel;
    QMessageBox::Icon boxIcon;
    bool boxHasCancel;
    const char *boxKey;
    bool hasInformativeText;
    bool returnsTheAnswer;
};

const Shortcut Shortcuts[] = {
    {"information",
     [](QWidget *parent) {
         showInfoMsg(Title, Text, parent);
         return NoResult;
     },
     Qt::blue, OkCaption, false, QMessageBox::Information, false, "component.info_message_box", false, false},
    {"warning",
     [](QWidget *parent) {
         showWarningMsg(Title, Text, parent);
         return NoResult;
     },
     Qt::yellow, OkCaption, false, QMessageBox::Warning, false, "component.warning_message_box", false, false},
    {"warning of two texts",
     [](QWidget *parent) {
         showWarningMsg(Title, Text, Informative, parent);
         return NoResult;
     },
     Qt::yellow, OkCaption, false, QMessageBox::Warning, false, "component.warning_message_box", true, false},
    {"question", [](QWidget *parent) { return showConfirmMsg(Title, Text, parent); }, Qt::magenta, OkCaption, true,
     QMessageBox::Question, true, "component.confirm_message_box", false, true},
    {"question with captions",
     [](QWidget *parent) {
         return showConfirmMsgCustomBtn(Title, Text, MsgBoxCustomBtnText(QString(), QString()), parent);
     },
     Qt::magenta, OkCaption, true, QMessageBox::Question, true, "component.confirm_message_box", false, true},
    {"upgrade",
     [](QWidget *parent) {
         showUpgradingMsg(Title, Text, parent);
         return NoResult;
     },
     Qt::blue, UpgradeCaption, true, QMessageBox::Warning, false, "component.upgrading_message_box", false, false},
};

// A window that messages are shown in.
class MessageWindow : public ControlWindow
{
public:
    MessageWindow() : ControlWindow(new QWidget) { resize(expectedPixels(700), expectedPixels(400)); }

    // The message that is up.
    VelaMessageSheet *sheet() const
    {
        const auto sheets = findChildren<VelaMessageSheet *>();
        return sheets.size() == 1 && sheets.first()->isVisible() ? sheets.first() : nullptr;
    }

    VelaMask *mask() const { return qobject_cast<VelaMask *>(sheet()->parentWidget()); }
};

// Calls call and, in the event loop of its message, action. Returns what the call returns, or NoAnswer, if it
// has no result too, when the action did not end it.
int answer(const std::function<int()> &call, const std::function<void()> &action)
{
    bool gaveUp = false;
    QTimer guard;
    QTimer::singleShot(0, &guard, [&action] {
        QCoreApplication::sendPostedEvents(); // layouts settle before anybody can click
        action();
    });
    QObject::connect(&guard, &QTimer::timeout, &guard, [&gaveUp] {
        gaveUp = true;
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (auto *box = qobject_cast<QMessageBox *>(window)) {
                box->done(NoAnswer);
            }
            const auto sheets = window->findChildren<VelaMessageSheet *>();
            for (VelaMessageSheet *sheet : sheets) {
                sheet->done(NoAnswer);
            }
        }
    });
    guard.start(Patience);
    const int result = call();
    return gaveUp ? NoAnswer : result;
}

// The same for a message that is a window of its own, which action gets when it is active.
int answerBox(const std::function<int()> &call, const std::function<void(QMessageBox *)> &action)
{
    return answer(call, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        QVERIFY(QTest::qWaitForWindowActive(box));
        action(box);
    });
}

void clickOn(const QWidget *widget)
{
    const QWidget *window = widget->window();
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, widget->mapTo(window, widget->rect().center()));
}

QStringList textsOf(const QWidget *parent)
{
    QStringList texts;
    const auto labels = parent->findChildren<MessageLabel *>();
    for (const MessageLabel *label : labels) {
        if (label->isVisible()) {
            texts.append(label->text());
        }
    }
    return texts;
}

QColor iconOf(const QWidget *sheet)
{
    const auto labels = sheet->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
        if (!pixmap.isNull()) {
            return pixmap.toImage().pixelColor(pixmap.rect().center());
        }
    }
    return {};
}

int visibleWindows()
{
    const auto windows = QApplication::topLevelWidgets();
    return int(
        std::count_if(windows.cbegin(), windows.cend(), [](const QWidget *window) { return window->isVisible(); }));
}

QString orDefault(const QString &custom, const QString &caption)
{
    return custom.isEmpty() ? caption : custom;
}

} // namespace

Q_DECLARE_METATYPE(const Shortcut *)
Q_DECLARE_METATYPE(QMessageBox::StandardButton)

namespace {

void addShortcuts()
{
    QTest::addColumn<const Shortcut *>("shortcut");
    for (const Shortcut &shortcut : Shortcuts) {
        QTest::newRow(shortcut.name) << &shortcut;
    }
}

void addCaptions()
{
    QTest::addColumn<QString>("okText");
    QTest::addColumn<QString>("cancelText");
    QTest::newRow("both") << QStringLiteral("Do it") << QStringLiteral("Do not");
    QTest::newRow("Ok only") << QStringLiteral("Do it") << QString();
    QTest::newRow("cancel only") << QString() << QStringLiteral("Do not");
    QTest::newRow("none") << QString() << QString(QLatin1String(""));
}

} // namespace

class VelaMsgBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aSheetShowsTheMessage_data() { addShortcuts(); }
    void aSheetShowsTheMessage();
    void aSheetIgnoresTheTitle();
    void aSheetStandsInAMaskOverTheWindow_data();
    void aSheetStandsInAMaskOverTheWindow();
    void theWidthIsThatOfTheParentAndNotOfTheWindow_data();
    void theWidthIsThatOfTheParentAndNotOfTheWindow();
    void eachCallLeavesOneHiddenEmptyMask();
    void aSheetIsAnswered_data();
    void aSheetIsAnswered();
    void aSheetTakesCustomCaptions_data() { addCaptions(); }
    void aSheetTakesCustomCaptions();
    void aWindowThatDiesUnderASheetEndsTheCall();

    void aBoxShowsTheMessage_data() { addShortcuts(); }
    void aBoxShowsTheMessage();
    void aBoxIsAWindowOfItsOwn();
    void aBoxIsAnswered_data();
    void aBoxIsAnswered();
    void aBoxTakesCustomCaptions_data() { addCaptions(); }
    void aBoxTakesCustomCaptions();
    void anotherLanguageOfTheToolkitLeavesABoxItsCaptions();
    void theParentMayBeLeftOut();

private:
    ResourceFolder m_folder;
    std::unique_ptr<LogCapture> m_log;
};

void VelaMsgBoxTest::initTestCase()
{
    QStringList images;
    for (const Icon &icon : Icons) {
        images.append(QLatin1String(icon.name));
        m_folder.writeImage(images.last(), QSize(128, 128), icon.color);
    }
    for (const char *piece : {"l", "r", "t", "b", "lt", "rt", "lb", "rb"}) {
        images.append(QLatin1String("bg_tutorial_") + QLatin1String(piece));
        m_folder.writeImage(images.last(), QSize(88, 88), Qt::gray);
    }
    m_folder.writeCatalogue(images);
    QByteArray sections;
    for (const char *key : Keys) {
        sections += QByteArray("== ") + key + " ==" + styleOf(key).toUtf8() + '\n';
    }
    installSheets(m_folder, sections);
    ComponentStrings::getInstance()->installStrings({
        {QStringLiteral("ok"), OkCaption},
        {QStringLiteral("cancel"), CancelCaption},
        {QStringLiteral("wizard_client_upgrade"), UpgradeCaption},
    });
}

void VelaMsgBoxTest::init()
{
    m_log = std::make_unique<LogCapture>();
}

// The theme has what the messages are documented to look up; they ask for nothing else.
void VelaMsgBoxTest::cleanup()
{
    const auto messages = m_log->takeMessages();
    m_log.reset();
    for (const LogCapture::Message &message : messages) {
        if (message.category == QLatin1String("debug.message")) {
            QCOMPARE(message.text, QString());
        }
    }
}

void VelaMsgBoxTest::aSheetShowsTheMessage()
{
    QFETCH(const Shortcut *, shortcut);
    Shown<MessageWindow> window;
    QPointer<VelaMessageSheet> shown;
    answer([&] { return shortcut->call(&window); },
           [&] {
               VelaMessageSheet *sheet = window.sheet();
               QVERIFY(sheet);
               shown = sheet;
               QStringList texts {
                   QStringLiteral("<p style='line-height: %1px;'>%2</p>").arg(expectedPixels(24)).arg(Text)};
               if (shortcut->hasInformativeText) {
                   texts +=
                       QStringLiteral("<p style='line-height: %1px;'>%2</p>").arg(expectedPixels(20)).arg(Informative);
               }
               QCOMPARE(textsOf(sheet), texts);
               QCOMPARE(iconOf(sheet), QColor(shortcut->sheetIcon));
               QCOMPARE(sheet->findChildren<QAbstractButton *>().size(), shortcut->sheetHasCancel ? 2 : 1);
               QCOMPARE(sheet->styleSheet(), styleOf("component.message_sheet_other"));

               QPushButton *ok = sheet->button(QMessageBox::Ok);
               QCOMPARE(ok->text(), shortcut->sheetOkCaption);
               QCOMPARE(ok->styleSheet(), styleOf("component.apply_button"));
               QCOMPARE(ok->minimumHeight(), expectedPixels(32));
               QCOMPARE(ok->maximumHeight(), expectedPixels(32));
               QCOMPARE(ok->height(), expectedPixels(32));
               if (shortcut->sheetHasCancel) {
                   const QPushButton *cancel = sheet->button(QMessageBox::Discard);
                   QCOMPARE(cancel->text(), CancelCaption);
                   QCOMPARE(cancel->styleSheet(), styleOf("component.cancel_button"));
               }
               ok->click();
           });
    QVERIFY(!shown); // the message ends with the call
}

void VelaMsgBoxTest::aSheetIgnoresTheTitle()
{
    MessageWindow window;
    window.setWindowTitle(QStringLiteral("The window's"));
    QVERIFY(window.showAndWait());
    const int windows = visibleWindows();
    answer([&] { return Shortcuts[0].call(&window); },
           [&] {
               QCOMPARE(visibleWindows(), windows);
               QCOMPARE(window.windowTitle(), QStringLiteral("The window's"));
               QVERIFY(window.sheet()->windowTitle().isEmpty());
               const auto labels = window.findChildren<QLabel *>();
               for (const QLabel *label : labels) {
                   QVERIFY(!label->text().contains(Title));
               }
               window.sheet()->quit();
           });
}

void VelaMsgBoxTest::aSheetStandsInAMaskOverTheWindow_data()
{
    QTest::addColumn<bool>("isNested");
    QTest::newRow("the parent is the window") << false;
    QTest::newRow("the parent is deep in the window") << true;
}

void VelaMsgBoxTest::aSheetStandsInAMaskOverTheWindow()
{
    QFETCH(bool, isNested);
    MessageWindow window;
    QWidget panel(&window);
    panel.setGeometry(50, 60, expectedPixels(600), expectedPixels(100));
    QWidget inner(&panel);
    inner.resize(expectedPixels(590), expectedPixels(90));
    QVERIFY(window.showAndWait());
    answer([&] { return Shortcuts[0].call(isNested ? &inner : &window); },
           [&] {
               VelaMask *mask = window.mask();
               QVERIFY(mask);
               QCOMPARE(mask->parentWidget(), static_cast<QWidget *>(&window));
               QVERIFY(mask->isVisible());
               QCOMPARE(mask->geometry(), window.rect());
               QCOMPARE(mask->palette().color(QPalette::Window), QColor(0, 0, 0, 20));

               window.resize(window.width() + 40, window.height() + 20);
               QCoreApplication::sendPostedEvents();
               QCOMPARE(mask->geometry(), window.rect());
               const QPoint center = window.sheet()->geometry().center() - mask->rect().center();
               QVERIFY(qAbs(center.x()) <= 1 && qAbs(center.y()) <= 1);
               clickOn(window.sheet()->button(QMessageBox::Ok));
           });
}

void VelaMsgBoxTest::theWidthIsThatOfTheParentAndNotOfTheWindow_data()
{
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("parent");
    QTest::addColumn<int>("sheet");
    QTest::newRow("a narrow parent") << 700 << 300 << 260;
    QTest::newRow("just below the exception") << 700 << 536 << 496;
    QTest::newRow("the exception") << 700 << 540 << 480;
    QTest::newRow("just above the exception") << 700 << 544 << 504;
    QTest::newRow("the widest sheet") << 700 << 580 << 540;
    QTest::newRow("a wide parent") << 700 << 660 << 540;
    QTest::newRow("a parent wider than its window") << 400 << 600 << 540;
}

void VelaMsgBoxTest::theWidthIsThatOfTheParentAndNotOfTheWindow()
{
    QFETCH(int, window);
    QFETCH(int, parent);
    QFETCH(int, sheet);
    MessageWindow messageWindow;
    messageWindow.resize(expectedPixels(window), expectedPixels(400));
    QWidget panel(&messageWindow);
    panel.resize(expectedPixels(parent), expectedPixels(100)); // multiples of four: no fractions at any scale
    QVERIFY(messageWindow.showAndWait());
    int width = 0;
    answer([&] { return Shortcuts[0].call(&panel); },
           [&] {
               width = messageWindow.sheet()->width();
               messageWindow.sheet()->quit();
           });
    QCOMPARE(width, expectedPixels(sheet));
}

void VelaMsgBoxTest::eachCallLeavesOneHiddenEmptyMask()
{
    Shown<MessageWindow> window;
    int count = 0;
    for (const Shortcut &shortcut : Shortcuts) {
        answer([&] { return shortcut.call(&window); }, [&] { window.key(Qt::Key_Return); });
        const auto masks = window.findChildren<VelaMask *>();
        QCOMPARE(masks.size(), ++count);
        for (const VelaMask *mask : masks) {
            QVERIFY(mask->isHidden());
            QCOMPARE(mask->parentWidget(), static_cast<QWidget *>(&window));
            QVERIFY(mask->findChildren<QWidget *>().isEmpty());
        }
    }
}

void VelaMsgBoxTest::aSheetIsAnswered_data()
{
    QTest::addColumn<const Shortcut *>("shortcut");
    QTest::addColumn<QMessageBox::StandardButton>("clicked"); // the button, or none
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("expected");
    for (const Shortcut &shortcut : Shortcuts) {
        QTest::addRow("%s: Ok", shortcut.name)
            << &shortcut << QMessageBox::Ok << Qt::Key() << (shortcut.returnsTheAnswer ? OkCode : NoResult);
        if (shortcut.sheetHasCancel) {
            QTest::addRow("%s: cancel", shortcut.name) << &shortcut << QMessageBox::Discard << Qt::Key()
                                                       << (shortcut.returnsTheAnswer ? DiscardCode : NoResult);
        }
    }
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        const QByteArray keyName = QVariant::fromValue(key).toString().toLatin1();
        QTest::addRow("information: %s", keyName.constData())
            << &Shortcuts[0] << QMessageBox::NoButton << key << NoResult;
        QTest::addRow("question: %s", keyName.constData()) << &Shortcuts[3] << QMessageBox::NoButton << key << OkCode;
    }
    QTest::newRow("question: Escape") << &Shortcuts[3] << QMessageBox::NoButton << Qt::Key_Escape << DiscardCode;
    QTest::newRow("upgrade: Escape") << &Shortcuts[5] << QMessageBox::NoButton << Qt::Key_Escape << NoResult;
}

void VelaMsgBoxTest::aSheetIsAnswered()
{
    QFETCH(const Shortcut *, shortcut);
    QFETCH(QMessageBox::StandardButton, clicked);
    QFETCH(Qt::Key, key);
    QFETCH(int, expected);
    Shown<MessageWindow> window;
    const int result = answer([&] { return shortcut->call(&window); },
                              [&] {
                                  if (clicked == QMessageBox::NoButton) {
                                      window.key(key);
                                  } else {
                                      clickOn(window.sheet()->button(clicked));
                                  }
                              });
    QCOMPARE(result, expected);
}

void VelaMsgBoxTest::aSheetTakesCustomCaptions()
{
    QFETCH(QString, okText);
    QFETCH(QString, cancelText);
    Shown<MessageWindow> window;
    const MsgBoxCustomBtnText captions(okText, cancelText);
    const int result =
        answer([&] { return showConfirmMsgCustomBtn(Title, Text, captions, &window); },
               [&] {
                   const VelaMessageSheet *sheet = window.sheet();
                   QCOMPARE(sheet->button(QMessageBox::Ok)->text(), orDefault(okText, OkCaption));
                   QCOMPARE(sheet->button(QMessageBox::Discard)->text(), orDefault(cancelText, CancelCaption));
                   clickOn(sheet->button(QMessageBox::Discard));
               });
    QCOMPARE(result, DiscardCode);
}

void VelaMsgBoxTest::aWindowThatDiesUnderASheetEndsTheCall()
{
    auto window = std::make_unique<MessageWindow>();
    QVERIFY(window->showAndWait());
    const int result = answer([&] { return showConfirmMsg(Title, Text, window.get()); }, [&] { window.reset(); });
    QCOMPARE(result, 0);
}

void VelaMsgBoxTest::aBoxShowsTheMessage()
{
    QFETCH(const Shortcut *, shortcut);
    answerBox([&] { return shortcut->call(nullptr); },
              [&](QMessageBox *box) {
                  QCOMPARE(box->icon(), shortcut->boxIcon);
                  QCOMPARE(box->windowTitle(), Title);
                  QCOMPARE(box->text(), Text);
                  QCOMPARE(box->informativeText(), shortcut->hasInformativeText ? Informative : QString());
                  QCOMPARE(box->styleSheet(), styleOf(shortcut->boxKey));
                  QCOMPARE(box->standardButtons(),
                           shortcut->boxHasCancel ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok);

                  QAbstractButton *ok = box->button(QMessageBox::Ok);
                  QCOMPARE(ok->text(), OkCaption);
                  QCOMPARE(ok->styleSheet(), styleOf("component.apply_button"));
                  if (shortcut->boxHasCancel) {
                      QCOMPARE(box->button(QMessageBox::Cancel)->text(), CancelCaption);
                      QCOMPARE(box->button(QMessageBox::Cancel)->styleSheet(), styleOf("component.cancel_button"));
                  }
                  ok->click();
              });
}

void VelaMsgBoxTest::aBoxIsAWindowOfItsOwn()
{
    Shown<MessageWindow> window;
    QPointer<QMessageBox> shown;
    answerBox([&] { return showConfirmMsg(Title, Text, nullptr); },
              [&](QMessageBox *box) {
                  shown = box;
                  QVERIFY(box->isWindow());
                  QVERIFY(box->isModal());
                  QVERIFY(!box->parent());
                  box->close();
              });
    QVERIFY(!shown);
    QVERIFY(window.findChildren<VelaMask *>().isEmpty());
}

void VelaMsgBoxTest::aBoxIsAnswered_data()
{
    QTest::addColumn<const Shortcut *>("shortcut");
    QTest::addColumn<QMessageBox::StandardButton>("clicked"); // the button, or none
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("expected");
    for (const Shortcut &shortcut : Shortcuts) {
        const int ok = shortcut.returnsTheAnswer ? OkCode : NoResult;
        const int dismissed = shortcut.returnsTheAnswer ? BoxCancelCode : NoResult;
        QTest::addRow("%s: Ok", shortcut.name) << &shortcut << QMessageBox::Ok << Qt::Key() << ok;
        QTest::addRow("%s: Return", shortcut.name) << &shortcut << QMessageBox::NoButton << Qt::Key_Return << ok;
        QTest::addRow("%s: Escape", shortcut.name) << &shortcut << QMessageBox::NoButton << Qt::Key_Escape << dismissed;
        if (shortcut.boxHasCancel) {
            QTest::addRow("%s: cancel", shortcut.name) << &shortcut << QMessageBox::Cancel << Qt::Key() << dismissed;
        }
    }
}

void VelaMsgBoxTest::aBoxIsAnswered()
{
    QFETCH(const Shortcut *, shortcut);
    QFETCH(QMessageBox::StandardButton, clicked);
    QFETCH(Qt::Key, key);
    QFETCH(int, expected);
    const int result = answerBox([&] { return shortcut->call(nullptr); },
                                 [&](QMessageBox *box) {
                                     if (clicked == QMessageBox::NoButton) {
                                         QTest::keyClick(box->windowHandle(), key);
                                     } else {
                                         clickOn(box->button(clicked));
                                     }
                                 });
    QCOMPARE(result, expected);
}

void VelaMsgBoxTest::aBoxTakesCustomCaptions()
{
    QFETCH(QString, okText);
    QFETCH(QString, cancelText);
    const MsgBoxCustomBtnText captions(okText, cancelText);
    const int result =
        answerBox([&] { return showConfirmMsgCustomBtn(Title, Text, captions, nullptr); },
                  [&](QMessageBox *box) {
                      QCOMPARE(box->button(QMessageBox::Ok)->text(), orDefault(okText, OkCaption));
                      QCOMPARE(box->button(QMessageBox::Cancel)->text(), orDefault(cancelText, CancelCaption));
                      clickOn(box->button(QMessageBox::Cancel));
                  });
    QCOMPARE(result, BoxCancelCode);
}

void VelaMsgBoxTest::anotherLanguageOfTheToolkitLeavesABoxItsCaptions()
{
    const MsgBoxCustomBtnText captions(QStringLiteral("Do it"), QString());
    answerBox([&] { return showConfirmMsgCustomBtn(Title, Text, captions, nullptr); },
              [](QMessageBox *box) {
                  const ToolkitLanguage other;
                  QCOMPARE(box->button(QMessageBox::Ok)->text(), QStringLiteral("Do it"));
                  QCOMPARE(box->button(QMessageBox::Cancel)->text(), CancelCaption);
                  box->close();
              });
}

void VelaMsgBoxTest::theParentMayBeLeftOut()
{
    const auto accept = [](QMessageBox *box) {
        QCOMPARE(box->windowTitle(), Title);
        box->button(QMessageBox::Ok)->click();
    };
    const auto ended = [&](const std::function<int()> &call) { return answerBox(call, accept); };
    QCOMPARE(ended([] { return showInfoMsg(Title, Text), NoResult; }), NoResult);
    QCOMPARE(ended([] { return showWarningMsg(Title, Text), NoResult; }), NoResult);
    QCOMPARE(ended([] { return showWarningMsg(Title, Text, Informative), NoResult; }), NoResult);
    QCOMPARE(ended([] { return showConfirmMsg(Title, Text); }), OkCode);
    QCOMPARE(ended([] { return showConfirmMsgCustomBtn(Title, Text, MsgBoxCustomBtnText(Text, Text)); }), OkCode);
    QCOMPARE(ended([] { return showUpgradingMsg(Title, Text), NoResult; }), NoResult);
}

QTEST_MAIN(VelaMsgBoxTest)
#include "tst_vela_msg_box.moc"
