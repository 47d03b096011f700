// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "actions.h"
#include "commands.h"
#include "listing/folder-model.h"
#include "sheets.h"
#include "start/settings.h"
#include "start/start-request.h"

#include <QWidget>

class FileTable;
class FilterRow;
class FolderTree;
class FootRow;
class QSplitter;
class TopRow;

/// The window of the file manager: tree and table of the folders, and what is done to them.
class FilesWindow : public QWidget
{
    Q_OBJECT

public:
    explicit FilesWindow(const Settings &settings);
    ~FilesWindow() override;

    /// Shows a folder; an empty path changes nothing.
    void openFolder(const QString &folder);
    /// What a further start asks for.
    void obey(const StartRequest &request);

    const FolderModel *model() const;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *createViews();
    void layOut();
    void connectActions();
    void connectFolder();
    void retranslate();

    void showFolder();
    void climb(const DiskError &error);
    void choose(const FileEntry &entry);
    void showMenu(const QPoint &position);
    void showHelp();
    void applyFilter();
    void paste();
    void updateActions();
    QStringList selectedPaths() const;
    void keepSettings() const;

    FolderModel m_model;
    Job m_job;
    Actions m_actions;
    Sheets m_sheets;
    Commands m_commands;
    TopRow *m_top;
    FilterRow *m_filter;
    FolderTree *m_tree;
    FileTable *m_table;
    FootRow *m_foot;
    QSplitter *m_split;
    bool m_isClimbing = false;
};
