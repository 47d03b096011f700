#include "component/sheet-run.h"

#include "component/vela-sheet.h"
#include "utils/util.h"
#include "utils/window-close-button.h"

#include <QApplication>
#include <QEvent>

SheetRun::SheetRun(VelaSheet *sheet) : m_sheet(sheet) { }

void SheetRun::setBlockWindowButton(bool block)
{
    m_blocksWindowButton = block;
}

void SheetRun::begin()
{
    m_sheet->show();
    if (m_blocksWindowButton && !m_savedWindowState) { // which end() leaves when it is not told to block any more
        SHAPISetCloseButtonOfWindowEnable(m_sheet, false, &m_savedWindowState);
    }
    watchWindow();
}

void SheetRun::watchWindow()
{
    m_isEnding = false; // it may be shown again by a slot of finished()
    m_sheet->window()->installEventFilter(m_sheet);
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

    // A dying widget says so before it deletes its children, and the sheet is usually an object on its caller's stack.
    const QPointer<SheetRun> self(this);
    QObject connections;
    for (QWidget *ancestor = m_sheet->parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        connect(ancestor, &QObject::destroyed, &connections, [self](const QObject *dying) {
            if (self) {
                self->leave(dying);
            }
        });
    }
    return loop.exec();
}

void SheetRun::leave(const QObject *dyingAncestor)
{
    if (m_sheet->window() != dyingAncestor) {
        giveCloseButtonBack();
        m_sheet->window()->removeEventFilter(m_sheet);
    }
    discardWindowState(&m_savedWindowState);
    m_sheet->setParent(nullptr);
    if (isWaiting()) { // not when the answer is there already
        m_loop->exit(0);
    }
}

void SheetRun::giveCloseButtonBack()
{
    if (m_savedWindowState) {
        SHAPISetCloseButtonOfWindowEnable(m_sheet, true, &m_savedWindowState);
    }
}

void SheetRun::end(int result)
{
    if (m_isEnding) { // called by a slot of finished()
        return;
    }
    m_isEnding = true;
    if (m_blocksWindowButton) {
        SHAPISetCloseButtonOfWindowEnable(m_sheet, true, &m_savedWindowState);
    }
    if (m_loop) {
        m_loop->exit(result);
    }
    m_sheet->window()->removeEventFilter(m_sheet);
    m_sheet->hide();
    QWidget *focused = m_sheet->window()->focusWidget();
    if (m_sheet->isAncestorOf(focused)) { // where nothing else takes it, and a key would press the hidden button
        focused->clearFocus();
    }

    const QPointer<SheetRun> self(this);
    Q_EMIT m_sheet->finished(result);
    if (self) {
        m_isEnding = false;
    }
}

void SheetRun::abandon()
{
    giveCloseButtonBack();
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
    const auto takesFocus = [this](const QWidget *widget) {
        return m_sheet->isAncestorOf(widget) && widget->isVisible() && widget->isEnabled()
            && (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    };
    QWidget *start = QApplication::focusWidget();
    if (!start || !m_sheet->isAncestorOf(start)) {
        start = m_sheet;
    }
    QWidget *widget = start;
    do {
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    } while (widget != start && !takesFocus(widget));
    if (widget != start) {
        widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
}
