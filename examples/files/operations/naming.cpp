// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "naming.h"

#include "disk/native-path.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int LongestName = 255; // bytes, on all common file systems

// Where the file system cannot rename without replacing: a second name of a file is never made where there is one.
DiskError renameByLink(const QByteArray &from, const QByteArray &to, const DiskError &cannot)
{
    struct stat status = {};
    if (lstat(to.constData(), &status) == 0) {
        return {EEXIST, cannot.path};
    }
    const bool isFolder = lstat(from.constData(), &status) == 0 && S_ISDIR(status.st_mode);
    const bool isDone = isFolder ? std::rename(from.constData(), to.constData()) == 0
                                 : link(from.constData(), to.constData()) == 0 && unlink(from.constData()) == 0;
    return isDone ? DiskError() : DiskError::last(cannot.path);
}

} // namespace

DiskError renameFile(const QString &from, const QString &to)
{
    const QByteArray source = bytesFromPath(from);
    const QByteArray target = bytesFromPath(to);
    if (renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    const DiskError error = DiskError::last(from);
    return error.code == EINVAL || error.code == ENOSYS ? renameByLink(source, target, error) : error;
}

DiskError createFolder(const QString &path)
{
    return mkdir(bytesFromPath(path).constData(), ACCESSPERMS) == 0 ? DiskError() : DiskError::last(path);
}

DiskError renameToFreeName(const QString &from, const QString &folder, const QString &wanted, QString *given)
{
    DiskError error;
    for (int number = 1; number == 1 || error.code == EEXIST; ++number) {
        *given = numberedName(wanted, number);
        error = renameFile(from, joinedPath(folder, *given));
    }
    return error;
}

QString numberedName(const QString &name, int number)
{
    if (number == 1) {
        return name;
    }
    const int point = name.lastIndexOf(u'.');
    const int end = point > 0 ? point : name.size();
    return name.left(end) + QStringLiteral(" (%1)").arg(number) + name.mid(end);
}

const char *faultOfName(const QString &name)
{
    if (name.trimmed().isEmpty()) {
        return "name_empty";
    }
    if (name.contains(u'/')) {
        return "name_slash";
    }
    if (name == u"." || name == u"..") {
        return "name_dots";
    }
    return bytesFromPath(name).size() > LongestName ? "name_long" : nullptr;
}
