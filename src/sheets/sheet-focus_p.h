// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

class VelaSheet;

namespace Vela::Private {

/// Keeps the focus in a sheet and returns it to where it was before.
class SheetFocus
{
public:
    explicit SheetFocus(VelaSheet *sheet);

    /// Notes which widget of the window has the focus.
    void remember();
    /// Gives the focus to the next, or previous, widget of the sheet that takes it by Tab: never to one outside.
    void move(bool next);
    /// To be called before the sheet is hidden, or the focus would pass to whatever is next to it, below another
    /// sheet's mask perhaps: returns the focus, if the sheet has it, to the sheet below or to the window.
    void giveBack();
    /// To be called once the sheet is hidden: takes the focus from it where nothing else has taken it, or a key would
    /// press a hidden button.
    void letGo();

private:
    VelaSheet *const m_sheet;
    QPointer<QWidget> m_former;
};

} // namespace Vela::Private
