// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/log-capture.h"
#include "utils/component-strings.h"

#include <QtTest>

using Strings = QMap<QString, QString>;

class ComponentStringsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void withoutATableAKeyIsItsOwnTextAndLogged();
    void aTextIsReturnedWithoutAWord_data();
    void aTextIsReturnedWithoutAWord();
    void installingReplacesTheWholeTable();
    void theTableIsACopy();
    void keysAreCaseSensitive();
    void aFailedLookupStoresNothing();
    void whetherAKeyIsThereIsToldWithoutAWord();
};

void ComponentStringsTest::thereIsOneInstance()
{
    QVERIFY(ComponentStrings::getInstance());
    QCOMPARE(ComponentStrings::getInstance(), ComponentStrings::getInstance());
}

// This test is the first to look anything up: no table is installed yet.
void ComponentStringsTest::withoutATableAKeyIsItsOwnTextAndLogged()
{
    LogCapture log;
    QCOMPARE(ComponentStrings::getInstance()->getString(QStringLiteral("month_jan")), QStringLiteral("month_jan"));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find key in ComponentStrings \"month_jan\"")});
}

void ComponentStringsTest::aTextIsReturnedWithoutAWord_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QStringLiteral("Cancel");
    QTest::newRow("non-ASCII") << QStringLiteral("\u30ad\u30e3\u30f3\u30bb\u30eb");
    QTest::newRow("empty") << QString();
}

void ComponentStringsTest::aTextIsReturnedWithoutAWord()
{
    QFETCH(QString, text);
    ComponentStrings::getInstance()->installStrings({{QStringLiteral("cancel"), text}});
    LogCapture log;

    QCOMPARE(ComponentStrings::getInstance()->getString(QStringLiteral("cancel")), text);
    QCOMPARE(log.takeTexts(), QStringList());
}

void ComponentStringsTest::installingReplacesTheWholeTable()
{
    auto *strings = ComponentStrings::getInstance();
    strings->installStrings({{QStringLiteral("ok"), QStringLiteral("OK")}, {QStringLiteral("a"), QStringLiteral("A")}});
    strings->installStrings(
        {{QStringLiteral("ok"), QStringLiteral("Gut")}, {QStringLiteral("b"), QStringLiteral("B")}});
    LogCapture log;

    QCOMPARE(strings->getString(QStringLiteral("ok")), QStringLiteral("Gut"));
    QCOMPARE(strings->getString(QStringLiteral("b")), QStringLiteral("B"));
    QCOMPARE(log.takeTexts(), QStringList());
    QCOMPARE(strings->getString(QStringLiteral("a")), QStringLiteral("a"));
    QCOMPARE(log.takeTexts().size(), 1);
}

void ComponentStringsTest::theTableIsACopy()
{
    Strings table {{QStringLiteral("ok"), QStringLiteral("OK")}};
    ComponentStrings::getInstance()->installStrings(table);

    table[QStringLiteral("ok")] = QStringLiteral("changed");

    QCOMPARE(ComponentStrings::getInstance()->getString(QStringLiteral("ok")), QStringLiteral("OK"));
}

void ComponentStringsTest::keysAreCaseSensitive()
{
    ComponentStrings::getInstance()->installStrings({{QStringLiteral("ok"), QStringLiteral("Fine")}});
    LogCapture log;

    QCOMPARE(ComponentStrings::getInstance()->getString(QStringLiteral("Ok")), QStringLiteral("Ok"));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find key in ComponentStrings \"Ok\"")});
}

void ComponentStringsTest::aFailedLookupStoresNothing()
{
    ComponentStrings::getInstance()->installStrings({});
    LogCapture log;
    for (int i = 0; i < 2; ++i) { // an entry made by the look-up would be found by the next one
        QCOMPARE(ComponentStrings::getInstance()->getString(QStringLiteral("ok")), QStringLiteral("ok"));
        QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find key in ComponentStrings \"ok\"")});
    }
}

void ComponentStringsTest::whetherAKeyIsThereIsToldWithoutAWord()
{
    ComponentStrings::getInstance()->installStrings({{QStringLiteral("ok"), QString()}});
    LogCapture log;
    QVERIFY(ComponentStrings::getInstance()->contains(QStringLiteral("ok")));
    QVERIFY(!ComponentStrings::getInstance()->contains(QStringLiteral("OK")));
    QCOMPARE(log.takeTexts(), QStringList());
}

QTEST_GUILESS_MAIN(ComponentStringsTest)
#include "tst_component_strings.moc"
