// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/qtlockedfile.h"

#include "utils/debug-message.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

QtLockedFile::QtLockedFile() = default;

QtLockedFile::QtLockedFile(const QString &name) : QFile(name) { }

QtLockedFile::~QtLockedFile()
{
    if (isOpen()) {
        unlock();
    }
}

bool QtLockedFile::open(OpenMode mode)
{
    if (mode & QIODevice::Truncate) {
        qCWarning(debug_message, "A locked file cannot be opened with Truncate.");
        return false;
    }
    if (!QFile::open(mode)) {
        return false;
    }
    // The lock of an earlier descriptor has gone with it.
    m_lockMode = NoLock;
    return true;
}

bool QtLockedFile::lock(LockMode mode, bool block)
{
    if (!isOpen()) {
        qCWarning(debug_message, "A file that is not open cannot be locked.");
        return false;
    }
    if (mode == NoLock) {
        return unlock();
    }
    if (mode == lockMode()) {
        return true;
    }
    // Were a read lock kept until the write lock is there, of two processes that do so at once each would be in the
    // other's way, and the system would refuse one (EDEADLK).
    if (!unlock() || !setLock(mode == ReadLock ? F_RDLCK : F_WRLCK, block ? F_SETLKW : F_SETLK)) {
        return false;
    }
    m_lockMode = mode;
    return true;
}

bool QtLockedFile::unlock()
{
    if (!isOpen()) {
        qCWarning(debug_message, "A file that is not open cannot be unlocked.");
        return false;
    }
    if (!isLocked()) {
        return true;
    }
    // Who locks the file next is to find what has been written under this lock.
    if (!flush() || !setLock(F_UNLCK, F_SETLK)) {
        return false;
    }
    m_lockMode = NoLock;
    return true;
}

bool QtLockedFile::isLocked() const
{
    return lockMode() != NoLock;
}

QtLockedFile::LockMode QtLockedFile::lockMode() const
{
    return isOpen() ? m_lockMode : NoLock;
}

bool QtLockedFile::setLock(short type, int command)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    int result = 0;
    do {
        result = ::fcntl(handle(), command, &lock);
    } while (result == -1 && errno == EINTR);
    // Kept, as logging may change it.
    const int error = errno;
    const bool isHeldByAnother = error == EAGAIN || error == EACCES;
    if (result == -1 && !isHeldByAnother) {
        qCWarning(debug_message, "Cannot lock \"%s\": %s", qPrintable(fileName()), std::strerror(error));
    }
    return result != -1;
}
