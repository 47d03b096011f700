// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "utils/window-close-button_p.h"

#include <QPointer>
#include <QWidget>

namespace Vela::Private {

/// Takes a window's close button away until it is given back, at the latest when this is destroyed.
///
/// Of a window with several claims each keeps the hints that it found when it came. One that goes before a later one
/// hands its own on and leaves what that one found, so that the button is away until the last has gone, and is back
/// then.
class CloseButtonClaim
{
public:
    CloseButtonClaim() = default;
    ~CloseButtonClaim();
    Q_DISABLE_COPY_MOVE(CloseButtonClaim)

    /// Whether the window's hints are kept.
    bool isMade() const;
    /// Takes the button of @p window away, unless the claim is made already.
    void make(QWidget *window);
    /// Gives it back to @p window, where the claim was made unless that window is gone, which takes its hints with it.
    void giveBack(QWidget *window);
    /// Forgets the hints of a window that is gone or going.
    void drop();

private:
    void handOn();

    QPointer<QWidget> m_window;
    KeptHints m_hints;
};

} // namespace Vela::Private
