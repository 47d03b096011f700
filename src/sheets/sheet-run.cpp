// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/sheet-run_p.h"

#include "sheets/sheet-stack_p.h"
#include "sheets/vela-sheet.h"
#include "utils/accessible-event_p.h"

#include <QEvent>
#include <QScopeGuard>

namespace Vela::Private {

SheetRun::SheetRun(VelaSheet *sheet) : m_sheet(sheet), m_keys(sheet), m_focus(sheet) { }

SheetRun::~SheetRun()
{
    goDown();
    endWait();
    // The loops are on the stack, in wait().
    const auto loops = m_sheet->findChildren<QEventLoop *>(QString(), Qt::FindDirectChildrenOnly);
    for (QEventLoop *loop : loops) {
        loop->setParent(nullptr);
    }
}

SheetRun::State SheetRun::state() const
{
    return m_state;
}

void SheetRun::setBlockWindowButton(bool block)
{
    m_blocksWindowButton = block;
}

bool SheetRun::blocksWindowButton() const
{
    return m_blocksWindowButton;
}

bool SheetRun::isUp() const
{
    return m_state == State::Up || m_state == State::Waiting;
}

int SheetRun::exec(const std::function<void()> &started)
{
    // A widget that loses the focus to the sheet may ask its user first, and the window may go meanwhile.
    const QPointer<SheetRun> alive(this);
    m_hasLeft = false;
    ++m_waits;
    const auto returned = qScopeGuard([alive] {
        if (alive) {
            --alive->m_waits;
        }
    });
    begin();
    if (alive && !m_hasLeft) {
        started();
    }
    return alive && !m_hasLeft ? wait() : 0;
}

void SheetRun::begin()
{
    const QPointer<SheetRun> alive(this);
    m_sheet->show();
    if (!alive) {
        return;
    }
    comeUp();
    SheetStack::push(m_sheet);
    // An answer leaves the claim when it is not told to block any more.
    if (m_blocksWindowButton) {
        m_closeButton.make(m_window);
    }
    watchWindow();
}

void SheetRun::comeUp()
{
    if (isUp()) {
        return;
    }
    m_state = State::Up;
    m_window = m_sheet->window();
    m_focus.remember();
    SheetStack::push(m_sheet);
    m_keys.keep();
    announce(QAccessible::DialogStart);
}

void SheetRun::goDown()
{
    SheetStack::remove(m_sheet);
    m_keys.release();
}

// To screen readers, for which the window holds nothing but its uppermost sheet.
void SheetRun::announce(QAccessible::Event change)
{
    tellScreenReaders(m_sheet, change);
    tellScreenReaders(m_window, QAccessible::ObjectReorder);
}

// Ends the wait without an answer, unless there is one already.
void SheetRun::endWait()
{
    if (m_loop && m_loop->isRunning()) {
        m_loop->exit(0);
    }
}

void SheetRun::watchWindow()
{
    comeUp();
    m_window->installEventFilter(m_sheet);
    watchAncestors();
}

int SheetRun::wait()
{
    // A sheet that is answered may wait again before this call has returned, from a slot or below another sheet's loop.
    QEventLoop loop(m_sheet);
    m_loop = &loop;
    m_state = State::Waiting;
    ++m_waits;
    const auto returned = qScopeGuard([self = QPointer<SheetRun>(this)] {
        if (self) {
            --self->m_waits;
            // Without an answer the application was told to quit.
            self->m_state = self->m_state == State::Waiting ? State::Up : self->m_state;
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
    const bool takesButton = m_closeButton.isMade() && m_blocksWindowButton;
    if (m_window) {
        m_window->removeEventFilter(m_sheet);
    }
    if (m_closeButton.isMade()) {
        m_closeButton.giveBack(m_window);
    }
    m_window = m_sheet->window();
    m_window->installEventFilter(m_sheet);
    if (takesButton) {
        m_closeButton.make(m_window);
        SheetStack::push(m_sheet);
    }
}

// A dying widget says so before it deletes its children, and the sheet is usually an object on its caller's stack.
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
        m_window->removeEventFilter(m_sheet);
        if (m_closeButton.isMade()) {
            m_closeButton.giveBack(m_window);
        }
    }
    m_closeButton.drop();
    m_state = isUp() ? State::Down : m_state;
    goDown();
    m_hasLeft = true;
    m_sheet->setParent(nullptr);
    endWait();
}

void SheetRun::end(int result)
{
    if (m_state == State::Answering) {
        return;
    }
    m_window = m_sheet->window();
    if (m_blocksWindowButton) {
        m_closeButton.giveBack(m_window);
    }
    if (m_loop) {
        m_loop->exit(result);
    }
    m_window->removeEventFilter(m_sheet);
    const bool wasUp = isUp();
    m_state = State::Answering;
    goDown();
    if (wasUp) {
        announce(QAccessible::DialogEnd);
    }
    // What gets the focus may delete the sheet or show it again, as may those who see it hidden.
    const QPointer<SheetRun> alive(this);
    m_focus.giveBack();
    if (alive && m_state == State::Answering) {
        m_sheet->hide();
    }
    if (alive && m_state == State::Answering) {
        m_focus.letGo();
    }
    if (!alive) {
        return;
    }

    // A guard, for slots that throw.
    const auto emitted = qScopeGuard([self = QPointer<SheetRun>(this)] {
        if (self && self->m_state == State::Answering) {
            self->m_state = State::Down;
        }
    });
    Q_EMIT m_sheet->finished(result);
}

bool SheetRun::refusesClose(QEvent *event) const
{
    if (!m_blocksWindowButton || event->type() != QEvent::Close) {
        return false;
    }
    event->ignore();
    return true;
}

bool SheetRun::moveFocus(bool next)
{
    // While the sheet is being hidden, the focus goes back to the window.
    if (!m_sheet->isVisible()) {
        return false;
    }
    m_focus.move(next);
    return true;
}

} // namespace Vela::Private
