// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFlags>
#include <QHash>
#include <QString>

struct FileEntry;

/// What files are filtered by.
enum class Kind {
    Folder = 1,
    Document = 2,
    Picture = 4,
    Sound = 8,
    Video = 16,
    Archive = 32,
    Code = 64,
    Other = 128,
};
Q_DECLARE_FLAGS(Kinds, Kind)
Q_DECLARE_OPERATORS_FOR_FLAGS(Kinds)

constexpr int KindCount = 8;

/// What the ends of names tell of files. A value for threads of the background: the library's table is for the GUI
/// thread.
class KindTable
{
public:
    /// A copy of the library's table.
    static KindTable ofLibrary();

    Kind kindOf(const FileEntry &entry) const;

private:
    QHash<QString, Kind> m_kinds; // by suffix
};

/// The kind in words, as the desktop's database of types has it.
QString descriptionOf(const FileEntry &entry);

/// The name of the theme's image for a file. GUI thread only.
QString imageOf(const FileEntry &entry);

/// Behind the last point of a name, in lower case; empty without one or behind a point at the beginning.
QString suffixOf(const QString &name);
