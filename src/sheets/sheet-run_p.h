// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sheets/sheet-keys_p.h"

#include <QEventLoop>
#include <QObject>
#include <QPointer>

class QEvent;
class QWidget;
class VelaSheet;

/// The modal run of a sheet: what the kinds of sheets share from being shown to being answered.
///
/// Several sheets may be up in one window and be answered in any order, and a sheet may be moved to another window
/// while it is up, alone or with what it is in.
class SheetRun : public QObject
{
public:
    explicit SheetRun(VelaSheet *sheet);

    /// Whether the window cannot be closed while the sheet is up. Consulted by begin(), end() and refusesClose().
    void setBlockWindowButton(bool block);

    /// Shows the sheet, takes the window's close button away and watches the window's events.
    void begin();
    /// Lets the sheet see the events of its window.
    void watchWindow();
    /// Runs an event loop until end() and returns its result; 0 when the window is destroyed meanwhile.
    int wait();
    /// Whether wait() waits for an answer.
    bool isWaiting() const;
    /// Undoes begin() and watchWindow(), ends wait() and emits VelaSheet::finished().
    void end(int result);

    /// To be called by the sheet's destructor: gives the window its close button back, ends wait().
    void abandon();

    /// Whether @p event is an attempt to close the window that is refused, which is done then.
    bool refusesClose(QEvent *event) const;

    /// Gives the focus to the next, or previous, widget of the sheet that takes it by Tab: never to one outside.
    void moveFocus(bool next);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isUp() const;
    void comeUp();
    void goDown();
    void takeCloseButton();
    void giveCloseButtonBack();
    void handWindowStateOn();
    void giveFocusBack();
    void watchAncestors();
    void followToWindow();
    void leave(QObject *dying);

    VelaSheet *const m_sheet;
    Vela::Private::SheetKeys m_keys;
    QPointer<QEventLoop> m_loop;
    int m_waits = 0; // calls of wait() that have not returned
    QPointer<QWidget> m_window; // that is watched
    QPointer<QWidget> m_formerFocus; // the window's, before the sheet came up
    void *m_savedWindowState = nullptr;
    bool m_blocksWindowButton = true;
    bool m_isEnding = false;
};
