// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "removal.h"

#include "copy-tree.h"
#include "disk/native-path.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Why a file cannot leave its folder, as far as that is known beforehand.
DiskError obstacle(const QString &path)
{
    struct stat status = {};
    const bool isThere = lstat(bytesFromPath(path).constData(), &status) == 0;
    const bool canGo = isThere && access(bytesFromPath(parentOfPath(path)).constData(), W_OK) == 0;
    return canGo ? DiskError() : DiskError::last(path);
}

// Where the toolkit can make none, it moves files into the working folder and reports success.
bool hasWastebasket()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QDir folder(data + QStringLiteral("/Trash"));
    return folder.mkpath(QStringLiteral("files")) && folder.mkpath(QStringLiteral("info"));
}

DiskError trash(const QString &path)
{
    if (const DiskError error = obstacle(path)) {
        return error;
    }
    if (!isKnownToToolkit(path)) {
        return {NameNotKnown, path};
    }
    if (!hasWastebasket()) {
        return {NotTrashed, path};
    }
    return QFile::moveToTrash(path) ? DiskError() : DiskError {NotTrashed, path};
}

DiskError remove(const QString &path)
{
    const DiskError error = obstacle(path);
    return error ? error : removeTree(path);
}

Outcome each(const QStringList &paths, const Progress &progress, DiskError (*work)(const QString &))
{
    Outcome outcome;
    for (const QString &path : paths) {
        if (progress.isStopped) {
            outcome.isStopped = true;
            break;
        }
        if (const DiskError error = work(path)) {
            outcome.errors.append(error);
        }
    }
    return outcome;
}

} // namespace

Outcome moveToTrash(const QStringList &paths, Progress *progress)
{
    return each(paths, *progress, trash);
}

Outcome removeForGood(const QStringList &paths, Progress *progress)
{
    return each(paths, *progress, remove);
}
