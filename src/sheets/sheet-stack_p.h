// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;
class VelaSheet;

namespace Vela::Private {

/// The sheets that are up, the last one that came uppermost.
class SheetStack
{
public:
    /// Puts @p sheet, which may be in the stack already, on top.
    static void push(VelaSheet *sheet);
    static void remove(VelaSheet *sheet);
    /// The uppermost visible sheet in @p window other than @p except, null if there is none.
    static VelaSheet *top(const QWidget *window, const VelaSheet *except = nullptr);
};

} // namespace Vela::Private
