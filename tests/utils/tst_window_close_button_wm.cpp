// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/x-connection.h"
#include "support/x-server.h"
#include "utils/util.h"

#include <QApplication>
#include <QCloseEvent>
#include <QTemporaryFile>
#include <QWidget>
#include <QtTest>

#include <cstdio>

namespace {

// Set for the process that runs the tests, on the server and under the window manager that the first process starts.
constexpr char PreparedVariable[] = "VELA_TEST_HAS_WINDOW_MANAGER";

constexpr int Patience = 10000; // milliseconds until the window manager must have started
constexpr int LongEnough = 100; // milliseconds in which nothing may come

// The close button is the outermost on the right, and title bars look the same with and without the focus.
constexpr char Configuration[] = R"(<?xml version="1.0"?>
<JWM>
    <TitleButtonOrder>wtimx</TitleButtonOrder>
    <WindowStyle>
        <Foreground>#FFFFFF</Foreground>
        <Background>#404040</Background>
        <Active>
            <Foreground>#FFFFFF</Foreground>
            <Background>#404040</Background>
        </Active>
    </WindowStyle>
</JWM>
)";

const QStringList Functions {
    QStringLiteral("_NET_WM_ACTION_CLOSE"),         QStringLiteral("_NET_WM_ACTION_MAXIMIZE_HORZ"),
    QStringLiteral("_NET_WM_ACTION_MAXIMIZE_VERT"), QStringLiteral("_NET_WM_ACTION_MINIMIZE"),
    QStringLiteral("_NET_WM_ACTION_MOVE"),          QStringLiteral("_NET_WM_ACTION_RESIZE"),
};

bool isPrepared()
{
    return qEnvironmentVariableIsSet(PreparedVariable);
}

int complain(const QString &text)
{
    std::fprintf(stderr, "tst_window_close_button_wm: %s\n", qPrintable(text));
    return EXIT_FAILURE;
}

bool isManaged(const XConnection &x)
{
    return !x.property(x.rootWindow(), "_NET_SUPPORTING_WM_CHECK").elements.isEmpty();
}

// Runs this program again with a window manager that obeys changed functions of a shown window.
int runUnderWindowManager(const QStringList &arguments)
{
    const XServer server;
    if (server.display().isEmpty()) {
        return complain(server.errorString());
    }
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), server.display());

    QTemporaryFile configuration;
    if (!configuration.open() || configuration.write(Configuration) < 0 || !configuration.flush()) {
        return complain(configuration.errorString());
    }
    DependentProcess windowManager;
    windowManager.setProcessEnvironment(environment);
    windowManager.setStandardErrorFile(QProcess::nullDevice());
    windowManager.start(QStringLiteral("jwm"), {QStringLiteral("-f"), configuration.fileName()});
    const XConnection x(server.display());
    if (!windowManager.waitForStarted() || !QTest::qWaitFor([&x] { return isManaged(x); }, Patience)) {
        return complain(QStringLiteral("jwm has not started (scripts/setup --checks installs it): ")
                        + windowManager.errorString());
    }

    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QLatin1String(PreparedVariable), QStringLiteral("1"));
    DependentProcess tests;
    tests.setProcessEnvironment(environment);
    tests.setProcessChannelMode(QProcess::ForwardedChannels);
    tests.start(QCoreApplication::applicationFilePath(), arguments);
    tests.waitForFinished(-1);
    return tests.exitStatus() == QProcess::NormalExit ? tests.exitCode() : EXIT_FAILURE;
}

class Window : public QWidget
{
public:
    explicit Window(Qt::WindowFlags flags) : QWidget(nullptr, flags) { }

    int closings() const { return m_closings; }

protected:
    void closeEvent(QCloseEvent *event) override
    {
        ++m_closings;
        event->ignore();
    }

private:
    int m_closings = 0;
};

} // namespace

// These tests run under a window manager on which the effect shows.
class WindowCloseButtonWmTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void disablingWithdrawsEveryFunction();
    void enablingGivesBackWhatTheWindowHad_data();
    void enablingGivesBackWhatTheWindowHad();
    void theCloseButtonGoesAndComesBack();
    void clickingWhereTheCloseButtonWasDoesNothingUntilItIsBack();

private:
    void showWindow(Qt::WindowFlags flags = Qt::Window);
    void setEnabled(bool enable);
    QStringList allowedFunctions() const;
    QRect squareOfTitleBar(int indexFromRight) const;
    QImage grab(const QRect &area) const;
    bool hasCloseButton() const;

    std::unique_ptr<XConnection> m_x;
    std::unique_ptr<Window> m_window;
    void *m_state = nullptr;
};

void WindowCloseButtonWmTest::initTestCase()
{
    if (!isPrepared()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
}

void WindowCloseButtonWmTest::init()
{
    m_x = std::make_unique<XConnection>();
    QVERIFY(m_x->isOpen());
}

void WindowCloseButtonWmTest::cleanup()
{
    if (m_state) {
        setEnabled(true);
    }
    m_window.reset();
    m_x.reset();
}

void WindowCloseButtonWmTest::showWindow(Qt::WindowFlags flags)
{
    m_window = std::make_unique<Window>(flags);
    m_window->setWindowTitle(QStringLiteral("w")); // leaves most of the title bar empty
    m_window->resize(300, 100);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QTRY_VERIFY(hasCloseButton());
    QTRY_VERIFY(allowedFunctions().contains(Functions.first()));
}

void WindowCloseButtonWmTest::setEnabled(bool enable)
{
    SHAPISetCloseButtonOfWindowEnable(m_window.get(), enable, &m_state);
}

QStringList WindowCloseButtonWmTest::allowedFunctions() const
{
    QStringList functions;
    const QStringList actions = m_x->atoms(XWindow(m_window->winId()), "_NET_WM_ALLOWED_ACTIONS");
    for (const QString &function : Functions) {
        if (actions.contains(function)) {
            functions.append(function);
        }
    }
    return functions;
}

// The place of a title bar's button, in the window manager's frame.
QRect WindowCloseButtonWmTest::squareOfTitleBar(int indexFromRight) const
{
    const XWindow id(m_window->winId());
    const QVector<quint32> extents = m_x->property(id, "_NET_FRAME_EXTENTS").elements; // left, right, top, bottom
    if (extents.size() != 4) {
        return {};
    }
    const int side = int(extents[2]);
    const int right = m_x->grab(m_x->frameOf(id)).width() - int(extents[1]);
    return {right - (indexFromRight + 1) * side, 0, side, side};
}

QImage WindowCloseButtonWmTest::grab(const QRect &area) const
{
    return m_x->grab(m_x->frameOf(XWindow(m_window->winId()))).copy(area);
}

// An empty title bar looks the same everywhere; the close button looks different from its neighbour.
bool WindowCloseButtonWmTest::hasCloseButton() const
{
    return grab(squareOfTitleBar(0)) != grab(squareOfTitleBar(1));
}

void WindowCloseButtonWmTest::disablingWithdrawsEveryFunction()
{
    showWindow();
    QCOMPARE(allowedFunctions(), Functions);
    setEnabled(false);
    QTRY_COMPARE(allowedFunctions(), QStringList());
}

void WindowCloseButtonWmTest::enablingGivesBackWhatTheWindowHad_data()
{
    QTest::addColumn<Qt::WindowFlags>("flags");
    QTest::addColumn<bool>("canBeMaximized");
    QTest::newRow("every function") << Qt::WindowFlags(Qt::Window) << true;
    QTest::newRow("some functions") << Qt::WindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
                                                       | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint)
                                    << false;
}

void WindowCloseButtonWmTest::enablingGivesBackWhatTheWindowHad()
{
    QFETCH(Qt::WindowFlags, flags);
    QFETCH(bool, canBeMaximized);
    showWindow(flags);
    const QStringList before = allowedFunctions();
    QCOMPARE(before.contains(QStringLiteral("_NET_WM_ACTION_MAXIMIZE_VERT")), canBeMaximized);

    setEnabled(false);
    QTRY_COMPARE(allowedFunctions(), QStringList());
    setEnabled(true);
    QTRY_COMPARE(allowedFunctions(), before);
}

void WindowCloseButtonWmTest::theCloseButtonGoesAndComesBack()
{
    showWindow();
    const QRect place = squareOfTitleBar(0);
    const QImage button = grab(place);

    setEnabled(false);
    QTRY_VERIFY(!hasCloseButton());
    QCOMPARE(squareOfTitleBar(0), place);
    QVERIFY(grab(place) != button);

    setEnabled(true);
    QTRY_COMPARE(grab(place), button);
}

void WindowCloseButtonWmTest::clickingWhereTheCloseButtonWasDoesNothingUntilItIsBack()
{
    showWindow();
    const XWindow frame = m_x->frameOf(XWindow(m_window->winId()));
    const QPoint place = squareOfTitleBar(0).center();
    m_x->click(frame, place);
    QTRY_COMPARE(m_window->closings(), 1);

    setEnabled(false);
    QTRY_VERIFY(!hasCloseButton());
    m_x->click(frame, place);
    QTest::qWait(LongEnough);
    QCOMPARE(m_window->closings(), 1);

    setEnabled(true);
    QTRY_VERIFY(hasCloseButton());
    m_x->click(frame, place);
    QTRY_COMPARE(m_window->closings(), 2);
}

int main(int argc, char **argv)
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!isPrepared() && (platform.isEmpty() || platform == "xcb")) {
        const QCoreApplication application(argc, argv);
        return runUnderWindowManager(QCoreApplication::arguments().mid(1));
    }
    QApplication application(argc, argv);
    WindowCloseButtonWmTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window_close_button_wm.moc"
