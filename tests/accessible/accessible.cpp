// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"

#include <QMetaEnum>

QAccessibleInterface *spoken(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

QString nameOf(QObject *object)
{
    return spoken(object)->text(QAccessible::Name);
}

QString descriptionOf(QObject *object)
{
    return spoken(object)->text(QAccessible::Description);
}

QList<QAccessibleInterface *> childrenOf(QAccessibleInterface *interface)
{
    QList<QAccessibleInterface *> children;
    for (int i = 0; i < interface->childCount(); ++i) {
        QAccessibleInterface *child = interface->child(i);
        if (child && !child->state().invisible) {
            children.append(child);
        }
    }
    return children;
}

QStringList namesIn(QAccessibleInterface *interface)
{
    QStringList names;
    for (const QAccessibleInterface *child : childrenOf(interface)) {
        names.append(child->text(QAccessible::Name));
    }
    return names;
}

QStringList transcript(QAccessibleInterface *interface)
{
    QStringList lines;
    const QString name = interface->text(QAccessible::Name);
    if (!name.isEmpty()) {
        const QString role =
            QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(interface->role()));
        const QString description = interface->text(QAccessible::Description);
        lines.append(role + QLatin1Char(' ') + name
                     + (description.isEmpty() ? QString() : QLatin1String(", ") + description));
    }
    for (QAccessibleInterface *child : childrenOf(interface)) {
        lines += transcript(child);
    }
    return lines;
}
