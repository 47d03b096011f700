// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/log-capture.h"
#include "support/sockets.h"
#include "support/x-connection.h"
#include "utils/util.h"

#include <QDialog>
#include <QWindow>
#include <QtTest>

namespace {

using Words = QVector<quint32>;

constexpr char HintsName[] = "_MOTIF_WM_HINTS";
constexpr int LongEnough = 100; // milliseconds in which nothing may come

XProperty hints(const Words &words)
{
    return {HintsName, 32, words};
}

const Words Disabled {1, 0, 6, 0, 0};
const Words Defaults {0, 0, 1, 0, 1}; // words of a window without hints

Words countedUp(int count)
{
    Words words;
    for (int i = 0; i < count; ++i) {
        words.append(0x80706050 + 0x01010101 * quint32(i)); // words no two of which are alike, and no byte zero
    }
    return words;
}

} // namespace

Q_DECLARE_METATYPE(XProperty)

class WindowCloseButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void disablingWritesFiveWordsWhateverWasThere_data();
    void disablingWritesFiveWordsWhateverWasThere();
    void enablingRestoresTheFirstFiveWordsThatWereRead_data();
    void enablingRestoresTheFirstFiveWordsThatWereRead();
    void theHintsOfTheToolkitComeBack();
    void whatOthersWroteMeanwhileIsReplacedByTheState();
    void eachSwitchWritesOnce();
    void enablingWithoutAStateDoesNotTouchTheProperty_data();
    void enablingWithoutAStateDoesNotTouchTheProperty();
    void enablingASecondTimeDoesNotTouchTheProperty();
    void disablingTwiceRestoresWhatTheFirstCallWrote();
    void statesOfTwoWindowsAreIndependent();

    void aChildAddressesItsWindow_data();
    void aChildAddressesItsWindow();
    void aDialogAddressesItselfAndNotItsParent();
    void aWindowThatWasNeverShownIsLeftAlone();
    void aWindowThatIsHiddenAgainIsAddressed();

    void aConnectionStaysOpenUnlessItIsChosenToBeClosed();
    void closedConnectionsAreLeftToOthers();
    void withoutADisplayNothingHappens();
    void nothingIsLogged();

private:
    XProperty hintsOf(const QWidget *window) const;
    void setHints(const QWidget *window, const XProperty &property) const;
    void watch() const;

    std::unique_ptr<XConnection> m_x;
    std::unique_ptr<QWidget> m_window;
    void *m_state = nullptr;
};

void WindowCloseButtonTest::init()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb")) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    m_x = std::make_unique<XConnection>();
    QVERIFY(m_x->isOpen());
    m_window = std::make_unique<QWidget>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void WindowCloseButtonTest::cleanup()
{
    if (m_state) {
        SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
    }
    m_window.reset();
    m_x.reset();
}

XProperty WindowCloseButtonTest::hintsOf(const QWidget *window) const
{
    return m_x->property(XWindow(window->winId()), HintsName);
}

void WindowCloseButtonTest::setHints(const QWidget *window, const XProperty &property) const
{
    const auto id = XWindow(window->winId());
    if (property.type.isEmpty()) {
        m_x->removeProperty(id, HintsName);
    } else {
        m_x->setProperty(id, HintsName, property);
    }
    QCOMPARE(hintsOf(window), property);
}

void WindowCloseButtonTest::watch() const
{
    m_x->watch(XWindow(m_window->winId()), HintsName);
}

void WindowCloseButtonTest::disablingWritesFiveWordsWhateverWasThere_data()
{
    QTest::addColumn<XProperty>("before");
    QTest::newRow("nothing") << XProperty {};
    QTest::newRow("five words") << hints(countedUp(5));
    QTest::newRow("twenty words") << hints(countedUp(20));
    QTest::newRow("the same words") << hints(Disabled);
    QTest::newRow("another type") << XProperty {"CARDINAL", 32, countedUp(5)};
    QTest::newRow("another format") << XProperty {HintsName, 8, Words(20, 7)};
}

void WindowCloseButtonTest::disablingWritesFiveWordsWhateverWasThere()
{
    QFETCH(XProperty, before);
    setHints(m_window.get(), before);
    watch();

    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);

    QVERIFY(m_state);
    QTRY_COMPARE(m_x->changes(), 1);
    QCOMPARE(hintsOf(m_window.get()), hints(Disabled));
}

void WindowCloseButtonTest::enablingRestoresTheFirstFiveWordsThatWereRead_data()
{
    QTest::addColumn<XProperty>("before");
    QTest::addColumn<Words>("after");
    const Words words = countedUp(5);

    QTest::newRow("five words") << hints(words) << words;
    QTest::newRow("six words") << hints(countedUp(6)) << words;
    QTest::newRow("ten words") << hints(countedUp(10)) << words;
    QTest::newRow("twenty words") << hints(countedUp(20)) << words;
    QTest::newRow("more words than are asked for") << hints(countedUp(25)) << words;
    QTest::newRow("zeros") << hints(Words(5, 0)) << Words(5, 0);
    QTest::newRow("the words of disabling") << hints(Disabled) << Disabled;

    // What is missing is zero, and not what happens to stand behind the server's reply.
    QTest::newRow("four words") << hints(countedUp(4)) << countedUp(4) + Words {0};
    QTest::newRow("three words") << hints(countedUp(3)) << countedUp(3) + Words {0, 0};
    QTest::newRow("one word") << hints(countedUp(1)) << countedUp(1) + Words {0, 0, 0, 0};
    QTest::newRow("no words") << hints({}) << Words(5, 0);

    QTest::newRow("no property") << XProperty {} << Defaults;
    QTest::newRow("elements of 8 bits") << XProperty {HintsName, 8, Words(40, 7)} << Defaults;
    QTest::newRow("elements of 16 bits") << XProperty {HintsName, 16, Words(20, 7)} << Defaults;
    QTest::newRow("another type") << XProperty {"CARDINAL", 32, countedUp(10)} << Defaults;
}

void WindowCloseButtonTest::enablingRestoresTheFirstFiveWordsThatWereRead()
{
    QFETCH(XProperty, before);
    QFETCH(Words, after);
    setHints(m_window.get(), before);

    watch();
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    QTRY_COMPARE(m_x->changes(), 1);
    QCOMPARE(hintsOf(m_window.get()), hints(Disabled));
    watch();
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);

    QVERIFY(!m_state);
    QTRY_COMPARE(m_x->changes(), 1);
    QCOMPARE(hintsOf(m_window.get()), hints(after));
}

void WindowCloseButtonTest::theHintsOfTheToolkitComeBack()
{
    QDialog dialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const XProperty before = hintsOf(&dialog);
    QCOMPARE(before.elements.size(), 5);
    QVERIFY(before.elements != Disabled);

    SHAPISetCloseButtonOfWindowEnable(&dialog, false, &m_state);
    QTRY_COMPARE(hintsOf(&dialog), hints(Disabled));
    SHAPISetCloseButtonOfWindowEnable(&dialog, true, &m_state);
    QTRY_COMPARE(hintsOf(&dialog), before);
}

void WindowCloseButtonTest::whatOthersWroteMeanwhileIsReplacedByTheState()
{
    setHints(m_window.get(), hints(countedUp(5)));
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(Disabled));

    setHints(m_window.get(), {"CARDINAL", 8, Words(3, 9)});
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
}

void WindowCloseButtonTest::eachSwitchWritesOnce()
{
    for (const bool enable : {false, true}) {
        watch();
        SHAPISetCloseButtonOfWindowEnable(m_window.get(), enable, &m_state);
        QTRY_COMPARE(m_x->changes(), 1);
        QTest::qWait(LongEnough);
        QCOMPARE(m_x->changes(), 1);
    }
}

void WindowCloseButtonTest::enablingWithoutAStateDoesNotTouchTheProperty_data()
{
    QTest::addColumn<XProperty>("before");
    QTest::newRow("no property") << XProperty {};
    QTest::newRow("ten words") << hints(countedUp(10));
    QTest::newRow("another type") << XProperty {"CARDINAL", 16, Words(3, 7)};
}

void WindowCloseButtonTest::enablingWithoutAStateDoesNotTouchTheProperty()
{
    QFETCH(XProperty, before);
    setHints(m_window.get(), before);
    watch();

    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);

    QVERIFY(!m_state);
    QTest::qWait(LongEnough);
    QCOMPARE(m_x->changes(), 0);
    QCOMPARE(hintsOf(m_window.get()), before);
}

void WindowCloseButtonTest::enablingASecondTimeDoesNotTouchTheProperty()
{
    watch();
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
    QTRY_COMPARE(m_x->changes(), 2); // they were written over other connections than what follows
    setHints(m_window.get(), hints(countedUp(5)));

    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);

    QVERIFY(!m_state);
    QTest::qWait(LongEnough);
    QCOMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
}

void WindowCloseButtonTest::disablingTwiceRestoresWhatTheFirstCallWrote()
{
    setHints(m_window.get(), hints(countedUp(5)));
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(Disabled));
    void *first = m_state;

    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    QVERIFY(m_state != first);
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
    QVERIFY(!m_state);
    QTest::qWait(LongEnough);
    QCOMPARE(hintsOf(m_window.get()), hints(Disabled));

    // The first state is the caller's only way back, and is still good.
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &first);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
}

void WindowCloseButtonTest::statesOfTwoWindowsAreIndependent()
{
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    setHints(m_window.get(), hints(countedUp(5)));
    setHints(&other, hints({5, 4, 3, 2, 1}));
    void *otherState = nullptr;

    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(Disabled));
    QCOMPARE(hintsOf(&other), hints({5, 4, 3, 2, 1}));

    SHAPISetCloseButtonOfWindowEnable(&other, false, &otherState);
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
    QTRY_COMPARE(hintsOf(&other), hints(Disabled));

    SHAPISetCloseButtonOfWindowEnable(&other, true, &otherState);
    QTRY_COMPARE(hintsOf(&other), hints({5, 4, 3, 2, 1}));
}

void WindowCloseButtonTest::aChildAddressesItsWindow_data()
{
    QTest::addColumn<bool>("isNative");
    QTest::newRow("drawn by its window") << false;
    QTest::newRow("with a window of its own on the server") << true;
}

void WindowCloseButtonTest::aChildAddressesItsWindow()
{
    QFETCH(bool, isNative);
    auto *child = new QWidget(new QWidget(m_window.get()));
    child->setAttribute(Qt::WA_DontCreateNativeAncestors);
    child->setAttribute(Qt::WA_NativeWindow, isNative);
    child->parentWidget()->show();
    QCOMPARE(child->windowHandle() != nullptr, isNative);
    const XProperty hintsOfChild = isNative ? hintsOf(child) : XProperty {};
    setHints(m_window.get(), hints(countedUp(5)));

    SHAPISetCloseButtonOfWindowEnable(child, false, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(Disabled));
    if (isNative) {
        QCOMPARE(hintsOf(child), hintsOfChild);
    }
    SHAPISetCloseButtonOfWindowEnable(child, true, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
}

void WindowCloseButtonTest::aDialogAddressesItselfAndNotItsParent()
{
    QDialog dialog(m_window.get());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    setHints(m_window.get(), hints(countedUp(5)));

    SHAPISetCloseButtonOfWindowEnable(&dialog, false, &m_state);
    QTRY_COMPARE(hintsOf(&dialog), hints(Disabled));
    QCOMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
    SHAPISetCloseButtonOfWindowEnable(&dialog, true, &m_state);
}

void WindowCloseButtonTest::aWindowThatWasNeverShownIsLeftAlone()
{
    QWidget window;
    QWidget child(&window);
    int something = 0;
    const int sockets = openSockets();
    for (QWidget *widget : {&window, &child}) {
        for (const bool enable : {false, true}) {
            for (void *const state : {static_cast<void *>(nullptr), static_cast<void *>(&something)}) {
                void *kept = state;
                SHAPISetCloseButtonOfWindowEnable(widget, enable, &kept);
                QCOMPARE(kept, state);
                QVERIFY(!window.windowHandle());
            }
        }
    }
    QCOMPARE(openSockets(), sockets);
}

void WindowCloseButtonTest::aWindowThatIsHiddenAgainIsAddressed()
{
    m_window->hide();
    setHints(m_window.get(), hints(countedUp(5)));
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(Disabled));
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
    QTRY_COMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
}

void WindowCloseButtonTest::aConnectionStaysOpenUnlessItIsChosenToBeClosed()
{
    constexpr int Left = VELA_CLOSE_X_CONNECTIONS ? 0 : 1;
    int sockets = openSockets();
    for (const bool enable : {false, true, true, false, true}) { // one of them enables without a state
        SHAPISetCloseButtonOfWindowEnable(m_window.get(), enable, &m_state);
        sockets += Left;
        QCOMPARE(openSockets(), sockets);
    }
    QTest::qWait(LongEnough);
    QCOMPARE(openSockets(), sockets);
}

// A server takes 256 clients, or as many as it is told, up to 2048.
void WindowCloseButtonTest::closedConnectionsAreLeftToOthers()
{
    if (!VELA_CLOSE_X_CONNECTIONS) {
        QSKIP("of a library that closes its connections");
    }
    setHints(m_window.get(), hints(countedUp(5)));
    for (int i = 0; i < 1100; ++i) {
        SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
        SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &m_state);
        QVERIFY(!m_state);
    }
    QVERIFY(XConnection().isOpen());
    QTRY_COMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
}

void WindowCloseButtonTest::withoutADisplayNothingHappens()
{
    setHints(m_window.get(), hints(countedUp(5)));
    const int sockets = openSockets();
    const QByteArray display = qgetenv("DISPLAY");
    int something = 0;
    void *state = &something;

    qputenv("DISPLAY", ":59000"); // a display that nobody has
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), false, &m_state);
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), true, &state);
    qputenv("DISPLAY", display);

    QVERIFY(!m_state);
    QCOMPARE(state, &something);
    QTest::qWait(LongEnough);
    QCOMPARE(hintsOf(m_window.get()), hints(countedUp(5)));
    QCOMPARE(openSockets(), sockets);
}

void WindowCloseButtonTest::nothingIsLogged()
{
    LogCapture log;
    QWidget neverShown;
    for (QWidget *widget : {m_window.get(), &neverShown}) {
        for (const bool enable : {true, false, true}) {
            SHAPISetCloseButtonOfWindowEnable(widget, enable, &m_state);
        }
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

QTEST_MAIN(WindowCloseButtonTest)
#include "tst_window_close_button.moc"
