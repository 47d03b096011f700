// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

/// A theme that can be chosen.
struct ThemeEntry
{
    QString title;
    QString folder; ///< canonical path
};

/// The folder of a theme as a person names it: "light", "dark" or "high-contrast" for one of the reference themes,
/// which stand where they were installed beside the program, otherwise a folder. An empty name is the light one.
QString themeFolder(const QString &name);

/// The reference themes, and @p folder if it is none of them.
std::vector<ThemeEntry> themesToChoose(const QString &folder);

/// The code of the language whose texts VelaTheme shows.
QString shownLanguage();
