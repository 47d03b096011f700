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
    if (m_blocksWindowButton) {
        SHAPISetCloseButtonOfWindowEnable(m_sheet, false, &m_savedWindowState);
    }
    watchWindow();
}

void SheetRun::watchWindow()
{
    m_sheet->window()->installEventFilter(m_sheet);
}

int SheetRun::wait()
{
    if (m_loop && m_loop->isRunning()) {
        return 0;
    }
    delete m_loop;
    m_loop = new QEventLoop(m_sheet);

    // A dying widget says so before it deletes its children, and the sheet is usually an object on its caller's stack.
    QObject connections;
    for (QWidget *ancestor = m_sheet->parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        connect(ancestor, &QObject::destroyed, &connections, [this] { leaveDyingWindow(); });
    }

    const QPointer<SheetRun> self(this);
    QEventLoop *loop = m_loop;
    const int result = loop->exec();
    if (!self) {
        delete loop;
    }
    return result;
}

void SheetRun::leaveDyingWindow()
{
    m_sheet->setParent(nullptr);
    discardWindowState(&m_savedWindowState);
    m_loop->exit(0);
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

    const QPointer<SheetRun> self(this);
    Q_EMIT m_sheet->finished(result);
    if (self) {
        m_isEnding = false;
    }
}

void SheetRun::abandon()
{
    if (m_savedWindowState) {
        SHAPISetCloseButtonOfWindowEnable(m_sheet, true, &m_savedWindowState);
        discardWindowState(&m_savedWindowState);
    }
    if (m_loop && m_loop->isRunning()) { // wait(), which is still on the stack, deletes it
        m_loop->setParent(nullptr);
        m_loop->exit(0);
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
