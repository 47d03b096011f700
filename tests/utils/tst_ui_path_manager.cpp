// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/log-capture.h"
#include "utils/ui-path-manager.h"

#include <QtTest>

class UIPathManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void aPathNeverSetIsEmptyAndLoggedEachTime();
    void aPathIsStoredExactlyAsGiven_data();
    void aPathIsStoredExactlyAsGiven();
    void settingAKeyAgainOverwritesAndWarnsOfTheNewPath();
    void settingTheSamePathAgainWarnsToo();
    void keysAreCaseSensitive();
    void aFailedLookupStoresNothing();
};

void UIPathManagerTest::thereIsOneInstance()
{
    QVERIFY(UIPathManager::getInstance());
    QCOMPARE(UIPathManager::getInstance(), UIPathManager::getInstance());
}

void UIPathManagerTest::aPathNeverSetIsEmptyAndLoggedEachTime()
{
    LogCapture log;
    const QStringList warning {QStringLiteral("Cannot find path by key \"resource_path\"")};

    QCOMPARE(UIPathManager::getInstance()->getPath(QStringLiteral("resource_path")), QString());
    QCOMPARE(log.takeTexts(), warning);
    QCOMPARE(UIPathManager::getInstance()->getPath(QStringLiteral("resource_path")), QString());
    QCOMPARE(log.takeTexts(), warning);
}

void UIPathManagerTest::aPathIsStoredExactlyAsGiven_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << QStringLiteral("/usr/share/app");
    QTest::newRow("trailing separator") << QStringLiteral("/usr/share/app/");
    QTest::newRow("not there") << QStringLiteral("/no/such/folder");
    QTest::newRow("relative, unnormalised") << QStringLiteral("../a/./b//c");
    QTest::newRow("blank and non-ASCII") << QStringLiteral(" /h\u00f6me/\u65e5\u672c ");
    QTest::newRow("empty") << QString();
}

void UIPathManagerTest::aPathIsStoredExactlyAsGiven()
{
    QFETCH(QString, path);
    const QString key = QLatin1String("exact ") + QLatin1String(QTest::currentDataTag());
    LogCapture log;

    UIPathManager::getInstance()->setPath(key, path);

    QCOMPARE(UIPathManager::getInstance()->getPath(key), path);
    QCOMPARE(log.takeTexts(), QStringList());
}

void UIPathManagerTest::settingAKeyAgainOverwritesAndWarnsOfTheNewPath()
{
    const QString key = QStringLiteral("twice");
    LogCapture log;

    UIPathManager::getInstance()->setPath(key, QStringLiteral("/a"));
    QCOMPARE(log.takeTexts(), QStringList());
    UIPathManager::getInstance()->setPath(key, QStringLiteral("/b"));

    QCOMPARE(log.takeTexts(),
             QStringList {QStringLiteral("Existing path is \"/b\" with key \"twice\" but overwrite it now")});
    QCOMPARE(UIPathManager::getInstance()->getPath(key), QStringLiteral("/b"));
}

void UIPathManagerTest::settingTheSamePathAgainWarnsToo()
{
    const QString key = QStringLiteral("same");
    UIPathManager::getInstance()->setPath(key, QStringLiteral("/a"));
    LogCapture log;

    UIPathManager::getInstance()->setPath(key, QStringLiteral("/a"));

    QCOMPARE(log.takeTexts().size(), 1);
}

void UIPathManagerTest::keysAreCaseSensitive()
{
    UIPathManager::getInstance()->setPath(QStringLiteral("ok"), QStringLiteral("/lower"));
    LogCapture log;

    QCOMPARE(UIPathManager::getInstance()->getPath(QStringLiteral("OK")), QString());
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find path by key \"OK\"")});
}

void UIPathManagerTest::aFailedLookupStoresNothing()
{
    const QString key = QStringLiteral("asked before set");
    LogCapture log;
    UIPathManager::getInstance()->getPath(key);
    log.takeTexts();

    UIPathManager::getInstance()->setPath(key, QStringLiteral("/a"));

    QCOMPARE(log.takeTexts(), QStringList()); // an entry made by the look-up would be overwritten with a warning
}

QTEST_GUILESS_MAIN(UIPathManagerTest)
#include "tst_ui_path_manager.moc"
