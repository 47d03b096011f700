// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Findings;
class SheetText;

/// Checks what the widgets look like in the theme in @p folder, which is taken into use. Nothing is looked at while
/// there are errors that could be the cause.
void checkLooks(const QString &folder, const SheetText &sheets, Findings *findings);
