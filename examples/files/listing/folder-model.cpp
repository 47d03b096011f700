// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "folder-model.h"

#include "disk/native-path.h"

#include <QtConcurrentRun>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto Pause = 200ms;
constexpr std::size_t ManyFiles = 5000;
constexpr std::ptrdiff_t PreviewSize = 200; // rows; more than a page has
constexpr int ThreadCount = 4; // a folder on a network may keep one for long

} // namespace

FolderModel::FolderModel(const KindTable &kinds, QObject *parent) : QObject(parent), m_kinds(kinds)
{
    m_shown.content = std::make_shared<FolderContent>();
    m_threads.setMaxThreadCount(ThreadCount);
    m_pause.setSingleShot(true);
    m_pause.setInterval(Pause);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_pause, qOverload<>(&QTimer::start));
    connect(&m_pause, &QTimer::timeout, this, &FolderModel::reload);
}

FolderModel::~FolderModel()
{
    if (m_isUnwanted) {
        *m_isUnwanted = true;
    }
    m_threads.waitForDone();
}

void FolderModel::open(const QString &folder)
{
    start(folder, true);
}

void FolderModel::reload()
{
    start(m_wanted, true);
}

void FolderModel::setOrder(const Order &order)
{
    m_order = order;
    start(m_wanted, m_isReading);
}

void FolderModel::setFilter(const Filter &filter)
{
    m_filter = filter;
    start(m_wanted, m_isReading);
}

QString FolderModel::folder() const
{
    return m_shown.content->folder;
}

Order FolderModel::order() const
{
    return m_order;
}

Filter FolderModel::filter() const
{
    return m_filter;
}

bool FolderModel::isBusy() const
{
    return m_isUnwanted != nullptr;
}

int FolderModel::count() const
{
    return static_cast<int>(m_shown.rows.size());
}

const FileEntry &FolderModel::at(int row) const
{
    return m_shown.content->entries[static_cast<std::size_t>(m_shown.rows[static_cast<std::size_t>(row)])];
}

int FolderModel::total() const
{
    return static_cast<int>(m_shown.content->entries.size());
}

qint64 FolderModel::shownBytes() const
{
    return m_shown.bytes;
}

int FolderModel::rowOf(const QString &name) const
{
    const auto row = std::find_if(m_shown.rows.cbegin(), m_shown.rows.cend(), [this, &name](int index) {
        return m_shown.content->entries[static_cast<std::size_t>(index)].name == name;
    });
    return row == m_shown.rows.cend() ? -1 : static_cast<int>(row - m_shown.rows.cbegin());
}

// What is under way for something else is not waited for, and its result is dropped.
void FolderModel::start(const QString &folder, bool isRead)
{
    if (m_isUnwanted) {
        *m_isUnwanted = true;
    }
    m_isUnwanted = std::make_shared<std::atomic<bool>>(false);
    m_isReading = isRead;
    m_wanted = folder;
    const Work work {folder, folder != m_shown.content->folder, m_order, m_filter, m_kinds, m_isUnwanted};
    QtConcurrent::run(&m_threads, [this, work, content = isRead ? nullptr : m_shown.content] {
        if (content) {
            hand(work, resultOf(work, content), true);
        } else {
            read(work);
        }
    });
}

FolderModel::Result FolderModel::resultOf(const Work &work, const std::shared_ptr<const FolderContent> &content)
{
    Result result {content, arranged(*content, work.order, work.filter, work.kinds)};
    for (const int row : result.rows) {
        result.bytes += std::max<qint64>(content->entries[static_cast<std::size_t>(row)].size, 0);
    }
    return result;
}

// Of many files the details take longer than the names: the first ones are shown without waiting for the rest.
void FolderModel::read(const Work &work)
{
    FolderContent content = readNames(work.folder, *work.isUnwanted);
    const bool needsDetails = work.order.column == SizeColumn || work.order.column == ChangedColumn
        || work.filter.from.isValid() || work.filter.to.isValid();
    if (work.isNew && content.entries.size() > ManyFiles && !needsDetails) {
        Result preview = resultOf(work, std::make_shared<const FolderContent>(content));
        FolderContent beginning = content;
        const auto end =
            preview.rows.cbegin() + std::min<std::ptrdiff_t>(PreviewSize, preview.rows.end() - preview.rows.begin());
        readDetails(&beginning, std::vector<int>(preview.rows.cbegin(), end));
        preview.content = std::make_shared<const FolderContent>(std::move(beginning));
        hand(work, preview, false);
    }
    readDetails(&content, *work.isUnwanted);
    hand(work, resultOf(work, std::make_shared<const FolderContent>(std::move(content))), true);
}

// To the GUI thread.
void FolderModel::hand(const Work &work, const Result &result, bool isLast)
{
    QMetaObject::invokeMethod(this, [this, result, isLast, isUnwanted = work.isUnwanted] {
        if (!*isUnwanted) {
            take(result, isLast);
        }
    });
}

void FolderModel::take(const Result &result, bool isLast)
{
    if (isLast) {
        m_isUnwanted.reset();
        m_isReading = false;
    }
    if (result.content->error) {
        m_wanted = m_shown.content->folder;
        Q_EMIT failed(result.content->error);
        return;
    }
    const bool isOther = m_shown.content->folder != result.content->folder;
    m_shown = result;
    if (isOther) {
        watch(folder());
        Q_EMIT opened();
    } else {
        Q_EMIT changed();
    }
}

// Of a folder whose name the toolkit does not know no changes are told.
void FolderModel::watch(const QString &folder)
{
    if (!m_watcher.directories().isEmpty()) {
        m_watcher.removePaths(m_watcher.directories());
    }
    if (isKnownToToolkit(folder)) {
        m_watcher.addPath(folder);
    }
}
