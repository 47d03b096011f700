// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/theme-copy.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace {

QStringList filesIn(const QString &folder)
{
    QStringList names;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        names.append(QDir(folder).relativeFilePath(it.next()));
    }
    names.sort();
    return names;
}

} // namespace

QByteArray json(const char *text)
{
    return QByteArray(text).replace('\'', '"');
}

QString referenceTheme(const QString &palette)
{
    return QDir::cleanPath(QStringLiteral(VELA_THEME_DIR "/../") + palette);
}

OwnDataFolder::OwnDataFolder()
{
    qputenv("XDG_DATA_HOME", m_folder.path().toLocal8Bit());
}

ThemeCopy::ThemeCopy(const QString &palette)
{
    const QString theme = referenceTheme(palette);
    const QStringList names = filesIn(theme);
    for (const QString &name : names) {
        QDir(path()).mkpath(QFileInfo(name).path());
        if (!QFile::copy(theme + u'/' + name, filePath(name))) {
            qFatal("%s cannot be copied", qPrintable(name));
        }
        QFile::setPermissions(filePath(name), QFile::ReadOwner | QFile::WriteOwner);
    }
}

QString ThemeCopy::path() const
{
    return m_folder.path();
}

QString ThemeCopy::filePath(const QString &name) const
{
    return m_folder.filePath(name);
}

QStringList ThemeCopy::files() const
{
    return filesIn(path());
}

QByteArray ThemeCopy::read(const QString &name) const
{
    QFile file(filePath(name));
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s cannot be read", qPrintable(name));
    }
    return file.readAll();
}

void ThemeCopy::write(const QString &name, const QByteArray &content) const
{
    QFile file(filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s cannot be written", qPrintable(name));
    }
}

void ThemeCopy::replace(const QString &name, const QByteArray &before, const QByteArray &after) const
{
    QByteArray content = read(name);
    if (!content.contains(before)) {
        qFatal("%s has no '%s'", qPrintable(name), before.constData());
    }
    write(name, content.replace(before, after));
}

void ThemeCopy::remove(const QString &name) const
{
    if (!QFile::remove(filePath(name))) {
        qFatal("%s cannot be removed", qPrintable(name));
    }
}
