// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <VelaFootbar>

class Actions;
class FolderModel;
class Job;
class QLabel;
class VelaButton;

/// What the folder holds, how far the work is, and what can be done.
class FootRow : public VelaFootbar
{
    Q_OBJECT

public:
    FootRow(const Actions &actions, const FolderModel *model, Job *job, QWidget *parent = nullptr);
    ~FootRow() override;

    void showCounts(int selectedCount, qint64 selectedBytes);

private:
    void showProgress();

    const FolderModel *const m_model;
    Job *const m_job;
    QLabel *m_counts;
    QLabel *m_progress;
    VelaButton *m_stop;
};
