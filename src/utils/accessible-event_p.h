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

} // namespace Vela
