// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// What the platform must be told before there is an application object.
///
/// Chooses the platform that draws into memory when the environment names neither a display nor a platform, so that
/// everything but showing a window works anywhere.
void preparePlatform();

/// What the platform that draws into memory leaves open once there is an application object.
void completePlatform();

/// Whether windows go to a screen, or to where the person wants them without one.
bool canShowWindows();
