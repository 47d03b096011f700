// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "single-application/local-socket_p.h"
#include "single-application/qtlockedfile.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <memory>

namespace Vela {

/// The place of an application's first process. Who holds the lock on a file has it; at a socket beside that file the
/// other processes reach it.
///
/// Both files may be removed from outside, as from a folder for temporary files. The one that has the place makes them
/// anew as soon as its event loop runs. Until then a process that finds the lock free tells by the socket that the
/// place is taken. With both gone that cannot be told, and another process takes the place for good.
class FirstPlace : public QObject
{
    Q_OBJECT

public:
    /// The socket is to lie at @p path. What keeps the process from taking part is logged.
    FirstPlace(const QString &path, QObject *parent);
    /// Gives up the place if this process has it.
    ~FirstPlace() override;

    const QString &path() const { return m_path; }

    /// Whether this process has the place, which it takes when nobody else has it. A process that cannot take part
    /// has a place of its own.
    bool take();

    /// A process that has connected; one that is not open, with errno, if there is none.
    Descriptor accept() const { return m_socket->accept(); }
    /// Leaves connections waiting for a while.
    void pause(std::chrono::milliseconds time);

Q_SIGNALS:
    void connectionWaiting();
    /// The socket is lost, and with it go the connections that are not accepted now.
    void aboutToClose();

private:
    void openLockFile();
    bool lock();
    bool isStillReached();
    bool isListening() const;
    void listen();
    void close();
    void watch(const QString &file);

    const QString m_path;
    const QString m_lockPath;
    QtLockedFile m_lockFile;
    std::unique_ptr<ListeningSocket> m_socket; // null before the first attempt to listen, kept when that failed
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
    QTimer m_retry {this};
};

} // namespace Vela
