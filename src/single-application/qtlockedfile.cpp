#include "single-application/qtlockedfile.h"

#include "utils/util.h"

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
    return QFile::open(mode);
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
    if (mode == m_lockMode) {
        return true;
    }
    // Two processes that each waited for the other's read lock while they keep their own would wait for ever.
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
    if (!setLock(F_UNLCK, F_SETLK)) {
        return false;
    }
    m_lockMode = NoLock;
    return true;
}

bool QtLockedFile::isLocked() const
{
    return m_lockMode != NoLock;
}

QtLockedFile::LockMode QtLockedFile::lockMode() const
{
    return m_lockMode;
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
    const bool isHeldByAnother = errno == EAGAIN || errno == EACCES;
    if (result == -1 && !isHeldByAnother) {
        qCWarning(debug_message, "Cannot lock \"%s\": %s", qPrintable(fileName()), std::strerror(errno));
    }
    return result != -1;
}
