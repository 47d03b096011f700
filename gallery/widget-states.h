// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

/// A state that only one widget at a time, or none, is in while a person looks on.
enum class WidgetState {
    Hovered,
    Pressed,
    Focused,
    Disabled,
};

/// Makes @p widget a picture of itself in @p state, which neither pointer nor keyboard changes. False when that cannot
/// be done: the focused state is known of widgets with a style sheet only.
bool freeze(QWidget *widget, WidgetState state);

/// Where @p widget, frozen in @p state, shows that by the rules of its sheet, gives it those of each theme as @p model
/// has them, which lives as long.
void followRules(QWidget *widget, WidgetState state, const QWidget *model);

/// Column headings for the widgets of inAllStates().
QStringList stateColumns();

/// Makes a widget to try by @p create, and behind it one frozen in each state, or null where that cannot be done.
template<typename Create>
QList<QWidget *> inAllStates(Create create)
{
    QList<QWidget *> widgets {create()};
    for (const WidgetState state :
         {WidgetState::Hovered, WidgetState::Pressed, WidgetState::Focused, WidgetState::Disabled}) {
        QWidget *widget = create();
        if (!freeze(widget, state)) {
            delete widget;
            widget = nullptr;
        } else {
            followRules(widget, state, widgets.constFirst());
        }
        widgets.append(widget);
    }
    return widgets;
}
