// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/vela-locale.h"

#include <QLocale>

VelaLocale::VelaLocale() :
    languageMap {
        {QStringLiteral("en"), QStringLiteral("enu")}, {QStringLiteral("ja"), QStringLiteral("jpn")},
        {QStringLiteral("de"), QStringLiteral("deu")}, {QStringLiteral("ko"), QStringLiteral("krn")},
        {QStringLiteral("fr"), QStringLiteral("fra")}, {QStringLiteral("it"), QStringLiteral("ita")},
        {QStringLiteral("es"), QStringLiteral("esn")}, {QStringLiteral("ru"), QStringLiteral("rus")},
        {QStringLiteral("da"), QStringLiteral("dan")}, {QStringLiteral("no"), QStringLiteral("nor")},
        {QStringLiteral("nb"), QStringLiteral("nor")}, {QStringLiteral("nn"), QStringLiteral("nor")},
        {QStringLiteral("sv"), QStringLiteral("sve")}, {QStringLiteral("nl"), QStringLiteral("nld")},
        {QStringLiteral("pl"), QStringLiteral("plk")}, {QStringLiteral("hu"), QStringLiteral("hun")},
        {QStringLiteral("tr"), QStringLiteral("trk")}, {QStringLiteral("cs"), QStringLiteral("csy")},
    },
    defaultLanguage(QStringLiteral("enu"))
{
}

VelaLocale *VelaLocale::getInstance()
{
    static VelaLocale instance;
    return &instance;
}

QString VelaLocale::getDefaultLanguage()
{
    return getLanguageByLocale(QLocale::system().name().toLower());
}

QString VelaLocale::getLanguageByLocale(const QString &locale)
{
    const QString prefix = locale.left(locale.indexOf(QLatin1Char('_')));
    if (prefix == QLatin1String("pt")) {
        return getPortugueseLanguage(locale);
    }
    if (prefix == QLatin1String("zh")) {
        return getChineseLanguage(locale);
    }

    const auto entry = languageMap.find(prefix);
    return entry == languageMap.end() ? defaultLanguage : entry->second;
}

QString VelaLocale::getPortugueseLanguage(const QString &locale)
{
    const bool isEuropean = locale == QLatin1String("pt") || locale == QLatin1String("pt_pt");
    return isEuropean ? QStringLiteral("ptg") : QStringLiteral("ptb");
}

QString VelaLocale::getChineseLanguage(const QString &locale)
{
    const bool isTraditional =
        locale == QLatin1String("zh_tw") || locale == QLatin1String("zh_hk") || locale == QLatin1String("zh_mo");
    return isTraditional ? QStringLiteral("cht") : QStringLiteral("chs");
}

void VelaLocale::setLanguageMap(QString prefix, QString code)
{
    languageMap[prefix] = code;
}
