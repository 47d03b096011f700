// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "folder-tree.h"

#include "disk/folder-reader.h"
#include "disk/native-path.h"
#include "look.h"
#include "texts/texts.h"

#include <ImageManager>

#include <QDir>
#include <QTreeWidgetItemIterator>
#include <QtConcurrentRun>

#include <set>

namespace {

enum Place { Home, Root };

constexpr int ThreadCount = 2;
constexpr qint64 Read = 1; // of an item whose folder has been read

} // namespace

FolderTree::FolderTree(QWidget *parent) : VelaTreeWidget(parent)
{
    m_threads.setMaxThreadCount(ThreadCount);
    setHeaderHidden(true);
    setItemDelegate(&m_delegate);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    followSections(this, {QStringLiteral("component.tree_item"), QStringLiteral("component.scrollbar")});
    addTopLevelItem(createItem(QString(), QDir::homePath()));
    addTopLevelItem(createItem(QString(), QStringLiteral("/")));
    connect(this, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem *item) { read(static_cast<Item *>(item)->path); });
    connect(this, &QTreeWidget::currentItemChanged, this, &FolderTree::tell);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FolderTree::read);
    followTheme(this, [this] { renewLook(); });
    topLevelItem(Home)->setExpanded(true);
}

FolderTree::~FolderTree()
{
    m_threads.waitForDone();
}

void FolderTree::goTo(const QString &folder)
{
    m_goal = folder;
    goOn();
}

void FolderTree::setHiddenShown(bool isShown)
{
    if (m_hasHidden == isShown) {
        return;
    }
    m_hasHidden = isShown;
    const QStringList folders = m_watcher.directories();
    for (const QString &folder : folders) {
        read(folder);
    }
}

void FolderTree::renewLook()
{
    setAccessibleName(text("folders"));
    topLevelItem(Home)->setText(0, text("home"));
    topLevelItem(Root)->setText(0, text("computer"));
    const QIcon icon(getGlobalImage("folder", ImageManager::IMAGE_NORMAL));
    for (QTreeWidgetItemIterator item(this); *item; ++item) {
        (*item)->setIcon(0, icon);
    }
}

FolderTree::Item *FolderTree::placeOf(const QString &folder) const
{
    return static_cast<Item *>(topLevelItem(isWithin(folder, QDir::homePath()) ? Home : Root));
}

FolderTree::Item *FolderTree::createItem(const QString &name, const QString &path) const
{
    auto *item = new Item;
    item->setText(0, shownName(name));
    item->setIcon(0, getGlobalImage("folder", ImageManager::IMAGE_NORMAL));
    item->path = path;
    // The tree draws what cannot be checked as disabled; the box itself only shows where there is a state.
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

// What the tree has of the way to a folder, to its end.
FolderTree::Item *FolderTree::nearestTo(const QString &folder) const
{
    Item *nearest = placeOf(folder);
    for (int i = 0; i < nearest->childCount(); ++i) {
        auto *child = static_cast<Item *>(nearest->child(i));
        if (isWithin(folder, child->path)) {
            nearest = child;
            i = -1;
        }
    }
    return nearest;
}

void FolderTree::read(const QString &folder)
{
    QtConcurrent::run(&m_threads, [this, folder, withHidden = m_hasHidden] {
        const std::vector<QString> names = readSubfolders(folder, withHidden);
        QMetaObject::invokeMethod(this, [this, folder, names] { take(folder, names); });
    });
}

void FolderTree::take(const QString &folder, const std::vector<QString> &names)
{
    Item *item = nearestTo(folder);
    if (item->path != folder) {
        return;
    }
    m_isTelling = false;
    replaceChildren(item, names);
    m_isTelling = true;
    item->clientData = Read;
    item->setChildIndicatorPolicy(names.empty() ? QTreeWidgetItem::DontShowIndicator : QTreeWidgetItem::ShowIndicator);
    if (isKnownToToolkit(folder)) {
        m_watcher.addPath(folder);
    }
    goOn();
}

// Items of folders that are still there stay, with what is open below them. Both are in the same order.
void FolderTree::replaceChildren(Item *item, const std::vector<QString> &names)
{
    const std::set<QString> wanted(names.cbegin(), names.cend());
    int place = 0;
    const auto removeOthers = [&] {
        while (place < item->childCount()
               && wanted.count(nameOfPath(static_cast<Item *>(item->child(place))->path)) == 0) {
            forget(item->child(place));
            delete item->child(place);
        }
    };
    for (const QString &name : names) {
        removeOthers();
        const QString path = joinedPath(item->path, name);
        if (place == item->childCount() || static_cast<Item *>(item->child(place))->path != path) {
            item->insertChild(place, createItem(name, path));
        }
        ++place;
    }
    removeOthers();
}

// One step nearer to the goal. When what lies on the way has been read, take() goes on.
void FolderTree::goOn()
{
    if (m_goal.isEmpty()) {
        return;
    }
    Item *item = nearestTo(m_goal);
    if (item->path != m_goal && item->clientData != Read) {
        item->setExpanded(true);
        return;
    }
    m_goal.clear();
    m_isTelling = false;
    setCurrentItem(item);
    m_isTelling = true;
    scrollToItem(item);
    updateScrollArea(item);
}

void FolderTree::tell(QTreeWidgetItem *item)
{
    if (item && m_isTelling) {
        Q_EMIT chosen(static_cast<Item *>(item)->path);
    }
}

void FolderTree::forget(const QTreeWidgetItem *item)
{
    m_watcher.removePath(static_cast<const Item *>(item)->path);
    for (int i = 0; i < item->childCount(); ++i) {
        forget(item->child(i));
    }
}
