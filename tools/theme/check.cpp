// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "check.h"

#include "look-check.h"
#include "scaled-text.h"
#include "sheet-check.h"
#include "sheet-text.h"
#include "silences.h"
#include "text-check.h"
#include "theme-images.h"
#include "theme-json.h"

#include <QTextStream>

namespace {

struct Screen
{
    double scale;
    double ratio;
};

constexpr Screen Screens[] = {{1.0, 1.0}, {1.25, 1.0}, {1.5, 1.0}, {2.0, 1.0}, {1.0, 2.0}, {1.5, 2.0}};

} // namespace

Findings checkTheme(const QString &folder, CheckedParts parts)
{
    Findings findings;
    if (holdsLength(folder)) {
        findings.add("path-digits", QString(), 0,
                     QStringLiteral("digits before \"px\" in the path of the theme's folder are scaled"));
    }
    const SheetText text(folder, &findings);
    ThemeImages images(folder, &findings);
    images.check(checkSheets(text, images, &findings));
    checkTexts(folder, &findings);
    checkThemeJson(folder, &findings);
    if (parts == CheckedParts::FilesAndLooks) {
        checkLooks(folder, text, &findings);
    }
    applySilences(text, &findings);
    findings.sort();
    return findings;
}

QString memoryForecast(const QString &folder)
{
    Findings findings;
    const ThemeImages images(folder, &findings);
    QString table = QStringLiteral("scale  ratio       preload  lazy, at most\n");
    for (const Screen &screen : Screens) {
        table += QStringLiteral("%1  %2  %3  %4\n")
                     .arg(screen.scale, 5)
                     .arg(screen.ratio, 5)
                     .arg(images.bytes(screen.scale, screen.ratio, true), 12)
                     .arg(images.bytes(screen.scale, screen.ratio, false), 13);
    }
    return table;
}
