// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>

namespace Vela {

/// Tells screen readers that @p change has happened to @p widget. Qt would make the object that speaks for a widget
/// even where nobody listens, and keep it.
inline void tellScreenReaders(QObject *widget, QAccessible::Event change)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(widget, change);
        QAccessible::updateAccessibility(&event);
    }
}

/// To be called at the end of the constructor of a view that has an accessible object of its own. Where a screen reader
/// listens, the base has had one made already, which speaks for the base and would stay.
inline void forgetSpokenBase(QObject *view)
{
    if (QAccessible::isActive()) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(QAccessible::queryAccessibleInterface(view)));
    }
}

} // namespace Vela
