// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class QIODevice;

namespace Vela {

/// What the first process answers who has sent it a message.
constexpr char Acknowledgement[] = "ack";
constexpr int AcknowledgementSize = sizeof(Acknowledgement) - 1;

/// A text as it is sent: its size in bytes, in four bytes of which the highest comes first, and then UTF-8. So does
/// every edition of QtLocalPeer.
struct Message
{
    static constexpr int HeaderSize = sizeof(quint32);
    static constexpr quint32 MaximalSize = 64 * 1024 * 1024; // bytes of the text, the header not counted

    /// The size of the message that has begun to come; nothing before its header is complete.
    static std::optional<quint32> announcedSize(QIODevice *device);
    /// Takes a message that has come whole.
    static Message takeFrom(QIODevice *device);
    static Message of(const QString &text) { return {text.toUtf8()}; }

    QString text() const;
    QByteArray header() const;

    QByteArray utf8;
};

} // namespace Vela
