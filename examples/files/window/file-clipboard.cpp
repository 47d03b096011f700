// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "file-clipboard.h"

#include "disk/native-path.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace {

// "cut" or "copy", then the paths, each behind a zero byte.
const QString OwnFormat = QStringLiteral("application/x-vela-files");

} // namespace

void putOnClipboard(const QStringList &paths, bool isCut)
{
    QByteArray own = isCut ? "cut" : "copy";
    QList<QUrl> urls;
    for (const QString &path : paths) {
        own += '\0' + bytesFromPath(path);
        if (isKnownToToolkit(path)) {
            urls.append(QUrl::fromLocalFile(path));
        }
    }
    auto *data = new QMimeData;
    data->setData(OwnFormat, own);
    data->setUrls(urls);
    QGuiApplication::clipboard()->setMimeData(data);
}

QStringList filesOnClipboard(bool *isCut)
{
    *isCut = false;
    QStringList paths;
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!data) {
        return paths;
    }
    if (data->hasFormat(OwnFormat)) {
        QList<QByteArray> parts = data->data(OwnFormat).split('\0');
        *isCut = parts.takeFirst() == "cut";
        std::transform(parts.cbegin(), parts.cend(), std::back_inserter(paths), pathFromBytes);
        return paths;
    }
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile()) {
            paths.append(pathFromBytes(QFile::encodeName(url.toLocalFile())));
        }
    }
    return paths;
}

void clearClipboard()
{
    QGuiApplication::clipboard()->clear();
}
