// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Findings;

/// Checks theme.json, which a theme may have or not.
void checkThemeJson(const QString &folder, Findings *findings);
