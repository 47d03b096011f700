// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "single-application/descriptor_p.h"

#include <QByteArray>

namespace Vela {

/// Whether an open file lies at @p path, rather than another one or none.
bool liesAt(int descriptor, const QByteArray &path);

/// Whether a local socket can have this path: the system has a limit.
bool isSocketPath(const QByteArray &path);
/// Whether a process of this user that still lives listens at @p path.
bool isServed(const QByteArray &path);
/// Whether a process of this user is at the other end of a connection.
bool isOwnUsers(int connection);

/// A local socket that only processes of this user can connect to. Its file stays behind unless it is removed.
class ListeningSocket
{
public:
    /// Listens at @p path, where no file may be.
    explicit ListeningSocket(const QByteArray &path);

    /// Whether it listens.
    bool isOpen() const { return m_socket.isOpen(); }
    /// Why it does not; as errno has it.
    int error() const { return m_error; }
    int descriptor() const { return m_socket.number(); }

    /// Whether others find it by its path.
    bool isAtItsPath() const;
    /// A connection that waits; one that is not open, with errno, if there is none.
    Descriptor accept() const;

private:
    QByteArray m_path;
    Descriptor m_socket;
    Descriptor m_file; // file at the path, open so that the system gives its number to no other
    int m_error = 0;
};

} // namespace Vela
