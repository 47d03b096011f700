// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sheets/close-button-claim_p.h"
#include "sheets/sheet-focus_p.h"
#include "sheets/sheet-keys_p.h"

#include <QAccessible>
#include <QEventLoop>
#include <QObject>
#include <QPointer>

#include <functional>

class VelaSheet;

namespace Vela::Private {

/// The modal run of a sheet: what the kinds of sheets share from being shown to being answered.
///
/// Several sheets may be up in one window and be answered in any order, and a sheet may be moved to another window
/// while it is up, alone or with what it is in. It is to be destroyed with the sheet, before what else the sheet owns:
/// the window has its close button back then, and wait() has its end.
class SheetRun : public QObject
{
public:
    enum class State {
        Down, ///< not shown yet, or answered
        Up, ///< watches the window; finished() will tell the answer
        Waiting, ///< up, and wait() will return the answer
        Answering, ///< answered and undone, while finished() is emitted: a further answer is not heard, but the sheet
                   ///< may be shown again
    };

    explicit SheetRun(VelaSheet *sheet);
    ~SheetRun() override;

    State state() const;

    /// Whether the window cannot be closed while the sheet is up. Consulted by begin(), end() and refusesClose().
    void setBlockWindowButton(bool block);
    bool blocksWindowButton() const;

    /// begin(), @p started and wait(). Returns 0 also when the sheet or its window goes before it waits.
    int exec(const std::function<void()> &started);
    /// Shows the sheet, takes the window's close button away and watches the window's events.
    void begin();
    /// Lets the sheet see the events of its window.
    void watchWindow();
    /// Runs an event loop until end() and returns its result; 0 when the window is destroyed meanwhile.
    int wait();
    /// Undoes begin() and watchWindow(), ends wait() and emits VelaSheet::finished().
    void end(int result);

    /// Whether @p event is an attempt to close the window that is refused, which is done then.
    bool refusesClose(QEvent *event) const;
    /// Moves the focus within the sheet; does nothing, and says so, when the sheet is not visible.
    bool moveFocus(bool next);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isUp() const;
    void comeUp();
    void goDown();
    void announce(QAccessible::Event change);
    void endWait();
    void watchAncestors();
    void followToWindow();
    void leave(QObject *dying);

    VelaSheet *const m_sheet;
    SheetKeys m_keys;
    SheetFocus m_focus;
    CloseButtonClaim m_closeButton;
    State m_state = State::Down;
    QPointer<QEventLoop> m_loop; // loop of the last call of wait()
    int m_waits = 0; // calls of exec() and wait() that have not returned
    bool m_hasLeft = false; // a dying window, in the last call of exec()
    QPointer<QWidget> m_window; // window that is watched
    bool m_blocksWindowButton = true;
};

} // namespace Vela::Private
