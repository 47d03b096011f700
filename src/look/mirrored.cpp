// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look/mirrored_p.h"

#include <QIcon>
#include <QWidget>

namespace Vela::Look {

QPixmap mirrored(const QPixmap &pixmap, const QWidget *widget)
{
    return widget->isRightToLeft() ? QPixmap::fromImage(pixmap.toImage().mirrored(true, false)) : pixmap;
}

QIcon mirrored(const QIcon &icon, const QSize &size, const QWidget *widget)
{
    if (!widget->isRightToLeft()) {
        return icon;
    }
    QIcon turned;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
        turned.addPixmap(mirrored(icon.pixmap(widget->window()->windowHandle(), size, mode), widget), mode);
    }
    return turned;
}

} // namespace Vela::Look
