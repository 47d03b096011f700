// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "disk-error.h"

#include <QString>

#include <atomic>
#include <vector>

/// A file of a folder.
struct FileEntry
{
    static constexpr qint64 NotRead = -1;

    bool isHidden() const { return name.startsWith(u'.'); }

    QString name; ///< see native-path.h
    qint64 size = NotRead; ///< bytes; 0 of a folder
    qint64 changed = 0; ///< seconds since 1970
    bool isFolder = false; ///< or a link to one
    bool isLink = false;
};

/// What a folder holds, in the order of the names.
struct FolderContent
{
    QString folder;
    std::vector<FileEntry> entries;
    DiskError error; ///< why it cannot be read
};

/// Reads the names, and which of them are folders. This and the next two are for threads of the background; they stop
/// when
/// @p isUnwanted becomes true.
FolderContent readNames(const QString &folder, const std::atomic<bool> &isUnwanted);
/// Reads the rest of all entries.
void readDetails(FolderContent *content, const std::atomic<bool> &isUnwanted);
/// Reads the rest of some, by their indexes.
void readDetails(FolderContent *content, const std::vector<int> &indexes);

/// The names of the folders in a folder, in their order.
std::vector<QString> readSubfolders(const QString &folder, bool withHidden);
