// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "folder-reader.h"

#include "native-path.h"

#include <QCollator>
#include <QtConcurrentMap>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <numeric>
#include <sys/stat.h>

// QDirIterator leaves names that are no UTF-8 out.

namespace {

constexpr std::size_t ChunkSize = 16384; // entries that a thread takes at a time

struct Closer
{
    void operator()(DIR *folder) const { closedir(folder); }
};

using OpenFolder = std::unique_ptr<DIR, Closer>;

OpenFolder openFolder(const QString &path)
{
    return OpenFolder(opendir(bytesFromPath(path).constData()));
}

struct Range
{
    std::size_t begin;
    std::size_t end;
};

std::vector<Range> rangesOf(std::size_t count)
{
    std::vector<Range> ranges;
    for (std::size_t begin = 0; begin < count; begin += ChunkSize) {
        ranges.push_back({begin, std::min(count, begin + ChunkSize)});
    }
    return ranges;
}

// Of what has gone meanwhile, nothing is known.
void describe(int folder, FileEntry *entry)
{
    const QByteArray name = bytesFromPath(entry->name);
    entry->size = 0;
    struct stat status = {};
    if (fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return;
    }
    entry->isLink = S_ISLNK(status.st_mode);
    struct stat target = {};
    if (entry->isLink && fstatat(folder, name.constData(), &target, 0) == 0) {
        status = target;
    }
    entry->isFolder = S_ISDIR(status.st_mode);
    entry->size = entry->isFolder ? 0 : status.st_size;
    entry->changed = status.st_mtime;
}

// The next one; without a name at the end.
FileEntry nextEntry(DIR *folder)
{
    while (const dirent *found = readdir(folder)) {
        FileEntry entry;
        entry.name = pathFromBytes(found->d_name);
        if (entry.name == u"." || entry.name == u"..") {
            continue;
        }
        entry.isFolder = found->d_type == DT_DIR;
        if (found->d_type == DT_LNK || found->d_type == DT_UNKNOWN) {
            describe(dirfd(folder), &entry);
        }
        return entry;
    }
    return {};
}

// Comparing keys is many times quicker than comparing names by the rules of a language.
struct Keyed
{
    bool operator<(const Keyed &other) const
    {
        const int order = key.compare(other.key);
        return order != 0 ? order < 0 : entry.name < other.entry.name;
    }

    QCollatorSortKey key;
    FileEntry entry;
};

std::vector<Keyed> sortedChunk(const std::vector<FileEntry> &entries, const Range &range)
{
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<Keyed> keyed;
    keyed.reserve(range.end - range.begin);
    for (std::size_t i = range.begin; i < range.end; ++i) {
        keyed.push_back({collator.sortKey(entries[i].name), entries[i]});
    }
    std::sort(keyed.begin(), keyed.end());
    return keyed;
}

void sortByName(std::vector<FileEntry> *entries)
{
    const std::vector<Range> ranges = rangesOf(entries->size());
    std::vector<std::vector<Keyed>> chunks(ranges.size());
    std::vector<std::size_t> numbers(ranges.size());
    std::iota(numbers.begin(), numbers.end(), std::size_t(0));
    QtConcurrent::blockingMap(numbers, [&](std::size_t i) { chunks[i] = sortedChunk(*entries, ranges[i]); });
    std::vector<Keyed> all;
    all.reserve(entries->size());
    for (std::vector<Keyed> &chunk : chunks) {
        const auto middle = static_cast<std::ptrdiff_t>(all.size());
        std::move(chunk.begin(), chunk.end(), std::back_inserter(all));
        std::inplace_merge(all.begin(), all.begin() + middle, all.end());
    }
    std::transform(all.begin(), all.end(), entries->begin(), [](Keyed &one) { return std::move(one.entry); });
}

} // namespace

FolderContent readNames(const QString &folder, const std::atomic<bool> &isUnwanted)
{
    FolderContent content;
    content.folder = folder;
    const OpenFolder open = openFolder(folder);
    if (!open) {
        content.error = DiskError::last(folder);
        return content;
    }
    for (FileEntry entry = nextEntry(open.get()); !entry.name.isEmpty() && !isUnwanted; entry = nextEntry(open.get())) {
        content.entries.push_back(entry);
    }
    sortByName(&content.entries);
    return content;
}

void readDetails(FolderContent *content, const std::atomic<bool> &isUnwanted)
{
    const OpenFolder open = openFolder(content->folder);
    std::vector<Range> ranges = rangesOf(content->entries.size());
    QtConcurrent::blockingMap(ranges, [&](const Range &range) {
        for (std::size_t i = range.begin; open && i < range.end && !isUnwanted; ++i) {
            describe(dirfd(open.get()), &content->entries[i]);
        }
    });
}

void readDetails(FolderContent *content, const std::vector<int> &indexes)
{
    const OpenFolder open = openFolder(content->folder);
    for (const int index : open ? indexes : std::vector<int>()) {
        describe(dirfd(open.get()), &content->entries[static_cast<std::size_t>(index)]);
    }
}

std::vector<QString> readSubfolders(const QString &folder, bool withHidden)
{
    std::vector<QString> names;
    const FolderContent content = readNames(folder, std::atomic<bool>(false));
    for (const FileEntry &entry : content.entries) {
        if (entry.isFolder && !entry.isLink && (withHidden || !entry.isHidden())) {
            names.push_back(entry.name);
        }
    }
    return names;
}
