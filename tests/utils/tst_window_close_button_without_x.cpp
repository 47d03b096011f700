// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/sockets.h"
#include "support/x-connection.h"
#include "support/x-server.h"
#include "utils/util.h"

#include <QApplication>
#include <QWidget>
#include <QtTest>

// These tests run on the offscreen platform, whatever platform the others run on.
class WindowCloseButtonWithoutXTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void nothingHappensThoughThereIsAServer_data();
    void nothingHappensThoughThereIsAServer();

private:
    std::unique_ptr<XServer> m_server;
};

void WindowCloseButtonWithoutXTest::initTestCase()
{
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    m_server = std::make_unique<XServer>();
    QVERIFY2(!m_server->display().isEmpty(), qPrintable(m_server->errorString()));
    qputenv("DISPLAY", m_server->display().toLatin1());
}

void WindowCloseButtonWithoutXTest::cleanupTestCase()
{
    m_server.reset();
}

void WindowCloseButtonWithoutXTest::nothingHappensThoughThereIsAServer_data()
{
    QTest::addColumn<bool>("enable");
    QTest::addColumn<bool>("hasState");
    QTest::newRow("disabling") << false << false;
    QTest::newRow("disabling again") << false << true;
    QTest::newRow("enabling") << true << true;
    QTest::newRow("enabling without a state") << true << false;
}

void WindowCloseButtonWithoutXTest::nothingHappensThoughThereIsAServer()
{
    QFETCH(bool, enable);
    QFETCH(bool, hasState);
    const XConnection x;
    QVERIFY(x.isOpen());
    QWidget window;
    window.show();
    QVERIFY(window.windowHandle());
    int something = 0;
    void *const before = hasState ? &something : nullptr;
    void *state = before;
    const int sockets = openSockets();

    SHAPISetCloseButtonOfWindowEnable(&window, enable, &state);

    QCOMPARE(state, before);
    QCOMPARE(openSockets(), sockets);
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    WindowCloseButtonWithoutXTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_window_close_button_without_x.moc"
