// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-menu.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

QRect availableArea(const QWidget *menu)
{
    const QScreen *primary = QGuiApplication::primaryScreen();
    const bool isVirtualDesktop = primary->virtualSiblings().size() > 1;
    const QScreen *screen = isVirtualDesktop ? QGuiApplication::screenAt(menu->pos()) : menu->screen();
    return (screen ? screen : primary)->availableGeometry();
}

// Start of something [start, start + size) moved into [first, last]. What stands out at the front goes to 0, not to
// first, and what stands out at the back ends one pixel short of last: menus have always been placed so.
int movedInto(int start, int size, int first, int last)
{
    if (first > start) {
        return 0;
    }
    return last < start + size ? last - size : start;
}

} // namespace

class VelaMenuPrivate
{
};

VelaMenu::VelaMenu(QWidget *parent) : QMenu(parent) { }

VelaMenu::~VelaMenu() = default;

void VelaMenu::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);

    const QRect area = availableArea(this);
    const QPoint place(movedInto(x(), width(), area.left(), area.right()),
                       movedInto(y(), height(), area.top(), area.bottom()));
    if (place != pos()) {
        move(place);
    }
}
