// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/peers.h"
#include "single-application/qtlocalpeer.h"
#include "support/log-capture.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QtTest>

#include <cerrno>
#include <memory>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

class QtLocalPeerFilesTest : public PeerTest
{
    Q_OBJECT

private Q_SLOTS:
    void filesLeftBehindAreTakenOver();
    void aSuccessorOfAFirstThatIsEndingKeepsItsSocket();
    void aSocketThatCannotBeMadeIsLogged_data();
    void aSocketThatCannotBeMadeIsLogged();
    void onlyItsUserMayOpenTheFiles();
    void anotherUserCanNeitherLockNorConnectNorTakeTheName();
    void aLockFileOfAnotherUserIsLoggedAndLeftAlone();
    void aServerOfAnotherUserIsToldNothing();
    void aLinkInTheLockFilesPlaceIsNotFollowed();
    void aHardLinkInTheLockFilesPlaceIsLeftAlone();

    void aRemovedFileIsMadeAnew_data();
    void aRemovedFileIsMadeAnew();
    void aFirstIsFoundWithoutItsLockFile();
    void aFirstWaitsForTheLockOfANewLockFile();
    void whoConnectedToARemovedSocketIsHeard();
    void aFirstThatHasLostBothFilesGivesWay_data();
    void aFirstThatHasLostBothFilesGivesWay();
    void aSocketThatAnotherHasPutThereIsNotRemoved();
    void aLockFileThatWasRemovedBeforeItWasLockedIsNoLock();
    void aSocketThatAChildKeepsIsTakenOver();
    void aSocketOfAnotherUserIsNoFirst();
    void withoutRoomForTheNameASenderFailsAtOnce();

private:
    QString serve() const;
    QString tryToLock() const;
    void remove(const QString &file) const;
};

void QtLocalPeerFilesTest::filesLeftBehindAreTakenOver()
{
    QVERIFY(QFile(m_lock).open(QIODevice::WriteOnly));
    const int deadSocket = listenAt(QFile::encodeName(m_socket));
    QVERIFY(deadSocket != -1);
    ::close(deadSocket);
    QVERIFY(QFileInfo::exists(m_socket));
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QVERIFY(canConnect(QFile::encodeName(m_socket)));
    QCOMPARE(log.takeTexts(), QStringList());
}

void QtLocalPeerFilesTest::aSuccessorOfAFirstThatIsEndingKeepsItsSocket()
{
    std::unique_ptr<InstanceProcess> successor;
    auto peer = std::make_unique<QtLocalPeer>(nullptr, m_id);
    QVERIFY(!peer->isClient());
    // This signal comes when members have been destroyed, but not yet children.
    connect(peer.get(), &QObject::destroyed, this, [&] {
        successor = std::make_unique<InstanceProcess>(m_id, QStringLiteral("serve"));
        QCOMPARE(successor->line(), QStringLiteral("first"));
    });
    peer.reset();
    QVERIFY(successor);
    QtLocalPeer sender(nullptr, m_id);
    QVERIFY(sender.sendMessage(QStringLiteral("message"), Timeout));
}

void QtLocalPeerFilesTest::aSocketThatCannotBeMadeIsLogged_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("isTaken");
    QTest::addColumn<int>("error");
    QTest::newRow("its place is taken") << QString() << true << EADDRINUSE;
    QTest::newRow("its path is too long") << QStringLiteral("/%1").arg(QString(100, u'v')) << false << ENAMETOOLONG;
}

void QtLocalPeerFilesTest::aSocketThatCannotBeMadeIsLogged()
{
    QFETCH(QString, folder);
    QFETCH(bool, isTaken);
    QFETCH(int, error);
    const QString path = m_folder.path() + folder;
    QVERIFY(QDir().mkpath(path));
    qputenv("TMPDIR", QFile::encodeName(path));
    const auto restore = qScopeGuard([this] { qputenv("TMPDIR", QFile::encodeName(m_folder.path())); });
    if (isTaken) {
        QVERIFY(QDir().mkdir(m_socket));
    }
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.isClient());
    QCOMPARE(
        log.takeTexts(),
        QStringList {QStringLiteral("Cannot receive messages of other instances: %1").arg(qt_error_string(error))});
    // The peer is the first one nevertheless, though nobody can tell it anything.
    QCOMPARE(InstanceProcess(m_id, QStringLiteral("serve")).line(), QStringLiteral("client"));
}

void QtLocalPeerFilesTest::onlyItsUserMayOpenTheFiles()
{
    QVERIFY(QFile(m_lock).open(QIODevice::WriteOnly)); // a file left by an edition that cared less
    QCOMPARE(::chmod(QFile::encodeName(m_lock).constData(), 0666), 0);
    const mode_t outerMask = ::umask(0);
    QtLocalPeer peer(nullptr, m_id);
    const bool isClient = peer.isClient();
    ::umask(outerMask);
    QVERIFY(!isClient);
    QCOMPARE(permissions(m_lock), 0600);
    QCOMPARE(permissions(m_socket) & 0077, 0);
}

void QtLocalPeerFilesTest::anotherUserCanNeitherLockNorConnectNorTakeTheName()
{
    if (::getuid() != 0) {
        QSKIP("needs root, to become another user");
    }
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    const QByteArray lock = QFile::encodeName(m_lock);
    const QByteArray socket = QFile::encodeName(m_socket);
    const QByteArray own = socket + "-of-another-user";
    const int done = asAnotherUser([&] {
        int successes = 0;
        successes |= ::open(own.constData(), O_CREAT | O_RDWR, 0600) != -1 ? 1 : 0; // the folder keeps nobody out
        successes |= ::open(lock.constData(), O_RDONLY) != -1 ? 2 : 0;
        successes |= ::open(lock.constData(), O_WRONLY) != -1 ? 4 : 0;
        successes |= canConnect(socket) ? 8 : 0;
        successes |= ::unlink(socket.constData()) == 0 ? 16 : 0;
        successes |= ::rename(own.constData(), socket.constData()) == 0 ? 32 : 0;
        successes |= ::rename(own.constData(), lock.constData()) == 0 ? 64 : 0;
        return successes;
    });
    QCOMPARE(done, 1);
    QCOMPARE(exchange(framed("message")), QByteArray("ack"));
}

void QtLocalPeerFilesTest::aLockFileOfAnotherUserIsLoggedAndLeftAlone()
{
    if (::getuid() != 0) {
        QSKIP("needs root, to become another user");
    }
    const QByteArray lock = QFile::encodeName(m_lock);
    QCOMPARE(asAnotherUser([&] {
                 ::umask(0);
                 return ::open(lock.constData(), O_CREAT | O_RDWR, 0666) != -1 ? 0 : 1;
             }),
             0);
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("\"%1\" cannot be opened or is another user's").arg(m_lock)});
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.sendMessage(QStringLiteral("message"), ShortTimeout));
    QCOMPARE(permissions(m_lock), 0666);
    QVERIFY(!QFileInfo::exists(m_socket));
}

void QtLocalPeerFilesTest::aServerOfAnotherUserIsToldNothing()
{
    if (::getuid() != 0) {
        QSKIP("needs root, to become another user");
    }
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    LogCapture log;
    bool isSent = true;
    const Thread sender = startThread([&] {
        QtLocalPeer peer(nullptr, m_id);
        isSent = peer.sendMessage(QStringLiteral("secret"), Timeout);
    });
    const QByteArray socket = QFile::encodeName(m_socket);
    const int heard = asAnotherUser([&] {
        const int server = listenAt(socket);
        const int connection = ::accept(server, nullptr, nullptr);
        char bytes[64];
        const auto size = ::read(connection, bytes, sizeof(bytes)); // all until it is closed
        return connection == -1 || size < 0 ? 254 : static_cast<int>(size);
    });
    sender->wait();
    QCOMPARE(heard, 0);
    QVERIFY(!isSent);
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Another user listens at \"%1\"").arg(m_socket)});
}

void QtLocalPeerFilesTest::aLinkInTheLockFilesPlaceIsNotFollowed()
{
    const QString target = m_folder.filePath(QStringLiteral("target"));
    QVERIFY(QFile::link(target, m_lock));
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QCOMPARE(log.takeTexts().size(), 1);
    QVERIFY(!peer.isClient());
    QVERIFY(!QFileInfo::exists(target));
}

void QtLocalPeerFilesTest::aHardLinkInTheLockFilesPlaceIsLeftAlone()
{
    const QString target = m_folder.filePath(QStringLiteral("linked"));
    QVERIFY(QFile(target).open(QIODevice::WriteOnly));
    QCOMPARE(::chmod(QFile::encodeName(target).constData(), 0644), 0);
    QCOMPARE(::link(QFile::encodeName(target).constData(), QFile::encodeName(m_lock).constData()), 0);
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("\"%1\" cannot be opened or is another user's").arg(m_lock)});
    QVERIFY(!peer.isClient());
    QVERIFY(!QFileInfo::exists(m_socket));
    QCOMPARE(permissions(target), 0644);
}

// What another process is that starts now: "first" or "client".
QString QtLocalPeerFilesTest::serve() const
{
    return InstanceProcess(m_id, QStringLiteral("serve")).line();
}

// Whether another process gets the lock: "locked" or "refused".
QString QtLocalPeerFilesTest::tryToLock() const
{
    return InstanceProcess(m_lock, QStringLiteral("lock"), QStringLiteral("write")).lines(2).last();
}

void QtLocalPeerFilesTest::remove(const QString &file) const
{
    QVERIFY(QFile::remove(file));
}

void QtLocalPeerFilesTest::aRemovedFileIsMadeAnew_data()
{
    QTest::addColumn<bool>("isLockRemoved");
    QTest::addColumn<bool>("isSocketRemoved");
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("lock file") << true << false << false;
    QTest::newRow("socket") << false << true << false;
    QTest::newRow("both") << true << true << false;
    QTest::newRow("lock file, by another one") << true << false << true;
    QTest::newRow("socket, by a file") << false << true << true;
    QTest::newRow("both, by files") << true << true << true;
}

void QtLocalPeerFilesTest::aRemovedFileIsMadeAnew()
{
    QFETCH(bool, isLockRemoved);
    QFETCH(bool, isSocketRemoved);
    QFETCH(bool, isReplaced);
    QStringList removed;
    if (isLockRemoved) {
        removed.append(m_lock);
    }
    if (isSocketRemoved) {
        removed.append(m_socket);
    }
    LogCapture log;
    {
        QtLocalPeer peer(nullptr, m_id);
        QVERIFY(!peer.isClient());
        const QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
        for (int i = 1; i <= 2; ++i) { // what is made anew is watched as well
            for (const QString &file : removed) {
                remove(file);
                QVERIFY(!isReplaced || QFile(file).open(QIODevice::WriteOnly));
            }
            QTRY_VERIFY(canConnect(QFile::encodeName(m_socket)));
            QTRY_COMPARE(permissions(m_lock), 0600);
            QTRY_COMPARE(tryToLock(), QStringLiteral("refused"));
            QCOMPARE(serve(), QStringLiteral("client"));
            QCOMPARE(exchange(framed("message")), QByteArray("ack"));
            QTRY_COMPARE(received.count(), i);
        }
        QVERIFY(!peer.isClient());
    }
    QVERIFY(!QFileInfo::exists(m_socket));
    QCOMPARE(serve(), QStringLiteral("first"));
    QCOMPARE(log.takeTexts(), QStringList());
}

// The event loop of the first process does not run.
void QtLocalPeerFilesTest::aFirstIsFoundWithoutItsLockFile()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    const QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    remove(m_lock);
    QCOMPARE(serve(), QStringLiteral("client"));
    QCOMPARE(serve(), QStringLiteral("client")); // there is a lock file now, which nobody has locked
    InstanceProcess sender(m_id, QStringLiteral("send"), QStringLiteral("1"));
    QTRY_COMPARE(received.count(), 1);
    QVERIFY(sender.line().startsWith(QStringLiteral("sent ")));
    QVERIFY(!peer.isClient());
}

void QtLocalPeerFilesTest::aFirstWaitsForTheLockOfANewLockFile()
{
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    remove(m_lock);
    InstanceProcess holder(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
    QCOMPARE(holder.lines(2).last(), QStringLiteral("locked"));
    QVERIFY(!peer.isClient()); // it is reached, so who has the lock has only looked
    QTest::qWait(ShortTimeout);
    QVERIFY(!peer.isClient());
    QVERIFY(holder.end());
    QTRY_COMPARE(tryToLock(), QStringLiteral("refused"));
    QCOMPARE(exchange(framed("message")), QByteArray("ack"));
    QCOMPARE(log.takeTexts(), QStringList());
}

void QtLocalPeerFilesTest::whoConnectedToARemovedSocketIsHeard()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    const QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    std::vector<int> senders;
    const QByteArray message = framed("message");
    for (int i = 0; i < 20; ++i) {
        senders.push_back(connectedTo(QFile::encodeName(m_socket)));
        QCOMPARE(::send(senders.back(), message.constData(), static_cast<size_t>(message.size()), MSG_NOSIGNAL),
                 message.size());
    }
    remove(m_socket);
    QVERIFY(!peer.isClient());
    QVERIFY(canConnect(QFile::encodeName(m_socket))); // the call before has made it anew
    QTRY_COMPARE(received.count(), 20);
    for (const int sender : senders) {
        char answer[8];
        QCOMPARE(::recv(sender, answer, sizeof(answer), 0), 3);
        ::close(sender);
    }
}

void QtLocalPeerFilesTest::aFirstThatHasLostBothFilesGivesWay_data()
{
    QTest::addColumn<QString>("notices");
    QTest::newRow("as it is asked") << QStringLiteral("asked");
    QTest::newRow("by itself") << QStringLiteral("events");
    QTest::newRow("not before it ends") << QStringLiteral("end");
}

void QtLocalPeerFilesTest::aFirstThatHasLostBothFilesGivesWay()
{
    QFETCH(QString, notices);
    LogCapture log;
    auto peer = std::make_unique<QtLocalPeer>(nullptr, m_id);
    QVERIFY(!peer->isClient());
    const QSignalSpy received(peer.get(), &QtLocalPeer::messageReceived);
    remove(m_lock);
    remove(m_socket);
    InstanceProcess second(m_id, QStringLiteral("serve"));
    QCOMPARE(second.line(), QStringLiteral("first"));

    QStringList logged;
    QStringList expected {QStringLiteral("Another process has taken the place at \"%1\"").arg(m_socket)};
    if (notices == QStringLiteral("asked")) {
        QVERIFY(peer->isClient());
    } else if (notices == QStringLiteral("events")) {
        QTRY_COMPARE(logged += log.takeTexts(), expected);
    } else {
        expected.clear();
    }
    if (notices != QStringLiteral("end")) {
        QVERIFY(peer->sendMessage(QStringLiteral("message"), Timeout));
        QVERIFY(!second.line().isEmpty());
        QCOMPARE(received.count(), 0);
        QVERIFY(peer->isClient());
    }
    peer.reset();
    QCOMPARE(serve(), QStringLiteral("client"));
    QVERIFY(QtLocalPeer(nullptr, m_id).sendMessage(QStringLiteral("message"), Timeout));
    QVERIFY(!second.line().isEmpty());
    QCOMPARE(logged + log.takeTexts(), expected);
}

// A process of an edition that does not ask whether there is a first one takes the lock.
void QtLocalPeerFilesTest::aSocketThatAnotherHasPutThereIsNotRemoved()
{
    for (const bool isLockRemoved : {true, false}) {
        auto peer = std::make_unique<QtLocalPeer>(nullptr, m_id);
        QVERIFY(!peer->isClient());
        std::unique_ptr<InstanceProcess> holder;
        if (isLockRemoved) {
            remove(m_lock);
            holder = std::make_unique<InstanceProcess>(m_lock, QStringLiteral("lock"), QStringLiteral("write"));
            QCOMPARE(holder->lines(2).last(), QStringLiteral("locked"));
        }
        remove(m_socket);
        const int socket = listenAt(QFile::encodeName(m_socket));
        QVERIFY(socket != -1);
        peer.reset();
        QVERIFY(canConnect(QFile::encodeName(m_socket)));
        ::close(socket);
        remove(m_socket);
    }
}

void QtLocalPeerFilesTest::aLockFileThatWasRemovedBeforeItWasLockedIsNoLock()
{
    QtLocalPeer peer(nullptr, m_id);
    remove(m_lock);
    InstanceProcess first(m_id, QStringLiteral("serve"));
    QCOMPARE(first.line(), QStringLiteral("first"));
    QVERIFY(peer.isClient());
    QVERIFY(peer.sendMessage(QStringLiteral("message"), Timeout));
    QVERIFY(!first.line().isEmpty());
}

void QtLocalPeerFilesTest::aSocketThatAChildKeepsIsTakenOver()
{
    const OrphanedSocket orphaned(QFile::encodeName(m_socket));
    QVERIFY(canConnect(QFile::encodeName(m_socket)));
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QCOMPARE(exchange(framed("message")), QByteArray("ack"));
}

void QtLocalPeerFilesTest::aSocketOfAnotherUserIsNoFirst()
{
    if (::getuid() != 0) {
        QSKIP("needs root, to become another user");
    }
    const int socket = listenAt(QFile::encodeName(m_socket));
    QCOMPARE(::chown(QFile::encodeName(m_socket).constData(), 65534, 65534), 0);
    QVERIFY(canConnect(QFile::encodeName(m_socket)));
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    ::close(socket);
}

void QtLocalPeerFilesTest::withoutRoomForTheNameASenderFailsAtOnce()
{
    const QString path = QStringLiteral("%1/%2").arg(m_folder.path(), QString(120, u'l'));
    QVERIFY(QDir().mkpath(path));
    qputenv("TMPDIR", QFile::encodeName(path));
    const auto restore = qScopeGuard([this] { qputenv("TMPDIR", QFile::encodeName(m_folder.path())); });
    InstanceProcess first(m_id, QStringLiteral("serve"));
    QCOMPARE(first.line(), QStringLiteral("first"));
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(peer.isClient());
    for (const int timeout : {Timeout, -1}) {
        QElapsedTimer clock;
        clock.start();
        QVERIFY(!peer.sendMessage(QStringLiteral("message"), timeout));
        QVERIFY(clock.elapsed() < Timeout / 2);
        QCOMPARE(
            log.takeTexts(),
            QStringList {QStringLiteral("Cannot reach the first instance: %1").arg(qt_error_string(ENAMETOOLONG))});
    }
}

QTEST_GUILESS_MAIN(QtLocalPeerFilesTest)
#include "tst_qtlocalpeer_files.moc"
