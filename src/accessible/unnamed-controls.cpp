// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/unnamed-controls.h"

#include "accessible/factory_p.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QWidget>

namespace {

constexpr int MaximalDepth = 100; // depth that no window reaches unless something is below itself

QString nameOf(QAccessible::Role role)
{
    return QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(role));
}

// Class and object name where there is an object.
QString place(const QAccessibleInterface *interface)
{
    const QObject *object = interface->object();
    if (!object) {
        return nameOf(interface->role());
    }
    const QString className = QString::fromLatin1(object->metaObject()->className());
    return object->objectName().isEmpty() ? className
                                          : className + QLatin1String(" \"") + object->objectName() + QLatin1Char('"');
}

void collect(QAccessibleInterface *interface, const QString &path, int depth, QStringList &problems)
{
    const QString here = path.isEmpty() ? place(interface) : path + QLatin1String(" > ") + place(interface);
    const QAccessible::State state = interface->state();
    if (depth > MaximalDepth) {
        problems.append(here + QLatin1String(": has no end"));
        return;
    }
    if (state.focusable && interface->text(QAccessible::Name).trimmed().isEmpty()) {
        problems.append(here + QLatin1String(": takes the focus and has no name"));
    }
    if (state.focusable && interface->role() == QAccessible::NoRole) {
        problems.append(here + QLatin1String(": takes the focus and has no role"));
    }
    for (int i = 0; i < interface->childCount(); ++i) {
        QAccessibleInterface *child = interface->child(i);
        if (!child) {
            problems.append(here + QStringLiteral(": has nothing as child %1").arg(i));
        } else if (!child->state().invisible) {
            if (interface->indexOfChild(child) != i) {
                problems.append(here + QStringLiteral(": does not find its child %1 again").arg(i));
            }
            collect(child, here, depth + 1, problems);
        }
    }
}

} // namespace

QStringList unnamedControls(QWidget *window)
{
    Vela::Accessible::install();
    QStringList problems;
    if (QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(window)) {
        collect(interface, QString(), 0, problems);
    }
    return problems;
}
