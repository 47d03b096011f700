// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/item-view_p.h"

#include <QHeaderView>

namespace Vela::Accessible {

ItemView::ItemView(QAbstractItemView *view, QAccessible::Role role) : QAccessibleWidget(view, role) { }

ItemView::~ItemView()
{
    for (QAccessible::Id id : qAsConst(m_cells)) {
        QAccessible::deleteAccessibleInterface(id);
    }
    forget(m_columnHeaderCells);
    forget(m_rowHeaderCells);
}

void ItemView::forget(Ids &ids) const
{
    for (QAccessible::Id id : qAsConst(ids)) {
        QAccessible::deleteAccessibleInterface(id);
    }
    ids.clear();
}

QAbstractItemView *ItemView::view() const
{
    return static_cast<QAbstractItemView *>(widget());
}

QHeaderView *ItemView::rowHeader() const
{
    return nullptr;
}

int ItemView::firstColumn() const
{
    return rowHeader() ? 1 : 0;
}

Cell *ItemView::createCell(const QModelIndex &index) const
{
    return new Cell(view(), index, QAccessible::Cell);
}

QAccessibleInterface *ItemView::cellOf(const QModelIndex &index) const
{
    if (!index.isValid()) {
        return nullptr;
    }
    QAccessible::Id &id = m_cells[index];
    if (!id) {
        id = QAccessible::registerAccessibleInterface(createCell(index));
    }
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface *ItemView::headerCell(Ids &ids, QHeaderView *header, int section) const
{
    QAccessible::Id &id = ids[section];
    if (!id) {
        id = QAccessible::registerAccessibleInterface(new HeaderCell(view(), header, section));
    }
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface *ItemView::columnHeaderCell(int column) const
{
    return columnHeader() ? headerCell(m_columnHeaderCells, columnHeader(), column) : nullptr;
}

QAccessibleInterface *ItemView::rowHeaderCell(int row) const
{
    return rowHeader() ? headerCell(m_rowHeaderCells, rowHeader(), row) : nullptr;
}

QAccessibleInterface *ItemView::shownColumnHeaderCell(int column) const
{
    return columnHeader() && !columnHeader()->isHidden() ? columnHeaderCell(column) : nullptr;
}

QAccessibleInterface *ItemView::shownRowHeaderCell(int row) const
{
    return rowHeader() && !rowHeader()->isHidden() ? rowHeaderCell(row) : nullptr;
}

QString ItemView::text(QAccessible::Text text) const
{
    const QString given = QAccessibleWidget::text(text);
    return text == QAccessible::Name && given.isEmpty() ? name() : given;
}

QAccessible::State ItemView::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const QAbstractItemView::SelectionMode mode = view()->selectionMode();
    state.multiSelectable = mode == QAbstractItemView::MultiSelection;
    state.extSelectable =
        mode == QAbstractItemView::ExtendedSelection || mode == QAbstractItemView::ContiguousSelection;
    return state;
}

int ItemView::columnCount() const
{
    return view()->model() ? view()->model()->columnCount(view()->rootIndex()) : 0;
}

QAccessibleInterface *ItemView::child(int index) const
{
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    const int width = columnCount() + firstColumn();
    const int row = index / width - 1;
    const int column = index % width - firstColumn();
    if (row < 0) {
        return column < 0 ? headerCell(m_columnHeaderCells, nullptr, column) : columnHeaderCell(column);
    }
    return column < 0 ? rowHeaderCell(row) : cellOf(indexAt(row, column));
}

int ItemView::childCount() const
{
    return columnCount() == 0 ? 0 : (rowCount() + 1) * (columnCount() + firstColumn());
}

int ItemView::indexOfChild(const QAccessibleInterface *child) const
{
    auto *part = const_cast<QAccessibleInterface *>(child);
    const QAccessibleTableCellInterface *place = part ? part->tableCellInterface() : nullptr;
    if (!place || part->parent() != this) {
        return -1;
    }
    const int width = columnCount() + firstColumn();
    switch (part->role()) {
    case QAccessible::Pane:
        return 0;
    case QAccessible::ColumnHeader:
        return firstColumn() + place->columnIndex();
    case QAccessible::RowHeader:
        return (place->rowIndex() + 1) * width;
    default:
        return place->rowIndex() < 0 ? -1 : (place->rowIndex() + 1) * width + firstColumn() + place->columnIndex();
    }
}

QAccessibleInterface *ItemView::childAt(int x, int y) const
{
    const QWidget *viewport = view()->viewport();
    const QPoint position = viewport->mapFromGlobal(QPoint(x, y));
    if (viewport->rect().contains(position)) {
        return cellOf(view()->indexAt(position));
    }
    for (int column = 0; column < columnCount(); ++column) {
        QAccessibleInterface *header = columnHeaderCell(column);
        if (header && header->rect().contains(x, y)) {
            return header;
        }
    }
    return nullptr;
}

QAccessibleInterface *ItemView::focusChild() const
{
    return view()->hasFocus() ? cellOf(view()->currentIndex()) : QAccessibleWidget::focusChild();
}

void *ItemView::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface *>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface *ItemView::caption() const
{
    return nullptr;
}

QAccessibleInterface *ItemView::summary() const
{
    return nullptr;
}

QAccessibleInterface *ItemView::cellAt(int row, int column) const
{
    const bool isPlace = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return isPlace ? cellOf(indexAt(row, column)) : nullptr;
}

int ItemView::selectedCellCount() const
{
    return selectedCells().size();
}

QList<QAccessibleInterface *> ItemView::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    const QModelIndexList indexes =
        view()->selectionModel() ? view()->selectionModel()->selectedIndexes() : QModelIndexList();
    for (const QModelIndex &index : indexes) {
        cells.append(cellOf(index));
    }
    return cells;
}

QString ItemView::columnDescription(int column) const
{
    QAccessibleInterface *header = columnHeaderCell(column);
    return header ? header->text(QAccessible::Name) : QString();
}

QString ItemView::rowDescription(int row) const
{
    QAccessibleInterface *header = rowHeaderCell(row);
    return header ? header->text(QAccessible::Name) : QString();
}

int ItemView::selectedColumnCount() const
{
    return selectedColumns().size();
}

int ItemView::selectedRowCount() const
{
    return selectedRows().size();
}

QList<int> ItemView::selectedColumns() const
{
    QList<int> columns;
    for (int column = 0; column < columnCount(); ++column) {
        if (isColumnSelected(column)) {
            columns.append(column);
        }
    }
    return columns;
}

QList<int> ItemView::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList indexes =
        view()->selectionModel() ? view()->selectionModel()->selectedRows() : QModelIndexList();
    for (const QModelIndex &index : indexes) {
        if (rowOf(index) >= 0) {
            rows.append(rowOf(index));
        }
    }
    return rows;
}

bool ItemView::isColumnSelected(int column) const
{
    return view()->selectionModel() && view()->selectionModel()->isColumnSelected(column, view()->rootIndex());
}

bool ItemView::isRowSelected(int row) const
{
    if (row < 0 || row >= rowCount() || columnCount() == 0) {
        return false;
    }
    const QModelIndex index = indexAt(row, 0);
    return view()->selectionModel()->isRowSelected(index.row(), index.parent());
}

bool ItemView::selectRow(int row)
{
    if (row < 0 || row >= rowCount() || columnCount() == 0
        || view()->selectionMode() == QAbstractItemView::NoSelection) {
        return false;
    }
    const bool isSingle = view()->selectionMode() == QAbstractItemView::SingleSelection;
    view()->selectionModel()->select(
        indexAt(row, 0),
        QItemSelectionModel::Rows | (isSingle ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select));
    return true;
}

bool ItemView::selectColumn(int)
{
    return false;
}

bool ItemView::unselectRow(int row)
{
    if (!isRowSelected(row)) {
        return false;
    }
    view()->selectionModel()->select(indexAt(row, 0), QItemSelectionModel::Rows | QItemSelectionModel::Deselect);
    return true;
}

bool ItemView::unselectColumn(int)
{
    return false;
}

// Items that stay keep their interfaces, wherever they are now.
void ItemView::modelChange(QAccessibleTableModelChangeEvent *)
{
    for (auto cell = m_cells.begin(); cell != m_cells.end();) {
        if (cell.key().isValid()) {
            ++cell;
        } else {
            QAccessible::deleteAccessibleInterface(cell.value());
            cell = m_cells.erase(cell);
        }
    }
    forget(m_columnHeaderCells);
    forget(m_rowHeaderCells);
}

} // namespace Vela::Accessible
