// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/qtlocalpeer.h"

#include "single-application/first-place_p.h"
#include "single-application/message_p.h"
#include "utils/debug-message.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QPointer>
#include <QRegularExpression>
#include <QTimer>
#include <QVector>

#include <chrono>
#include <cstring>
#include <thread>

#include <sys/socket.h>

namespace {

using namespace std::chrono_literals;
using Vela::FirstPlace;
using Vela::Message;

constexpr int NameLetters = 6;
constexpr int MaximalConnections = 100; // connections open at once
constexpr auto ConnectionTimeout = 10s; // silence within a message that ends its connection
constexpr auto AcceptDelay = 100ms; // pause of a process that is out of descriptors
constexpr auto RetryDelay = 20ms; // pause before a process that is just starting is tried again

// The name of the socket's file, as every edition of this class forms it. A person recognises it by the label.
QString socketNameOf(const QString &id, QString label)
{
    static const QRegularExpression notLetters(QStringLiteral("[^a-zA-Z]"));
    const QByteArray bytes = id.toUtf8();
    const quint16 checksum = qChecksum(bytes.constData(), static_cast<uint>(bytes.size()));
    return QStringLiteral("qtsingleapp-%1-%2-%3")
        .arg(label.remove(notLetters).left(NameLetters), QString::number(checksum, 16),
             QString::number(::getuid(), 16));
}

int descriptorOf(const QLocalSocket &socket)
{
    return static_cast<int>(socket.socketDescriptor());
}

// Whether something has come that the event loop has not got round to.
bool hasUnreadData(const QLocalSocket &socket)
{
    char byte = 0;
    return ::recv(descriptorOf(socket), &byte, sizeof(byte), MSG_PEEK | MSG_DONTWAIT) > 0;
}

int remainingTime(const QDeadlineTimer &deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

bool writeTo(QLocalSocket *socket, const Message &message, const QDeadlineTimer &deadline)
{
    socket->write(message.header());
    socket->write(message.utf8);
    while (socket->bytesToWrite() > 0) {
        if (!socket->waitForBytesWritten(remainingTime(deadline))) {
            return false;
        }
    }
    return true;
}

bool awaitAcknowledgement(QLocalSocket *socket, const QDeadlineTimer &deadline)
{
    while (socket->bytesAvailable() < Vela::AcknowledgementSize) {
        if (!socket->waitForReadyRead(remainingTime(deadline))) {
            return false;
        }
    }
    return socket->read(Vela::AcknowledgementSize) == Vela::Acknowledgement;
}

} // namespace

class QtLocalPeerPrivate : public QObject
{
public:
    QtLocalPeerPrivate(QtLocalPeer *peer, const QString &appId);

    bool sendMessage(const Message &message, const QDeadlineTimer &deadline);

    const QString id;
    FirstPlace place;

private:
    bool acceptConnection();
    void makeRoomForConnections();
    void addConnection(QLocalSocket *socket);
    void receiveMessage(QLocalSocket *socket);
    bool connectToFirst(QLocalSocket *socket, const QDeadlineTimer &deadline);

    QtLocalPeer *const q;
    QVector<QLocalSocket *> m_connections; // open connections, the longest silent first
};

QtLocalPeerPrivate::QtLocalPeerPrivate(QtLocalPeer *peer, const QString &appId) :
    QObject(peer),
    id(appId.isEmpty() ? QCoreApplication::applicationFilePath() : appId),
    place(QDir(QDir::tempPath()).absoluteFilePath(socketNameOf(id, appId.isEmpty() ? QFileInfo(id).fileName() : id)),
          this),
    q(peer)
{
    connect(&place, &FirstPlace::connectionWaiting, this, &QtLocalPeerPrivate::acceptConnection);
    connect(&place, &FirstPlace::aboutToClose, this, [this] {
        while (acceptConnection()) { }
    });
}

bool QtLocalPeerPrivate::sendMessage(const Message &message, const QDeadlineTimer &deadline)
{
    if (static_cast<quint32>(message.utf8.size()) > Message::MaximalSize) {
        qCWarning(debug_message, "A message of %d bytes is too long", message.utf8.size());
        return false;
    }
    if (!Vela::isSocketPath(QFile::encodeName(place.path()))) {
        qCWarning(debug_message, "Cannot reach the first instance: %s", std::strerror(ENAMETOOLONG));
        return false;
    }
    QLocalSocket socket;
    if (!connectToFirst(&socket, deadline)) {
        return false;
    }
    if (!Vela::isOwnUsers(descriptorOf(socket))) {
        qCWarning(debug_message, "Another user listens at \"%s\"", qPrintable(socket.fullServerName()));
        return false;
    }
    return writeTo(&socket, message, deadline) && awaitAcknowledgement(&socket, deadline);
}

// Tries as long as there is a first process: one that is just starting holds the lock before it listens.
bool QtLocalPeerPrivate::connectToFirst(QLocalSocket *socket, const QDeadlineTimer &deadline)
{
    while (!place.take()) {
        socket->connectToServer(place.path());
        if (socket->waitForConnected(remainingTime(deadline))) {
            return true;
        }
        if (deadline.hasExpired() || socket->error() == QLocalSocket::SocketAccessError) {
            return false;
        }
        socket->abort();
        std::this_thread::sleep_for(RetryDelay);
    }
    return false;
}

// Whether there was a connection to accept.
bool QtLocalPeerPrivate::acceptConnection()
{
    Vela::Descriptor connection = place.accept();
    if (connection.isOpen()) {
        auto *socket = new QLocalSocket(this);
        socket->setSocketDescriptor(connection.release());
        addConnection(socket);
        return true;
    }
    if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED) {
        makeRoomForConnections();
    }
    return false;
}

// The peer that could not be accepted keeps waiting, and is tried again.
void QtLocalPeerPrivate::makeRoomForConnections()
{
    if (m_connections.isEmpty()) {
        place.pause(AcceptDelay);
    } else {
        m_connections.constFirst()->abort();
    }
}

void QtLocalPeerPrivate::addConnection(QLocalSocket *socket)
{
    auto *timer = new QTimer(socket);
    timer->setSingleShot(true);
    timer->setInterval(ConnectionTimeout);
    // A process that has been busy for long may get to its timers before it reads.
    connect(timer, &QTimer::timeout, socket, [socket, timer] {
        if (hasUnreadData(*socket)) {
            timer->start();
        } else {
            socket->abort();
        }
    });
    timer->start();

    socket->setReadBufferSize(Message::HeaderSize + Message::MaximalSize);
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

void QtLocalPeerPrivate::receiveMessage(QLocalSocket *socket)
{
    const std::optional<quint32> size = Message::announcedSize(socket);
    if (!size) {
        return;
    }
    if (*size > Message::MaximalSize) {
        qCWarning(debug_message, "A message of %u bytes is too long", *size);
        socket->abort();
        return;
    }
    if (socket->bytesAvailable() < Message::HeaderSize + static_cast<qint64>(*size)) {
        return;
    }
    const Message message = Message::takeFrom(socket);
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    // This comes before the signal, since its slots may take longer than the sender waits.
    socket->write(Vela::Acknowledgement, Vela::AcknowledgementSize);
    socket->flush();
    // The connection would go on reading what nobody wants.
    socket->disconnectFromServer();
    // A slot may delete the peer, but not the socket, which has more to do once this returns.
    const QPointer<QtLocalPeerPrivate> self(this);
    const QPointer<QLocalSocket> connection(socket);
    socket->setParent(nullptr);
    Q_EMIT q->messageReceived(message.text());
    if (self && connection) {
        connection->setParent(this);
    } else if (connection) {
        connection->deleteLater();
    }
}

QtLocalPeer::QtLocalPeer(QObject *parent, const QString &appId) :
    QObject(parent), d(new QtLocalPeerPrivate(this, appId))
{
}

// The private part is not left to go with the other children, which go when others have been told that this is
// destroyed: the place is free by then.
QtLocalPeer::~QtLocalPeer()
{
    delete d;
}

bool QtLocalPeer::isClient()
{
    return !d->place.take();
}

bool QtLocalPeer::sendMessage(const QString &message, int timeout)
{
    return isClient()
        && d->sendMessage(Message::of(message),
                          timeout < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(timeout));
}

QString QtLocalPeer::applicationId() const
{
    return d->id;
}
