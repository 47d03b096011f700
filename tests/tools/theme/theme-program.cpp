// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-program.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

ThemeRun runThemeProgram(const QStringList &arguments, const QStringList &environment)
{
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : environment) {
        variables.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    }
    process.setProcessEnvironment(variables);
    process.start(QStringLiteral(VELA_THEME_PROGRAM), arguments);
    if (!process.waitForFinished(100000)) {
        qFatal("vela-theme does not end: %s", qPrintable(arguments.join(QLatin1Char(' '))));
    }
    return {process.exitCode(), process.exitStatus(), process.readAllStandardOutput(), process.readAllStandardError()};
}

QString referenceTheme(const QString &name)
{
    return QStringLiteral(VELA_THEMES_DIR "/") + name;
}

ThemeCopy::ThemeCopy()
{
    if (QDir(path()).isEmpty()) {
        const QDir source(referenceTheme());
        QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            files.next();
            m_touched.insert(source.relativeFilePath(files.filePath()));
        }
        restore(m_touched);
        m_touched.clear();
    }
}

ThemeCopy::~ThemeCopy()
{
    restore(m_touched);
}

QString ThemeCopy::path() const
{
    static const QTemporaryDir folder;
    return folder.path();
}

void ThemeCopy::touch(const QString &file) const
{
    m_touched.insert(file);
}

// Links are quicker than copies, and enough until they are written.
void ThemeCopy::restore(const QSet<QString> &files) const
{
    for (const QString &file : files) {
        const QString source = referenceTheme() + u'/' + file;
        QFile::remove(filePath(file));
        QDir().mkpath(QFileInfo(filePath(file)).path());
        if (QFile::exists(source) && !QFile::link(source, filePath(file))) {
            qFatal("cannot link %s", qPrintable(file));
        }
    }
}

QString ThemeCopy::filePath(const QString &file) const
{
    return path() + u'/' + file;
}

QByteArray ThemeCopy::read(const QString &file) const
{
    QFile source(filePath(file));
    if (!source.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(file));
    }
    return source.readAll();
}

void ThemeCopy::write(const QString &file, const QByteArray &content) const
{
    touch(file);
    QFile::remove(filePath(file)); // the file may be a link to one that must not change
    QFile target(filePath(file));
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size()) {
        qFatal("cannot write %s", qPrintable(file));
    }
}

void ThemeCopy::remove(const QString &file) const
{
    touch(file);
    if (!QFile::remove(filePath(file))) {
        qFatal("cannot remove %s", qPrintable(file));
    }
}

void ThemeCopy::rename(const QString &from, const QString &to) const
{
    touch(from);
    touch(to);
    if (!QFile::rename(filePath(from), filePath(to))) {
        qFatal("cannot rename %s", qPrintable(from));
    }
}

void ThemeCopy::replace(const QString &file, const QByteArray &from, const QByteArray &to) const
{
    QByteArray content = read(file);
    const int position = content.indexOf(from);
    if (position < 0) {
        qFatal("no \"%s\" in %s", from.constData(), qPrintable(file));
    }
    write(file, content.replace(position, from.size(), to));
}
