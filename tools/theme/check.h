// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "findings.h"

#include <QString>

enum class CheckedParts {
    Files, ///< what can be told without widgets
    FilesAndLooks, ///< once a process: the theme is taken into use
};

/// Checks the theme in @p folder. Needs a QApplication.
Findings checkTheme(const QString &folder, CheckedParts parts);

/// A table of the bytes that a theme's images take in memory, at each scale and ratio.
QString memoryForecast(const QString &folder);
