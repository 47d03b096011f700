// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

class Findings;
class SheetText;

/// Takes out of @p findings what comments in the sheets silence.
void applySilences(const SheetText &text, Findings *findings);
