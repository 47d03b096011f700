// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "operations/job.h"
#include "operations/transfer.h"

#include <QObject>

class Sheets;

/// What the user's actions do to files, with what is asked before and told afterwards.
class Commands : public QObject
{
    Q_OBJECT

public:
    Commands(Sheets *sheets, Job *job, QObject *parent);
    ~Commands() override;

    void createFolder(const QString &folder);
    void rename(const QString &path);
    void trash(const QStringList &paths);
    void removeForGood(const QStringList &paths);
    void transfer(const TransferRequest &request);
    void showProperties(const QString &path);
    void open(const QString &path);
    /// Tells of a folder that cannot be shown.
    void tellOfFolder(const DiskError &error);

Q_SIGNALS:
    /// Files have come, gone or got other names. @p name is what to look at; empty for nothing.
    void done(const QString &name);

private:
    void askForName(const char *promptKey, const QString &proposal, const QString &folder,
                    const std::function<DiskError(const QString &)> &act);
    void tell(const char *messageKey, const Outcome &outcome);

    Sheets *const m_sheets;
    Job *const m_job;
};
