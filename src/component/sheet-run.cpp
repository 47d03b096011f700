#include "component/sheet-run.h"

#include "component/vela-sheet.h"
#include "utils/util.h"
#include "utils/window-close-button.h"

#include <QApplication>
#include <QEvent>
#include <QVector>

#include <algorithm>
#include <utility>

namespace {

/// Of all sheets that are up, in the order in which they came.
QVector<SheetRun *> &runs()
{
    static QVector<SheetRun *> runs;
    return runs;
}

} // namespace

SheetRun::SheetRun(VelaSheet *sheet) : m_sheet(sheet)
{
    sheet->installEventFilter(this);
}

void SheetRun::setBlockWindowButton(bool block)
{
    m_blocksWindowButton = block;
}

void SheetRun::begin()
{
    m_sheet->show();
    takeCloseButton();
    watchWindow();
}

void SheetRun::watchWindow()
{
    m_isEnding = false; // it may be shown again by a slot of finished()
    if (!isUp()) {
        m_formerFocus = m_sheet->window()->focusWidget();
    }
    runs().removeOne(this);
    runs().append(this);
    m_sheet->window()->installEventFilter(m_sheet);
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
    watchAncestors();
    ++m_waits;

    const QPointer<SheetRun> self(this);
    const int result = loop.exec();
    if (self && --m_waits == 0) {
        m_ancestorConnections.reset();
    }
    return result;
}

/// A dying widget says so before it deletes its children, and the sheet is usually an object on its caller's stack.
void SheetRun::watchAncestors()
{
    m_ancestorConnections = std::make_unique<QObject>();
    for (QWidget *ancestor = m_sheet->parentWidget(); ancestor; ancestor = ancestor->parentWidget()) {
        connect(ancestor, &QObject::destroyed, m_ancestorConnections.get(),
                [this](const QObject *dying) { leave(dying); });
    }
}

void SheetRun::leave(const QObject *dyingAncestor)
{
    runs().removeOne(this);
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

bool SheetRun::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::ParentAboutToChange && isUp()) {
        giveCloseButtonBack();
        m_sheet->window()->removeEventFilter(m_sheet);
    } else if (event->type() == QEvent::ParentChange && isUp()) {
        m_sheet->window()->installEventFilter(m_sheet);
        if (m_waits > 0) {
            takeCloseButton();
            watchAncestors();
        }
    }
    return false;
}

void SheetRun::takeCloseButton()
{
    if (m_blocksWindowButton && !m_savedWindowState) { // which end() leaves when it is not told to block any more
        SHAPISetCloseButtonOfWindowEnable(m_sheet, false, &m_savedWindowState);
    }
}

void SheetRun::giveCloseButtonBack()
{
    if (m_savedWindowState) {
        handWindowStateOn();
        SHAPISetCloseButtonOfWindowEnable(m_sheet, true, &m_savedWindowState);
    }
}

/// Each sheet keeps the window's hints as they were when it came up. One that goes before a later one hands its own on
/// and leaves what that one found: without the close button until the last has gone, and with it then.
void SheetRun::handWindowStateOn()
{
    if (!m_savedWindowState) {
        return;
    }
    for (int i = runs().indexOf(this) + 1; i < runs().size(); ++i) {
        SheetRun *later = runs().at(i);
        if (later->m_savedWindowState && later->m_sheet->window() == m_sheet->window()) {
            std::swap(m_savedWindowState, later->m_savedWindowState);
            return;
        }
    }
}

/// The last one that came up in the same window.
SheetRun *SheetRun::otherInWindow() const
{
    const auto other = std::find_if(runs().crbegin(), runs().crend(), [this](const SheetRun *run) {
        return run != this && run->m_sheet->window() == m_sheet->window();
    });
    return other == runs().crend() ? nullptr : *other;
}

void SheetRun::takeFocusFrom(const SheetRun &ending)
{
    QWidget *former = ending.m_formerFocus;
    if (m_sheet->isAncestorOf(former) && former->isVisible() && former->isEnabled()) {
        former->setFocus(Qt::OtherFocusReason);
    } else {
        moveFocus(true);
    }
}

void SheetRun::end(int result)
{
    if (m_isEnding) { // called by a slot of finished()
        return;
    }
    m_isEnding = true;
    if (m_blocksWindowButton) {
        handWindowStateOn();
        SHAPISetCloseButtonOfWindowEnable(m_sheet, true, &m_savedWindowState);
    }
    if (m_loop) {
        m_loop->exit(result);
    }
    QWidget *window = m_sheet->window();
    window->removeEventFilter(m_sheet);
    runs().removeOne(this);
    SheetRun *other = otherInWindow();
    if (other && m_sheet->isAncestorOf(window->focusWidget())) { // or the focus would pass to what is below its mask
        other->takeFocusFrom(*this);
    }
    m_sheet->hide();
    QWidget *focused = window->focusWidget();
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
    runs().removeOne(this);
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
