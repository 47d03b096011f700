// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "disk/disk-error.h"

#include <QStringList>
#include <QVector>

#include <atomic>

/// What a thread that works and one that looks on share.
struct Progress
{
    std::atomic<qint64> done {0}; ///< bytes
    std::atomic<qint64> total {0}; ///< bytes; 0 where it is not known
    std::atomic<bool> isStopped {false}; ///< the user does not want the rest
};

/// What has come of a piece of work on several files.
struct Outcome
{
    QStringList made; ///< names of what has appeared under a final name
    QVector<DiskError> errors; ///< of the files that stay as they were
    bool isStopped = false; ///< the rest is as it was
};

/// In place of an error's code: it was stopped.
constexpr int Stopped = -5;
