// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QString>

#include <map>

/// Orders strings without regard to case, so that "JPG" and "jpg" are one key.
struct VELA_EXPORT CaseLessCompare
{
    /// Whether @p left stands before @p right.
    bool operator()(const QString &left, const QString &right) const;
};

/// Names the icon of a file by the extension of the file's name.
///
/// An icon's name is the file's type ("image", "video", ...; "xxx" for an unknown extension) followed by ".png", or by
/// "_removed.png" for a file that is gone. The icons themselves are the application's. GUI thread only.
class VELA_EXPORT FileTypeMap
{
public:
    /// The one instance, created on first use, which fills the table.
    static FileTypeMap *getInstance();

    /// The icon's name for @p extension, given without its dot and in any case ("mp3", "MP3"). Never changes the table.
    QString getFiletypeMapping(const QString &extension, bool removed);

    /// Stores @p type under each of the @p extensions, which are separated by single blanks; an earlier type of an
    /// extension is overwritten. Two blanks in a row add an empty extension.
    void mappingFile(const QString &type, const QString &extensions);

    /// Type by extension; empty until the first getInstance().
    static std::map<QString, QString, CaseLessCompare> m_file_type_map;

private:
    FileTypeMap();
    ~FileTypeMap() = default;
    Q_DISABLE_COPY_MOVE(FileTypeMap)
};
