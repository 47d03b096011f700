// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

namespace Vela::Accessible {

/// A widget that not everything in it is told of, or that is told of in another order or place.
class Group : public QAccessibleWidget
{
public:
    Group(QWidget *group, QAccessible::Role role);

    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;

protected:
    /// The widgets in it, in the order in which they are told of.
    virtual QList<QWidget *> parts() const = 0;
};

/// The frame of a VelaTableWidget: the header is told of as that of the rows.
class TableFrame : public Group
{
public:
    explicit TableFrame(QWidget *table);

protected:
    QList<QWidget *> parts() const override;
};

} // namespace Vela::Accessible
