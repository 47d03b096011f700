// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "address-check.h"

class Findings;
class SheetText;
class ThemeImages;

/// Checks all sections of @p text, and that there is one for each key of the library.
UsedImages checkSheets(const SheetText &text, const ThemeImages &images, Findings *findings);
