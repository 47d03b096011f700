// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "widget-states.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QTimer>

namespace {

void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button)
{
    QMouseEvent event(type, widget->rect().center(), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void hover(QWidget *widget)
{
    const QPointF centre = widget->rect().center();
    QEnterEvent event(centre, centre, widget->mapToGlobal(centre.toPoint()));
    widget->setAttribute(Qt::WA_UnderMouse);
    QCoreApplication::sendEvent(widget, &event);
    // Buttons take themselves for hovered only after a move.
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton);
    widget->update();
}

// The keyboard focus is with one widget only, so its rules are made to hold for any that is enabled. Both
// pseudo-states weigh the same where rules compete.
void showFocusRules(QWidget *widget)
{
    QString sheet = widget->styleSheet();
    sheet.replace(QLatin1String(":!focus"), QLatin1String(":disabled"));
    sheet.replace(QLatin1String(":focus"), QLatin1String(":enabled"));
    widget->setStyleSheet(sheet);
}

// Takes a widget into its state each time that it is shown, since showing sets it back.
class Pointer : public QObject
{
public:
    Pointer(QWidget *widget, bool isPressed) : QObject(widget), m_widget(widget), m_isPressed(isPressed)
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show) {
            // Later, behind the widget's own handling of the event.
            QTimer::singleShot(0, this, [this] { apply(); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void apply()
    {
        hover(m_widget);
        if (m_isPressed) {
            sendMouse(m_widget, QEvent::MouseButtonPress, Qt::LeftButton);
        }
    }

    QWidget *const m_widget;
    const bool m_isPressed;
};

} // namespace

bool freeze(QWidget *widget, WidgetState state)
{
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    widget->setFocusPolicy(Qt::NoFocus);
    switch (state) {
    case WidgetState::Hovered:
    case WidgetState::Pressed:
        new Pointer(widget, state == WidgetState::Pressed);
        return true;
    case WidgetState::Focused:
        showFocusRules(widget);
        return !widget->styleSheet().isEmpty();
    case WidgetState::Disabled:
        widget->setEnabled(false);
        return true;
    }
    return false;
}

QStringList stateColumns()
{
    return {QStringLiteral("Try it"), QStringLiteral("Hovered"), QStringLiteral("Pressed"), QStringLiteral("Focused"),
            QStringLiteral("Disabled")};
}
