// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

class QWidget;

/// Takes the close button and the other functions of the window of @p widget away, or gives them back, through the
/// property that window managers on X11 read ("_MOTIF_WM_HINTS"). Does nothing on another platform and for a widget
/// without a native window yet, as before it is first shown.
///
/// @p savedState points to a pointer that is null at first. Disabling keeps the window's hints there and enabling puts
/// them back, frees them and sets the pointer to null; enabling without them does nothing. Disabling twice loses what
/// the first call kept. Each call opens a connection of its own to the X server, which stays open until the process
/// ends: a server accepts a few hundred from all its clients (256 by default), so this is nothing to be called in a
/// loop. A library that is built with the CMake option VELA_CLOSE_X_CONNECTIONS closes each as soon as it has been
/// used.
VELA_EXPORT void SHAPISetCloseButtonOfWindowEnable(QWidget *widget, bool enable, void **savedState);
