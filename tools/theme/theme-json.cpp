// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-json.h"

#include "findings.h"
#include "json-file.h"

#include "theme/theme-look_p.h"

namespace {

const QString FileName = QStringLiteral("theme.json");

const char *ruleOf(Vela::ThemeLook::Fault fault)
{
    static const char *const rules[] = {"theme-key", "theme-color", "theme-value"};
    return rules[static_cast<int>(fault)];
}

} // namespace

void checkThemeJson(const QString &folder, Findings *findings)
{
    using Vela::ThemeLook;
    const JsonFile file(folder, FileName, "theme-json", findings);
    const ThemeLook look(file.object(), [&](ThemeLook::Fault fault, const QStringList &path, const QString &text) {
        const QString &key = path.last();
        const QStringList objects = path.mid(0, path.size() - 1);
        const QString meant = fault == ThemeLook::Fault::Key ? suggestion(key, ThemeLook::keys(objects)) : QString();
        findings->add(ruleOf(fault), FileName, file.lineOf(key, objects), text + meant);
    });
}
