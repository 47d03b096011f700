// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Messages between instances, as they arrive and as they are sent.

#include "single-application/message_p.h"
#include "support/input.h"

#include <QBuffer>

using Vela::Message;

namespace {

void checkArrival(const QByteArray &bytes)
{
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    const auto size = Message::announcedSize(&device);
    agree("bytes taken by a look at the size", device.pos(), qint64(0));
    agree("size is known", size.has_value(), bytes.size() >= 4);
    if (!size) {
        return;
    }
    quint32 announced = 0;
    for (const char byte : bytes.left(4)) {
        announced = announced * 256 + static_cast<unsigned char>(byte);
    }
    agree("announced size", *size, announced);
    if (*size > Message::MaximalSize || device.bytesAvailable() < Message::HeaderSize + qint64(*size)) {
        return;
    }
    const QByteArray payload = bytes.mid(4, static_cast<int>(announced));
    const Message message = Message::takeFrom(&device);
    agree("payload", message.utf8, payload);
    agree("rest", device.readAll(), bytes.mid(4 + payload.size()));
    agree("text", message.text(), textOf('.' + payload).mid(1));
}

// What is sent arrives as it was, if it can be written in UTF-8 at all.
void checkRoundTrip(const QByteArray &bytes)
{
    const QString text = textOf('.' + bytes).mid(1);
    const Message sent = Message::of(text);
    QBuffer device;
    device.setData(sent.header() + sent.utf8);
    device.open(QIODevice::ReadOnly);
    agree("text after the way", Message::takeFrom(&device).text(), text);
    agree("rest after the way", device.bytesAvailable(), qint64(0));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = FuzzInput(data, size).rest();
    checkArrival(bytes);
    checkRoundTrip(bytes);
    return 0;
}
