// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "look/keys_p.h"
#include "support/log-capture.h"
#include "utils/component-strings.h"
#include "utils/vela-locale.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <algorithm>
#include <initializer_list>

namespace {

const QStringList CaptionKeys = {
    QStringLiteral("ok"),
    QStringLiteral("cancel"),
    QStringLiteral("wizard_client_upgrade"),
    QStringLiteral("first_page"),
    QStringLiteral("prev_5_pages"),
    QStringLiteral("last_page"),
    QStringLiteral("next_5_pages"),
    QStringLiteral("pagebar_refresh"),
    QStringLiteral("today"),
    QStringLiteral("accessible_calendar"),
    QStringLiteral("accessible_calendar_prev_month"),
    QStringLiteral("accessible_calendar_next_month"),
};

const QStringList MonthKeys = {
    QStringLiteral("month_jan"), QStringLiteral("month_feb"), QStringLiteral("month_mar"), QStringLiteral("month_apr"),
    QStringLiteral("month_may"), QStringLiteral("month_jun"), QStringLiteral("month_jul"), QStringLiteral("month_aug"),
    QStringLiteral("month_sep"), QStringLiteral("month_oct"), QStringLiteral("month_nov"), QStringLiteral("month_dec"),
};

const QStringList WeekdayKeys = {
    QStringLiteral("sunday"),   QStringLiteral("monday"), QStringLiteral("tuesday"),  QStringLiteral("wednesday"),
    QStringLiteral("thursday"), QStringLiteral("friday"), QStringLiteral("saturday"),
};

QStringList spokenKeys()
{
    QStringList keys;
    for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
        keys.append(QString::fromLatin1(entry.key));
    }
    return keys;
}

const QStringList Keys = CaptionKeys + MonthKeys + WeekdayKeys + spokenKeys();

// Texts that a widget shows side by side.
const QVector<QStringList> Groups = {
    {QStringLiteral("ok"), QStringLiteral("cancel")},
    {QStringLiteral("wizard_client_upgrade"), QStringLiteral("cancel")},
    {QStringLiteral("first_page"), QStringLiteral("prev_5_pages"), QStringLiteral("next_5_pages"),
     QStringLiteral("last_page"), QStringLiteral("pagebar_refresh")},
    {QStringLiteral("accessible_calendar"), QStringLiteral("accessible_calendar_prev_month"),
     QStringLiteral("accessible_calendar_next_month"), QStringLiteral("today")},
    MonthKeys,
    WeekdayKeys,
    {QStringLiteral("accessible_sorted_ascending"), QStringLiteral("accessible_sorted_descending")},
    {QStringLiteral("accessible_filter"), QStringLiteral("accessible_filter_menu")},
};

using Scripts = std::initializer_list<QChar::Script>;

constexpr Scripts Latin = {QChar::Script_Latin};
constexpr Scripts Cyrillic = {QChar::Script_Cyrillic};
constexpr Scripts Han = {QChar::Script_Han};
constexpr Scripts Hangul = {QChar::Script_Hangul};
constexpr Scripts Japanese = {QChar::Script_Han, QChar::Script_Hiragana, QChar::Script_Katakana};

struct Language
{
    const char *code;
    const char *locale;
    Scripts scripts;
};

const Language Languages[] = {
    {"chs", "zh_CN", Han},   {"cht", "zh_TW", Han},      {"csy", "cs_CZ", Latin},    {"dan", "da_DK", Latin},
    {"deu", "de_DE", Latin}, {"enu", "en_US", Latin},    {"esn", "es_ES", Latin},    {"fra", "fr_FR", Latin},
    {"hun", "hu_HU", Latin}, {"ita", "it_IT", Latin},    {"jpn", "ja_JP", Japanese}, {"krn", "ko_KR", Hangul},
    {"nld", "nl_NL", Latin}, {"nor", "nb_NO", Latin},    {"plk", "pl_PL", Latin},    {"ptb", "pt_BR", Latin},
    {"ptg", "pt_PT", Latin}, {"rus", "ru_RU", Cyrillic}, {"sve", "sv_SE", Latin},    {"trk", "tr_TR", Latin},
};

// The calendar's header shows the first character of a weekday. All long Chinese names begin with the same
// one, so that the texts are the names without it.
const QStringList WithShortWeekdays = {QStringLiteral("chs"), QStringLiteral("cht")};

// The calendar's menu shows three characters of a month. Those of June and July are the same in these
// languages.
const QStringList WithEqualJuneAndJuly = {QStringLiteral("csy"), QStringLiteral("fra")};

// Calendars of these languages tell one weekday from another by a letter that its name does not begin with:
// Spanish writes an X for Wednesday.
const QMap<QString, QString> WeekdaysWithForeignLetter = {{QStringLiteral("esn"), QStringLiteral("wednesday")}};

QDir stringsFolder()
{
    return QDir(QStringLiteral(VELA_THEME_DIR "/strings"));
}

QByteArray readFile(const QString &code)
{
    QFile file(stringsFolder().filePath(code + QLatin1String(".json")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QString> readStrings(const QString &code)
{
    QMap<QString, QString> strings;
    const QJsonObject object = QJsonDocument::fromJson(readFile(code)).object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        strings.insert(it.key(), it.value().toString());
    }
    return strings;
}

QStringList texts(const QMap<QString, QString> &strings, const QStringList &keys)
{
    QStringList list;
    for (const QString &key : keys) {
        list.append(strings.value(key));
    }
    return list;
}

QStringList beginnings(const QStringList &list, int length)
{
    QStringList result;
    for (const QString &text : list) {
        result.append(text.left(length));
    }
    return result;
}

QStringList monthsOf(const QLocale &locale)
{
    QStringList names;
    for (int month = 1; month <= MonthKeys.size(); ++month) {
        names.append(locale.standaloneMonthName(month));
    }
    return names;
}

// From Sunday on.
QStringList weekdaysOf(const QLocale &locale, QLocale::FormatType format)
{
    QStringList names;
    for (int day : {Qt::Sunday, Qt::Monday, Qt::Tuesday, Qt::Wednesday, Qt::Thursday, Qt::Friday, Qt::Saturday}) {
        names.append(locale.standaloneDayName(day, format));
    }
    return names;
}

// What getLanguageByLocale() returns for all locales of the toolkit, and for more ways of writing some.
QSet<QString> returnedCodes()
{
    QStringList names = {QStringLiteral("pt"),
                         QStringLiteral("pt_pt"),
                         QStringLiteral("pt_br"),
                         QStringLiteral("zh"),
                         QStringLiteral("zh_cn"),
                         QStringLiteral("zh_tw"),
                         QStringLiteral("zh_hk"),
                         QStringLiteral("no"),
                         QStringLiteral("nn_no"),
                         QStringLiteral("th_th"),
                         QString()};
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
    for (const QLocale &locale : locales) {
        names.append(locale.name().toLower());
    }
    QSet<QString> codes;
    for (const QString &name : qAsConst(names)) {
        codes.insert(VelaLocale::getInstance()->getLanguageByLocale(name));
    }
    return codes;
}

QStringList sorted(const QSet<QString> &set)
{
    QStringList list = set.values();
    list.sort();
    return list;
}

} // namespace

class TestThemeStrings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageOfALocaleHasAFileAndNothingElseDoes();
    void everyFileIsOneOfTheLanguagesUnderTest();
    void aLanguageIsFoundByItsLocale_data() { addLanguages(); }
    void aLanguageIsFoundByItsLocale();
    void everyTextStandsThereOnceAndInOneOrder_data() { addLanguages(); }
    void everyTextStandsThereOnceAndInOneOrder();
    void textsAreThereAndWithoutBlanksAround_data() { addLanguages(); }
    void textsAreThereAndWithoutBlanksAround();
    void textsAreComposedAndPlain_data() { addLanguages(); }
    void textsAreComposedAndPlain();
    void textsAreWrittenInTheScriptOfTheirLanguage_data() { addLanguages(); }
    void textsAreWrittenInTheScriptOfTheirLanguage();
    void captionsBeginWithACapital_data() { addLanguages(); }
    void captionsBeginWithACapital();
    void textsSideBySideDiffer_data() { addLanguages(); }
    void textsSideBySideDiffer();
    void tipsOfFivePagesNameTheNumber_data() { addLanguages(); }
    void tipsOfFivePagesNameTheNumber();
    void spokenTextsKeepTheirMarkers_data() { addLanguages(); }
    void spokenTextsKeepTheirMarkers();
    void spokenTextsInEnglishAreTheFallbacks();
    void monthsAreThoseOfTheLocale_data() { addLanguages(); }
    void monthsAreThoseOfTheLocale();
    void threeCharactersTellTheMonthsApart_data() { addLanguages(); }
    void threeCharactersTellTheMonthsApart();
    void weekdaysAreThoseOfTheLocaleWithACapital_data() { addLanguages(); }
    void weekdaysAreThoseOfTheLocaleWithACapital();
    void firstCharactersOfWeekdaysAreTheLettersOfTheLocalesCalendars_data() { addLanguages(); }
    void firstCharactersOfWeekdaysAreTheLettersOfTheLocalesCalendars();
    void noCaptionButOkIsTheEnglishOne_data() { addLanguages(); }
    void noCaptionButOkIsTheEnglishOne();
    void noTwoLanguagesHaveTheSameTexts();
    void installedTextsAreReturned_data() { addLanguages(); }
    void installedTextsAreReturned();

private:
    static void addLanguages();
};

void TestThemeStrings::addLanguages()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Language &language : Languages) {
        QTest::newRow(language.code) << index++;
    }
}

void TestThemeStrings::everyLanguageOfALocaleHasAFileAndNothingElseDoes()
{
    QStringList files;
    for (const QString &code : sorted(returnedCodes())) {
        files.append(code + QLatin1String(".json"));
    }
    QCOMPARE(stringsFolder().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name), files);
}

void TestThemeStrings::everyFileIsOneOfTheLanguagesUnderTest()
{
    QStringList files;
    for (const Language &language : Languages) {
        files.append(QLatin1String(language.code) + QLatin1String(".json"));
    }
    QCOMPARE(stringsFolder().entryList(QDir::Files, QDir::Name), files);
}

void TestThemeStrings::aLanguageIsFoundByItsLocale()
{
    QFETCH(int, index);
    const Language &language = Languages[index];
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QString::fromLatin1(language.locale).toLower()),
             QString::fromLatin1(language.code));
}

// Read from the text of the file, because a parsed object has neither an order nor a key twice.
void TestThemeStrings::everyTextStandsThereOnceAndInOneOrder()
{
    QFETCH(int, index);
    const QByteArray content = readFile(QLatin1String(Languages[index].code));
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(content, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    for (const QJsonValue &value : object) {
        QVERIFY(value.isString());
    }

    QStringList keys;
    static const QRegularExpression keyPattern(QStringLiteral("\"([^\"]*)\"\\s*:"));
    auto it = keyPattern.globalMatch(QString::fromUtf8(content));
    while (it.hasNext()) {
        keys.append(it.next().captured(1));
    }
    QCOMPARE(keys, Keys);
    QCOMPARE(object.size(), Keys.size());
}

void TestThemeStrings::textsAreThereAndWithoutBlanksAround()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    for (const QString &key : Keys) {
        QVERIFY2(!strings.value(key).isEmpty(), qPrintable(key));
        QCOMPARE(strings.value(key), strings.value(key).simplified());
    }
}

// Three characters that are cut from a month must not end between a letter and its accent; a button takes
// "&" for a mnemonic, a tool tip "<" for markup.
void TestThemeStrings::textsAreComposedAndPlain()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    for (const QString &text : strings) {
        QCOMPARE(text, text.normalized(QString::NormalizationForm_C));
        QVERIFY2(!text.contains(QLatin1Char('&')) && !text.contains(QLatin1Char('<')), qPrintable(text));
        QVERIFY2(std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.isPrint(); }), qPrintable(text));
    }
}

// Finds letters of another script that only look right. "OK" is Latin nearly everywhere.
void TestThemeStrings::textsAreWrittenInTheScriptOfTheirLanguage()
{
    QFETCH(int, index);
    const Language &language = Languages[index];
    const auto strings = readStrings(QLatin1String(language.code));
    QVERIFY(!strings.isEmpty());
    for (const QString &text : strings) {
        for (const QChar c : text) {
            // The long-vowel mark of Japanese belongs to two scripts and therefore to none.
            const bool fits = !c.isLetter() || c.script() == QChar::Script_Common
                || std::count(language.scripts.begin(), language.scripts.end(), c.script()) > 0;
            QVERIFY2(fits || text == QLatin1String("OK"), qPrintable(text));
        }
    }
}

void TestThemeStrings::captionsBeginWithACapital()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    QVERIFY(!strings.isEmpty());
    for (const QString &text : texts(strings, CaptionKeys)) {
        QCOMPARE(text.left(1), text.left(1).toUpper());
    }
}

void TestThemeStrings::textsSideBySideDiffer()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    for (const QStringList &group : Groups) {
        QStringList list = texts(strings, group);
        QVERIFY2(list.removeDuplicates() == 0, qPrintable(group.join(QLatin1String(", "))));
    }
}

void TestThemeStrings::tipsOfFivePagesNameTheNumber()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    QCOMPARE(strings.value(QStringLiteral("prev_5_pages")).count(QLatin1Char('5')), 1);
    QCOMPARE(strings.value(QStringLiteral("next_5_pages")).count(QLatin1Char('5')), 1);
}

void TestThemeStrings::spokenTextsKeepTheirMarkers()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
        const QString text = strings.value(QString::fromLatin1(entry.key));
        for (const char *marker : {"%1", "%2"}) {
            const int expected = QLatin1String(entry.markers).contains(QLatin1String(marker)) ? 1 : 0;
            QVERIFY2(text.count(QLatin1String(marker)) == expected, entry.key);
        }
    }
}

void TestThemeStrings::spokenTextsInEnglishAreTheFallbacks()
{
    const auto strings = readStrings(QStringLiteral("enu"));
    for (const Vela::SpokenTextEntry &entry : Vela::SpokenTextEntries) {
        QCOMPARE(strings.value(QString::fromLatin1(entry.key)), QString::fromLatin1(entry.fallback));
    }
}

void TestThemeStrings::monthsAreThoseOfTheLocale()
{
    QFETCH(int, index);
    const Language &language = Languages[index];
    QCOMPARE(texts(readStrings(QLatin1String(language.code)), MonthKeys),
             monthsOf(QLocale(QLatin1String(language.locale))));
}

void TestThemeStrings::threeCharactersTellTheMonthsApart()
{
    QFETCH(int, index);
    const QString code = QLatin1String(Languages[index].code);
    QStringList shown = beginnings(texts(readStrings(code), MonthKeys), 3);
    if (WithEqualJuneAndJuly.contains(code)) {
        const QString july = shown.takeAt(MonthKeys.indexOf(QLatin1String("month_jul")));
        QCOMPARE(july, shown.at(MonthKeys.indexOf(QLatin1String("month_jun"))));
    }
    QCOMPARE(shown.removeDuplicates(), 0);
}

// The capital is for the header of the calendar, where one letter stands alone.
void TestThemeStrings::weekdaysAreThoseOfTheLocaleWithACapital()
{
    QFETCH(int, index);
    const Language &language = Languages[index];
    const QString code = QLatin1String(language.code);
    const QLocale locale {QLatin1String(language.locale)};
    QStringList expected =
        weekdaysOf(locale, WithShortWeekdays.contains(code) ? QLocale::NarrowFormat : QLocale::LongFormat);
    for (QString &name : expected) {
        name = locale.toUpper(name.left(1)) + name.mid(1);
    }
    QCOMPARE(texts(readStrings(code), WeekdayKeys), expected);
}

void TestThemeStrings::firstCharactersOfWeekdaysAreTheLettersOfTheLocalesCalendars()
{
    QFETCH(int, index);
    const Language &language = Languages[index];
    const QString code = QLatin1String(language.code);
    QStringList letters = beginnings(weekdaysOf(QLocale(QLatin1String(language.locale)), QLocale::NarrowFormat), 1);
    QStringList shown = beginnings(texts(readStrings(code), WeekdayKeys), 1);
    if (WeekdaysWithForeignLetter.contains(code)) {
        const int day = WeekdayKeys.indexOf(WeekdaysWithForeignLetter.value(code));
        QVERIFY(letters.takeAt(day) != shown.takeAt(day));
    }
    QCOMPARE(shown, letters);
}

void TestThemeStrings::noCaptionButOkIsTheEnglishOne()
{
    QFETCH(int, index);
    const QString code = QLatin1String(Languages[index].code);
    if (code == QLatin1String("enu")) {
        return;
    }
    const auto strings = readStrings(code);
    const auto english = readStrings(QStringLiteral("enu"));
    QCOMPARE(english.value(QStringLiteral("ok")), QStringLiteral("OK"));
    for (const QString &key : CaptionKeys) {
        const bool equal = strings.value(key).compare(english.value(key), Qt::CaseInsensitive) == 0;
        QVERIFY2(!equal || key == QLatin1String("ok"), qPrintable(key));
    }
}

void TestThemeStrings::noTwoLanguagesHaveTheSameTexts()
{
    QMap<QStringList, QString> codes;
    for (const Language &language : Languages) {
        const QString code = QLatin1String(language.code);
        const QStringList list = texts(readStrings(code), CaptionKeys);
        QVERIFY2(!codes.contains(list), qPrintable(code + QLatin1String(" is ") + codes.value(list)));
        codes.insert(list, code);
    }
}

void TestThemeStrings::installedTextsAreReturned()
{
    QFETCH(int, index);
    const auto strings = readStrings(QLatin1String(Languages[index].code));
    ComponentStrings::getInstance()->installStrings(strings);
    LogCapture log;
    for (const QString &key : Keys) {
        QCOMPARE(ComponentStrings::getInstance()->getString(key), strings.value(key));
    }
    QCOMPARE(log.takeTexts(), QStringList());
}

QTEST_GUILESS_MAIN(TestThemeStrings)
#include "tst_theme_strings.moc"
