// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "transfer.h"

#include "copy-tree.h"
#include "disk/native-path.h"
#include "naming.h"

#include <QUuid>

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace {

// Hidden, and never the name of anybody's file.
QString temporaryPath(const QString &folder)
{
    return joinedPath(folder, QStringLiteral(".vela-files-%1.part").arg(QUuid::createUuid().toString(QUuid::Id128)));
}

// Without links on the way; empty if there is no such file.
QString realPath(const QString &path)
{
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(bytesFromPath(path).toStdString(), error);
    return pathFromBytes(QByteArray::fromStdString(real.native()));
}

bool isIntoItself(const QString &source, const QString &folder)
{
    const QString realSource = joinedPath(realPath(parentOfPath(source)), nameOfPath(source));
    return isWithin(realPath(folder), realSource);
}

// The file that an error tells of, where the user has it.
DiskError inSource(DiskError error, const QString &temporary, const QString &source)
{
    if (isWithin(error.path, temporary)) {
        error.path = source + error.path.mid(temporary.size());
    }
    return error;
}

DiskError copyInto(const QString &source, const QString &folder, Progress *progress, QString *name)
{
    const QString temporary = temporaryPath(folder);
    DiskError error = copyTree(source, temporary, progress);
    if (!error) {
        error = renameToFreeName(temporary, folder, nameOfPath(source), name);
    }
    if (error) {
        discardCopy(temporary);
    }
    return inSource(error, temporary, source);
}

// To another disk: what could not be taken away here afterwards is not begun.
DiskError moveByCopy(const QString &source, const QString &folder, Progress *progress, QString *name)
{
    if (access(bytesFromPath(parentOfPath(source)).constData(), W_OK) != 0) {
        return DiskError::last(source);
    }
    const DiskError error = copyInto(source, folder, progress, name);
    return error ? error : removeTree(source);
}

DiskError transferOne(const QString &source, const TransferRequest &request, Progress *progress, QString *name)
{
    if (isIntoItself(source, request.folder)) {
        return {IntoItself, source};
    }
    if (!request.isMove) {
        return copyInto(source, request.folder, progress, name);
    }
    *name = nameOfPath(source);
    if (parentOfPath(source) == request.folder) {
        return {};
    }
    const DiskError error = renameToFreeName(source, request.folder, nameOfPath(source), name);
    return error.code == EXDEV ? moveByCopy(source, request.folder, progress, name) : error;
}

bool isDiskFull(const DiskError &error)
{
    return error.code == ENOSPC || error.code == EDQUOT;
}

} // namespace

Outcome transfer(const TransferRequest &request, Progress *progress)
{
    Outcome outcome;
    qint64 total = 0;
    for (const QString &source : request.sources) {
        total += bytesOfTree(source, *progress);
    }
    progress->total = total;
    for (const QString &source : request.sources) {
        QString name;
        const DiskError error =
            progress->isStopped ? DiskError {Stopped, source} : transferOne(source, request, progress, &name);
        if (error.code == Stopped) {
            outcome.isStopped = true;
            break;
        }
        if (error) {
            outcome.errors.append(error);
        } else {
            outcome.made.append(name);
        }
        if (isDiskFull(error)) {
            break;
        }
    }
    return outcome;
}
