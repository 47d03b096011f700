// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "widget-states.h"

#include <VelaTheme>

#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QRegularExpression>
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
    // Buttons count as hovered only after a move.
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton);
    widget->update();
}

// The pseudo-state whose rules a picture shows. The keyboard focus is with one widget only, and a combo box that is
// pressed opens its list.
QString pseudoState(const QWidget *widget, WidgetState state)
{
    if (state == WidgetState::Focused) {
        return QStringLiteral("focus");
    }
    const bool opens = state == WidgetState::Pressed && qobject_cast<const QComboBox *>(widget);
    return opens ? QStringLiteral("on") : QString();
}

// Makes rules of a pseudo-state hold for any widget that is enabled. Both weigh the same where rules compete.
void showRules(QWidget *widget, const QString &pseudoState, QString sheet)
{
    sheet.replace(QRegularExpression(QStringLiteral(":!%1\\b").arg(pseudoState)), QStringLiteral(":disabled"));
    sheet.replace(QRegularExpression(QStringLiteral(":%1\\b").arg(pseudoState)), QStringLiteral(":enabled"));
    widget->setStyleSheet(sheet);
}

// Takes a widget into its state each time that it is shown or has got other images, since that sets it back.
class Pointer : public QObject
{
public:
    Pointer(QWidget *widget, bool isPressed) : QObject(widget), m_widget(widget), m_isPressed(isPressed)
    {
        widget->installEventFilter(this);
        connect(VelaTheme::getInstance(), &VelaTheme::changed, this, &Pointer::applyLater);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show) {
            applyLater();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    // The timer comes behind the widget's own handling of what has happened.
    void applyLater()
    {
        QTimer::singleShot(0, this, [this] { apply(); });
    }

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
    const QString shownState = pseudoState(widget, state);
    if (!shownState.isEmpty()) {
        showRules(widget, shownState, widget->styleSheet());
        return !widget->styleSheet().isEmpty();
    }
    switch (state) {
    case WidgetState::Hovered:
    case WidgetState::Pressed:
        new Pointer(widget, state == WidgetState::Pressed);
        return true;
    case WidgetState::Focused: // is a pseudo-state
        break;
    case WidgetState::Disabled:
        widget->setEnabled(false);
        // A button that is given other images shows that of the normal state first.
        QObject::connect(VelaTheme::getInstance(), &VelaTheme::changed, widget, [widget] {
            widget->setEnabled(true);
            widget->setEnabled(false);
        });
        return true;
    }
    return false;
}

void followRules(QWidget *widget, WidgetState state, const QWidget *model)
{
    const QString shownState = pseudoState(widget, state);
    if (!shownState.isEmpty()) {
        QObject::connect(VelaTheme::getInstance(), &VelaTheme::changed, widget,
                         [widget, shownState, model] { showRules(widget, shownState, model->styleSheet()); });
    }
}

QStringList stateColumns()
{
    return {QStringLiteral("Try it"), QStringLiteral("Hovered"), QStringLiteral("Pressed"), QStringLiteral("Focused"),
            QStringLiteral("Disabled")};
}
