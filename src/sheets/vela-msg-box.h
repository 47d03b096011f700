// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-msg-sheet.h"
#include "vela_export.h"

/// @file
/// Message boxes by one call, which returns when the box is answered.
///
/// With a parent the message is a VelaMessageSheet inside the window of that parent, as wide as the parent's own width
/// allows; it has no title. The VelaMask that dims the window has the colour QColor(0, 0, 0, 20). Without a parent the
/// message is a QMessageBox, a window of its own.
///
/// Each call with a parent leaves a hidden, empty VelaMask behind in the window, which goes with the window: some 3 kB
/// each. On X11 it also leaves two connections to the X server open until the process ends, some 150 kB, since the
/// window's close button is switched off and on again, see SHAPISetCloseButtonOfWindowEnable(), unless the library is
/// built with VELA_CLOSE_X_CONNECTIONS. A server accepts 256 clients by default, of all programs together. From then
/// on, after some 125 calls, it refuses new programs too, and close buttons are not switched any more: one that was off
/// then stays off. An application that runs for long and reports often keeps a VelaMessageSheet of its own instead and
/// calls VelaMessageSheet::setBlockWindowButton() with false.

/// Gives information. A sheet is answered by Ok, Return, Enter and Space only, a window also by being closed.
VELA_EXPORT void showInfoMsg(const QString &title, const QString &text, QWidget *parent = nullptr);

/// Warns; answered like showInfoMsg().
VELA_EXPORT void showWarningMsg(const QString &title, const QString &text, QWidget *parent = nullptr);
/// The same with a second text below the first one; an empty one is left out.
VELA_EXPORT void showWarningMsg(const QString &title, const QString &text, const QString &informativeText,
                                QWidget *parent = nullptr);

/// Asks a question. Returns QMessageBox::Ok, or what differs by the kind of box: QMessageBox::Discard from a sheet and
/// QMessageBox::Cancel from a window. Test for Ok.
VELA_EXPORT int showConfirmMsg(const QString &title, const QString &text, QWidget *parent = nullptr);
/// The same with captions of one's own.
VELA_EXPORT int showConfirmMsgCustomBtn(const QString &title, const QString &text, const MsgBoxCustomBtnText &captions,
                                        QWidget *parent = nullptr);

/// Offers an upgrade; the answer is not reported. The sheet has an upgrade and a cancel button, the window Ok alone.
VELA_EXPORT void showUpgradingMsg(const QString &title, const QString &text, QWidget *parent = nullptr);
