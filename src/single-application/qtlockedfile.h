// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QFile>

/// A file with an advisory lock that processes share.
///
/// The lock belongs to the process and holds for the whole file (POSIX record locks). The system releases it when the
/// process ends, however it ends, and, which is peculiar to such locks, as soon as the process closes any other
/// descriptor of the same file.
class VELA_EXPORT QtLockedFile : public QFile
{
public:
    /// What other processes are kept from.
    enum LockMode {
        NoLock = 0, ///< nothing at all
        ReadLock, ///< write locks of others
        WriteLock, ///< all locks of others
    };

    /// A file without a name, which setFileName() gives it.
    QtLockedFile();
    /// A file of that name, not yet open.
    explicit QtLockedFile(const QString &name);
    /// Writes what is buffered, and releases the lock.
    ~QtLockedFile() override;

    /// Opens the file, but not with Truncate, which would empty it before anybody can have locked it: that is logged
    /// and returns false.
    bool open(OpenMode mode) override;

    /// Takes a lock in place of the one that is held; NoLock releases it. A write lock excludes all other locks, a read
    /// lock excludes write locks; they take a file that is open for writing and for reading. @p block waits until no
    /// other process is in the way. Returns whether the lock is held, and logs what fails other than because of another
    /// process. The old lock is released first, so it is gone when a change of mode fails.
    bool lock(LockMode mode, bool block = true);
    /// Writes what is buffered, and then releases the lock; keeps it when that cannot be written. Returns whether no
    /// lock is held any more.
    bool unlock();

    /// A file that is closed has no lock.
    bool isLocked() const;
    /// The lock that is held.
    LockMode lockMode() const;

private:
    bool setLock(short type, int command);

    LockMode m_lockMode = NoLock;
};
