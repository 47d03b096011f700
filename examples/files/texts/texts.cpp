// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "texts.h"

#include <VelaLocale>

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <algorithm>

namespace {

struct LanguageRow
{
    const char *code;
    const char *locale;
    const char *name;
};

constexpr LanguageRow Languages[] = {
    {"ara", "ar_EG", "العربية"},
    {"chs", "zh_CN", "简体中文"},
    {"cht", "zh_TW", "繁體中文"},
    {"csy", "cs_CZ", "Čeština"},
    {"dan", "da_DK", "Dansk"},
    {"deu", "de_DE", "Deutsch"},
    {"enu", "en_GB", "English"},
    {"esn", "es_ES", "Español"},
    {"fra", "fr_FR", "Français"},
    {"hun", "hu_HU", "Magyar"},
    {"ita", "it_IT", "Italiano"},
    {"jpn", "ja_JP", "日本語"},
    {"krn", "ko_KR", "한국어"},
    {"nld", "nl_NL", "Nederlands"},
    {"nor", "nb_NO", "Norsk"},
    {"plk", "pl_PL", "Polski"},
    {"ptb", "pt_BR", "Português (Brasil)"},
    {"ptg", "pt_PT", "Português"},
    {"rus", "ru_RU", "Русский"},
    {"sve", "sv_SE", "Svenska"},
    {"trk", "tr_TR", "Türkçe"},
};

const LanguageRow *rowOf(const QString &language)
{
    const auto *row = std::find_if(std::begin(Languages), std::end(Languages), [&language](const LanguageRow &known) {
        return language == QLatin1String(known.code);
    });
    return row == std::end(Languages) ? nullptr : row;
}

QString fileOf(const QString &language)
{
    return QStringLiteral(":/texts/%1.json").arg(language);
}

QHash<QString, QString> readTexts(const QString &language)
{
    QHash<QString, QString> texts;
    QFile file(fileOf(language));
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
        for (auto entry = object.begin(); entry != object.end(); ++entry) {
            texts.insert(entry.key(), entry.value().toString());
        }
    }
    return texts;
}

QHash<QString, QString> &textsInForce()
{
    static QHash<QString, QString> texts;
    return texts;
}

} // namespace

QString text(const char *key)
{
    const QString name = QString::fromLatin1(key);
    return textsInForce().value(name, name);
}

void setTextLanguage(const QString &language)
{
    const QString own = hasOwnTexts(language) ? language : QStringLiteral("enu");
    textsInForce() = readTexts(own);
    const LanguageRow *row = rowOf(language);
    const QLocale locale(QString::fromLatin1(row ? row->locale : "en_GB"));
    QLocale::setDefault(locale);
    QApplication::setLayoutDirection(locale.textDirection());
}

QString systemLanguage()
{
    VelaLocale *locale = VelaLocale::getInstance();
    locale->setLanguageMap(QStringLiteral("ar"), QStringLiteral("ara"));
    return locale->getLanguageByLocale(QLocale::system().name().toLower());
}

QString nameOfLanguage(const QString &language)
{
    const LanguageRow *row = rowOf(language);
    return row ? QString::fromUtf8(row->name) : language;
}

bool hasOwnTexts(const QString &language)
{
    return QFile::exists(fileOf(language));
}
