// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QStringList>

/// What speaks for @p object. The library's own need nothing to be there but a widget that was made before.
QAccessibleInterface *spoken(QObject *object);

QString nameOf(QObject *object);
QString descriptionOf(QObject *object);

/// The children of @p interface that are told of.
QList<QAccessibleInterface *> childrenOf(QAccessibleInterface *interface);
/// Their names.
QStringList namesIn(QAccessibleInterface *interface);

/// For each thing below @p interface and for itself, in order, "role name, description", of what has a name.
QStringList transcript(QAccessibleInterface *interface);

/// For QCOMPARE of roles.
inline int number(QAccessible::Role role)
{
    return static_cast<int>(role);
}
