// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class SectionFindings;
struct SheetSelector;

namespace Vela {
struct StyleEntry;
}

/// Checks a selector against the widgets that its section reaches. @p entry is null for a section of the application's
/// own.
void checkSelector(const SheetSelector &selector, const Vela::StyleEntry *entry, SectionFindings *findings);
