// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>

class QWidget;

// Window hints in place of those on an X server, for tests that compile in what takes close buttons away: a number
// stands for what a window's hints are.

constexpr int FakeHintsAway = -1; // hints of a window whose close button is away

/// The hints of the windows that have some.
QHash<const QWidget *, int> &fakeHints();
/// How many states are kept and have not been freed.
int fakeHintsKept();
