// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "listing/folder-model.h"

#include <VelaPagingBar>
#include <VelaPagingModel>

#include <QWidget>

class QTableWidget;
class VelaTableWidget;

/// The files of a folder, a page at a time.
class FileTable : public QWidget
{
    Q_OBJECT

public:
    /// @p model is the caller's and outlives the table.
    explicit FileTable(FolderModel *model, QWidget *parent = nullptr);
    ~FileTable() override;

    /// The names that are selected on the page.
    QStringList selectedNames() const;
    /// Their sizes in all.
    qint64 selectedBytes() const;
    /// The same as Return on the current row.
    void chooseCurrent();
    /// The file of that name is selected when it appears.
    void await(const QString &name);
    /// Turns to the page of a file and selects it, now or when it appears.
    void select(const QString &name);
    /// Gives the rows the keyboard focus.
    void focusRows();

Q_SIGNALS:
    /// A file was double-clicked, or Return pressed on it.
    void chosen(const FileEntry &entry);
    void selectionChanged();
    void menuWanted(const QPoint &position);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createTable();
    void connectSignals();
    void retranslate();
    void sortBy(int column);
    void showFolder();
    void renew();
    void showPage();
    void selectRows(const QStringList &names);
    void fillRow(int row, const FileEntry &entry);
    void showRange(int first, int count);
    void choose(int row);

    FolderModel *const m_model;
    VelaPagingModel m_pages;
    VelaPagingBar m_bar; // behind its model, so that it goes before that
    VelaTableWidget *m_table;
    QTableWidget *m_rows;
    QString m_awaited; // name of a file that is to be selected
};
