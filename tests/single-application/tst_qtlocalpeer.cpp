// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/peers.h"
#include "single-application/qtlocalpeer.h"
#include "support/log-capture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSignalSpy>
#include <QtTest>

#include <limits>
#include <memory>

#include <unistd.h>

namespace {

constexpr int MaximalMessageSize = 64 * 1024 * 1024; // bytes

} // namespace

class QtLocalPeerTest : public PeerTest
{
    Q_OBJECT

private Q_SLOTS:
    void theIdIsThatGivenOrTheFilePath();
    void theFirstIsNoClient();
    void theFirstStaysTheFirst();
    void theFirstSendsNothing();
    void theNamesAreThoseOfAllEditions_data();
    void theNamesAreThoseOfAllEditions();
    void aSenderSpeaksTheCommonProtocol_data() { addMessages(); }
    void aSenderSpeaksTheCommonProtocol();
    void aSenderBelievesNothingButTheAcknowledgement_data();
    void aSenderBelievesNothingButTheAcknowledgement();
    void aSenderWaitsForAFirstThatIsStarting_data();
    void aSenderWaitsForAFirstThatIsStarting();
    void aSenderTakesThePlaceOfAFirstThatHasEnded();
    void aSenderGivesUpInTime();
    void aMessageThatIsTooLongIsNotSent();
};

void QtLocalPeerTest::theIdIsThatGivenOrTheFilePath()
{
    QCOMPARE(QtLocalPeer(nullptr, m_id).applicationId(), m_id);
    QCOMPARE(QtLocalPeer().applicationId(), QCoreApplication::applicationFilePath());
    QObject parent;
    QCOMPARE((new QtLocalPeer(&parent, m_id))->parent(), &parent);
}

void QtLocalPeerTest::theFirstIsNoClient()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!QFileInfo::exists(m_socket)); // a peer has no socket before it is asked
    QVERIFY(!peer.isClient());
    QVERIFY(canConnect(QFile::encodeName(m_socket)));
}

void QtLocalPeerTest::theFirstStaysTheFirst()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.isClient());
    InstanceProcess process(m_id, QStringLiteral("serve"));
    QCOMPARE(process.line(), QStringLiteral("client"));
    QVERIFY(process.end());
}

void QtLocalPeerTest::theFirstSendsNothing()
{
    QtLocalPeer peer(nullptr, m_id);
    const QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    QVERIFY(!peer.sendMessage(QStringLiteral("to myself"), ShortTimeout));
    QVERIFY(QFileInfo::exists(m_socket)); // the question has made it the first
    QTest::qWait(100);
    QCOMPARE(received.count(), 0);
}

void QtLocalPeerTest::theNamesAreThoseOfAllEditions_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("letters");
    QTest::newRow("short") << QStringLiteral("ab") << QStringLiteral("ab");
    QTest::newRow("long") << QStringLiteral("com.vela.editor-2") << QStringLiteral("comvel");
    QTest::newRow("capitals") << QStringLiteral("A Zebra") << QStringLiteral("AZebra");
    QTest::newRow("slashes") << QStringLiteral("x/y/z/name") << QStringLiteral("xyznam");
    QTest::newRow("other letters") << QStringLiteral("Übung 日本 7x") << QStringLiteral("bungx");
    QTest::newRow("no letters") << QStringLiteral("日本 42") << QString();
    QTest::newRow("very long") << QStringLiteral("v").repeated(100000) << QStringLiteral("vvvvvv");
}

void QtLocalPeerTest::theNamesAreThoseOfAllEditions()
{
    QFETCH(QString, id);
    QFETCH(QString, letters);
    QtLocalPeer peer(nullptr, id);
    QVERIFY(QFileInfo::exists(lockPath(id, letters)));
    QVERIFY(!peer.isClient());
    QVERIFY(canConnect(QFile::encodeName(socketPath(id, letters))));

    const QString program = QCoreApplication::applicationFilePath();
    QtLocalPeer nameless;
    QVERIFY(QFileInfo::exists(lockPath(program, QStringLiteral("tstqtl"))));
}

void QtLocalPeerTest::aSenderSpeaksTheCommonProtocol()
{
    QFETCH(QString, message);
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    const QByteArray expected = framed(message.toUtf8());
    QByteArray sent;
    ForeignServer server(m_socket, [&](QLocalSocket *socket) {
        sent = readAtLeast(socket, expected.size());
        socket->write("ack");
    });
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(peer.isClient());
    QVERIFY(peer.sendMessage(message, Timeout));
    server.join();
    QCOMPARE(sent, expected);
}

void QtLocalPeerTest::aSenderBelievesNothingButTheAcknowledgement_data()
{
    QTest::addColumn<QByteArrayList>("answer");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("in one") << QByteArrayList {"ack"} << true;
    QTest::newRow("in pieces") << QByteArrayList {"a", "c", "k"} << true;
    QTest::newRow("with more behind") << QByteArrayList {"ack\n"} << true;
    QTest::newRow("another word") << QByteArrayList {"nak"} << false;
    QTest::newRow("half") << QByteArrayList {"ac"} << false;
    QTest::newRow("none") << QByteArrayList() << false;
}

void QtLocalPeerTest::aSenderBelievesNothingButTheAcknowledgement()
{
    QFETCH(QByteArrayList, answer);
    QFETCH(bool, isTaken);
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    const ForeignServer server(m_socket, [&](QLocalSocket *socket) {
        readAtLeast(socket, framed("message").size());
        for (const QByteArray &part : answer) {
            socket->write(part);
            socket->waitForBytesWritten(Timeout);
            QThread::msleep(30);
        }
        socket->disconnectFromServer();
    });
    QtLocalPeer peer(nullptr, m_id);
    QCOMPARE(peer.sendMessage(QStringLiteral("message"), Timeout), isTaken);
}

void QtLocalPeerTest::aSenderWaitsForAFirstThatIsStarting_data()
{
    QTest::addColumn<int>("timeout");
    QTest::newRow("for some time") << Timeout;
    QTest::newRow("-1, without limit") << -1;
    QTest::newRow("-2, without limit") << -2;
    QTest::newRow("the least, without limit") << std::numeric_limits<int>::min();
}

void QtLocalPeerTest::aSenderWaitsForAFirstThatIsStarting()
{
    QFETCH(int, timeout);
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    std::unique_ptr<ForeignServer> server;
    const Thread late = startThread([&] {
        QThread::msleep(ShortTimeout);
        server = std::make_unique<ForeignServer>(m_socket, [](QLocalSocket *socket) {
            readAtLeast(socket, framed("message").size());
            socket->write("ack");
        });
    });
    QtLocalPeer peer(nullptr, m_id);
    const bool isTaken = peer.sendMessage(QStringLiteral("message"), timeout);
    late->wait();
    QVERIFY(isTaken);
}

void QtLocalPeerTest::aSenderTakesThePlaceOfAFirstThatHasEnded()
{
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    QSemaphore isReady;
    QElapsedTimer clock;
    bool wasClient = false;
    bool isSent = true;
    bool isFirst = false;
    const Thread sender = startThread([&] {
        QtLocalPeer peer(nullptr, m_id);
        wasClient = peer.isClient();
        isReady.release();
        clock.start();
        isSent = peer.sendMessage(QStringLiteral("message"), Timeout);
        isFirst = clock.elapsed() < Timeout && canConnect(QFile::encodeName(m_socket));
    });
    isReady.acquire();
    QThread::msleep(ShortTimeout); // the sender is trying by then
    const bool hasEnded = holder.end();
    sender->wait();
    QVERIFY(hasEnded);
    QVERIFY(wasClient);
    QVERIFY(!isSent);
    QVERIFY(isFirst);
}

void QtLocalPeerTest::aSenderGivesUpInTime()
{
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    QtLocalPeer peer(nullptr, m_id);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!peer.sendMessage(QStringLiteral("nobody listens"), ShortTimeout));
    QVERIFY(clock.elapsed() >= ShortTimeout - 1);
    QVERIFY(clock.elapsed() < Timeout);

    const int deaf = listenAt(QFile::encodeName(m_socket));
    QVERIFY(deaf != -1);
    clock.start();
    QVERIFY(!peer.sendMessage(QStringLiteral("nobody answers"), ShortTimeout));
    QVERIFY(clock.elapsed() >= ShortTimeout - 1);
    QVERIFY(clock.elapsed() < Timeout);
    ::close(deaf);
}

void QtLocalPeerTest::aMessageThatIsTooLongIsNotSent()
{
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    QtLocalPeer peer(nullptr, m_id);
    LogCapture log;
    QVERIFY(!peer.sendMessage(QString(MaximalMessageSize + 1, u'v'), Timeout));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("A message of 67108865 bytes is too long")});
}

QTEST_GUILESS_MAIN(QtLocalPeerTest)
#include "tst_qtlocalpeer.moc"
