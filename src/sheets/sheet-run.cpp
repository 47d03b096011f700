// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/sheet-run_p.h"

#include "sheets/sheet-stack_p.h"
#include "sheets/vela-sheet.h"
#include "utils/util.h"
#include "utils/window-close-button_p.h"

#include <QApplication>
#include <QEvent>
#include <QScopeGuard>
#include <QVector>

#include <algorithm>
#include <utility>

using Vela::Private::SheetStack;

namespace {

/// Of all sheets that are up, in the order in which they came.
QVector<SheetRun *> &runs()
{
    static QVector<SheetRun *> runs;
    return runs;
}

/// Gives the focus to the next, or previous, widget of @p sheet that takes it by Tab.
void moveFocusIn(VelaSheet *sheet, bool next)
{
    const auto takesFocus = [sheet](const QWidget *widget) {
        return sheet->isAncestorOf(widget) && widget->isVisible() && widget->isEnabled()
            && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    };
    QWidget *start = QApplication::focusWidget();
    if (!start || !sheet->isAncestorOf(start)) {
        start = sheet;
    }
    QWidget *widget = start;
    do {
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    } while (widget != start && !takesFocus(widget));
    if (widget != start) {
        widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
}

} // namespace

SheetRun::SheetRun(VelaSheet *sheet) : m_sheet(sheet), m_keys(sheet) { }

void SheetRun::setBlockWindowButton(bool block)
{
    m_blocksWindowButton = block;
}

void SheetRun::begin()
{
    m_sheet->show();
    comeUp();
    takeCloseButton();
    watchWindow();
}

void SheetRun::comeUp()
{
    if (!isUp()) {
        m_window = m_sheet->window();
        m_formerFocus = m_window->focusWidget();
        runs().append(this);
        SheetStack::push(m_sheet);
        m_keys.keep();
    }
}

void SheetRun::goDown()
{
    runs().removeOne(this);
    SheetStack::remove(m_sheet);
    m_keys.release();
}

void SheetRun::watchWindow()
{
    m_isEnding = false; // it may be shown again by a slot of finished()
    comeUp();
    m_window->installEventFilter(m_sheet);
    watchAncestors();
}

bool SheetRun::isUp() const
{
    return std::find(runs().cbegin(), runs().cend(), this) != runs().cend();
}

bool SheetRun::isWaiting() const
{
    return m_loop && m_loop->isRunning();
}

int SheetRun::wait()
{
    // A sheet that is answered may wait again before this call has returned, from a slot or below another sheet's loop.
    QEventLoop loop(m_sheet);
    m_loop = &loop;
    ++m_waits;
    const auto returned = qScopeGuard([self = QPointer<SheetRun>(this)] {
        if (self) {
            --self->m_waits;
        }
    });
    return loop.exec();
}

void SheetRun::watchAncestors()
{
    m_sheet->installEventFilter(this);
    for (QWidget *ancestor = m_sheet->parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        ancestor->installEventFilter(this);
        connect(ancestor, &QObject::destroyed, this, &SheetRun::leave, Qt::UniqueConnection);
    }
}

bool SheetRun::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::ParentChange && isUp()) {
        followToWindow();
    }
    return false;
}

void SheetRun::followToWindow()
{
    watchAncestors();
    if (m_sheet->window() == m_window) {
        return;
    }
    const bool takesButton = m_savedWindowState != nullptr;
    if (m_window) {
        giveCloseButtonBack();
        m_window->removeEventFilter(m_sheet);
    }
    discardWindowState(&m_savedWindowState); // of a window that is gone
    m_window = m_sheet->window();
    m_window->installEventFilter(m_sheet);
    if (takesButton) {
        takeCloseButton();
    }
}

/// A dying widget says so before it deletes its children, and the sheet is usually an object on its caller's stack.
void SheetRun::leave(QObject *dying)
{
    const QWidget *ancestor = m_sheet->parentWidget();
    while (ancestor && ancestor != dying) {
        ancestor = ancestor->parentWidget();
    }
    if (!ancestor || m_waits == 0) {
        return;
    }
    if (m_window && m_window != dying) {
        giveCloseButtonBack();
        m_window->removeEventFilter(m_sheet);
    }
    goDown();
    discardWindowState(&m_savedWindowState);
    m_sheet->setParent(nullptr);
    if (isWaiting()) { // not when the answer is there already
        m_loop->exit(0);
    }
}

void SheetRun::takeCloseButton()
{
    if (m_blocksWindowButton && !m_savedWindowState) { // which end() leaves when it is not told to block any more
        SHAPISetCloseButtonOfWindowEnable(m_window, false, &m_savedWindowState);
        runs().removeOne(this); // behind those whose state was taken before
        runs().append(this);
        SheetStack::push(m_sheet);
    }
}

void SheetRun::giveCloseButtonBack()
{
    if (m_savedWindowState && m_window) {
        handWindowStateOn();
        SHAPISetCloseButtonOfWindowEnable(m_window, true, &m_savedWindowState);
    }
}

/// Each sheet keeps the window's hints as they were when it came up. One that goes before a later one hands its own on
/// and leaves what that one found: without the close button until the last has gone, and with it then.
void SheetRun::handWindowStateOn()
{
    const int own = runs().indexOf(this);
    if (!m_savedWindowState || own < 0) {
        return;
    }
    for (int i = own + 1; i < runs().size(); ++i) {
        SheetRun *later = runs().at(i);
        if (later->m_savedWindowState && later->m_window == m_window) {
            std::swap(m_savedWindowState, later->m_savedWindowState);
            return;
        }
    }
}

/// Before the sheet is hidden, or the focus would pass to whatever is next to it, below another sheet's mask perhaps.
void SheetRun::giveFocusBack()
{
    if (!m_sheet->isAncestorOf(m_window->focusWidget())) {
        return;
    }
    VelaSheet *other = SheetStack::top(m_window, m_sheet);
    const QWidget *scope = other ? other : m_window.data();
    if (m_formerFocus && scope->isAncestorOf(m_formerFocus) && m_formerFocus->isVisible()
        && m_formerFocus->isEnabled()) {
        m_formerFocus->setFocus(Qt::OtherFocusReason);
    } else if (other) {
        moveFocusIn(other, true);
    }
}

void SheetRun::end(int result)
{
    if (m_isEnding) { // called by a slot of finished()
        return;
    }
    m_isEnding = true;
    m_window = m_sheet->window();
    if (m_blocksWindowButton) {
        handWindowStateOn();
        SHAPISetCloseButtonOfWindowEnable(m_sheet, true, &m_savedWindowState);
    }
    if (m_loop) {
        m_loop->exit(result);
    }
    m_window->removeEventFilter(m_sheet);
    goDown();
    giveFocusBack();
    m_sheet->hide();
    QWidget *focused = m_sheet->window()->focusWidget();
    if (m_sheet->isAncestorOf(focused)) { // where nothing else takes it, and a key would press the hidden button
        focused->clearFocus();
    }

    const auto ended = qScopeGuard([self = QPointer<SheetRun>(this)] { // also when a slot throws
        if (self) {
            self->m_isEnding = false;
        }
    });
    Q_EMIT m_sheet->finished(result);
}

void SheetRun::abandon()
{
    giveCloseButtonBack();
    goDown();
    discardWindowState(&m_savedWindowState);
    if (isWaiting()) {
        m_loop->exit(0);
    }
    // They are on the stack, in wait().
    const auto loops = m_sheet->findChildren<QEventLoop *>(QString(), Qt::FindDirectChildrenOnly);
    for (QEventLoop *loop : loops) {
        loop->setParent(nullptr);
    }
}

bool SheetRun::refusesClose(QEvent *event) const
{
    if (!m_blocksWindowButton || event->type() != QEvent::Close) {
        return false;
    }
    event->ignore();
    return true;
}

void SheetRun::moveFocus(bool next)
{
    moveFocusIn(m_sheet, next);
}
