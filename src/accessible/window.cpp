// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/window_p.h"

#include "accessible/countdown-button_p.h"
#include "accessible/plain-text_p.h"
#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "sheets/sheet-stack_p.h"

#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace Vela::Accessible {

namespace {

QWidget *contentOf(const VelaMask *mask)
{
    const auto children = mask->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    return children.isEmpty() ? nullptr : children.first();
}

bool isUppermost(const QWidget *widget)
{
    return Window::uppermost(widget->window()) == widget;
}

} // namespace

// ---- Window

Window::Window(QWidget *window, QAccessible::Role role) : QAccessibleWidget(window, role) { }

QWidget *Window::uppermost(const QWidget *window)
{
    if (QWidget *sheet = Private::SheetStack::top(window)) {
        return sheet;
    }
    const QObjectList &children = window->children();
    const auto top = std::find_if(children.crbegin(), children.crend(), [](const QObject *child) {
        const auto *mask = qobject_cast<const VelaMask *>(child);
        return mask && mask->isVisible() && contentOf(mask);
    });
    return top == children.crend() ? nullptr : contentOf(static_cast<const VelaMask *>(*top));
}

QAccessibleInterface *Window::child(int index) const
{
    if (QWidget *top = uppermost(widget())) {
        return index == 0 ? QAccessible::queryAccessibleInterface(top) : nullptr;
    }
    for (int i = 0, shown = 0; i < QAccessibleWidget::childCount(); ++i) {
        QAccessibleInterface *child = QAccessibleWidget::child(i);
        if (!child || qobject_cast<VelaMask *>(child->object())) { // windows keep their masks when these are empty
            continue;
        }
        if (shown++ == index) {
            return child;
        }
    }
    return nullptr;
}

int Window::childCount() const
{
    if (uppermost(widget())) {
        return 1;
    }
    const int masks = widget()->findChildren<VelaMask *>(QString(), Qt::FindDirectChildrenOnly).size();
    return QAccessibleWidget::childCount() - masks;
}

int Window::indexOfChild(const QAccessibleInterface *child) const
{
    for (int i = 0; i < childCount(); ++i) {
        if (this->child(i) == child) {
            return i;
        }
    }
    return -1;
}

QAccessibleInterface *Window::childAt(int x, int y) const
{
    const QWidget *top = uppermost(widget());
    if (!top) {
        return QAccessibleWidget::childAt(x, y);
    }
    QAccessibleInterface *sheet = child(0);
    return sheet && sheet->rect().contains(x, y) ? sheet : nullptr;
}

// ---- Sheet

Sheet::Sheet(QWidget *sheet) : QAccessibleWidget(sheet, QAccessible::Dialog) { }

QAccessibleInterface *Sheet::parent() const
{
    return isUppermost(widget()) ? QAccessible::queryAccessibleInterface(widget()->window())
                                 : QAccessibleWidget::parent();
}

// What says most about it comes first.
QStringList Sheet::texts() const
{
    QStringList texts {widget()->windowTitle()};
    if (const auto *message = qobject_cast<const VelaMessageSheet *>(widget())) {
        texts << plain(message->text()) << plain(message->informativeText());
    } else if (const auto *input = qobject_cast<const VelaInputSheet *>(widget())) {
        texts << plain(input->text());
    }
    texts.removeAll(QString());
    return texts;
}

QString Sheet::text(QAccessible::Text text) const
{
    const QString given = QAccessibleWidget::text(text);
    if (!given.isEmpty()) {
        return given;
    }
    switch (text) {
    case QAccessible::Name:
        return texts().value(0);
    case QAccessible::Description:
        return joined(texts().mid(1));
    default:
        return given;
    }
}

QAccessible::Role Sheet::role() const
{
    const auto *message = qobject_cast<const VelaMessageSheet *>(widget());
    const bool isWarning = message
        && (message->messageType() == VelaMessageSheet::WarningMessage
            || message->messageType() == VelaMessageSheet::WarningQuestionMessage);
    return isWarning ? QAccessible::AlertMessage : QAccessible::Dialog;
}

QAccessible::State Sheet::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = isUppermost(widget());
    state.active = state.modal && widget()->isActiveWindow();
    const auto *message = qobject_cast<const VelaMessageSheet *>(widget());
    state.busy = message && message->messageType() == VelaMessageSheet::ProcessingMessage;
    return state;
}

// ---- CountdownBox

CountdownBox::CountdownBox(QWidget *box) : QAccessibleWidget(box, QAccessible::AlertMessage) { }

QString CountdownBox::text(QAccessible::Text text) const
{
    const QString given = QAccessibleWidget::text(text);
    if (!given.isEmpty()) {
        return given;
    }
    const auto *box = static_cast<const QMessageBox *>(widget());
    QStringList texts {plain(box->text()), plain(box->informativeText())};
    texts.removeAll(QString());
    const bool isNamed = !box->windowTitle().isEmpty();
    switch (text) {
    case QAccessible::Name:
        return texts.value(0);
    case QAccessible::Description:
        return joined(texts.mid(isNamed ? 0 : 1) + QStringList {CountdownButton::timeLeft(box)});
    default:
        return given;
    }
}

QAccessible::State CountdownBox::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = widget()->isModal();
    return state;
}

} // namespace Vela::Accessible
