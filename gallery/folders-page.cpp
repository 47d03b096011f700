// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"

#include <FileSystemTreeWidgetItem>
#include <ItemDelegate>
#include <StyleManager>
#include <VelaButtonPath>
#include <VelaTreeWidget>

#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace {

constexpr int TreeHeight = 420;
constexpr int Spacing = 12;
const char HomePath[] = "home"; // path of the item that the tree keeps in front

// The person's folders, read when they are opened, with a breadcrumb path in step.
class FolderBrowser : public QWidget
{
public:
    explicit FolderBrowser(GalleryPage *page);

private:
    FileSystemTreeWidgetItem *createItem(const QString &name, const QString &path, const QDir &folder);
    void readChildren(QTreeWidgetItem *item);
    void showPathOf(QTreeWidgetItem *item);
    void goTo(const QString &path);
    static QDir folderOf(const QTreeWidgetItem *item);

    VelaButtonPath *m_path = new VelaButtonPath;
    VelaTreeWidget *m_tree = new VelaTreeWidget;
    ItemDelegate m_delegate;
};

FolderBrowser::FolderBrowser(GalleryPage *page)
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(Spacing));
    column->addWidget(m_path);
    column->addWidget(m_tree);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    m_tree->setFixedHeight(scaled(TreeHeight));
    m_tree->setHeaderHidden(true);
    m_tree->setItemDelegate(&m_delegate);
    m_tree->setEditTriggers(QAbstractItemView::EditKeyPressed);
    m_tree->setMouseTracking(true);
    m_tree->setStyleSheet(getStyleSheet("component.tree_item", false) + getStyleSheet("component.scrollbar", false));

    m_tree->addTopLevelItem(createItem(QStringLiteral("Home"), QLatin1String(HomePath), QDir::home()));
    m_tree->addTopLevelItem(createItem(QStringLiteral("Computer"), QDir::rootPath(), QDir::root()));
    m_tree->sortItems(0, Qt::AscendingOrder);
    m_tree->setSortingEnabled(true);

    connect(m_tree, &QTreeWidget::itemExpanded, this, &FolderBrowser::readChildren);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &FolderBrowser::showPathOf);
    connect(m_path, &VelaButtonPath::sigUpdatePath, this, &FolderBrowser::goTo);
    page->logSignal(QStringLiteral("Path"), m_path, &VelaButtonPath::sigUpdatePath);
    connect(m_tree, &QTreeWidget::itemChanged, page, [page](const QTreeWidgetItem *item) {
        Q_EMIT page->logged(QStringLiteral("Tree: itemChanged(\"%1\")").arg(item->text(0)));
    });
    connect(m_tree, &VelaTreeWidget::sigMouseRightClickEvent, page,
            [page] { Q_EMIT page->logged(QStringLiteral("Tree: sigMouseRightClickEvent()")); });
    connect(&m_delegate, &ItemDelegate::sigKeyPressed, page,
            [page] { Q_EMIT page->logged(QStringLiteral("Delegate: sigKeyPressed()")); });

    m_tree->topLevelItem(0)->setExpanded(true);
    m_tree->setCurrentItem(m_tree->topLevelItem(0));
}

FileSystemTreeWidgetItem *FolderBrowser::createItem(const QString &name, const QString &path, const QDir &folder)
{
    auto *item = new FileSystemTreeWidgetItem;
    item->setText(0, name);
    item->path = path;
    item->setCheckState(0, Qt::Unchecked);
    Qt::ItemFlags flags = item->flags() | Qt::ItemIsEditable;
    // What cannot be read is shown greyed.
    flags.setFlag(Qt::ItemIsUserCheckable, QFileInfo(folder.path()).isReadable());
    item->setFlags(flags);
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
    if (!folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty()) {
        item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    }
    return item;
}

QDir FolderBrowser::folderOf(const QTreeWidgetItem *item)
{
    const QString &path = static_cast<const FileSystemTreeWidgetItem *>(item)->getPath();
    return path == QLatin1String(HomePath) ? QDir::home() : QDir(path);
}

void FolderBrowser::readChildren(QTreeWidgetItem *item)
{
    if (item->childCount() > 0) {
        return;
    }
    const QDir folder = folderOf(item);
    const QStringList names = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        const QString path = folder.filePath(name);
        item->addChild(createItem(name, path, QDir(path)));
    }
}

void FolderBrowser::showPathOf(QTreeWidgetItem *item)
{
    QStringList names;
    for (; item; item = item->parent()) {
        names.prepend(item->text(0));
    }
    m_path->slotUpdatePath(names.join(QLatin1Char('/')));
}

void FolderBrowser::goTo(const QString &path)
{
    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QTreeWidgetItem *item = m_tree->invisibleRootItem();
    for (const QString &name : names) {
        for (int i = 0; i < item->childCount(); ++i) {
            if (item->child(i)->text(0) == name) {
                item = item->child(i);
                break;
            }
        }
    }
    m_tree->setCurrentItem(item);
    m_tree->scrollToItem(item);
    m_tree->updateScrollArea(item);
}

} // namespace

GalleryPage *createFoldersPage(const QString &title)
{
    auto *page = new GalleryPage(title, QStringLiteral("Your own folders. F2 renames one here only, not on the disk."));
    page->addSection(
        QStringLiteral("VelaButtonPath and VelaTreeWidget"),
        QStringLiteral("A click in the path goes to that folder (component.button_path, component.tree_item)."));
    page->addWide(new FolderBrowser(page));

    page->addSection(QStringLiteral("Paths"),
                     QStringLiteral("A long one keeps its end in view and the rest in a menu."));
    for (const char *path : {"Documents/Letters",
                             "Home/Documents/Research & development/Correspondence with suppliers/"
                             "Quotations and invoices of the last financial year/November"}) {
        auto *bar = new VelaButtonPath;
        bar->setMinimumWidth(scaled(TreeHeight));
        page->logSignal(QStringLiteral("Path"), bar, &VelaButtonPath::sigUpdatePath);
        page->addExample(QStringLiteral("Path"), {}, {bar});
        // The row is cut to the width that the bar has once it is shown.
        QMetaObject::invokeMethod(
            bar, [bar, path] { bar->refresh(QString::fromLatin1(path)); }, Qt::QueuedConnection);
    }
    return page;
}
