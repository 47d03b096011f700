// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class QWidget;

namespace Vela::Private {

struct MotifHints;

struct DeleteHints
{
    void operator()(MotifHints *hints) const;
};

/// What SHAPISetCloseButtonOfWindowEnable() keeps of a window, if it has kept any.
using KeptHints = std::unique_ptr<MotifHints, DeleteHints>;

/// SHAPISetCloseButtonOfWindowEnable() for the window of @p widget: keeps its hints in @p kept, in place of what was
/// there.
void takeCloseButton(QWidget *widget, KeptHints &kept);
/// The same the other way: puts the hints in @p kept back and leaves none there, unless the window is not a native one.
void giveCloseButtonBack(QWidget *widget, KeptHints &kept);

} // namespace Vela::Private
