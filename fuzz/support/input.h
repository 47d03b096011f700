// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDebug>
#include <QFile>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <sys/mman.h>
#include <unistd.h>

/// The bytes of an input, taken from the front. Behind its end there are zeros.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t *data, std::size_t size) :
        m_rest(QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size)))
    {
    }

    bool isAtEnd() const { return m_rest.isEmpty(); }

    template<typename Value>
    Value take()
    {
        Value value {};
        const int size = qMin(static_cast<int>(sizeof(Value)), m_rest.size());
        std::memcpy(&value, m_rest.constData(), static_cast<std::size_t>(size));
        m_rest = m_rest.mid(size);
        return value;
    }

    int takeIndex(std::size_t count) { return static_cast<int>(take<quint8>() % count); }

    template<typename Value, std::size_t Count>
    Value takeOneOf(const Value (&values)[Count])
    {
        return values[takeIndex(Count)];
    }

    /// What is left up to @p end, which is taken too, or all of it.
    QByteArray takeUpTo(char end)
    {
        const int found = m_rest.indexOf(end);
        const QByteArray taken = m_rest.left(found);
        m_rest = found < 0 ? QByteArray() : m_rest.mid(found + 1);
        return {taken.constData(), taken.size()};
    }

    QByteArray rest() const { return {m_rest.constData(), m_rest.size()}; }

private:
    QByteArray m_rest;
};

/// The text in @p utf8, of which a null byte is a character.
inline QString textOf(const QByteArray &utf8)
{
    return QString::fromUtf8(utf8.constData(), utf8.size());
}

/// Ends the process, so that the input is kept, unless @p actual is what it should be.
template<typename Value>
void agree(const char *what, const Value &actual, const Value &expected)
{
    if (!(actual == expected)) {
        qCritical() << what << "is" << actual << "and not" << expected;
        std::abort();
    }
}

/// A file in memory, with what was written last.
class MemoryFile
{
public:
    MemoryFile() : m_descriptor(::memfd_create("fuzzed", 0)) { }

    void write(const QByteArray &bytes)
    {
        const auto size = static_cast<std::size_t>(bytes.size());
        if (::ftruncate(m_descriptor, 0) != 0 || ::pwrite(m_descriptor, bytes.constData(), size, 0) != bytes.size()) {
            qFatal("cannot write a file in memory");
        }
    }

    /// Opens @p file with it, at its begin.
    void open(QFile &file, QIODevice::OpenMode mode) const
    {
        ::lseek(m_descriptor, 0, SEEK_SET);
        file.open(m_descriptor, mode);
    }

private:
    const int m_descriptor;
};
