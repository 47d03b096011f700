// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/local-socket_p.h"

#include <algorithm>
#include <csignal>
#include <optional>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace Vela {

namespace {

std::optional<sockaddr_un> addressOf(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<int>(sizeof(address.sun_path))) {
        errno = ENAMETOOLONG;
        return std::nullopt;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

Descriptor makeSocket()
{
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

// Calls connect() or bind(). Whether that succeeded.
template<typename Function>
bool applyTo(const Descriptor &socket, const Function &function, const sockaddr_un &address)
{
    return function(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
}

std::optional<ucred> peerOf(int connection)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 ? std::optional(peer) : std::nullopt;
}

} // namespace

bool liesAt(int descriptor, const QByteArray &path)
{
    struct stat open = {};
    struct stat lying = {};
    return ::fstat(descriptor, &open) == 0 && ::lstat(path.constData(), &lying) == 0 && open.st_dev == lying.st_dev
        && open.st_ino == lying.st_ino;
}

bool isSocketPath(const QByteArray &path)
{
    return addressOf(path).has_value();
}

bool isServed(const QByteArray &path)
{
    // Another user's must not keep this one from anything.
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0 || status.st_uid != ::geteuid()) {
        return false;
    }
    const std::optional<sockaddr_un> address = addressOf(path);
    const Descriptor socket = makeSocket();
    if (!address || !socket.isOpen()) {
        return false;
    }
    if (!applyTo(socket, ::connect, *address)) {
        // A process listens, to which more connections are waiting than may.
        return errno == EAGAIN;
    }
    // A child that the process has left behind may hold the socket open.
    const std::optional<ucred> peer = peerOf(socket.number());
    // A process in another namespace of processes has no number here.
    const bool isOutOfSight = peer && peer->pid == 0;
    return isOutOfSight || (peer && ::kill(peer->pid, 0) == 0);
}

bool isOwnUsers(int connection)
{
    const std::optional<ucred> peer = peerOf(connection);
    return peer && peer->uid == ::geteuid();
}

ListeningSocket::ListeningSocket(const QByteArray &path) : m_path(path)
{
    const std::optional<sockaddr_un> address = addressOf(path);
    Descriptor socket = address ? makeSocket() : Descriptor();
    // Nobody can connect before listen(), so the permissions are in time.
    if (socket.isOpen() && applyTo(socket, ::bind, *address) && ::chmod(path.constData(), S_IRUSR | S_IWUSR) == 0
        && ::listen(socket.number(), SOMAXCONN) == 0) {
        m_file = Descriptor(::open(path.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
    }
    if (m_file.isOpen()) {
        m_socket = std::move(socket);
    } else {
        m_error = errno;
    }
}

bool ListeningSocket::isAtItsPath() const
{
    return liesAt(m_file.number(), m_path);
}

Descriptor ListeningSocket::accept() const
{
    return Descriptor(::accept4(m_socket.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

} // namespace Vela
