// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/sheet-stack_p.h"

#include "sheets/vela-sheet.h"

#include <QVector>

#include <algorithm>

namespace Vela::Private {

namespace {

QVector<VelaSheet *> &sheets()
{
    static auto &sheets = *new QVector<VelaSheet *>; // stays to the end, as sheets may be static
    return sheets;
}

} // namespace

void SheetStack::push(VelaSheet *sheet)
{
    remove(sheet);
    sheets().append(sheet);
}

void SheetStack::remove(VelaSheet *sheet)
{
    sheets().removeOne(sheet);
}

VelaSheet *SheetStack::top(const QWidget *window, const VelaSheet *except)
{
    const auto top = std::find_if(sheets().crbegin(), sheets().crend(), [window, except](const VelaSheet *sheet) {
        return sheet != except && sheet->isVisible() && sheet->window() == window;
    });
    return top == sheets().crend() ? nullptr : *top;
}

} // namespace Vela::Private
