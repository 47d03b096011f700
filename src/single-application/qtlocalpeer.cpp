#include "single-application/qtlocalpeer.h"

#include "utils/util.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>
#include <QtEndian>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// The names, the framing and the answer are what every edition of this class uses.
constexpr char Acknowledgement[] = "ack";
constexpr int AcknowledgementSize = sizeof(Acknowledgement) - 1;
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
constexpr int NameLetters = 6;

constexpr quint32 MaximalMessageSize = 64 * 1024 * 1024; // bytes
constexpr int MaximalConnections = 100; // open at once
constexpr int ConnectionTimeout = 10000; // milliseconds without anything of a message that is not complete
constexpr int AcceptDelay = 100; // milliseconds until a process that is out of descriptors tries again
constexpr unsigned long RetryDelay = 20; // milliseconds until a process that is just starting is tried again

/// @p label is what a person recognises the name by.
QString socketNameOf(const QString &id, QString label)
{
    static const QRegularExpression notLetters(QStringLiteral("[^a-zA-Z]"));
    const QByteArray bytes = id.toUtf8();
    const quint16 checksum = qChecksum(bytes.constData(), static_cast<uint>(bytes.size()));
    return QStringLiteral("qtsingleapp-%1-%2-%3")
        .arg(label.remove(notLetters).left(NameLetters), QString::number(checksum, 16),
             QString::number(::getuid(), 16));
}

/// All of @p message, its null bytes and byte order marks too. What is converted loses one mark in front, so it gets
/// one to lose.
QString textOf(const QByteArray &message)
{
    const QByteArray marked = ByteOrderMark + message;
    return QString::fromUtf8(marked.constData(), marked.size());
}

/// A socket that only processes of this user can connect to; -1, with errno, if there can be none at @p path.
int listenAt(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<int>(sizeof(address.sun_path))) {
        errno = ENAMETOOLONG;
        return -1;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    // Nobody can connect before listen(), so the permissions are in time.
    if (descriptor == -1
        || (::bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0
            && ::chmod(path.constData(), S_IRUSR | S_IWUSR) == 0 && ::listen(descriptor, SOMAXCONN) == 0)) {
        return descriptor;
    }
    const int error = errno;
    ::close(descriptor);
    errno = error;
    return -1;
}

/// Whether something has come that the event loop has not got round to.
bool hasUnreadData(const QLocalSocket &socket)
{
    char byte = 0;
    return ::recv(static_cast<int>(socket.socketDescriptor()), &byte, sizeof(byte), MSG_PEEK | MSG_DONTWAIT) > 0;
}

/// Whether a process of this user is at the other end.
bool isOwnUsers(const QLocalSocket &socket)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0
        && peer.uid == ::geteuid();
}

int remainingTime(const QDeadlineTimer &deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

bool writeTo(QLocalSocket *socket, const QByteArray &message, const QDeadlineTimer &deadline)
{
    QDataStream stream(socket);
    stream.writeBytes(message.constData(), static_cast<uint>(message.size()));
    while (socket->bytesToWrite() > 0) {
        if (!socket->waitForBytesWritten(remainingTime(deadline))) {
            return false;
        }
    }
    return true;
}

bool awaitAcknowledgement(QLocalSocket *socket, const QDeadlineTimer &deadline)
{
    while (socket->bytesAvailable() < AcknowledgementSize) {
        if (!socket->waitForReadyRead(remainingTime(deadline))) {
            return false;
        }
    }
    return socket->read(AcknowledgementSize) == Acknowledgement;
}

} // namespace

QtLocalPeer::QtLocalPeer(QObject *parent, const QString &appId) :
    QObject(parent),
    m_id(appId.isEmpty() ? QCoreApplication::applicationFilePath() : appId),
    m_socketPath(QDir(QDir::tempPath())
                     .absoluteFilePath(socketNameOf(m_id, appId.isEmpty() ? QFileInfo(m_id).fileName() : m_id)))
{
    openLockFile();
}

// The socket goes while the lock is held, which is released with the members: otherwise a successor that gets the lock
// in between would have its new socket removed.
QtLocalPeer::~QtLocalPeer()
{
    if (m_listener) {
        QFile::remove(m_socketPath);
        const int descriptor = static_cast<int>(m_listener->socket());
        delete m_listener;
        ::close(descriptor);
    }
}

// Nobody else may open the file, from its first moment on: who can open it can lock it, and no process would be the
// first. Neither a symbolic nor a hard link that lies in its place may lead to another file of the user.
void QtLocalPeer::openLockFile()
{
    m_lockFile.setFileName(m_socketPath + QLatin1String("-lockfile"));
    const int descriptor = ::open(QFile::encodeName(m_lockFile.fileName()).constData(),
                                  O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
    struct stat status = {};
    const bool isOwn = descriptor != -1 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && status.st_nlink == 1 && status.st_uid == ::geteuid() && ::fchmod(descriptor, S_IRUSR | S_IWUSR) == 0;
    if (isOwn) {
        m_lockFile.QFile::open(descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle);
        return;
    }
    qCWarning(debug_message, "\"%s\" cannot be opened or is another user's", qPrintable(m_lockFile.fileName()));
    if (descriptor != -1) {
        ::close(descriptor);
    }
}

bool QtLocalPeer::isClient()
{
    if (m_lockFile.isLocked() || !m_lockFile.isOpen()) {
        return false;
    }
    if (!m_lockFile.lock(QtLockedFile::WriteLock, false)) {
        return true;
    }
    listen();
    return false;
}

// Not by QLocalServer: when a connection cannot be accepted for want of descriptors, it removes its socket and stops
// listening for good, without telling.
void QtLocalPeer::listen()
{
    // A socket that is still there belongs to nobody any more, since this process has got the lock.
    QFile::remove(m_socketPath);
    const int descriptor = listenAt(QFile::encodeName(m_socketPath));
    if (descriptor == -1) {
        const int error = errno; // before logging changes it
        qCWarning(debug_message, "Cannot receive messages of other instances: %s", std::strerror(error));
        return;
    }
    m_listener = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(m_listener, &QSocketNotifier::activated, this, &QtLocalPeer::acceptConnection);
}

bool QtLocalPeer::sendMessage(const QString &message, int timeout)
{
    const QByteArray bytes = message.toUtf8();
    if (!isClient()) {
        return false;
    }
    if (static_cast<quint32>(bytes.size()) > MaximalMessageSize) {
        qCWarning(debug_message, "A message of %d bytes is too long", bytes.size());
        return false;
    }
    const QDeadlineTimer deadline = timeout < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(timeout);
    QLocalSocket socket;
    if (!connectToFirst(&socket, deadline)) {
        return false;
    }
    if (!isOwnUsers(socket)) {
        qCWarning(debug_message, "Another user listens at \"%s\"", qPrintable(socket.fullServerName()));
        return false;
    }
    return writeTo(&socket, bytes, deadline) && awaitAcknowledgement(&socket, deadline);
}

/// Tries as long as there is a first process: one that is just starting holds the lock before it listens.
bool QtLocalPeer::connectToFirst(QLocalSocket *socket, const QDeadlineTimer &deadline)
{
    while (isClient()) {
        socket->connectToServer(m_socketPath);
        if (socket->waitForConnected(remainingTime(deadline))) {
            return true;
        }
        if (deadline.hasExpired() || socket->error() == QLocalSocket::SocketAccessError) {
            return false;
        }
        socket->abort();
        QThread::msleep(RetryDelay);
    }
    return false;
}

QString QtLocalPeer::applicationId() const
{
    return m_id;
}

void QtLocalPeer::acceptConnection()
{
    const int descriptor =
        ::accept4(static_cast<int>(m_listener->socket()), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (descriptor != -1) {
        auto *socket = new QLocalSocket(this);
        socket->setSocketDescriptor(descriptor);
        addConnection(socket);
    } else if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED) {
        makeRoomForConnections();
    }
}

/// The peer that could not be accepted keeps waiting, and is tried again.
void QtLocalPeer::makeRoomForConnections()
{
    if (!m_connections.isEmpty()) {
        m_connections.constFirst()->abort();
        return;
    }
    m_listener->setEnabled(false);
    QTimer::singleShot(AcceptDelay, m_listener, [this] { m_listener->setEnabled(true); });
}

void QtLocalPeer::addConnection(QLocalSocket *socket)
{
    auto *timer = new QTimer(socket);
    timer->setSingleShot(true);
    // A process that has been busy for long may get to its timers before it reads.
    connect(timer, &QTimer::timeout, socket, [socket, timer] {
        if (hasUnreadData(*socket)) {
            timer->start();
        } else {
            socket->abort();
        }
    });
    timer->start(ConnectionTimeout);

    socket->setReadBufferSize(MaximalMessageSize + sizeof(quint32));
    connect(socket, &QLocalSocket::readyRead, this, [this, socket, timer] {
        timer->start();
        m_connections.removeOne(socket);
        m_connections.append(socket);
        receiveMessage(socket);
    });
    connect(socket, &QLocalSocket::disconnected, this, [this, socket, timer] {
        timer->stop();
        m_connections.removeOne(socket);
        socket->deleteLater();
    });

    m_connections.append(socket);
    if (m_connections.size() > MaximalConnections) {
        m_connections.constFirst()->abort();
    }
}

void QtLocalPeer::receiveMessage(QLocalSocket *socket)
{
    quint32 size = 0;
    if (socket->peek(reinterpret_cast<char *>(&size), sizeof(size)) < static_cast<qint64>(sizeof(size))) {
        return;
    }
    size = qFromBigEndian(size);
    if (size > MaximalMessageSize) {
        qCWarning(debug_message, "A message of %u bytes is too long", size);
        socket->abort();
        return;
    }
    if (socket->bytesAvailable() < static_cast<qint64>(sizeof(size)) + size) {
        return;
    }
    socket->skip(sizeof(size));
    const QString message = textOf(socket->read(size));
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    // Before the signal, since its slots may take longer than the sender waits.
    socket->write(Acknowledgement, AcknowledgementSize);
    socket->flush();
    socket->disconnectFromServer(); // or it would go on reading what nobody wants
    Q_EMIT messageReceived(message);
}
