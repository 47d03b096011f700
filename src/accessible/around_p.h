// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace Vela::Accessible {

/// The widget of that class that @p widget is in, null if there is none in its window.
template<typename Widget>
Widget *around(const QWidget *widget)
{
    QWidget *parent = widget->isWindow() ? nullptr : widget->parentWidget();
    while (parent && !qobject_cast<Widget *>(parent)) {
        parent = parent->isWindow() ? nullptr : parent->parentWidget();
    }
    return static_cast<Widget *>(parent);
}

} // namespace Vela::Accessible
