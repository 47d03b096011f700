// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/peers.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QLocalServer>
#include <QTimer>
#include <QtEndian>
#include <QtTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr uid_t AnotherUser = 65534;

sockaddr_un address(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
    return address;
}

} // namespace

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

ForeignServer::ForeignServer(const QString &path, const std::function<void(QLocalSocket *)> &answer)
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

OrphanedSocket::OrphanedSocket(const QByteArray &path)
{
    int pipe[2] = {-1, -1};
    QCOMPARE(::pipe(pipe), 0);
    const pid_t parent = ::fork();
    if (parent == 0) {
        const bool isListening = listenAt(path) != -1;
        if (::fork() == 0) {
            char byte = 0;
            ::close(pipe[1]);
            ::_exit(static_cast<int>(::read(pipe[0], &byte, 1)));
        }
        ::_exit(isListening ? 0 : 1);
    }
    ::close(pipe[0]);
    m_pipe = pipe[1];
    int status = 0;
    ::waitpid(parent, &status, 0);
    QCOMPARE(WEXITSTATUS(status), 0);
}

OrphanedSocket::~OrphanedSocket()
{
    ::close(m_pipe);
}

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

QByteArray readAtLeast(QLocalSocket *socket, int size)
{
    QByteArray bytes;
    while (bytes.size() < size && socket->waitForReadyRead(Timeout)) {
        bytes += socket->readAll();
    }
    return bytes;
}

int permissions(const QString &path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? static_cast<int>(status.st_mode & 0777) : -1;
}

void addMessages()
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

void PeerTest::initTestCase()
{
    QCOMPARE(checksum("123456789"), quint16(0x906e)); // the published check value
    // As a system's folder for temporary files is, so that what keeps others out is not the folder.
    QVERIFY(m_folder.isValid());
    QCOMPARE(::chmod(QFile::encodeName(m_folder.path()).constData(), 01777), 0);
    qputenv("TMPDIR", QFile::encodeName(m_folder.path()));
    QCOMPARE(QDir::tempPath(), m_folder.path());
}

void PeerTest::init()
{
    m_id = QStringLiteral("vela-test-%1").arg(++m_count);
    m_socket = socketPath(m_id, QStringLiteral("velate"));
    m_lock = lockPath(m_id, QStringLiteral("velate"));
}

QByteArray PeerTest::exchange(const QByteArray &sent) const
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
