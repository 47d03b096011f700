// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/sheet-keys_p.h"

#include "sheets/sheet-stack_p.h"
#include "sheets/vela-sheet.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>

#include <algorithm>

namespace Vela::Private {

namespace {

// Whether object is sheet or below it, also when a menu or another window of the sheet is between the two.
bool isWithin(const QObject *object, const VelaSheet *sheet)
{
    while (object && object != sheet) {
        object = object->parent();
    }
    return object;
}

bool belongsTo(const QObject *owner, const VelaSheet *sheet)
{
    if (isWithin(owner, sheet)) {
        return true;
    }
    const auto *action = qobject_cast<const QAction *>(owner);
    const QList<QWidget *> widgets = action ? action->associatedWidgets() : QList<QWidget *>();
    return std::any_of(widgets.cbegin(), widgets.cend(),
                       [sheet](const QWidget *widget) { return isWithin(widget, sheet); });
}

QList<QKeySequence> shortcutsOf(const VelaSheet *sheet)
{
    QList<QKeySequence> shortcuts;
    const auto own = sheet->findChildren<QShortcut *>();
    for (const QShortcut *shortcut : own) {
        shortcuts.append(shortcut->key());
    }
    QList<const QWidget *> widgets {sheet};
    const auto children = sheet->findChildren<QWidget *>();
    std::copy(children.cbegin(), children.cend(), std::back_inserter(widgets));
    for (const QWidget *widget : qAsConst(widgets)) {
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
            shortcuts.append(button->shortcut());
        }
        const auto actions = widget->actions();
        for (const QAction *action : actions) {
            shortcuts.append(action->shortcuts());
        }
    }
    return shortcuts;
}

QAbstractButton *buttonOf(const VelaSheet *sheet, const QKeySequence &shortcut)
{
    const auto buttons = sheet->findChildren<QAbstractButton *>();
    const auto button = std::find_if(buttons.cbegin(), buttons.cend(), [&shortcut](const QAbstractButton *each) {
        return each->isVisible() && each->isEnabled() && each->shortcut() == shortcut;
    });
    return button == buttons.cend() ? nullptr : *button;
}

} // namespace

SheetKeys::SheetKeys(VelaSheet *sheet) : m_sheet(sheet) { }

// The filter is the application's, since a menu bar that comes later would see the window's keys before the window's.
void SheetKeys::keep()
{
    qApp->installEventFilter(this);
}

void SheetKeys::release()
{
    // The sheet may outlive the application.
    if (qApp) {
        qApp->removeEventFilter(this);
    }
}

bool SheetKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (isUppermost() && isLastToBeAsked(watched) && !mayBeShortcut(key)) {
            key->accept();
            return true;
        }
    } else if (event->type() == QEvent::Shortcut) {
        return isUppermost() && QApplication::activeWindow() == m_sheet->window()
            && takesShortcut(watched, static_cast<QShortcutEvent *>(event));
    }
    return false;
}

bool SheetKeys::isUppermost() const
{
    return SheetStack::top(m_sheet->window()) == m_sheet;
}

// Widgets are asked whether they want the key for themselves from the one that has the focus to its window, and what
// is in a menu or list that the sheet has opened to that.
bool SheetKeys::isLastToBeAsked(const QObject *watched) const
{
    return watched == m_sheet->window() || (watched == QApplication::activePopupWidget() && isWithin(watched, m_sheet));
}

// Whether a key may be a shortcut of the sheet. Which access key one with Alt is depends on the keyboard's layout, and
// is known only once it is pressed.
bool SheetKeys::mayBeShortcut(const QKeyEvent *event) const
{
    if (event->modifiers().testFlag(Qt::AltModifier) && event->key() > Qt::Key_Space && event->key() < Qt::Key_Escape) {
        return true;
    }
    const QKeySequence pressed(event->key() | static_cast<int>(event->modifiers() & ~Qt::KeypadModifier));
    const QList<QKeySequence> shortcuts = shortcutsOf(m_sheet);
    return std::any_of(shortcuts.cbegin(), shortcuts.cend(), [&pressed](const QKeySequence &shortcut) {
        return pressed.matches(shortcut) != QKeySequence::NoMatch;
    });
}

// Whether a shortcut is to go no further. A button's key clicks it also where something below the sheet has the same,
// for which Qt would only move the focus from one to the other.
bool SheetKeys::takesShortcut(const QObject *watched, const QShortcutEvent *event) const
{
    const bool isOwn = belongsTo(watched, m_sheet);
    if (isOwn && !event->isAmbiguous()) {
        return false;
    }
    if (QAbstractButton *button = buttonOf(m_sheet, event->key())) {
        if (!button->isDown()) {
            button->animateClick();
        }
        return true;
    }
    return !isOwn;
}

} // namespace Vela::Private
