// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QStringList>

/// The interface that speaks for @p object. Those of the library need no more than that a widget was made before.
QAccessibleInterface *spoken(QObject *object);

QString nameOf(QObject *object);
QString descriptionOf(QObject *object);

/// The children of @p interface that assistive tools are told of.
QList<QAccessibleInterface *> childrenOf(QAccessibleInterface *interface);
/// The names of those children.
QStringList namesIn(QAccessibleInterface *interface);

/// A line "role name, description" for @p interface and each thing below it that has a name, in order.
QStringList transcript(QAccessibleInterface *interface);

/// The role as a number, which QCOMPARE can print.
inline int number(QAccessible::Role role)
{
    return static_cast<int>(role);
}
