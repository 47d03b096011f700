// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "kinds.h"

#include "disk/folder-reader.h"
#include "texts/texts.h"

#include <FileTypeMap>

#include <QFileInfo>
#include <QMimeDatabase>

#include <algorithm>

namespace {

struct KindRow
{
    const char *type; // of the library's table
    Kind kind;
};

constexpr KindRow KindsOfTypes[] = {
    {"acc", Kind::Document}, {"ai", Kind::Picture},   {"audio", Kind::Sound},   {"code", Kind::Code},
    {"doc", Kind::Document}, {"htm", Kind::Document}, {"image", Kind::Picture}, {"iso", Kind::Archive},
    {"pdf", Kind::Document}, {"ppt", Kind::Document}, {"psd", Kind::Picture},   {"swf", Kind::Video},
    {"txt", Kind::Document}, {"video", Kind::Video},  {"xls", Kind::Document},  {"zip", Kind::Archive},
};

Kind kindOfType(const QString &type)
{
    const auto *row = std::find_if(std::begin(KindsOfTypes), std::end(KindsOfTypes),
                                   [&type](const KindRow &known) { return type == QLatin1String(known.type); });
    return row == std::end(KindsOfTypes) ? Kind::Other : row->kind;
}

} // namespace

KindTable KindTable::ofLibrary()
{
    FileTypeMap::getInstance();
    KindTable table;
    for (const auto &[suffix, type] : FileTypeMap::m_file_type_map) {
        table.m_kinds.insert(suffix.toLower(), kindOfType(type));
    }
    return table;
}

Kind KindTable::kindOf(const FileEntry &entry) const
{
    return entry.isFolder ? Kind::Folder : m_kinds.value(suffixOf(entry.name), Kind::Other);
}

QString descriptionOf(const FileEntry &entry)
{
    if (entry.isFolder) {
        return text("kind_folder");
    }
    const QMimeType type = QMimeDatabase().mimeTypeForFile(entry.name, QMimeDatabase::MatchExtension);
    return type.isDefault() ? text("kind_file") : type.comment();
}

QString imageOf(const FileEntry &entry)
{
    if (entry.isFolder) {
        return QStringLiteral("folder");
    }
    return QFileInfo(FileTypeMap::getInstance()->getFiletypeMapping(suffixOf(entry.name), false)).baseName();
}

QString suffixOf(const QString &name)
{
    const int point = name.lastIndexOf(u'.');
    return point > 0 ? name.mid(point + 1).toLower() : QString();
}
