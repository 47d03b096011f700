// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "single-application/instance-process.h"

#include <QByteArray>
#include <QLocalSocket>
#include <QObject>
#include <QSemaphore>
#include <QString>
#include <QTemporaryDir>
#include <QThread>

#include <functional>
#include <memory>

constexpr int Timeout = 20000; // milliseconds
constexpr int ShortTimeout = 300;

// ---- what editions of the class agree upon

/// The ISO 3309 checksum, bit by bit.
quint16 checksum(const QByteArray &bytes);
QString socketPath(const QString &id, const QString &letters);
QString lockPath(const QString &id, const QString &letters);
QByteArray header(quint32 size);
QByteArray framed(const QByteArray &message);

// ---- other processes and threads

using Thread = std::unique_ptr<QThread>;

template<typename Function>
Thread startThread(const Function &function)
{
    Thread thread(QThread::create(function));
    thread->start();
    return thread;
}

/// Runs @p steps in a process of another user and returns what they return, up to 255.
int asAnotherUser(const std::function<int()> &steps);

/// A first process that speaks as an answer does; runs in a thread of its own, since senders block.
class ForeignServer
{
public:
    ForeignServer(const QString &path, const std::function<void(QLocalSocket *)> &answer);
    ~ForeignServer() { join(); }
    Q_DISABLE_COPY_MOVE(ForeignServer)

    void join() { m_thread->wait(); }

private:
    QSemaphore m_isListening;
    Thread m_thread;
};

/// A socket that is held by a process whose parent has opened it and is gone. It ends with this.
class OrphanedSocket
{
public:
    explicit OrphanedSocket(const QByteArray &path);
    ~OrphanedSocket();
    Q_DISABLE_COPY_MOVE(OrphanedSocket)

private:
    int m_pipe = -1; // the process ends when it is closed
};

// ---- sockets and files

/// A socket, or -1.
int connectedTo(const QByteArray &path);
bool canConnect(const QByteArray &path);
/// A socket, or -1.
int listenAt(const QByteArray &path);
QByteArray readAtLeast(QLocalSocket *socket, int size);
int permissions(const QString &path);

/// Rows of a column "message".
void addMessages();

/// Gives each test an id of its own, and all of them a folder for temporary files.
class PeerTest : public QObject
{
    Q_OBJECT

protected:
    /// Sends bytes to the first process, which is this one, and returns what it answers until it is disconnected or has
    /// acknowledged.
    QByteArray exchange(const QByteArray &sent) const;

    const QTemporaryDir m_folder {QStringLiteral("/tmp/vela-XXXXXX")};
    QString m_id;
    QString m_socket;
    QString m_lock;

private Q_SLOTS:
    void initTestCase();
    void init();

private:
    int m_count = 0;
};
