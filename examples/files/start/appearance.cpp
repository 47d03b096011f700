// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "appearance.h"

#include "texts/texts.h"

#include <VelaTheme>

#include <QCoreApplication>
#include <QDebug>
#include <QDir>

namespace {

QString themeFolder(const QString &name)
{
    return dataFolder() + u"/themes/" + name;
}

} // namespace

QStringList themeNames()
{
    return {QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("high-contrast")};
}

QStringList languageCodes()
{
    return VelaTheme::languages(themeFolder(themeNames().constFirst()));
}

// Our texts come first: when the theme tells that it has changed, all texts are taken anew.
bool applyAppearance(const QString &theme, const QString &language)
{
    const QString name = themeNames().contains(theme) ? theme : themeNames().constFirst();
    const QString code = languageCodes().contains(language) ? language : systemLanguage();
    setTextLanguage(code);
    const VelaTheme::Problems problems = VelaTheme::getInstance()->load(themeFolder(name), code);
    for (const VelaTheme::Problem &problem : problems) {
        qWarning().noquote() << problem.toString();
    }
    return !VelaTheme::hasErrors(problems);
}

QString themeInForce()
{
    return QDir(VelaTheme::getInstance()->folder()).dirName();
}

QString languageInForce()
{
    return VelaTheme::getInstance()->language();
}

QString dataFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" VELA_FILES_DATA_FROM_PROGRAM));
}
