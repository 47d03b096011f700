// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

class SectionFindings;
struct SheetSyntax;

/// Checks that borders which grow in a state, and paddings which give way, keep their sum at each scale.
void checkBordersAreEven(const SheetSyntax &syntax, SectionFindings *findings);
