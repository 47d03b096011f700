// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-menu.h"
#include "support/x-connection.h"
#include "support/x-server.h"

#include <QApplication>
#include <QScreen>
#include <QtTest>

#include <cstdio>

namespace {

// Set for the processes that run the tests, each on an X server with screens of its own that the first process starts.
constexpr char ArrangementVariable[] = "VELA_TEST_SCREENS";

constexpr char VirtualDesktop[] = "virtual desktop";
constexpr char VirtualDesktopWithPanels[] = "virtual desktop with panels";
constexpr char SeparateScreens[] = "separate screens";

constexpr char WorkAreaName[] = "_NET_WORKAREA";

// A size that fits on the smaller screen at a device pixel ratio of 2.
constexpr int Width = 90;
constexpr int Height = 70;

QScreen *screen(int number)
{
    return QGuiApplication::screens().at(number);
}

QRect area(int number)
{
    return screen(number)->availableGeometry();
}

class ShownMenu : public VelaMenu
{
public:
    explicit ShownMenu(QScreen *onScreen)
    {
        setFixedSize(Width, Height);
        winId();
        windowHandle()->setScreen(onScreen);
    }

    QPoint placeWhenShownAt(const QPoint &position)
    {
        hide();
        move(position);
        show();
        const QPoint place = pos();
        return QTest::qWaitForWindowExposed(this) && pos() == place ? place : QPoint(-9999, -9999);
    }
};

} // namespace

// Two screens side by side, the second one lower: a position tells which one is meant.
class VirtualDesktopTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void onTheSecondScreenAMenuThatFitsStays();
    void onTheSecondScreenAMenuIsKeptFromItsFarEdges();
    void onTheFirstScreenAMenuIsKeptFromTheSecond();
    void thePositionTellsTheScreenAndNotTheWindow();
    void outsideOfAllScreensTheFirstOneCounts();
};

void VirtualDesktopTest::initTestCase()
{
    QCOMPARE(QGuiApplication::screens().size(), 2);
    QCOMPARE(screen(0)->virtualSiblings().size(), 2);
    QCOMPARE(area(0).topLeft(), QPoint(0, 0));
    QVERIFY(area(1).left() > area(0).right());
    QVERIFY(area(1).top() > 0);
}

void VirtualDesktopTest::onTheSecondScreenAMenuThatFitsStays()
{
    ShownMenu menu(screen(1));
    const QPoint last(area(1).right() - Width, area(1).bottom() - Height);
    for (const QPoint &position : {area(1).topLeft(), area(1).center() - QPoint(Width, Height) / 2, last}) {
        QCOMPARE(menu.placeWhenShownAt(position), position);
    }
}

void VirtualDesktopTest::onTheSecondScreenAMenuIsKeptFromItsFarEdges()
{
    ShownMenu menu(screen(1));
    const QPoint last(area(1).right() - Width, area(1).bottom() - Height);
    const QPoint start = area(1).topLeft();
    QCOMPARE(menu.placeWhenShownAt(last + QPoint(1, 1)), last);
    QCOMPARE(menu.placeWhenShownAt(area(1).bottomRight()), last);
    QCOMPARE(menu.placeWhenShownAt(QPoint(area(1).right() - 5, start.y())), QPoint(last.x(), start.y()));
    QCOMPARE(menu.placeWhenShownAt(QPoint(start.x(), area(1).bottom() - 5)), QPoint(start.x(), last.y()));
}

void VirtualDesktopTest::onTheFirstScreenAMenuIsKeptFromTheSecond()
{
    ShownMenu menu(screen(0));
    const int y = area(1).top();
    QCOMPARE(menu.placeWhenShownAt(QPoint(area(0).right(), y)), QPoint(area(0).right() - Width, y));
}

void VirtualDesktopTest::thePositionTellsTheScreenAndNotTheWindow()
{
    ShownMenu first(screen(0));
    QCOMPARE(first.placeWhenShownAt(area(1).topLeft()), area(1).topLeft());
    ShownMenu second(screen(1));
    QCOMPARE(second.placeWhenShownAt(QPoint(20, 10)), QPoint(20, 10));
}

void VirtualDesktopTest::outsideOfAllScreensTheFirstOneCounts()
{
    ShownMenu menu(screen(1));
    const QPoint last(area(0).right() - Width, area(0).bottom() - Height);
    QCOMPARE(menu.placeWhenShownAt(area(1).bottomRight() + QPoint(2000, 2000)), last);
    QCOMPARE(menu.placeWhenShownAt(QPoint(-300, -300)), QPoint(0, 0));
}

// The same two screens with panels around the second, so that a menu on it can be outside of the available area.
class VirtualDesktopWithPanelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void fromUnderAPanelAMenuJumpsToZeroOnTheFirstScreen();
    void aMenuIsKeptFromThePanelsAtTheFarEdges();
};

void VirtualDesktopWithPanelsTest::initTestCase()
{
    QCOMPARE(screen(0)->virtualSiblings().size(), 2);
    const QRect whole = screen(1)->geometry();
    QVERIFY(whole.contains(area(1)));
    QVERIFY(area(1).left() > whole.left() && area(1).top() > whole.top());
    QVERIFY(area(1).right() < whole.right() && area(1).bottom() < whole.bottom());
}

void VirtualDesktopWithPanelsTest::fromUnderAPanelAMenuJumpsToZeroOnTheFirstScreen()
{
    ShownMenu menu(screen(1));
    const QPoint start = area(1).topLeft();
    QCOMPARE(menu.placeWhenShownAt(start), start);
    QCOMPARE(menu.placeWhenShownAt(start - QPoint(1, 0)), QPoint(0, start.y()));
    QCOMPARE(menu.placeWhenShownAt(start - QPoint(0, 1)), QPoint(start.x(), 0));
    QCOMPARE(menu.placeWhenShownAt(screen(1)->geometry().topLeft()), QPoint(0, 0));
}

void VirtualDesktopWithPanelsTest::aMenuIsKeptFromThePanelsAtTheFarEdges()
{
    ShownMenu menu(screen(1));
    const QPoint last(area(1).right() - Width, area(1).bottom() - Height);
    QCOMPARE(menu.placeWhenShownAt(last), last);
    QCOMPARE(menu.placeWhenShownAt(last + QPoint(1, 1)), last);
    QCOMPARE(menu.placeWhenShownAt(screen(1)->geometry().bottomRight()), last);
}

// Two screens that each begin at 0, so that only a window tells which one is meant; panels around the first, larger
// one.
class SeparateScreensTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theScreenOfTheWindowCounts();
    void fromUnderAPanelAMenuJumpsToZero();
    void aMenuIsKeptFromThePanelsAtTheFarEdges();
    void aMenuBetweenThePanelsStays();
};

void SeparateScreensTest::initTestCase()
{
    QCOMPARE(QGuiApplication::screens().size(), 2);
    QCOMPARE(screen(0)->virtualSiblings().size(), 1);
    QCOMPARE(screen(1)->geometry().topLeft(), QPoint(0, 0));
    QVERIFY(screen(0)->geometry().contains(area(0)));
    QVERIFY(area(0).left() > 0 && area(0).top() > 0);
    QVERIFY(area(0).right() < screen(0)->geometry().right() && area(0).bottom() < screen(0)->geometry().bottom());
    QVERIFY(area(0).right() > area(1).right() + Width / 2 && area(0).bottom() > area(1).bottom() + Height / 2);
}

void SeparateScreensTest::theScreenOfTheWindowCounts()
{
    const QPoint lastOnFirst(area(0).right() - Width, area(0).bottom() - Height);
    const QPoint lastOnSecond(area(1).right() - Width, area(1).bottom() - Height);
    ShownMenu first(screen(0));
    QCOMPARE(first.placeWhenShownAt(lastOnFirst), lastOnFirst);
    ShownMenu second(screen(1));
    QCOMPARE(second.placeWhenShownAt(lastOnFirst), lastOnSecond);
    QCOMPARE(second.placeWhenShownAt(QPoint(0, 0)), QPoint(0, 0)); // a place under the first screen's panels
}

void SeparateScreensTest::fromUnderAPanelAMenuJumpsToZero()
{
    ShownMenu menu(screen(0));
    const QPoint start = area(0).topLeft();
    QCOMPARE(menu.placeWhenShownAt(start - QPoint(1, 0)), QPoint(0, start.y()));
    QCOMPARE(menu.placeWhenShownAt(start - QPoint(0, 1)), QPoint(start.x(), 0));
    QCOMPARE(menu.placeWhenShownAt(start - QPoint(1, 1)), QPoint(0, 0));
    QCOMPARE(menu.placeWhenShownAt(QPoint(-500, -500)), QPoint(0, 0));
}

void SeparateScreensTest::aMenuIsKeptFromThePanelsAtTheFarEdges()
{
    ShownMenu menu(screen(0));
    const QPoint last(area(0).right() - Width, area(0).bottom() - Height);
    QCOMPARE(menu.placeWhenShownAt(last + QPoint(1, 1)), last);
    QCOMPARE(menu.placeWhenShownAt(screen(0)->geometry().bottomRight()), last);
    QCOMPARE(menu.placeWhenShownAt(last + QPoint(1, 0)), last);
    QCOMPARE(menu.placeWhenShownAt(last + QPoint(0, 1)), last);
}

void SeparateScreensTest::aMenuBetweenThePanelsStays()
{
    ShownMenu menu(screen(0));
    for (const QPoint &position : {area(0).topLeft(), area(0).center() - QPoint(Width, Height) / 2}) {
        QCOMPARE(menu.placeWhenShownAt(position), position);
    }
}

namespace {

int complain(const QString &text)
{
    std::fprintf(stderr, "tst_vela_menu_screens: %s\n", qPrintable(text));
    return EXIT_FAILURE;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

// Runs this program again on server; workArea is what is left between panels, empty where there are none.
int runOn(const XServer &server, const char *arrangement, const QVector<quint32> &workArea,
          const QStringList &arguments)
{
    if (server.display().isEmpty()) {
        return complain(server.errorString());
    }
    const XConnection x(server.display()); // the server keeps the property while somebody is connected
    if (!workArea.isEmpty()) {
        x.setProperty(x.rootWindow(), WorkAreaName, {"CARDINAL", 32, workArea});
    }

    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), server.display());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_XCB_NO_XRANDR"), QStringLiteral("1")); // for one screen alone
    environment.insert(QStringLiteral("QT_RELY_ON_NET_WORKAREA_ATOM"), QStringLiteral("1")); // with several screens too
    environment.insert(QLatin1String(ArrangementVariable), QLatin1String(arrangement));
    DependentProcess tests;
    tests.setProcessEnvironment(environment);
    tests.setProcessChannelMode(QProcess::ForwardedChannels);
    tests.start(QCoreApplication::applicationFilePath(), arguments);
    tests.waitForFinished(-1);
    return tests.exitStatus() == QProcess::NormalExit ? tests.exitCode() : EXIT_FAILURE;
}

int runOnAll(const QStringList &arguments)
{
    const XServer host;
    const auto sideBySide = [&host] {
        return XServer(QStringLiteral("Xephyr"), words("+xinerama -screen 800x600 -origin 800,100 -screen 640x480"),
                       host.display());
    };
    int failures = 0;
    failures += runOn(sideBySide(), VirtualDesktop, {}, arguments);
    failures += runOn(sideBySide(), VirtualDesktopWithPanels, {830, 150, 560, 380}, arguments);
    failures += runOn(XServer(QStringLiteral("Xvfb"), words("-screen 0 1200x900x24 -screen 1 640x480x24")),
                      SeparateScreens, {60, 40, 1000, 800}, arguments);
    return failures;
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray arrangement = qgetenv(ArrangementVariable);
    if (arrangement.isEmpty()) {
        const QCoreApplication application(argc, argv);
        return runOnAll(QCoreApplication::arguments().mid(1));
    }

    const QApplication application(argc, argv);
    if (arrangement == VirtualDesktop) {
        VirtualDesktopTest test;
        return QTest::qExec(&test, argc, argv);
    }
    if (arrangement == VirtualDesktopWithPanels) {
        VirtualDesktopWithPanelsTest test;
        return QTest::qExec(&test, argc, argv);
    }
    SeparateScreensTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_vela_menu_screens.moc"
