// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QString>

#include <map>

/// Translates a locale name ("de_de") into the three-letter code of a language ("deu"), under which an application
/// keeps its string table and which a help request carries.
///
/// Names are compared exactly and in lower case; only getDefaultLanguage() lowers a name itself. GUI thread only.
class VELA_EXPORT VelaLocale
{
public:
    /// The one instance, created on first use.
    static VelaLocale *getInstance();

    /// The code for the system's locale.
    QString getDefaultLanguage();

    /// The code for @p locale, a lower-case name such as "de", "de_de" or "zh_tw"; "enu" for an unknown language.
    QString getLanguageByLocale(const QString &locale);

    /// "ptg" (European) for exactly "pt" and "pt_pt", otherwise "ptb" (Brazilian).
    QString getPortugueseLanguage(const QString &locale);

    /// "cht" (traditional) for exactly "zh_tw", "zh_hk" and "zh_mo", otherwise "chs" (simplified).
    QString getChineseLanguage(const QString &locale);

    /// Adds or replaces the code of @p prefix, the part of a locale name before "_". Portuguese and Chinese names are
    /// decided by their own rules and never looked up.
    void setLanguageMap(QString prefix, QString code);

private:
    VelaLocale();
    ~VelaLocale() = default;
    Q_DISABLE_COPY_MOVE(VelaLocale)

    std::map<QString, QString> languageMap;
    QString defaultLanguage;
};
