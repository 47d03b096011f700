// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/sockets.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

#include <array>

int openSockets()
{
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const QStringList names = descriptors.entryList(QDir::Files | QDir::System);
    int count = 0;
    for (const QString &name : names) {
        std::array<char, 64> target {};
        const QByteArray path = QFile::encodeName(descriptors.filePath(name));
        if (readlink(path.constData(), target.data(), target.size()) > 0) {
            count += QByteArray::fromRawData(target.data(), target.size()).startsWith("socket:") ? 1 : 0;
        }
    }
    return count;
}
