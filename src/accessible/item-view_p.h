// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>

#include <memory>

class QHeaderView;

namespace Vela::Accessible {

class ItemView;

/// What an item view shows in one place: not a widget, but told of as if it were one.
class ViewPart : public QAccessibleInterface, public QAccessibleTableCellInterface, public QAccessibleActionInterface
{
public:
    explicit ViewPart(QAbstractItemView *view) : m_view(view) { }

    bool isValid() const override;
    QObject *object() const override;
    QWindow *window() const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    void setText(QAccessible::Text text, const QString &value) override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override;
    int columnExtent() const override;
    int rowExtent() const override;
    QAccessibleInterface *table() const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

protected:
    QAbstractItemView *view() const;
    ItemView *viewInterface() const;
    /// Does what a click on the part does.
    virtual void click() = 0;

private:
    const QPointer<QAbstractItemView> m_view;
};

/// An item of a view.
class Cell : public ViewPart
{
public:
    Cell(QAbstractItemView *view, const QModelIndex &index, QAccessible::Role role);

    bool isValid() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QString text(QAccessible::Text text) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    bool isSelected() const override;
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override;
    int columnIndex() const override;
    int rowIndex() const override;

protected:
    QModelIndex index() const;
    /// Whether the item is in view, but for scrolling.
    bool isShown() const;
    void click() override;

private:
    QWidget *widgetInCell() const;

    const QPersistentModelIndex m_index;
    const QAccessible::Role m_role;
};

/// A section of a header, which need not be the view's own, or the corner where the headers meet.
class HeaderCell : public ViewPart
{
public:
    /// @p header is null for a corner.
    HeaderCell(QAbstractItemView *view, QHeaderView *header, int section);

    bool isValid() const override;
    QString text(QAccessible::Text text) const override;
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;

    int columnIndex() const override;
    int rowIndex() const override;

protected:
    void click() override;

private:
    bool isColumnHeader() const;
    QString sortOrder() const;

    const QPointer<QHeaderView> m_header;
    const int m_section;
};

/// A view of items in rows and columns. Its children are numbered as the toolkit numbers them when it tells of an item
/// that has the focus: row by row, with a row of column headers first, and a row header first in each row of a table.
class ItemView : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    ItemView(QAbstractItemView *view, QAccessible::Role role);
    ~ItemView() override;

    QAbstractItemView *view() const;
    QAccessibleInterface *cellOf(const QModelIndex &index) const;
    QAccessibleInterface *columnHeaderCell(int column) const;
    QAccessibleInterface *rowHeaderCell(int row) const;
    /// The same, but null where the header is hidden.
    QAccessibleInterface *shownColumnHeaderCell(int column) const;
    QAccessibleInterface *shownRowHeaderCell(int row) const;
    /// The row that shows @p index, -1 if none does.
    virtual int rowOf(const QModelIndex &index) const = 0;
    virtual QString name() const = 0;

    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface *caption() const override;
    QAccessibleInterface *summary() const override;
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override;
    int selectedRowCount() const override;
    int columnCount() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int column) override;
    bool unselectRow(int row) override;
    bool unselectColumn(int column) override;
    void modelChange(QAccessibleTableModelChangeEvent *event) override;

protected:
    /// The item in that place; only called for places that there are.
    virtual QModelIndex indexAt(int row, int column) const = 0;
    virtual Cell *createCell(const QModelIndex &index) const;
    virtual QHeaderView *columnHeader() const = 0;
    virtual QHeaderView *rowHeader() const;

private:
    using Ids = QHash<int, QAccessible::Id>;

    int firstColumn() const;
    QAccessibleInterface *headerCell(Ids &ids, QHeaderView *header, int section) const;
    void forget(Ids &ids) const;

    mutable QHash<QPersistentModelIndex, QAccessible::Id> m_cells;
    mutable Ids m_columnHeaderCells;
    mutable Ids m_rowHeaderCells;
};

/// The rows of a VelaTableWidget, below the titles that stand in its detached header.
class Table : public ItemView
{
public:
    explicit Table(QAbstractItemView *rows);

    int rowCount() const override;
    int rowOf(const QModelIndex &index) const override;
    QString name() const override;

protected:
    QModelIndex indexAt(int row, int column) const override;
    QHeaderView *columnHeader() const override;
    QHeaderView *rowHeader() const override;
};

/// The days of a VelaCalanderView.
class DayGrid : public ItemView
{
public:
    explicit DayGrid(QAbstractItemView *grid);

    int rowCount() const override;
    int rowOf(const QModelIndex &index) const override;
    QString name() const override;

protected:
    QModelIndex indexAt(int row, int column) const override;
    Cell *createCell(const QModelIndex &index) const override;
    QHeaderView *columnHeader() const override;
    QHeaderView *rowHeader() const override;
};

/// The rows of a VelaTreeWidget that no folded branch hides.
class Tree : public ItemView
{
public:
    explicit Tree(QAbstractItemView *tree);

    int rowCount() const override;
    int rowOf(const QModelIndex &index) const override;
    QString name() const override;

protected:
    QModelIndex indexAt(int row, int column) const override;
    Cell *createCell(const QModelIndex &index) const override;
    QHeaderView *columnHeader() const override;

private:
    const QVector<QPersistentModelIndex> &rows() const;
    bool isAsKnown() const;

    const std::unique_ptr<QObject> m_watch; // context of the connections
    mutable QVector<QPersistentModelIndex> m_rows;
    mutable QHash<QPersistentModelIndex, int> m_places; // places of the rows
    mutable int m_scrollRange = 0; // with these rows
    mutable bool m_isOutOfDate = true;
    mutable bool m_isPainted = false; // since the rows were asked for
};

} // namespace Vela::Accessible
