// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QSet>
#include <QStringList>

/// What vela-theme has done.
struct ThemeRun
{
    int exitCode;
    QProcess::ExitStatus status;
    QByteArray out;
    QByteArray errors;
};

/// Runs vela-theme with @p arguments; "name=value" of @p environment are added to its environment.
ThemeRun runThemeProgram(const QStringList &arguments, const QStringList &environment = {});

/// A theme of the build tree.
QString referenceTheme(const QString &name = QStringLiteral("light"));

/// A theme folder to be changed, at first a copy of the light reference theme. There may be one at a time.
class ThemeCopy
{
public:
    ThemeCopy();
    ~ThemeCopy();
    Q_DISABLE_COPY_MOVE(ThemeCopy)

    QString path() const;
    QByteArray read(const QString &file) const;
    void write(const QString &file, const QByteArray &content) const;
    void remove(const QString &file) const;
    void rename(const QString &from, const QString &to) const;
    /// Replaces the first @p from, which must be there, by @p to.
    void replace(const QString &file, const QByteArray &from, const QByteArray &to) const;

private:
    QString filePath(const QString &file) const;
    void touch(const QString &file) const;
    void restore(const QSet<QString> &files) const;

    mutable QSet<QString> m_touched;
};
