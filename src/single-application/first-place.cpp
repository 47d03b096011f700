// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/first-place_p.h"

#include "utils/debug-message.h"

#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>

namespace Vela {

namespace {

using namespace std::chrono_literals;

constexpr auto RetryDelay = 50ms; // pause before a lock is tried again that another process may let go of at once

} // namespace

FirstPlace::FirstPlace(const QString &path, QObject *parent) :
    QObject(parent), m_path(path), m_lockPath(path + QLatin1String("-lockfile"))
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &FirstPlace::take);
    openLockFile();
}

// The socket goes while the lock is held, which is released with the members: otherwise a successor that gets the lock
// in between would have its new socket removed. So would one that has locked a new file where this one's was removed.
FirstPlace::~FirstPlace()
{
    if (isListening() && m_lockFile.isLocked() && liesAt(m_lockFile.handle(), QFile::encodeName(m_lockPath))) {
        QFile::remove(m_path);
    }
}

// Nobody else may open the file, from its first moment on: who can open it can lock it, and no process would be the
// first. Neither a symbolic nor a hard link that lies in its place may lead to another file of the user.
void FirstPlace::openLockFile()
{
    if (m_lockFile.isOpen()) {
        m_lockFile.unlock();
        m_lockFile.close();
    }
    Descriptor file(::open(QFile::encodeName(m_lockPath).constData(),
                           O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
    struct stat status = {};
    if (file.isOpen() && ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink <= 1
        && status.st_uid == ::geteuid() && ::fchmod(file.number(), S_IRUSR | S_IWUSR) == 0) {
        m_lockFile.QFile::open(file.release(), QIODevice::ReadWrite, QFileDevice::AutoCloseHandle);
    } else {
        qCWarning(debug_message, "\"%s\" cannot be opened or is another user's", qPrintable(m_lockPath));
    }
}

bool FirstPlace::take()
{
    while (m_lockFile.isOpen()) {
        if (!lock()) {
            return isStillReached();
        }
        if (m_socket && (!m_socket->isOpen() || isListening())) {
            return true;
        }
        if (!m_socket && isServed(QFile::encodeName(m_path))) {
            // The first process has yet to make its lock file anew.
            m_lockFile.unlock();
            return false;
        }
        // Once more round, to see whether the lock file has been removed meanwhile.
        listen();
    }
    return true;
}

// Whether this process has the lock on the file that others find, which may be another one than it has opened.
bool FirstPlace::lock()
{
    while (m_lockFile.isOpen()) {
        if (!m_lockFile.lock(QtLockedFile::WriteLock, false)) {
            return false;
        }
        if (liesAt(m_lockFile.handle(), QFile::encodeName(m_lockPath))) {
            return true;
        }
        openLockFile();
        watch(m_lockPath);
    }
    return true;
}

// Another process has the lock. It lets go of it when it finds this one by the socket; one that has put its own socket
// in this one's place is the first from now on.
bool FirstPlace::isStillReached()
{
    if (!m_socket) {
        return false;
    }
    if (isListening()) {
        m_retry.start(RetryDelay);
        return true;
    }
    qCWarning(debug_message, "Another process has taken the place at \"%s\"", qPrintable(m_path));
    close();
    m_watcher.reset();
    return false;
}

bool FirstPlace::isListening() const
{
    return m_socket && m_socket->isOpen() && m_socket->isAtItsPath();
}

// Not by QLocalServer: when a connection cannot be accepted for want of descriptors, it removes its socket and stops
// listening for good, without telling.
void FirstPlace::listen()
{
    // A socket that is still there belongs to nobody any more, since this process has got the lock.
    QFile::remove(m_path);
    auto socket = std::make_unique<ListeningSocket>(QFile::encodeName(m_path));
    close();
    m_socket = std::move(socket);
    if (!m_socket->isOpen()) {
        qCWarning(debug_message, "Cannot receive messages of other instances: %s", std::strerror(m_socket->error()));
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_socket->descriptor(), QSocketNotifier::Read, this);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &FirstPlace::connectionWaiting);
    if (!m_watcher) {
        m_watcher = std::make_unique<QFileSystemWatcher>(this);
        // Queued, since this may end in the watcher's deletion.
        connect(m_watcher.get(), &QFileSystemWatcher::fileChanged, this, &FirstPlace::take, Qt::QueuedConnection);
    }
    watch(m_lockPath);
    watch(m_path);
}

// Who has connected before the socket was removed is still to be heard.
void FirstPlace::close()
{
    if (m_socket && m_socket->isOpen()) {
        Q_EMIT aboutToClose();
    }
    m_notifier.reset();
    m_socket.reset();
}

// A file that has taken the place of one that was watched is watched anew.
void FirstPlace::watch(const QString &file)
{
    if (m_watcher) {
        m_watcher->removePath(file);
        m_watcher->addPath(file);
    }
}

void FirstPlace::pause(std::chrono::milliseconds time)
{
    m_notifier->setEnabled(false);
    QTimer::singleShot(time, m_notifier.get(), [this] { m_notifier->setEnabled(true); });
}

} // namespace Vela
