#pragma once

#include "component/vela-msg-sheet.h"
#include "vela_export.h"

// Message boxes by one call. With a parent the message is a VelaMessageSheet over the parent's dimmed window, which has
// no title; without one it is a QMessageBox, a window of its own. Either way the call returns when it is answered.
//
// Each call with a parent leaves a hidden, empty mask behind in the window, and on X11 two connections to the X server
// (see SHAPISetCloseButtonOfWindowEnable()), of which a server accepts some 250 from all its clients by default.

VELA_EXPORT void showInfoMsg(const QString &title, const QString &text, QWidget *parent = nullptr);

VELA_EXPORT void showWarningMsg(const QString &title, const QString &text, QWidget *parent = nullptr);
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
