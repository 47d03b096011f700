// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/item-view_p.h"

#include "accessible/plain-text_p.h"
#include "look/look_p.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTreeView>

namespace Vela::Accessible {

namespace {

QTreeView *treeOf(const ItemView *interface)
{
    return static_cast<QTreeView *>(interface->view());
}

class TreeCell : public Cell
{
public:
    TreeCell(QAbstractItemView *tree, const QModelIndex &index) : Cell(tree, index, QAccessible::TreeItem) { }

    QString text(QAccessible::Text text) const override
    {
        const QString own = Cell::text(text);
        if (text != QAccessible::Description || !isValid()) {
            return own;
        }
        int level = 1;
        for (QModelIndex parent = index().parent(); parent.isValid() && parent != view()->rootIndex();
             parent = parent.parent()) {
            ++level;
        }
        return joined({own, Look::spoken(SpokenText::Level, view()->locale().toString(level))});
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = Cell::state();
        if (isValid() && index().column() == 0 && index().model()->hasChildren(index())) {
            state.expandable = true;
            state.expanded = tree()->isExpanded(index());
            state.collapsed = !state.expanded;
        }
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names = Cell::actionNames();
        const QAccessible::State now = state();
        if (now.expandable || now.checkable) {
            names.append(toggleAction());
        }
        return names;
    }

    // A branch is folded or unfolded; another row is checked, if it can be.
    void doAction(const QString &name) override
    {
        if (name != toggleAction() || !actionNames().contains(name)) {
            Cell::doAction(name);
        } else if (state().expandable) {
            tree()->setExpanded(index(), !tree()->isExpanded(index()));
        } else {
            const int check = state().checked ? Qt::Unchecked : Qt::Checked;
            view()->model()->setData(index(), check, Qt::CheckStateRole);
        }
    }

private:
    QTreeView *tree() const { return static_cast<QTreeView *>(view()); }
};

class PaintWatch : public QObject
{
public:
    PaintWatch(QWidget *viewport, bool &isPainted) : m_isPainted(isPainted) { viewport->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_isPainted = m_isPainted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool &m_isPainted;
};

} // namespace

Tree::Tree(QAbstractItemView *tree) :
    ItemView(tree, QAccessible::Tree), m_watch(std::make_unique<PaintWatch>(tree->viewport(), m_isPainted))
{
    const auto outdate = [this] { m_isOutOfDate = true; };
    QObject::connect(treeOf(this), &QTreeView::expanded, m_watch.get(), outdate);
    QObject::connect(treeOf(this), &QTreeView::collapsed, m_watch.get(), outdate);
    QAbstractItemModel *model = tree->model(); // a tree of items keeps its model
    QObject::connect(model, &QAbstractItemModel::rowsInserted, m_watch.get(), outdate);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, m_watch.get(), outdate);
    QObject::connect(model, &QAbstractItemModel::rowsMoved, m_watch.get(), outdate);
    QObject::connect(model, &QAbstractItemModel::layoutChanged, m_watch.get(), outdate);
    QObject::connect(model, &QAbstractItemModel::modelReset, m_watch.get(), outdate);
}

const QVector<QPersistentModelIndex> &Tree::rows() const
{
    // No signal tells that a row is hidden or shown, but the tree is painted anew.
    if (m_isOutOfDate || (m_isPainted && !isAsKnown())) {
        m_isOutOfDate = false;
        m_rows.clear();
        m_places.clear();
        const QTreeView *tree = treeOf(this);
        int first = 0;
        while (tree->isRowHidden(first, tree->rootIndex())) {
            ++first;
        }
        QModelIndex row = tree->model()->index(first, 0, tree->rootIndex());
        for (; row.isValid(); row = tree->indexBelow(row)) {
            const QModelIndex start = row.sibling(row.row(), 0);
            m_places.insert(start, m_rows.size());
            m_rows.append(start);
        }
        m_scrollRange = tree->verticalScrollBar()->maximum();
    }
    m_isPainted = false;
    return m_rows;
}

// Whether there is as much to be scrolled and the rows in view are those that are known: a tree is painted often, and
// to walk all its rows takes a tenth of a second where there are 100,000.
bool Tree::isAsKnown() const
{
    const QTreeView *tree = treeOf(this);
    const QScrollBar *bar = tree->verticalScrollBar();
    QModelIndex row = tree->indexAt({tree->header()->sectionViewportPosition(0), 0});
    int place = row.isValid() ? m_places.value(row.sibling(row.row(), 0), -1) : m_rows.size();
    if (bar->maximum() != m_scrollRange || (bar->value() == bar->minimum() && row.isValid() && place != 0)) {
        return false;
    }
    while (row.isValid() && tree->visualRect(row).top() < tree->viewport()->height()) {
        if (place < 0 || place == m_rows.size() || m_rows.at(place) != row.sibling(row.row(), 0)) {
            return false;
        }
        row = tree->indexBelow(row);
        ++place;
    }
    return row.isValid() || place == m_rows.size();
}

int Tree::rowCount() const
{
    return rows().size();
}

int Tree::rowOf(const QModelIndex &index) const
{
    rows();
    return m_places.value(index.sibling(index.row(), 0), -1);
}

QString Tree::name() const
{
    return Look::spoken(SpokenText::Folders);
}

QModelIndex Tree::indexAt(int row, int column) const
{
    const QModelIndex start = rows().at(row);
    return start.sibling(start.row(), column);
}

Cell *Tree::createCell(const QModelIndex &index) const
{
    return new TreeCell(view(), index);
}

QHeaderView *Tree::columnHeader() const
{
    return treeOf(this)->header();
}

} // namespace Vela::Accessible
