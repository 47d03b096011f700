// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/sheet-focus_p.h"

#include "sheets/sheet-stack_p.h"
#include "sheets/vela-sheet.h"

#include <QApplication>

namespace Vela::Private {

SheetFocus::SheetFocus(VelaSheet *sheet) : m_sheet(sheet) { }

void SheetFocus::remember()
{
    m_former = m_sheet->window()->focusWidget();
}

void SheetFocus::move(bool next)
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

void SheetFocus::giveBack()
{
    QWidget *window = m_sheet->window();
    if (!m_sheet->isAncestorOf(window->focusWidget())) {
        return;
    }
    VelaSheet *below = SheetStack::top(window, m_sheet);
    const QWidget *scope = below ? below : window;
    if (m_former && scope->isAncestorOf(m_former) && m_former->isVisible() && m_former->isEnabled()) {
        m_former->setFocus(Qt::OtherFocusReason);
    } else if (below) {
        SheetFocus(below).move(true);
    }
}

void SheetFocus::letGo()
{
    QWidget *focused = m_sheet->window()->focusWidget();
    if (m_sheet->isAncestorOf(focused)) {
        focused->clearFocus();
    }
}

} // namespace Vela::Private
