// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "themes.h"

#include <VelaTheme>

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

namespace {

struct ReferenceTheme
{
    const char *name;
    const char *title;
};

constexpr ReferenceTheme ReferenceThemes[] = {
    {"light", "Light"},
    {"dark", "Dark"},
    {"high-contrast", "High contrast"},
};

QString referenceFolder(const ReferenceTheme &theme)
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" VELA_THEMES_FROM_PROGRAM "/")
                           + QString::fromLatin1(theme.name));
}

} // namespace

QString themeFolder(const QString &name)
{
    const auto *theme =
        std::find_if(std::begin(ReferenceThemes), std::end(ReferenceThemes),
                     [&name](const ReferenceTheme &known) { return name == QLatin1String(known.name); });
    if (theme != std::end(ReferenceThemes)) {
        return referenceFolder(*theme);
    }
    return name.isEmpty() ? referenceFolder(ReferenceThemes[0]) : QDir(name).absolutePath();
}

std::vector<ThemeEntry> themesToChoose(const QString &folder)
{
    std::vector<ThemeEntry> themes;
    for (const ReferenceTheme &theme : ReferenceThemes) {
        if (const QDir dir(referenceFolder(theme)); dir.exists()) {
            themes.push_back({QString::fromLatin1(theme.title), dir.canonicalPath()});
        }
    }
    const QString own = QDir(folder).canonicalPath();
    if (std::none_of(themes.cbegin(), themes.cend(), [&own](const ThemeEntry &theme) { return theme.folder == own; })) {
        themes.push_back({QDir(own).dirName(), own});
    }
    return themes;
}

QString shownLanguage()
{
    const VelaTheme *theme = VelaTheme::getInstance();
    const bool isThere = VelaTheme::languages(theme->folder()).contains(theme->language());
    return isThere ? theme->language() : theme->fallbackLanguage();
}
