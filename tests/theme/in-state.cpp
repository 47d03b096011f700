// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "in-state.h"

#include <QAbstractButton>
#include <QtTest>

bool takesState(const QWidget *widget, State state)
{
    switch (state) {
    case State::Pressed:
        // A menu would open, and a field is selected with the mouse.
        return qobject_cast<const QAbstractButton *>(widget) && !widget->property("popupMode").toInt();
    case State::Focused:
        return widget->focusPolicy() != Qt::NoFocus;
    default:
        return true;
    }
}

InState::InState(QWidget *widget, State state) : m_widget(widget), m_state(state)
{
    const QPoint center = widget->rect().center();
    switch (state) {
    case State::Normal:
        break;
    case State::Hovered:
        hover(widget, center);
        break;
    case State::Pressed:
        hover(widget, center);
        sendMouse(widget, QEvent::MouseButtonPress, Qt::LeftButton, center);
        break;
    case State::Focused:
        widget->window()->activateWindow();
        widget->setFocus(Qt::TabFocusReason);
        m_isReached = QTest::qWaitFor([widget] { return widget->hasFocus(); });
        break;
    case State::Disabled:
        widget->setEnabled(false);
        break;
    }
}

InState::~InState()
{
    if (m_state == State::Pressed) {
        // The release lies outside, so that nothing is clicked.
        sendMouse(m_widget, QEvent::MouseMove, Qt::LeftButton, QPoint(-100, -100));
        sendMouse(m_widget, QEvent::MouseButtonRelease, Qt::LeftButton, QPoint(-100, -100));
    }
    if (m_state == State::Hovered || m_state == State::Pressed) {
        leave(m_widget);
    } else if (m_state == State::Focused) {
        m_widget->clearFocus();
    } else if (m_state == State::Disabled) {
        m_widget->setEnabled(true);
    }
}

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button, const QPoint &place)
{
    QMouseEvent event(type, place, widget->mapToGlobal(place), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void hover(QWidget *widget, const QPoint &place)
{
    if (widget->parentWidget() && !widget->isWindow()) {
        hover(widget->parentWidget(), widget->mapToParent(place));
    }
    QEnterEvent enter(place, place, widget->mapToGlobal(place));
    QHoverEvent move(QEvent::HoverMove, place, QPoint(-1, -1));
    widget->setAttribute(Qt::WA_UnderMouse);
    QCoreApplication::sendEvent(widget, &enter);
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton, place); // a button counts as hovered only after a move
    QCoreApplication::sendEvent(widget, &move);
}

void leave(QWidget *widget)
{
    QEvent event(QEvent::Leave);
    QHoverEvent hoverLeave(QEvent::HoverLeave, QPoint(-1, -1), QPoint());
    widget->setAttribute(Qt::WA_UnderMouse, false);
    QCoreApplication::sendEvent(widget, &event);
    QCoreApplication::sendEvent(widget, &hoverLeave);
    if (widget->parentWidget() && !widget->isWindow()) {
        leave(widget->parentWidget());
    }
}
