// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

struct SheetDeclaration;
class SectionFindings;

/// Checks a declaration, all but its addresses. Returns whether the toolkit can read it.
bool checkDeclaration(const SheetDeclaration &declaration, SectionFindings *findings);
