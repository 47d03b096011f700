// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "arrangement.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <memory>
#include <vector>

/// The files of a folder, filtered and sorted. It reads and sorts in the background and keeps what it has until that is
/// done; a folder whose content changes is read again.
class FolderModel : public QObject
{
    Q_OBJECT

public:
    explicit FolderModel(const KindTable &kinds, QObject *parent = nullptr);
    ~FolderModel() override;

    /// Reads a folder; opened() or failed() follows.
    void open(const QString &folder);
    /// Reads the folder again; changed() or failed() follows.
    void reload();
    /// Sorts and filters again; changed() follows.
    void setOrder(const Order &order);
    void setFilter(const Filter &filter);

    /// What has been opened last.
    QString folder() const;
    Order order() const;
    Filter filter() const;
    /// Whether something is under way.
    bool isBusy() const;

    /// How many files are shown, and the one at that place.
    int count() const;
    const FileEntry &at(int row) const;
    /// How many there are without the filter.
    int total() const;
    qint64 shownBytes() const;
    /// Where a file of that name is shown; -1 if it is not.
    int rowOf(const QString &name) const;

Q_SIGNALS:
    /// Another folder is shown.
    void opened();
    /// The same folder is shown in another way.
    void changed();
    void failed(const DiskError &error);

private:
    struct Result
    {
        std::shared_ptr<const FolderContent> content;
        std::vector<int> rows;
        qint64 bytes = 0;
    };

    // What a thread is asked for.
    struct Work
    {
        QString folder;
        bool isNew; // not shown yet
        Order order;
        Filter filter;
        KindTable kinds;
        std::shared_ptr<std::atomic<bool>> isUnwanted;
    };

    void start(const QString &folder, bool isRead);
    static Result resultOf(const Work &work, const std::shared_ptr<const FolderContent> &content);
    void read(const Work &work);
    void hand(const Work &work, const Result &result, bool isLast);
    void take(const Result &result, bool isLast);
    void watch(const QString &folder);

    KindTable m_kinds;
    Order m_order;
    Filter m_filter;
    Result m_shown;
    QString m_wanted; // the folder that is read, or shown
    bool m_isReading = false;
    std::shared_ptr<std::atomic<bool>> m_isUnwanted; // what is under way; null without
    QFileSystemWatcher m_watcher;
    QTimer m_pause; // of changes that come thick and fast
    QThreadPool m_threads;
};
