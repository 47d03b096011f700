// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QString>

class Findings;
class SheetText;
class ThemeImages;

/// Images that style sheets name.
struct UsedImages
{
    QSet<QString> drawn; ///< through IMG_LOC
    QSet<QString> scaled; ///< through TMPIMG_LOC, without "tmp_"
};

/// Checks all sections of @p text, and that there is one for each key of the library.
UsedImages checkSheets(const SheetText &text, const ThemeImages &images, Findings *findings);

/// Takes out of @p findings what comments in the sheets silence.
void applySilences(const SheetText &text, Findings *findings);
