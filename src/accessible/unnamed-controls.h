// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QStringList>

class QWidget;

/// What a screen reader cannot tell of in @p window and below it: a line for each thing that takes the focus and has no
/// name, or no role, and for each that is told of in a place where it is not found. Empty if all is well.
///
/// For an application's own tests, on each of its windows while that is shown: what is hidden is not looked at, nor
/// what lies below a sheet. It works on any widgets and without a screen reader.
VELA_EXPORT QStringList unnamedControls(QWidget *window);
