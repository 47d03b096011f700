// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEvent>

class QPoint;
class QWidget;

enum class State { Normal, Hovered, Pressed, Focused, Disabled };

struct StateRow
{
    State state;
    const char *name;
};

constexpr StateRow States[] = {
    {State::Normal, "normal"},   {State::Hovered, "hovered"},   {State::Pressed, "pressed"},
    {State::Focused, "focused"}, {State::Disabled, "disabled"},
};

/// Whether a widget looks different in a state, if its theme wants it to.
bool takesState(const QWidget *widget, State state);

/// A widget is in a state for as long as there is one of these.
class InState
{
public:
    InState(QWidget *widget, State state);
    ~InState();
    Q_DISABLE_COPY_MOVE(InState)

    /// False where the widget did not get the focus.
    bool isReached() const { return m_isReached; }

private:
    QWidget *const m_widget;
    const State m_state;
    bool m_isReached = true;
};

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button, const QPoint &place);

/// Puts the pointer onto a widget, and with that into what holds the widget.
void hover(QWidget *widget, const QPoint &place);
void leave(QWidget *widget);
