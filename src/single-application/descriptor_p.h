// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace Vela {

/// A file descriptor that closes itself, and leaves errno alone when it does.
class Descriptor
{
public:
    explicit Descriptor(int number = -1) : m_number(number) { }
    ~Descriptor()
    {
        if (isOpen()) {
            const int error = errno;
            ::close(m_number);
            errno = error;
        }
    }
    Descriptor(Descriptor &&other) noexcept : m_number(other.release()) { }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool isOpen() const { return m_number != -1; }
    int number() const { return m_number; }
    /// The number, which the caller closes from now on.
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

} // namespace Vela
