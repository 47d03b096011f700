#include "single-application/qtlocalpeer.h"

#include "utils/util.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QThread>
#include <QTimer>
#include <QtEndian>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// The names, the framing and the answer are what every edition of this class uses.
constexpr char Acknowledgement[] = "ack";
constexpr int AcknowledgementSize = sizeof(Acknowledgement) - 1;
constexpr int NameLetters = 6;

constexpr quint32 MaximalMessageSize = 64 * 1024 * 1024; // bytes
constexpr int ConnectionTimeout = 30000; // milliseconds for a whole message, as QLocalSocket waits by default
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

/// Connects as soon as there is a server: a first process that is just starting holds the lock before it listens.
bool connectTo(QLocalSocket *socket, const QString &name, const QDeadlineTimer &deadline)
{
    while (true) {
        socket->connectToServer(name);
        if (socket->waitForConnected(remainingTime(deadline))) {
            return true;
        }
        if (deadline.hasExpired() || socket->error() == QLocalSocket::SocketAccessError) {
            return false;
        }
        socket->abort();
        QThread::msleep(RetryDelay);
    }
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
    m_socketName(socketNameOf(m_id, appId.isEmpty() ? QFileInfo(m_id).fileName() : m_id)),
    m_server(new QLocalServer(this))
{
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &QtLocalPeer::receiveConnection);
    openLockFile();
}

// Nobody else may open the file, from its first moment on: who can open it can lock it, and no process would be the
// first.
void QtLocalPeer::openLockFile()
{
    m_lockFile.setFileName(QDir(QDir::tempPath()).absoluteFilePath(m_socketName + QLatin1String("-lockfile")));
    const int descriptor = ::open(QFile::encodeName(m_lockFile.fileName()).constData(),
                                  O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
    struct stat status = {};
    const bool isOwn = descriptor != -1 && ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && status.st_uid == ::geteuid() && ::fchmod(descriptor, S_IRUSR | S_IWUSR) == 0;
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
    // A socket that is still there belongs to nobody any more, since this process has got the lock.
    QLocalServer::removeServer(m_socketName);
    if (!m_server->listen(m_socketName)) {
        qCWarning(debug_message, "Cannot receive messages of other instances: %s", qPrintable(m_server->errorString()));
    }
    return false;
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
    const QDeadlineTimer deadline(timeout);
    QLocalSocket socket;
    if (!connectTo(&socket, m_socketName, deadline)) {
        return false;
    }
    if (!isOwnUsers(socket)) {
        qCWarning(debug_message, "Another user listens at \"%s\"", qPrintable(socket.fullServerName()));
        return false;
    }
    return writeTo(&socket, bytes, deadline) && awaitAcknowledgement(&socket, deadline);
}

QString QtLocalPeer::applicationId() const
{
    return m_id;
}

void QtLocalPeer::receiveConnection()
{
    QLocalSocket *socket = m_server->nextPendingConnection();
    if (!socket) {
        return;
    }
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] { receiveMessage(socket); });
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QTimer::singleShot(ConnectionTimeout, socket, &QLocalSocket::abort);
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
    const QString message = QString::fromUtf8(socket->read(size));
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    // Before the signal, since its slots may take longer than the sender waits.
    socket->write(Acknowledgement, AcknowledgementSize);
    socket->flush();
    Q_EMIT messageReceived(message);
}
