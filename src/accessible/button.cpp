// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/button_p.h"

#include "accessible/around_p.h"
#include "accessible/navigation_p.h"
#include "accessible/plain-text_p.h"
#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-filter-bar.h"
#include "look/look_p.h"

#include <QAbstractButton>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace Vela::Accessible {

namespace {

QMenu *menuOf(const QAbstractButton *button)
{
    if (const auto *toolButton = qobject_cast<const QToolButton *>(button)) {
        return toolButton->menu();
    }
    const auto *pushButton = qobject_cast<const QPushButton *>(button);
    return pushButton ? pushButton->menu() : nullptr;
}

} // namespace

Button::Button(QAbstractButton *button, QAccessible::Role role) : QAccessibleWidget(button, role)
{
    addControllingSignal(QStringLiteral("clicked(bool)"));
}

QAbstractButton *Button::button() const
{
    return static_cast<QAbstractButton *>(widget());
}

QString Button::name() const
{
    return withoutAccessKey(button()->text());
}

QString Button::description() const
{
    return plainToolTip(button());
}

QString Button::text(QAccessible::Text text) const
{
    switch (text) {
    case QAccessible::Name: {
        const QString given = QAccessibleWidget::text(text);
        return given.isEmpty() ? name() : given;
    }
    case QAccessible::Description:
        return widget()->accessibleDescription().isEmpty() ? description() : widget()->accessibleDescription();
    case QAccessible::Accelerator:
        return button()->shortcut().toString(QKeySequence::NativeText);
    default:
        return QAccessibleWidget::text(text);
    }
}

QAccessible::Role Button::role() const
{
    const QAccessible::Role role = QAccessibleWidget::role();
    if (role != QAccessible::Button) {
        return role;
    }
    if (menuOf(button())) {
        return QAccessible::ButtonMenu;
    }
    if (button()->isCheckable()) {
        return button()->autoExclusive() ? QAccessible::RadioButton : QAccessible::CheckBox;
    }
    return role;
}

QAccessible::State Button::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = button()->isDown();
    state.checkable = button()->isCheckable();
    state.checked = button()->isChecked();
    state.hasPopup = menuOf(button()) != nullptr;
    const auto *pushButton = qobject_cast<const QPushButton *>(button());
    state.defaultButton = pushButton && pushButton->isDefault();
    return state;
}

QStringList Button::actionNames() const
{
    QStringList names;
    if (widget()->isEnabled()) {
        names << (menuOf(button()) ? showMenuAction() : button()->isCheckable() ? toggleAction() : pressAction());
    }
    return names + QAccessibleWidget::actionNames();
}

void Button::doAction(const QString &name)
{
    if (!widget()->isEnabled()) {
        return;
    }
    if (name == pressAction() || name == showMenuAction()) {
        button()->animateClick(); // returns before a menu or sheet that it opens is closed
    } else if (name == toggleAction()) {
        button()->toggle();
    } else {
        QAccessibleWidget::doAction(name);
    }
}

QStringList Button::keyBindingsForAction(const QString &name) const
{
    const QKeySequence shortcut = button()->shortcut();
    return name == pressAction() && !shortcut.isEmpty() ? QStringList {shortcut.toString()} : QStringList();
}

IconButton::IconButton(QAbstractButton *button) : Button(button) { }

QString IconButton::name() const
{
    const QMenu *menu = menuOf(button());
    const QString ownNames[] = {Button::name(), plainToolTip(button()), menu ? menu->accessibleName() : QString(),
                                menu ? withoutAccessKey(menu->title()) : QString()};
    for (const QString &name : ownNames) {
        if (!name.isEmpty()) {
            return name;
        }
    }
    if (qobject_cast<VelaFilterBar *>(button()->parentWidget())) {
        return Look::spoken(SpokenText::FilterMenu);
    }
    return qobject_cast<VelaButtonPath *>(button()->parentWidget()) ? Look::spoken(SpokenText::PathMenu) : QString();
}

// What is the name already is left out. Who turns the page has to hear where that leads.
QString IconButton::description() const
{
    const QString toolTip = plainToolTip(button());
    if (!toolTip.isEmpty() && toolTip != text(QAccessible::Name)) {
        return toolTip;
    }
    const auto *bar = around<VelaPagingBar>(button());
    return bar ? placeIn(bar) : QString();
}

} // namespace Vela::Accessible
