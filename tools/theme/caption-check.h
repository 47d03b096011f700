// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Findings;
class SheetText;

/// Finds texts that are cut where widgets show them, in each language of the theme in @p folder, which is in use.
void checkCaptions(const QString &folder, const SheetText &sheets, Findings *findings);
