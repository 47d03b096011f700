// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/item-view_p.h"
#include "component/vela-table-widget.h"

#include <QHeaderView>

namespace Vela::Accessible {

namespace {

VelaTableWidget *frameOf(const QWidget *rows)
{
    return qobject_cast<VelaTableWidget *>(rows->parentWidget());
}

} // namespace

Table::Table(QAbstractItemView *rows) : ItemView(rows, QAccessible::Table) { }

int Table::rowCount() const
{
    return view()->model() ? view()->model()->rowCount(view()->rootIndex()) : 0;
}

int Table::rowOf(const QModelIndex &index) const
{
    return index.row();
}

// The header of the table around the rows, or else their titles.
QString Table::name() const
{
    const VelaTableWidget *frame = frameOf(view());
    if (frame && !frame->accessibleName().isEmpty()) {
        return frame->accessibleName();
    }
    QStringList titles;
    for (int column = 0; column < columnCount(); ++column) {
        titles.append(columnDescription(column));
    }
    titles.removeAll(QString());
    return titles.join(QLatin1String(", "));
}

QModelIndex Table::indexAt(int row, int column) const
{
    return view()->model()->index(row, column, view()->rootIndex());
}

QHeaderView *Table::columnHeader() const
{
    VelaTableWidget *frame = frameOf(view());
    return frame ? frame->getHeader() : static_cast<QTableView *>(view())->horizontalHeader();
}

QHeaderView *Table::rowHeader() const
{
    return static_cast<QTableView *>(view())->verticalHeader();
}

} // namespace Vela::Accessible
