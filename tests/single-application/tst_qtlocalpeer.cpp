#include "single-application/instance-process.h"
#include "single-application/qtlocalpeer.h"
#include "support/log-capture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QScopeGuard>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Timeout = 20000; // milliseconds
constexpr int ShortTimeout = 300;
constexpr int ConnectionTimeout = 10000; // that an idle connection lives
constexpr int MaximalConnections = 100;
constexpr int MaximalMessageSize = 64 * 1024 * 1024; // bytes

constexpr uid_t AnotherUser = 65534;

// They open a pipe to look at an object.
#ifdef __SANITIZE_ADDRESS__
constexpr bool HasSanitizers = true;
#else
constexpr bool HasSanitizers = false;
#endif

/// The ISO 3309 checksum, bit by bit.
quint16 checksum(const QByteArray &bytes)
{
    quint16 value = 0xffff;
    for (const char byte : bytes) {
        value ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            value = static_cast<quint16>(value & 1 ? (value >> 1) ^ 0x8408 : value >> 1);
        }
    }
    return static_cast<quint16>(~value);
}

/// What editions of this class agree upon.
QString socketPath(const QString &id, const QString &letters)
{
    return QStringLiteral("%1/qtsingleapp-%2-%3-%4")
        .arg(QDir::tempPath(), letters, QString::number(checksum(id.toUtf8()), 16), QString::number(::getuid(), 16));
}

QString lockPath(const QString &id, const QString &letters)
{
    return socketPath(id, letters) + QStringLiteral("-lockfile");
}

QByteArray header(quint32 size)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(size, bytes.data());
    return bytes;
}

QByteArray framed(const QByteArray &message)
{
    return header(static_cast<quint32>(message.size())) + message;
}

using Thread = std::unique_ptr<QThread>;

template<typename Function>
Thread startThread(const Function &function)
{
    Thread thread(QThread::create(function));
    thread->start();
    return thread;
}

/// A first process that speaks as @p answer does; runs in a thread of its own, since senders block.
class ForeignServer
{
public:
    ForeignServer(const QString &path, const std::function<void(QLocalSocket *)> &answer)
    {
        m_thread = startThread([this, path, answer] {
            QLocalServer server;
            QLocalServer::removeServer(path);
            server.listen(path);
            m_isListening.release();
            if (server.waitForNewConnection(Timeout)) {
                const std::unique_ptr<QLocalSocket> socket(server.nextPendingConnection());
                answer(socket.get());
                if (socket->state() != QLocalSocket::UnconnectedState) {
                    socket->waitForDisconnected(Timeout);
                }
            }
        });
        m_isListening.acquire();
    }
    ~ForeignServer() { join(); }
    Q_DISABLE_COPY_MOVE(ForeignServer)

    void join() { m_thread->wait(); }

private:
    QSemaphore m_isListening;
    Thread m_thread;
};

QByteArray readAtLeast(QLocalSocket *socket, int size)
{
    QByteArray bytes;
    while (bytes.size() < size && socket->waitForReadyRead(Timeout)) {
        bytes += socket->readAll();
    }
    return bytes;
}

/// Runs @p steps in a process of another user and returns what they return, up to 255.
int asAnotherUser(const std::function<int()> &steps)
{
    const pid_t process = ::fork();
    if (process == 0) {
        const bool isOther = ::setgid(AnotherUser) == 0 && ::setuid(AnotherUser) == 0;
        ::_exit(isOther ? steps() : 255);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

sockaddr_un address(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
    return address;
}

/// A socket, or -1.
int connectedTo(const QByteArray &path)
{
    const sockaddr_un name = address(path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&name), sizeof(name)) == 0) {
        return socket;
    }
    ::close(socket);
    return -1;
}

bool canConnect(const QByteArray &path)
{
    const int socket = connectedTo(path);
    return socket != -1 && ::close(socket) == 0;
}

int listenAt(const QByteArray &path)
{
    const sockaddr_un name = address(path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ::umask(0);
    const bool isListening =
        ::bind(socket, reinterpret_cast<const sockaddr *>(&name), sizeof(name)) == 0 && ::listen(socket, 5) == 0;
    return isListening ? socket : -1;
}

int permissions(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

} // namespace

class QtLocalPeerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void theIdIsThatGivenOrTheFilePath();
    void theFirstIsNoClient();
    void theFirstStaysTheFirst();
    void theFirstSendsNothing();
    void theNamesAreThoseOfAllEditions_data();
    void theNamesAreThoseOfAllEditions();
    void filesLeftBehindAreTakenOver();
    void aSuccessorOfAFirstThatIsEndingKeepsItsSocket();
    void aSocketThatCannotBeMadeIsLogged_data();
    void aSocketThatCannotBeMadeIsLogged();

    void aMessageIsReceivedAndAcknowledged_data();
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

    void aSenderSpeaksTheCommonProtocol_data();
    void aSenderSpeaksTheCommonProtocol();
    void aSenderBelievesNothingButTheAcknowledgement_data();
    void aSenderBelievesNothingButTheAcknowledgement();
    void aSenderWaitsForAFirstThatIsStarting_data();
    void aSenderWaitsForAFirstThatIsStarting();
    void aSenderTakesThePlaceOfAFirstThatHasEnded();
    void aSenderGivesUpInTime();
    void aMessageThatIsTooLongIsNotSent();

    void onlyItsUserMayOpenTheFiles();
    void anotherUserCanNeitherLockNorConnectNorTakeTheName();
    void aLockFileOfAnotherUserIsLoggedAndLeftAlone();
    void aServerOfAnotherUserIsToldNothing();
    void aLinkInTheLockFilesPlaceIsNotFollowed();
    void aHardLinkInTheLockFilesPlaceIsLeftAlone();

    void onlyAnIdlePeerIsSentAwayInTheEnd();

private:
    QByteArray exchange(const QByteArray &sent);

    const QTemporaryDir m_folder {QStringLiteral("/tmp/vela-XXXXXX")};
    int m_count = 0;
    QString m_id;
    QString m_socket;
    QString m_lock;
};

void QtLocalPeerTest::initTestCase()
{
    QCOMPARE(checksum("123456789"), quint16(0x906e)); // the published check value
    // As a system's folder for temporary files is, so that what keeps others out is not the folder.
    QVERIFY(m_folder.isValid());
    QCOMPARE(::chmod(QFile::encodeName(m_folder.path()).constData(), 01777), 0);
    qputenv("TMPDIR", QFile::encodeName(m_folder.path()));
    QCOMPARE(QDir::tempPath(), m_folder.path());
}

void QtLocalPeerTest::init()
{
    m_id = QStringLiteral("vela-test-%1").arg(++m_count);
    m_socket = socketPath(m_id, QStringLiteral("velate"));
    m_lock = lockPath(m_id, QStringLiteral("velate"));
}

/// Sends bytes to the first process, which is this one, and returns what it answers till it is disconnected or has
/// acknowledged.
QByteArray QtLocalPeerTest::exchange(const QByteArray &sent)
{
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    socket.write(sent);
    QByteArray answer;
    QEventLoop loop; // QTest's waiting sleeps between the pieces of a long message
    connect(&socket, &QLocalSocket::readyRead, &loop, [&] {
        answer += socket.readAll();
        if (answer.size() >= 3) {
            loop.quit();
        }
    });
    connect(&socket, &QLocalSocket::disconnected, &loop, &QEventLoop::quit);
    QTimer::singleShot(Timeout, &loop, [&loop] { loop.exit(EXIT_FAILURE); });
    return loop.exec() == EXIT_SUCCESS ? answer : QByteArray("no end");
}

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
    QVERIFY(!QFileInfo::exists(m_socket)); // it is nothing yet
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
    QVERIFY(QFileInfo::exists(m_socket)); // it became the first by that
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

// What a first process leaves that was killed.
void QtLocalPeerTest::filesLeftBehindAreTakenOver()
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

void QtLocalPeerTest::aSuccessorOfAFirstThatIsEndingKeepsItsSocket()
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

void QtLocalPeerTest::aSocketThatCannotBeMadeIsLogged_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("isTaken");
    QTest::addColumn<int>("error");
    QTest::newRow("its place is taken") << QString() << true << EADDRINUSE;
    QTest::newRow("its path is too long") << QStringLiteral("/%1").arg(QString(100, u'v')) << false << ENAMETOOLONG;
}

void QtLocalPeerTest::aSocketThatCannotBeMadeIsLogged()
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
    // It is the first one nevertheless, though nobody can tell it anything.
    QCOMPARE(InstanceProcess(m_id, QStringLiteral("serve")).line(), QStringLiteral("client"));
}

void QtLocalPeerTest::aMessageIsReceivedAndAcknowledged_data()
{
    QTest::addColumn<QString>("message");
    QTest::newRow("plain") << QStringLiteral("--page buttons");
    QTest::newRow("empty") << QString();
    QTest::newRow("letters of other scripts") << QStringLiteral("Grüße, 日本, 😀");
    QTest::newRow("control characters") << QStringLiteral("a\0b\nc");
    QTest::newRow("a null byte and no more") << QStringLiteral("\0");
    QTest::newRow("a byte order mark in front") << QStringLiteral("\uFEFFtext");
    QTest::newRow("byte order marks and no more") << QStringLiteral("\uFEFF\uFEFF");
    QTest::newRow("a megabyte") << QStringLiteral("ü").repeated(1 << 19);
}

void QtLocalPeerTest::aMessageIsReceivedAndAcknowledged()
{
    QFETCH(QString, message);
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    QCOMPARE(exchange(framed(message.toUtf8())), QByteArray("ack"));
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received.first().first().toString(), message);
}

void QtLocalPeerTest::aMessageInPiecesIsReceivedWhole()
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

void QtLocalPeerTest::theLongestMessageIsReceived()
{
    QtLocalPeer peer(nullptr, m_id);
    QVERIFY(!peer.isClient());
    QSignalSpy received(&peer, &QtLocalPeer::messageReceived);
    QCOMPARE(exchange(framed(QByteArray(MaximalMessageSize, 'v'))), QByteArray("ack"));
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received.first().first().toString().size(), MaximalMessageSize);
}

void QtLocalPeerTest::itIsAcknowledgedBeforeItsSlotsRun()
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

void QtLocalPeerTest::aSlotMayRunAnEventLoop()
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

void QtLocalPeerTest::aSlotMayDeleteThePeer()
{
    auto *peer = new QtLocalPeer(nullptr, m_id);
    QVERIFY(!peer->isClient());
    bool isDeleted = false;
    connect(peer, &QtLocalPeer::messageReceived, this, [&] {
        delete peer;
        isDeleted = true;
    });
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    socket.write(framed("end"));
    QTRY_VERIFY(isDeleted);
    QTRY_COMPARE(socket.state(), QLocalSocket::UnconnectedState);
    QCOMPARE(socket.readAll(), QByteArray("ack"));
}

void QtLocalPeerTest::nothingIsReadBehindAMessage()
{
    constexpr qint64 Flood = 200 * 1024 * 1024; // bytes
    constexpr qint64 Most = 16 * 1024 * 1024;
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
    QVERIFY2(taken < Most, qPrintable(QString::number(taken)));
    char answer[8];
    QCOMPARE(::recv(flooder, answer, sizeof(answer), 0), 3); // it has come nevertheless
}

void QtLocalPeerTest::aPeerThatSendsNothingHindersNobody()
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

void QtLocalPeerTest::thePeerThatIsSilentLongestMakesRoom()
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

void QtLocalPeerTest::aFirstShortOfDescriptorsCanBeReached()
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

void QtLocalPeerTest::aFirstThatWasOutOfDescriptorsCanBeReachedAgain()
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

void QtLocalPeerTest::aPeerThatSendsHalfAMessageHindersNobody()
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

void QtLocalPeerTest::aPeerThatGoesAwayInAMessageIsForgotten()
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

void QtLocalPeerTest::aPeerThatClaimsTooMuchIsSentAway_data()
{
    QTest::addColumn<quint32>("size");
    QTest::newRow("a byte too many") << quint32(MaximalMessageSize + 1);
    QTest::newRow("2 GB") << quint32(0x80000000);
    QTest::newRow("4 GB") << quint32(0xffffffff);
}

void QtLocalPeerTest::aPeerThatClaimsTooMuchIsSentAway()
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

void QtLocalPeerTest::aSenderSpeaksTheCommonProtocol_data()
{
    aMessageIsReceivedAndAcknowledged_data();
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

// It has the lock before it listens.
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
    QThread::msleep(ShortTimeout); // so that it is trying
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

void QtLocalPeerTest::onlyItsUserMayOpenTheFiles()
{
    QVERIFY(QFile(m_lock).open(QIODevice::WriteOnly)); // left by an edition that cared less
    QCOMPARE(::chmod(QFile::encodeName(m_lock).constData(), 0666), 0);
    const mode_t outerMask = ::umask(0);
    QtLocalPeer peer(nullptr, m_id);
    const bool isClient = peer.isClient();
    ::umask(outerMask);
    QVERIFY(!isClient);
    QCOMPARE(permissions(m_lock), 0600);
    QCOMPARE(permissions(m_socket) & 0077, 0);
}

void QtLocalPeerTest::anotherUserCanNeitherLockNorConnectNorTakeTheName()
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
        successes |= ::open(own.constData(), O_CREAT | O_RDWR, 0600) != -1 ? 1 : 0; // so the folder is not the reason
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

void QtLocalPeerTest::aLockFileOfAnotherUserIsLoggedAndLeftAlone()
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

void QtLocalPeerTest::aServerOfAnotherUserIsToldNothing()
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
        const auto size = ::read(connection, bytes, sizeof(bytes)); // till it is closed
        return connection == -1 || size < 0 ? 254 : static_cast<int>(size);
    });
    sender->wait();
    QCOMPARE(heard, 0);
    QVERIFY(!isSent);
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Another user listens at \"%1\"").arg(m_socket)});
}

void QtLocalPeerTest::aLinkInTheLockFilesPlaceIsNotFollowed()
{
    const QString target = m_folder.filePath(QStringLiteral("target"));
    QVERIFY(QFile::link(target, m_lock));
    LogCapture log;
    QtLocalPeer peer(nullptr, m_id);
    QCOMPARE(log.takeTexts().size(), 1);
    QVERIFY(!peer.isClient());
    QVERIFY(!QFileInfo::exists(target));
}

void QtLocalPeerTest::aHardLinkInTheLockFilesPlaceIsLeftAlone()
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

// What takes long, all at once.
void QtLocalPeerTest::onlyAnIdlePeerIsSentAwayInTheEnd()
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

QTEST_GUILESS_MAIN(QtLocalPeerTest)
#include "tst_qtlocalpeer.moc"
