// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A tree of folders and a path that show the same folder.

#include <FileSystemTreeWidgetItem>
#include <ItemDelegate>
#include <StyleManager>
#include <VelaButtonPath>
#include <VelaTheme>
#include <VelaTreeWidget>

#include <QApplication>
#include <QVBoxLayout>

namespace {

FileSystemTreeWidgetItem *createItem(const QString &name)
{
    auto *item = new FileSystemTreeWidgetItem;
    item->setText(0, name);
    // What cannot be checked is drawn as disabled; no box shows while there is no state.
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    return item;
}

QString pathOf(const QTreeWidgetItem *item)
{
    return item->parent() ? QString(pathOf(item->parent()) + QLatin1Char('/') + item->text(0)) : item->text(0);
}

// A path that was clicked on has no "/" in front.
QTreeWidgetItem *itemOf(QTreeWidget *tree, const QString &path)
{
    QTreeWidgetItem *item = tree->invisibleRootItem();
    const QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        for (int i = 0; i < item->childCount(); ++i) {
            if (item->child(i)->text(0) == name) {
                item = item->child(i);
                break;
            }
        }
    }
    return item;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    QWidget window;
    auto *path = new VelaButtonPath;
    auto *tree = new VelaTreeWidget;
    ItemDelegate delegate; // the tree does not own it
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(path);
    layout->addWidget(tree);
    tree->setHeaderHidden(true);
    tree->setItemDelegate(&delegate);
    tree->setStyleSheet(getStyleSheet("component.tree_item", false) + getStyleSheet("component.scrollbar", false));
    FileSystemTreeWidgetItem *home = createItem(QStringLiteral("Home"));
    home->addChild(createItem(QStringLiteral("Letters")));
    home->addChild(createItem(QStringLiteral("Pictures")));
    tree->addTopLevelItem(home);
    home->setExpanded(true);

    QObject::connect(tree, &QTreeWidget::currentItemChanged, path, [path](QTreeWidgetItem *item) {
        if (item) {
            path->refresh(pathOf(item));
        }
    });
    QObject::connect(path, &VelaButtonPath::sigUpdatePath, tree,
                     [tree](const QString &chosen) { tree->setCurrentItem(itemOf(tree, chosen)); });
    window.show();
    tree->setCurrentItem(home->child(0));
    return application.exec();
}
