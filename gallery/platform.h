// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// What the platform must be told before there is an application object.
///
/// Chooses the platform that draws into memory when the environment names neither a display nor a platform, so that
/// everything but showing a window works anywhere.
void preparePlatform();

/// What is to be the same on all platforms once there is an application object: a light palette to begin with, and on
/// the one that draws into memory, a font.
void completePlatform();

/// Whether windows go to a screen, or to where the person wants them without one.
bool canShowWindows();
