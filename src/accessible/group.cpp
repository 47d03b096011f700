// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/group_p.h"

#include "component/vela-table-widget.h"

namespace Vela::Accessible {

Group::Group(QWidget *group, QAccessible::Role role) : QAccessibleWidget(group, role) { }

QAccessibleInterface *Group::child(int index) const
{
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int Group::childCount() const
{
    return parts().size();
}

int Group::indexOfChild(const QAccessibleInterface *child) const
{
    return child && child->object() ? parts().indexOf(qobject_cast<QWidget *>(child->object())) : -1;
}

// The first of parts that lie over each other is found.
QAccessibleInterface *Group::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i) {
        QAccessibleInterface *part = child(i);
        if (part && !part->state().invisible && part->rect().contains(x, y)) {
            return part;
        }
    }
    return nullptr;
}

TableFrame::TableFrame(QWidget *table) : Group(table, QAccessible::Client) { }

QList<QWidget *> TableFrame::parts() const
{
    return {static_cast<VelaTableWidget *>(widget())->getTable()};
}

} // namespace Vela::Accessible
