// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-input-sheet.h"
#include "component/vela-msg-sheet.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>
#include <QStringListModel>
#include <QtTest>

#include <functional>
#include <memory>

namespace {

bool isOnX()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

// Presses keys as a user does: on an X server they come from the keyboard, elsewhere through the window, which asks
// for shortcuts as well.
class Keyboard : public QObject
{
public:
    Keyboard() { qApp->installEventFilter(this); }

    static bool isMissing() { return isOnX() && QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty(); }

    // A key as QKeySequence writes it, or "Alt", in the active window.
    void press(const QString &key)
    {
        if (!isOnX()) {
            const bool isAlt = key == QLatin1String("Alt");
            const int pressed = isAlt ? static_cast<int>(Qt::Key_Alt) : QKeySequence(key)[0];
            const auto modifiers = isAlt ? Qt::AltModifier : Qt::KeyboardModifiers(pressed & Qt::KeyboardModifierMask);
            const auto plain = static_cast<Qt::Key>(pressed & ~int(Qt::KeyboardModifierMask));
            QTest::keyPress(QGuiApplication::focusWindow(), plain, modifiers);
            QTest::keyRelease(QGuiApplication::focusWindow(), plain, modifiers);
            return;
        }
        m_isReleased = false;
        m_awaited = isAltAlone(key) ? static_cast<int>(Qt::Key_Alt) : QKeySequence(key)[0] & ~Qt::KeyboardModifierMask;
        QProcess::startDetached(QStringLiteral("xdotool"), {QStringLiteral("key"), nameOf(key)});
        QVERIFY2(QTest::qWaitFor([this] { return m_isReleased; }, Patience), qPrintable(key));
        QCoreApplication::processEvents();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyRelease && watched->isWindowType()) {
            m_isReleased = m_isReleased || static_cast<QKeyEvent *>(event)->key() == m_awaited;
        }
        return false;
    }

private:
    static bool isAltAlone(const QString &key) { return key == QLatin1String("Alt"); }
    // The key as the X server knows it.
    static QString nameOf(const QString &key)
    {
        const QHash<QString, QString> names {
            {QStringLiteral("Alt"), QStringLiteral("Alt_L")},
            {QStringLiteral("Del"), QStringLiteral("Delete")},
            {QStringLiteral("Esc"), QStringLiteral("Escape")},
            {QStringLiteral("Space"), QStringLiteral("space")},
        };
        QStringList parts = key.split(QLatin1Char('+'));
        parts.last() = names.value(parts.last(), parts.last());
        if (parts.last().size() == 1) { // the X server takes a capital for a letter with Shift
            parts.last() = parts.last().toLower();
        }
        return parts.join(QLatin1Char('+'));
    }

    int m_awaited = 0;
    bool m_isReleased = false;
};

// A sheet over a window, and keys that are pressed in them.
class KeyedSheet : public ShownSheet
{
public:
    void press(const QString &key) { m_keyboard.press(key); }
    void press(const char *key) { press(QString::fromLatin1(key)); }

private:
    Keyboard m_keyboard;
};

// What a key does in a window that it is installed in, which tells each time that it happens.
using Install = std::function<void(SheetWindow &window, const std::function<void()> &happened)>;

Install action(const char *key, Qt::ShortcutContext context)
{
    return [key, context](SheetWindow &window, const std::function<void()> &happened) {
        auto *action = new QAction(&window);
        action->setShortcut(QKeySequence(QString::fromLatin1(key)));
        action->setShortcutContext(context);
        QObject::connect(action, &QAction::triggered, &window, happened);
        window.addAction(action);
    };
}

Install shortcut(const char *key, Qt::ShortcutContext context)
{
    return [key, context](SheetWindow &window, const std::function<void()> &happened) {
        auto *shortcut = new QShortcut(QKeySequence(QString::fromLatin1(key)), &window);
        shortcut->setContext(context);
        QObject::connect(shortcut, &QShortcut::activated, &window, happened);
    };
}

void installInAnotherWindow(SheetWindow &window, const std::function<void()> &happened)
{
    auto *other = new QWidget;
    QObject::connect(&window, &QObject::destroyed, other, [other] { delete other; });
    auto *shortcut = new QShortcut(QKeySequence(QStringLiteral("F6")), other);
    shortcut->setContext(Qt::ApplicationShortcut);
    QObject::connect(shortcut, &QShortcut::activated, &window, happened);
    other->show();
    QVERIFY(QTest::qWaitForWindowExposed(other));
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

void installButton(SheetWindow &window, const std::function<void()> &happened)
{
    auto *button = new QPushButton(QStringLiteral("&Delete"), &window);
    QObject::connect(button, &QPushButton::clicked, &window, happened);
    button->show();
}

void installLabel(SheetWindow &window, const std::function<void()> &happened)
{
    auto *label = new QLabel(QStringLiteral("&Name"), &window);
    label->setBuddy(window.below);
    label->show();
    QObject::connect(qApp, &QApplication::focusChanged, &window,
                     [below = window.below, happened](QWidget *, QWidget *now) {
                         if (now == below) {
                             happened();
                         }
                     });
}

QMenuBar *addMenuBar(QWidget &window, const std::function<void()> &happened)
{
    auto *bar = new QMenuBar(&window);
    bar->setNativeMenuBar(false);
    QMenu *menu = bar->addMenu(QStringLiteral("&File"));
    menu->addAction(QStringLiteral("Quit"));
    QObject::connect(menu, &QMenu::aboutToShow, &window, [menu, happened] {
        happened();
        QTimer::singleShot(0, menu, &QMenu::close);
    });
    QObject::connect(qApp, &QApplication::focusChanged, bar, [bar, happened](QWidget *, QWidget *now) {
        if (now == bar) {
            happened();
        }
    });
    bar->show();
    return bar;
}

void installMenuBar(SheetWindow &window, const std::function<void()> &happened)
{
    addMenuBar(window, happened);
}

struct WindowKey
{
    const char *name;
    const char *key;
    Install install;
};

const WindowKey WindowKeys[] = {
    {"action", "Ctrl+Q", action("Ctrl+Q", Qt::WindowShortcut)},
    {"action of the application", "Ctrl+Q", action("Ctrl+Q", Qt::ApplicationShortcut)},
    {"shortcut", "F5", shortcut("F5", Qt::WindowShortcut)},
    {"shortcut of the application", "F5", shortcut("F5", Qt::ApplicationShortcut)},
    {"shortcut of the application in another window", "F6", &installInAnotherWindow},
    {"shortcut on a letter", "X", shortcut("X", Qt::WindowShortcut)},
    {"shortcut on a function key with Alt", "Alt+F8", shortcut("Alt+F8", Qt::WindowShortcut)},
    {"shortcut on a digit with Alt", "Alt+7", shortcut("Alt+7", Qt::WindowShortcut)},
    {"button's access key", "Alt+D", &installButton},
    {"label's access key", "Alt+N", &installLabel},
    {"menu's access key", "Alt+F", &installMenuBar},
    {"Alt for the menu bar", "Alt", &installMenuBar},
};

} // namespace

Q_DECLARE_METATYPE(Install)

// Which keys are shortcuts while a sheet is up.
class SheetKeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void init();
    void cleanup();

    void theWindowsShortcutsRestMeanwhile_data();
    void theWindowsShortcutsRestMeanwhile();
    void theWindowsShortcutsComeBack_data();
    void theWindowsShortcutsComeBack();
    void aShortcutOfTheWindowKeepsNoKeyFromTheSheet_data();
    void aShortcutOfTheWindowKeepsNoKeyFromTheSheet();
    void aShownSheetThatDoesNotWaitKeepsTheKeysToo();
    void aMenuBarThatComesLaterRestsToo();
    void aSequenceThatWasBegunBeforeIsNotCompleted();

    void theSheetsAccessKeysWork_data();
    void theSheetsAccessKeysWork();
    void aDisabledButtonHasNoAccessKey();
    void theSheetsOwnShortcutsWork();
    void theLineEditKeepsItsEditingKeys();
    void arrowsMoveTheFocusThoughTheWindowUsesThem();
    void aMenuOfTheSheetIsUsedByKeys();
    void aCompletersListIsUsedByKeys();

    void theUppermostOfTwoSheetsRules_data();
    void theUppermostOfTwoSheetsRules();
    void anotherWindowKeepsItsShortcuts();
    void theEventFilterOfASheetLetsOverridesPass();

private:
    ResourceFolder m_folder;
};

void SheetKeysTest::initTestCase_data()
{
    ModalSheet::addKinds();
}

void SheetKeysTest::initTestCase()
{
    installSheetTheme(m_folder);
}

void SheetKeysTest::init()
{
    if (Keyboard::isMissing()) {
        QSKIP("needs xdotool");
    }
}

void SheetKeysTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

// Each key that does something in the window.
static void addWindowKeys()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Install>("install");
    for (const WindowKey &key : WindowKeys) {
        QTest::newRow(key.name) << QString::fromLatin1(key.key) << key.install;
    }
}

void SheetKeysTest::theWindowsShortcutsRestMeanwhile_data()
{
    addWindowKeys();
}

void SheetKeysTest::theWindowsShortcutsRestMeanwhile()
{
    QFETCH(QString, key);
    QFETCH(Install, install);
    KeyedSheet shown;
    int happened = 0;
    install(shown.window, [&] { ++happened; });
    const int result = shown.sheet.execute([&] {
        shown.press(key);
        QCOMPARE(happened, 0);
        QVERIFY(shown.sheet.firstFocus()->hasFocus());
        shown.sheet.ok()->setFocus();
        shown.press(key);
        QCOMPARE(happened, 0);
        QVERIFY(shown.sheet.ok()->hasFocus());
        shown.window.setFocus(); // takes the focus away from the sheet
        shown.press(key);
        QCOMPARE(happened, 0);
        QVERIFY(shown.sheet->isVisible());
        shown.sheet.done(3);
    });
    QCOMPARE(result, 3);
    QCOMPARE(shown.window.keys, 0);
}

void SheetKeysTest::theWindowsShortcutsComeBack_data()
{
    addWindowKeys();
}

void SheetKeysTest::theWindowsShortcutsComeBack()
{
    QFETCH(QString, key);
    QFETCH(Install, install);
    Shown<SheetWindow> window;
    int happened = 0;
    install(window, [&] { ++happened; });
    Keyboard keyboard;
    const auto works = [&] {
        window.activateWindow(); // the offscreen platform leaves a closed menu active
        window.setFocus(); // keeps letters out of the fields
        happened = 0;
        if (!QTest::qWaitForWindowActive(&window)) {
            return false;
        }
        keyboard.press(key);
        return QTest::qWaitFor([&] { return happened > 0 && !QApplication::activePopupWidget(); }, Patience);
    };
    QVERIFY(works());

    auto sheet = std::make_unique<ModalSheet>(&window);
    sheet->setBlockWindowButton(false);
    sheet->execute([&] { sheet->quit(); });
    QVERIFY(works());
    (*sheet)->showSheet();
    (*sheet)->hide();
    QVERIFY(works());
    (*sheet)->showSheet();
    sheet.reset();
    QVERIFY(works());
    {
        Shown<SheetWindow> other;
        ModalSheet moved(&window);
        moved->showSheet();
        moved->setParent(&other);
        moved->show();
        QVERIFY(works());
    }
}

void SheetKeysTest::aShortcutOfTheWindowKeepsNoKeyFromTheSheet_data()
{
    QTest::addColumn<int>("result");
    QTest::newRow("Esc") << CancelCode;
    QTest::newRow("Return") << OkCode;
    QTest::newRow("Alt+Return") << OkCode;
    QTest::newRow("Space") << OkCode;
}

void SheetKeysTest::aShortcutOfTheWindowKeepsNoKeyFromTheSheet()
{
    const QString key = QString::fromLatin1(QTest::currentDataTag());
    QFETCH(int, result);
    KeyedSheet shown;
    QShortcut shortcut(QKeySequence(key), &shown.window);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    const int answer = shown.sheet.execute([&] {
        shown.sheet->setFocus(); // keeps Space out of a line edit
        shown.press(key);
    });
    QCOMPARE(answer, result);
    QCOMPARE(activated.count(), 0);
}

void SheetKeysTest::aShownSheetThatDoesNotWaitKeepsTheKeysToo()
{
    Shown<SheetWindow> window;
    QShortcut shortcut(QKeySequence(QStringLiteral("F5")), &window);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    Keyboard keyboard;
    ModalSheet sheet(&window);
    sheet->showSheet();
    keyboard.press(QStringLiteral("F5"));
    QCOMPARE(activated.count(), 0);
    QCOMPARE(window.keys, 0);
    sheet.done(0);
    keyboard.press(QStringLiteral("F5"));
    QCOMPARE(activated.count(), 1);
}

void SheetKeysTest::aMenuBarThatComesLaterRestsToo()
{
    KeyedSheet shown;
    shown.sheet.execute([&] {
        int happened = 0;
        addMenuBar(shown.window, [&] { ++happened; });
        for (const char *key : {"Alt", "Alt+F"}) {
            shown.press(key);
        }
        QCOMPARE(happened, 0);
        QVERIFY(shown.sheet.firstFocus()->hasFocus());
        shown.sheet.quit();
    });
}

void SheetKeysTest::aSequenceThatWasBegunBeforeIsNotCompleted()
{
    KeyedSheet shown;
    QShortcut shortcut(QKeySequence(QStringLiteral("Ctrl+K, Ctrl+D")), &shown.window);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    shown.window.setFocus();
    shown.press("Ctrl+K");
    shown.sheet.execute([&] {
        shown.press("Ctrl+D");
        QCOMPARE(activated.count(), 0);
        shown.sheet.quit();
    });
}

void SheetKeysTest::theSheetsAccessKeysWork_data()
{
    QTest::addColumn<bool>("hasWindowTheSame");
    QTest::newRow("in the sheet only") << false;
    QTest::newRow("in the window too") << true;
}

void SheetKeysTest::theSheetsAccessKeysWork()
{
    QFETCH(bool, hasWindowTheSame);
    SheetWindow window;
    QPushButton below(QStringLiteral("&Delete"), &window);
    below.setVisible(hasWindowTheSame);
    QVERIFY(window.showAndWait());
    const QSignalSpy clicked(&below, &QPushButton::clicked);
    Keyboard keyboard;
    ModalSheet sheet(&window);
    sheet.setBlockWindowButton(false);
    sheet.cancel()->setText(QStringLiteral("&Keep"));
    for (QPushButton *later : {sheet.ok(), &below}) { // of two buttons the key means the earlier one first
        later->setText(QString());
        later->setText(QStringLiteral("&Delete"));
        QCOMPARE(sheet.execute([&] { keyboard.press(QStringLiteral("Alt+D")); }), OkCode);
        QCOMPARE(sheet.execute([&] { keyboard.press(QStringLiteral("Alt+K")); }), CancelCode);
    }
    QCOMPARE(clicked.count(), 0);
    QVERIFY(window.above->hasFocus());
    if (ModalSheet::currentKind() == ModalSheet::Input) {
        QCOMPARE(qobject_cast<VelaInputSheet *>(sheet.get())->getContent(), QString());
    }
}

void SheetKeysTest::aDisabledButtonHasNoAccessKey()
{
    SheetWindow window;
    QPushButton below(QStringLiteral("&Delete"), &window);
    QVERIFY(window.showAndWait());
    const QSignalSpy clicked(&below, &QPushButton::clicked);
    Keyboard keyboard;
    ModalSheet sheet(&window);
    sheet.setBlockWindowButton(false);
    sheet.ok()->setText(QStringLiteral("&Delete"));
    const int result = sheet.execute([&] {
        sheet.ok()->setEnabled(false);
        keyboard.press(QStringLiteral("Alt+D"));
        sheet.ok()->setEnabled(true);
        sheet.ok()->hide();
        keyboard.press(QStringLiteral("Alt+D"));
        QTimer::singleShot(300, sheet.get(), [&] { sheet.done(3); }); // three times what a click takes
    });
    QCOMPARE(result, 3);
    QCOMPARE(clicked.count(), 0);
}

void SheetKeysTest::theSheetsOwnShortcutsWork()
{
    KeyedSheet shown;
    QShortcut shortcut(QKeySequence(QStringLiteral("F1")), shown.sheet.get());
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    QAction action;
    action.setShortcut(QKeySequence(QStringLiteral("F2")));
    shown.sheet.firstFocus()->addAction(&action);
    const QSignalSpy triggered(&action, &QAction::triggered);
    shown.sheet.execute([&] {
        shown.press("F1");
        shown.press("F2");
        shown.sheet.quit();
    });
    QCOMPARE(activated.count(), 1);
    QCOMPARE(triggered.count(), 1);
}

void SheetKeysTest::theLineEditKeepsItsEditingKeys()
{
    if (ModalSheet::currentKind() == ModalSheet::Message) {
        return; // a sheet without a line edit
    }
    KeyedSheet shown;
    int happened = 0;
    for (const char *key : {"Ctrl+A", "Ctrl+C", "Ctrl+V", "Ctrl+X", "Ctrl+Z", "Left", "Home", "Del"}) {
        action(key, Qt::ApplicationShortcut)(shown.window, [&] { ++happened; });
    }
    QLineEdit *field = qobject_cast<VelaInputSheet *>(shown.sheet.get())->getLineEdit();
    shown.sheet.execute([&] {
        shown.press("A");
        shown.press("B");
        shown.press("Ctrl+A");
        QCOMPARE(field->selectedText(), QStringLiteral("ab"));
        shown.press("Ctrl+C");
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("ab"));
        shown.press("Home");
        shown.press("Ctrl+V");
        QCOMPARE(field->text(), QStringLiteral("abab"));
        shown.press("Ctrl+Z");
        QCOMPARE(field->text(), QStringLiteral("ab"));
        shown.press("Home");
        shown.press("Del");
        QCOMPARE(field->text(), QStringLiteral("b"));
        shown.sheet.quit();
    });
    QCOMPARE(happened, 0);
    QCOMPARE(field->text(), QStringLiteral("b"));
}

void SheetKeysTest::arrowsMoveTheFocusThoughTheWindowUsesThem()
{
    KeyedSheet shown;
    QShortcut shortcut(QKeySequence(QStringLiteral("Left")), &shown.window);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    shown.sheet.execute([&] {
        shown.sheet.cancel()->setFocus();
        shown.press("Left");
        QVERIFY(shown.sheet.ok()->hasFocus());
        shown.sheet.quit();
    });
    QCOMPARE(activated.count(), 0);
}

void SheetKeysTest::aMenuOfTheSheetIsUsedByKeys()
{
    KeyedSheet shown;
    int happened = 0;
    for (const char *key : {"Esc", "Down", "Return", "Ctrl+Q", "T", "Alt+T"}) {
        shortcut(key, Qt::ApplicationShortcut)(shown.window, [&] { ++happened; });
    }
    QMenu menu(shown.sheet.firstFocus());
    QAction *one = menu.addAction(QStringLiteral("&One"));
    QAction *two = menu.addAction(QStringLiteral("&Two"));
    const QSignalSpy first(one, &QAction::triggered);
    const QSignalSpy second(two, &QAction::triggered);
    shown.sheet.execute([&] {
        const auto open = [&] {
            menu.popup(shown.sheet.firstFocus()->mapToGlobal(QPoint(0, 0)));
            return QTest::qWaitForWindowExposed(&menu);
        };
        QVERIFY(open());
        shown.press("Ctrl+Q");
        QVERIFY(menu.isVisible());
        shown.press("Down");
        shown.press("Return");
        QTRY_COMPARE(first.count(), 1);
        QVERIFY(open());
        shown.press("T");
        QTRY_COMPARE(second.count(), 1);
        QVERIFY(open());
        shown.press("Esc");
        QTRY_VERIFY(!menu.isVisible());
        QVERIFY(shown.sheet->isVisible());
        shown.sheet.quit();
    });
    QCOMPARE(happened, 0);
}

void SheetKeysTest::aCompletersListIsUsedByKeys()
{
    if (ModalSheet::currentKind() == ModalSheet::Message) {
        return; // a sheet without a line edit
    }
    KeyedSheet shown;
    int happened = 0;
    for (const char *key : {"Esc", "Down", "Return", "Ctrl+Q"}) {
        shortcut(key, Qt::WindowShortcut)(shown.window, [&] { ++happened; });
    }
    QLineEdit *field = qobject_cast<VelaInputSheet *>(shown.sheet.get())->getLineEdit();
    QCompleter completer({QStringLiteral("apple"), QStringLiteral("apricot")});
    field->setCompleter(&completer);
    shown.sheet.execute([&] {
        shown.press("A");
        QTRY_VERIFY(completer.popup()->isVisible());
        shown.press("Ctrl+Q");
        QVERIFY(completer.popup()->isVisible());
        shown.press("Down");
        shown.press("Return");
        QTRY_COMPARE(field->text(), QStringLiteral("apple"));
        QVERIFY(shown.sheet->isVisible());
        shown.sheet.quit();
    });
    QCOMPARE(happened, 0);
}

void SheetKeysTest::theUppermostOfTwoSheetsRules_data()
{
    QTest::addColumn<ModalSheet::Kind>("above");
    QTest::newRow("a message above") << ModalSheet::Message;
    QTest::newRow("an input above") << ModalSheet::Input;
}

void SheetKeysTest::theUppermostOfTwoSheetsRules()
{
    QFETCH(ModalSheet::Kind, above);
    Shown<SheetWindow> window;
    Keyboard keyboard;
    ModalSheet first(&window);
    first.setBlockWindowButton(false);
    first.ok()->setText(QStringLiteral("&Delete"));
    first.cancel()->setText(QStringLiteral("&Keep"));
    QShortcut shortcut(QKeySequence(QStringLiteral("F1")), first.get());
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    const QSignalSpy firstFinished(first.get(), &VelaSheet::finished);
    first.execute([&] {
        ModalSheet second(above, &window);
        second.setBlockWindowButton(false);
        second.ok()->setText(QStringLiteral("&Discard"));
        QCOMPARE(second.execute([&] {
            keyboard.press(QStringLiteral("F1"));
            keyboard.press(QStringLiteral("Alt+K")); // an access key of the sheet below
            keyboard.press(QStringLiteral("Alt+D")); // an access key of both sheets
        }),
                 OkCode);
        QCOMPARE(activated.count(), 0);
        QCOMPARE(firstFinished.count(), 0);
        keyboard.press(QStringLiteral("F1"));
        keyboard.press(QStringLiteral("Alt+K"));
    });
    QCOMPARE(activated.count(), 1);
    QCOMPARE(firstFinished.count(), 1);
    QCOMPARE(firstFinished.first().first().toInt(), CancelCode);
}

void SheetKeysTest::anotherWindowKeepsItsShortcuts()
{
    KeyedSheet shown;
    shown.sheet.execute([&] {
        SheetWindow other;
        int happened = 0;
        const auto count = [&] { ++happened; };
        action("Ctrl+Q", Qt::WindowShortcut)(other, count);
        shortcut("F5", Qt::ApplicationShortcut)(other, count);
        installButton(other, count);
        installMenuBar(other, count);
        QVERIFY(other.showAndWait());
        int expected = 0;
        for (const char *key : {"Ctrl+Q", "F5", "Alt+D", "Alt"}) {
            shown.press(key);
            ++expected;
            QTRY_COMPARE(happened, expected);
        }
        shown.sheet.quit();
    });
}

void SheetKeysTest::theEventFilterOfASheetLetsOverridesPass()
{
    Shown<SheetWindow> window;
    ModalSheet sheet(&window);
    sheet->showSheet();
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    QVERIFY(!sheet->eventFilter(&window, &override));
    QVERIFY(!override.isAccepted());
}

QTEST_MAIN(SheetKeysTest)
#include "tst_sheet_keys.moc"
