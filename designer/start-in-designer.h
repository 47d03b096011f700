// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// Makes the start-up calls with the reference theme, once: that of VELA_DESIGNER_THEME, of the user's and the system's
/// folders for data, or of the prefix that the plugin was built for. Without a theme the widgets have the toolkit's
/// look.
///
/// Programs that load forms do not call it, since they have a theme of their own.
void startInDesigner();
