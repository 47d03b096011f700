// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "properties.h"

#include "disk/folder-reader.h"
#include "disk/native-path.h"
#include "listing/kinds.h"
#include "texts/texts.h"

#include <QDateTime>
#include <QLocale>

#include <pwd.h>
#include <sys/stat.h>

namespace {

struct Right
{
    mode_t bit;
    char letter;
};

constexpr Right Rights[] = {
    {S_IRUSR, 'r'}, {S_IWUSR, 'w'}, {S_IXUSR, 'x'}, {S_IRGRP, 'r'}, {S_IWGRP, 'w'},
    {S_IXGRP, 'x'}, {S_IROTH, 'r'}, {S_IWOTH, 'w'}, {S_IXOTH, 'x'},
};

QString rightsOf(mode_t mode)
{
    QString rights;
    for (const Right &right : Rights) {
        rights += QLatin1Char((mode & right.bit) != 0 ? right.letter : '-');
    }
    return rights;
}

QString ownerOf(uid_t user)
{
    const passwd *entry = getpwuid(user);
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString::number(user);
}

QString line(const char *key, const QString &value)
{
    return text("property_line").arg(text(key), value.toHtmlEscaped());
}

} // namespace

QString propertiesOf(const QString &path)
{
    struct stat status = {};
    if (lstat(bytesFromPath(path).constData(), &status) != 0) {
        return reasonOf(DiskError::last(path)).toHtmlEscaped();
    }
    FileEntry entry;
    entry.name = nameOfPath(path);
    entry.isFolder = S_ISDIR(status.st_mode);
    const QLocale locale;
    QStringList lines {line("column_kind", descriptionOf(entry)), line("folder", shownName(parentOfPath(path)))};
    if (!entry.isFolder) {
        lines.append(line("column_size",
                          locale.formattedDataSize(status.st_size) + u" ("
                              + text("bytes").arg(locale.toString(qint64(status.st_size))) + u')'));
    }
    lines.append(line("column_changed", locale.toString(QDateTime::fromSecsSinceEpoch(status.st_mtime))));
    lines.append(line("owner", ownerOf(status.st_uid)));
    lines.append(line("rights", rightsOf(status.st_mode)));
    return lines.join(QStringLiteral("<br>"));
}
