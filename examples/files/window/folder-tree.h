// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <FileSystemTreeWidgetItem>
#include <ItemDelegate>
#include <VelaTreeWidget>

#include <QFileSystemWatcher>
#include <QThreadPool>

#include <vector>

/// The folders of the disk: home and root. A folder is read in the background when it is opened, and watched from then
/// on.
class FolderTree : public VelaTreeWidget
{
    Q_OBJECT

public:
    explicit FolderTree(QWidget *parent = nullptr);
    ~FolderTree() override;

    /// Opens the way to a folder and makes it the current one.
    void goTo(const QString &folder);
    /// Whether folders whose names begin with a point are among them.
    void setHiddenShown(bool isShown);

Q_SIGNALS:
    /// The user has made a folder the current one.
    void chosen(const QString &folder);

private:
    using Item = FileSystemTreeWidgetItem;

    void renewLook();
    Item *placeOf(const QString &folder) const;
    Item *createItem(const QString &name, const QString &path) const;
    Item *nearestTo(const QString &folder) const;
    void read(const QString &folder);
    void take(const QString &folder, const std::vector<QString> &names);
    void replaceChildren(Item *item, const std::vector<QString> &names);
    void goOn();
    void tell(QTreeWidgetItem *item);
    void forget(const QTreeWidgetItem *item);

    ItemDelegate m_delegate;
    QFileSystemWatcher m_watcher;
    QString m_goal; // folder that is to become the current one
    bool m_hasHidden = false;
    bool m_isTelling = true;
    QThreadPool m_threads;
};
