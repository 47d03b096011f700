// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/peers.h"
#include "single-application/qtlocalpeer.h"
#include "support/log-capture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <vector>

#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int ConnectionTimeout = 10000; // milliseconds for which an idle connection lives
constexpr int MaximalConnections = 100;
constexpr int MaximalMessageSize = 64 * 1024 * 1024; // bytes

// Sanitizers open a pipe to look at an object.
#ifdef VELA_SANITIZED
constexpr bool HasSanitizers = true;
#else
constexpr bool HasSanitizers = false;
#endif

} // namespace

class QtLocalPeerReceivingTest : public PeerTest
{
    Q_OBJECT

private Q_SLOTS:
    void aMessageIsReceivedAndAcknowledged_data() { addMessages(); }
    void aMessageIsReceivedAndAcknowledged();
    void aMessageInPiecesIsReceivedWhole();
    void theLongestMessageIsReceived();
    void itIsAcknowledgedBeforeItsSlotsRun();
    void aSlotMayRunAnEventLoop();
    void aSlotMayDeleteThePeer();
    void nothingIsReadBehindAMessage();
    void aPeerThatSendsNothingHindersNobody();
    void thePeerThatIsSilentLongestMakesRoom();
    void aFirstShortOfDescriptorsCanBeReached();
    void aFirstThatWasOutOfDescriptorsCanBeReachedAgain();
    void aPeerThatSendsHalfAMessageHindersNobody();
    void aPeerThatGoesAwayInAMessageIsForgotten();
    void aPeerThatClaimsTooMuchIsSentAway_data();
    void aPeerThatClaimsTooMuchIsSentAway();
    void onlyAnIdlePeerIsSentAwayInTheEnd();
};

void QtLocalPeerReceivingTest::aMessageIsReceivedAndAcknowledged()
{
    QFETCH(QString, message);
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    QCOMPARE(exchange(framed(message.toUtf8())), QByteArray("ack"));
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received.first().first().toString(), message);
}

void QtLocalPeerReceivingTest::aMessageInPiecesIsReceivedWhole()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    const QByteArray bytes = framed("Grüße");
    for (const char byte : bytes) {
        QCOMPARE(received.count(), 0);
        socket.write(&byte, 1);
        socket.flush();
        QTest::qWait(10);
    }
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received.first().first().toString(), QStringLiteral("Grüße"));
}

void QtLocalPeerReceivingTest::theLongestMessageIsReceived()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    QCOMPARE(exchange(framed(QByteArray(MaximalMessageSize, 'v'))), QByteArray("ack"));
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received.first().first().toString().size(), MaximalMessageSize);
}

void QtLocalPeerReceivingTest::itIsAcknowledgedBeforeItsSlotsRun()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QLocalSocket socket;
    QByteArray answer;
    connect(&peer, &QtLocalPeer::messageReceived, this, [&] { answer = readAtLeast(&socket, 3); });
    socket.connectToServer(m_socket);
    socket.write(framed("message"));
    QTRY_COMPARE(answer, QByteArray("ack"));
}

void QtLocalPeerReceivingTest::aSlotMayRunAnEventLoop()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QStringList received;
    QEventLoop loop;
    connect(&peer, &QtLocalPeer::messageReceived, this, [&](const QString &message) {
        received.append(message);
        if (message == QStringLiteral("dialog")) {
            loop.exec();
        } else {
            loop.quit();
        }
    });
    QLocalSocket first;
    first.connectToServer(m_socket);
    first.write(framed("dialog"));
    QTimer::singleShot(100, this, [this] { QCOMPARE(exchange(framed("another")), QByteArray("ack")); });
    QTRY_COMPARE(received.size(), 2);
}

void QtLocalPeerReceivingTest::aSlotMayDeleteThePeer()
{
    auto *peer = new QtLocalPeer(nullptr, m_id);
    QVERIFY(!peer->isClient());
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    QTRY_VERIFY(peer->findChild<QLocalSocket *>());
    const QPointer<QLocalSocket> connection = peer->findChild<QLocalSocket *>();
    bool isDeleted = false;
    bool isConnectionThere = false;
    connect(peer, &QtLocalPeer::messageReceived, this, [&] {
        delete peer;
        isDeleted = true;
        isConnectionThere = !connection.isNull();
    });
    socket.write(framed("end"));
    QTRY_VERIFY(isDeleted);
    QVERIFY(isConnectionThere); // it has a slot of the toolkit to come back to
    QTRY_VERIFY(!connection);
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    QCOMPARE(socket.readAll(), QByteArray("ack"));
}

void QtLocalPeerReceivingTest::nothingIsReadBehindAMessage()
{
    constexpr qint64 Flood = 200 * 1024 * 1024; // bytes
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    const QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    const int flooder = connectedTo(QFile::encodeName(m_socket));
    QVERIFY(flooder != -1);
    qint64 taken = 0;
    const Thread flood = startThread([flooder, &taken] {
        QByteArray bytes = framed("message");
        for (qint64 size = 0; size != -1 && taken < Flood; taken += size) {
            size = ::send(flooder, bytes.constData(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
            bytes = QByteArray(1 << 16, 'v');
        }
    });
    const auto end = qScopeGuard([flooder, &flood] {
        ::shutdown(flooder, SHUT_RDWR);
        flood->wait();
        ::close(flooder);
    });
    QTRY_VERIFY_WITH_TIMEOUT(flood->isFinished(), Timeout);
    QCOMPARE(received.count(), 1);
    QVERIFY2(taken < Flood, qPrintable(QString::number(taken)));
    char answer[8];
    QCOMPARE(::recv(flooder, answer, sizeof(answer), 0), 3); // the answer has come nevertheless
}

void QtLocalPeerReceivingTest::aPeerThatSendsNothingHindersNobody()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    std::vector<std::unique_ptr<QLocalSocket>> silent;
    for (int i = 0; i < 200; ++i) {
        silent.push_back(std::make_unique<QLocalSocket>());
        silent.back()->connectToServer(m_socket);
        QVERIFY(silent.back()->waitForConnected(Timeout));
        QCoreApplication::processEvents();
    }
    QCOMPARE(exchange(framed("message")), QByteArray("ack"));
    QTRY_COMPARE(received.count(), 1);
    QTRY_VERIFY(peer.findChildren<QLocalSocket *>().size() <= MaximalConnections);
}

void QtLocalPeerReceivingTest::thePeerThatIsSilentLongestMakesRoom()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    const QByteArray message = framed("message");
    std::vector<std::unique_ptr<QLocalSocket>> peers;
    const auto connectOne = [&] {
        peers.push_back(std::make_unique<QLocalSocket>());
        peers.back()->connectToServer(m_socket);
    };
    for (int i = 0; i < MaximalConnections; ++i) {
        connectOne();
        QTRY_COMPARE(peer.findChildren<QLocalSocket *>().size(), i + 1);
    }
    peers[0]->write(message.left(1));
    peers[0]->flush();
    const QLocalSocket *accepted = peer.findChildren<QLocalSocket *>().constFirst();
    QTRY_COMPARE(accepted->bytesAvailable(), 1);
    QCOMPARE(peers[1]->state(), QLocalSocket::ConnectedState);

    connectOne();
    QTRY_COMPARE(peers[1]->state(), QLocalSocket::UnconnectedState);
    for (const auto index : {0, 2, MaximalConnections - 1, MaximalConnections}) {
        QCOMPARE(peers[static_cast<size_t>(index)]->state(), QLocalSocket::ConnectedState);
    }
    peers[0]->write(message.mid(1));
    QTRY_COMPARE(peers[0]->bytesAvailable(), 3);
    QCOMPARE(peers[0]->readAll(), QByteArray("ack"));
}

void QtLocalPeerReceivingTest::aFirstShortOfDescriptorsCanBeReached()
{
    if (HasSanitizers) {
        QSKIP("needs a process whose sanitizers take no descriptors");
    }
    InstanceProcess first(m_id, QStringLiteral("serve"), QStringLiteral("few descriptors"));
    QCOMPARE(first.line(), QStringLiteral("first"));
    std::vector<int> silent;
    const auto hangUp = qScopeGuard([&silent] { std::for_each(silent.begin(), silent.end(), ::close); });
    for (int i = 0; i < 200; ++i) {
        silent.push_back(connectedTo(QFile::encodeName(m_socket)));
        QVERIFY(silent.back() != -1);
    }
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(peer.sendMessage(QStringLiteral("message"), Timeout));
    QVERIFY(!first.line().isEmpty());
}

void QtLocalPeerReceivingTest::aFirstThatWasOutOfDescriptorsCanBeReachedAgain()
{
    if (HasSanitizers) {
        QSKIP("needs a process whose sanitizers take no descriptors");
    }
    InstanceProcess first(m_id, QStringLiteral("serve"), QStringLiteral("no descriptors"));
    QCOMPARE(first.line(), QStringLiteral("first"));
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(peer.sendMessage(QStringLiteral("message"), Timeout));
    QVERIFY(peer.sendMessage(QStringLiteral("another"), Timeout));
    QCOMPARE(first.lines(2).size(), 2);
}

void QtLocalPeerReceivingTest::aPeerThatSendsHalfAMessageHindersNobody()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    for (const QByteArray &part : {header(7).left(2), header(7), framed("message").chopped(1)}) {
        QLocalSocket slow;
        slow.connectToServer(m_socket);
        slow.write(part);
        QVERIFY(slow.waitForBytesWritten(Timeout));
        QTest::qWait(50);
        QCOMPARE(exchange(framed("quick")), QByteArray("ack"));
        QTRY_COMPARE(received.count(), 1);
        QCOMPARE(received.takeFirst().first().toString(), QStringLiteral("quick"));
        slow.write(framed("message").mid(part.size()));
        QTRY_COMPARE(received.count(), 1);
        QCOMPARE(received.takeFirst().first().toString(), QStringLiteral("message"));
    }
}

void QtLocalPeerReceivingTest::aPeerThatGoesAwayInAMessageIsForgotten()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    for (const QByteArray &part : {QByteArray(), header(7).left(3), header(7), framed("message").chopped(1)}) {
        QLocalSocket broken;
        broken.connectToServer(m_socket);
        broken.write(part);
        broken.waitForBytesWritten(ShortTimeout);
        QTest::qWait(20);
        broken.abort();
        QTRY_VERIFY(peer.findChildren<QLocalSocket *>().isEmpty());
    }
    QCOMPARE(received.count(), 0);
    QCOMPARE(exchange(framed("message")), QByteArray("ack"));
}

void QtLocalPeerReceivingTest::aPeerThatClaimsTooMuchIsSentAway_data()
{
    QTest::addColumn<quint32>("size");
    QTest::newRow("a byte too many") << quint32(MaximalMessageSize + 1);
    QTest::newRow("2 GB") << quint32(0x80000000);
    QTest::newRow("4 GB") << quint32(0xffffffff);
}

void QtLocalPeerReceivingTest::aPeerThatClaimsTooMuchIsSentAway()
{
    QFETCH(quint32, size);
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    LogCapture log;
    QCOMPARE(exchange(header(size) + "and then"), QByteArray());
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("A message of %1 bytes is too long").arg(size)});
    QCOMPARE(received.count(), 0);
    QCOMPARE(exchange(framed("message")), QByteArray("ack"));
    QTRY_COMPARE(received.count(), 1);
}

void QtLocalPeerReceivingTest::onlyAnIdlePeerIsSentAwayInTheEnd()
{
    const QByteArray slowMessage = framed("message");
    constexpr int Pause = 1200; // milliseconds between its bytes, so that it takes longer than an idle peer is kept

    // A process that is busy for longer than an idle peer is kept; what it has not got round to read meanwhile has come
    // in time. It accepts connections in their order, so the first one has been accepted when the second is answered.
    const QString busyId = m_id + QStringLiteral("-busy");
    qputenv("QT_NO_GLIB", "1"); // the event loop that gets to timers first
    InstanceProcess busy(busyId, QStringLiteral("serve"), QStringLiteral("busy"));
    qunsetenv("QT_NO_GLIB");
    QCOMPARE(busy.line(), QStringLiteral("first"));
    QLocalSocket patient;
    patient.connectToServer(socketPath(busyId, QStringLiteral("velate")));
    QVERIFY(patient.waitForConnected(Timeout));
    QVERIFY(QtLocalPeer(nullptr, busyId).sendMessage(QStringLiteral("keep busy"), Timeout));
    patient.write(framed("message"));
    QVERIFY(patient.waitForBytesWritten(Timeout));

    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QLocalSocket slow;
    slow.connectToServer(m_socket);
    int written = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (written < slowMessage.size()) {
            slow.write(slowMessage.constData() + written++, 1);
        }
    });
    timer.start(Pause);

    QElapsedTimer clock;
    clock.start();
    QLocalSocket silent;
    silent.connectToServer(m_socket);
    QTRY_COMPARE_WITH_TIMEOUT(silent.state(), QLocalSocket::UnconnectedState, ConnectionTimeout + Timeout);
    QVERIFY(clock.elapsed() > ConnectionTimeout - 1000); // the timer is a coarse one
    QTRY_COMPARE_WITH_TIMEOUT(slow.bytesAvailable(), 3, Pause * slowMessage.size() + Timeout);
    QCOMPARE(slow.readAll(), QByteArray("ack"));
    QTRY_VERIFY(peer.findChildren<QLocalSocket *>().isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(patient.bytesAvailable(), 3, Timeout);
    QCOMPARE(patient.readAll(), QByteArray("ack"));
}

QTEST_GUILESS_MAIN(QtLocalPeerReceivingTest)
#include "tst_qtlocalpeer_receiving.moc"
