// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

/// Sets the environment so that pictures and measurements are the same on any machine: no display, no desktop's style,
/// fonts or scale. Before the QApplication.
void preparePlatform();

/// What can be set behind it only.
void completePlatform();
