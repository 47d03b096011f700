// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "findings.h"

#include <QString>

/// Checks the theme in @p folder. Needs a QApplication.
Findings checkTheme(const QString &folder);

/// A table of the bytes that a theme's images take in memory, at each scale and ratio.
QString memoryForecast(const QString &folder);
