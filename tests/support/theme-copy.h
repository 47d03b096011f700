// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// A copy of one of the reference themes, to be changed.
class ThemeCopy
{
public:
    /// @p palette names the theme, "light" for instance.
    explicit ThemeCopy(const QString &palette = QStringLiteral("light"));

    QString path() const;
    QString filePath(const QString &name) const;
    /// Names of all files, relative to the folder, sorted.
    QStringList files() const;

    QByteArray read(const QString &name) const;
    void write(const QString &name, const QByteArray &content) const;
    /// Replaces @p before, which must be there, by @p after.
    void replace(const QString &name, const QByteArray &before, const QByteArray &after) const;
    void remove(const QString &name) const;

private:
    QTemporaryDir m_folder;
};

/// JSON that is written with simple quotation marks.
QByteArray json(const char *text);

/// A folder for the data of applications that this process has for itself, while others run the same test.
class OwnDataFolder
{
public:
    OwnDataFolder();

private:
    QTemporaryDir m_folder;
};

/// The folder of the reference theme that has this palette.
QString referenceTheme(const QString &palette);
