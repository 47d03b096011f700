// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/vela-locale.h"

#include <QtTest>

#include <cstdio>
#include <cstring>

static constexpr char PrintDefaultLanguage[] = "--print-default-language";

class VelaLocaleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void aLocaleHasTheCodeOfItsLanguage_data();
    void aLocaleHasTheCodeOfItsLanguage();
    void portugueseIsEuropeanForItsOwnCountryOnly_data();
    void portugueseIsEuropeanForItsOwnCountryOnly();
    void chineseIsTraditionalInThreePlacesOnly_data();
    void chineseIsTraditionalInThreePlacesOnly();
    void theDefaultIsTheSystemsLocaleInLowerCase_data();
    void theDefaultIsTheSystemsLocaleInLowerCase();
    void aLanguageCanBeAddedAndReplaced();
    void portugueseAndChineseNeverReachTheTable();
};

void VelaLocaleTest::thereIsOneInstance()
{
    QVERIFY(VelaLocale::getInstance());
    QCOMPARE(VelaLocale::getInstance(), VelaLocale::getInstance());
}

void VelaLocaleTest::aLocaleHasTheCodeOfItsLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("code");
    const char *const languages[][2] = {
        {"en", "enu"},         {"ja", "jpn"},    {"de", "deu"},    {"ko", "krn"},    {"fr", "fra"},    {"it", "ita"},
        {"es", "esn"},         {"ru", "rus"},    {"da", "dan"},    {"no", "nor"},    {"nb", "nor"},    {"nn", "nor"},
        {"sv", "sve"},         {"nl", "nld"},    {"pl", "plk"},    {"hu", "hun"},    {"tr", "trk"},    {"cs", "csy"},
        {"pt", "ptg"},         {"pt_pt", "ptg"}, {"pt_br", "ptb"}, {"pt_PT", "ptb"}, {"zh", "chs"},    {"zh_cn", "chs"},
        {"zh_sg", "chs"},      {"zh_tw", "cht"}, {"zh_hk", "cht"}, {"zh_mo", "cht"}, {"de_de", "deu"}, {"nb_no", "nor"},
        {"sv_se_euro", "sve"}, {"th_th", "enu"}, {"", "enu"},      {"c", "enu"},     {"_de", "enu"},   {"EN_US", "enu"},
        {"DE_DE", "enu"},      {"De", "enu"},    {"ZH_tw", "enu"}, {"Pt", "enu"},    {"PT_pt", "enu"}, {"de-de", "enu"},
        {"deu", "enu"},
    };
    for (const auto &language : languages) {
        QTest::newRow(*language[0] ? language[0] : "empty")
            << QString::fromLatin1(language[0]) << QString::fromLatin1(language[1]);
    }
}

void VelaLocaleTest::aLocaleHasTheCodeOfItsLanguage()
{
    QFETCH(QString, locale);
    QFETCH(QString, code);
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(locale), code);
}

void VelaLocaleTest::portugueseIsEuropeanForItsOwnCountryOnly_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("code");
    QTest::newRow("language") << QStringLiteral("pt") << QStringLiteral("ptg");
    QTest::newRow("Portugal") << QStringLiteral("pt_pt") << QStringLiteral("ptg");
    QTest::newRow("Brazil") << QStringLiteral("pt_br") << QStringLiteral("ptb");
    QTest::newRow("not lowered") << QStringLiteral("pt_PT") << QStringLiteral("ptb");
    QTest::newRow("anything else") << QStringLiteral("de") << QStringLiteral("ptb");
    QTest::newRow("empty") << QString() << QStringLiteral("ptb");
}

void VelaLocaleTest::portugueseIsEuropeanForItsOwnCountryOnly()
{
    QFETCH(QString, locale);
    QFETCH(QString, code);
    QCOMPARE(VelaLocale::getInstance()->getPortugueseLanguage(locale), code);
}

void VelaLocaleTest::chineseIsTraditionalInThreePlacesOnly_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("code");
    QTest::newRow("Taiwan") << QStringLiteral("zh_tw") << QStringLiteral("cht");
    QTest::newRow("Hong Kong") << QStringLiteral("zh_hk") << QStringLiteral("cht");
    QTest::newRow("Macao") << QStringLiteral("zh_mo") << QStringLiteral("cht");
    QTest::newRow("China") << QStringLiteral("zh_cn") << QStringLiteral("chs");
    QTest::newRow("Singapore") << QStringLiteral("zh_sg") << QStringLiteral("chs");
    QTest::newRow("language") << QStringLiteral("zh") << QStringLiteral("chs");
    QTest::newRow("not lowered") << QStringLiteral("zh_TW") << QStringLiteral("chs");
    QTest::newRow("anything else") << QStringLiteral("tw") << QStringLiteral("chs");
}

void VelaLocaleTest::chineseIsTraditionalInThreePlacesOnly()
{
    QFETCH(QString, locale);
    QFETCH(QString, code);
    QCOMPARE(VelaLocale::getInstance()->getChineseLanguage(locale), code);
}

void VelaLocaleTest::theDefaultIsTheSystemsLocaleInLowerCase_data()
{
    QTest::addColumn<QByteArray>("language");
    QTest::addColumn<QString>("code");
    QTest::newRow("German") << QByteArrayLiteral("de_DE.UTF-8") << QStringLiteral("deu");
    QTest::newRow("Brazilian") << QByteArrayLiteral("pt_BR.UTF-8") << QStringLiteral("ptb");
    QTest::newRow("European Portuguese") << QByteArrayLiteral("pt_PT.UTF-8") << QStringLiteral("ptg");
    QTest::newRow("Taiwanese") << QByteArrayLiteral("zh_TW.UTF-8") << QStringLiteral("cht");
    QTest::newRow("Thai") << QByteArrayLiteral("th_TH.UTF-8") << QStringLiteral("enu");
    QTest::newRow("no language") << QByteArrayLiteral("C") << QStringLiteral("enu");
}

void VelaLocaleTest::theDefaultIsTheSystemsLocaleInLowerCase()
{
    QFETCH(QByteArray, language);
    QFETCH(QString, code);
    // The system's locale is read once a process.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QString::fromLatin1(language));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(PrintDefaultLanguage)});
    QVERIFY(process.waitForFinished());

    QCOMPARE(QString::fromLatin1(process.readAllStandardOutput()), code);
}

void VelaLocaleTest::aLanguageCanBeAddedAndReplaced()
{
    VelaLocale::getInstance()->setLanguageMap(QStringLiteral("th"), QStringLiteral("tha"));
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QStringLiteral("th_th")), QStringLiteral("tha"));

    VelaLocale::getInstance()->setLanguageMap(QStringLiteral("th"), QStringLiteral("thx"));
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QStringLiteral("th")), QStringLiteral("thx"));
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QStringLiteral("TH")), QStringLiteral("enu"));
}

void VelaLocaleTest::portugueseAndChineseNeverReachTheTable()
{
    VelaLocale::getInstance()->setLanguageMap(QStringLiteral("pt"), QStringLiteral("xxx"));
    VelaLocale::getInstance()->setLanguageMap(QStringLiteral("zh"), QStringLiteral("xxx"));

    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QStringLiteral("pt")), QStringLiteral("ptg"));
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QStringLiteral("pt_br")), QStringLiteral("ptb"));
    QCOMPARE(VelaLocale::getInstance()->getLanguageByLocale(QStringLiteral("zh_cn")), QStringLiteral("chs"));
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && std::strcmp(argv[1], PrintDefaultLanguage) == 0) {
        QLocale::setDefault(QLocale(QLocale::Japanese)); // the application's own locale makes no difference
        std::fputs(qPrintable(VelaLocale::getInstance()->getDefaultLanguage()), stdout);
        return 0;
    }
    VelaLocaleTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_vela_locale.moc"
