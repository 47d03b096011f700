// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/message_p.h"

#include <QIODevice>
#include <QtEndian>

namespace Vela {

namespace {

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

} // namespace

std::optional<quint32> Message::announcedSize(QIODevice *device)
{
    const QByteArray header = device->peek(HeaderSize);
    return header.size() == HeaderSize ? std::optional(qFromBigEndian<quint32>(header.constData())) : std::nullopt;
}

Message Message::takeFrom(QIODevice *device)
{
    const quint32 size = announcedSize(device).value_or(0);
    device->skip(HeaderSize);
    return {device->read(size)};
}

// Null bytes and byte order marks belong to the text. The conversion drops one mark in front, so it is given one to
// drop.
QString Message::text() const
{
    const QByteArray marked = ByteOrderMark + utf8;
    return QString::fromUtf8(marked.constData(), marked.size());
}

QByteArray Message::header() const
{
    QByteArray header(HeaderSize, '\0');
    qToBigEndian(static_cast<quint32>(utf8.size()), header.data());
    return header;
}

} // namespace Vela
