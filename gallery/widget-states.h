#pragma once

#include <QList>
#include <QStringList>

class QWidget;

/// A state that only one widget at a time, or none, is in while a person looks on.
enum class WidgetState {
    Hovered,
    Pressed,
    Focused,
    Disabled,
};

/// Makes @p widget a picture of itself in @p state, which neither pointer nor keyboard changes.
void freeze(QWidget *widget, WidgetState state);

/// Column headings for the widgets of inAllStates().
QStringList stateColumns();

/// Of what @p create makes one to try, and behind it one frozen in each state.
template<typename Create>
QList<QWidget *> inAllStates(Create create)
{
    QList<QWidget *> widgets {create()};
    for (const WidgetState state :
         {WidgetState::Hovered, WidgetState::Pressed, WidgetState::Focused, WidgetState::Disabled}) {
        widgets.append(create());
        freeze(widgets.constLast(), state);
    }
    return widgets;
}
