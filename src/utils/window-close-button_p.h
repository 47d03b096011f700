// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// Frees what SHAPISetCloseButtonOfWindowEnable() has kept of a window that is gone, and sets the pointer to null.
void discardWindowState(void **savedState);
