// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QStyle>
#include <QtTest>

#include <algorithm>

// What the tests see, the same on every machine, whatever desktop, style, fonts and language its user has chosen.
class EnvironmentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theStyleIsTheToolkitsOwn();
    void noPluginOfADesktopIsLoaded();
    void theFontIsTheTests();
    void theLanguageIsNobodys();
    void settingsLieInAHomeOfTheTests();
};

void EnvironmentTest::theStyleIsTheToolkitsOwn()
{
    QCOMPARE(QApplication::style()->objectName(), QStringLiteral("fusion"));
}

void EnvironmentTest::noPluginOfADesktopIsLoaded()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    QVERIFY(maps.open(QIODevice::ReadOnly));
    const QByteArrayList mapped = maps.readAll().split('\n');
    const bool hasPlatform = std::any_of(mapped.begin(), mapped.end(),
                                         [](const QByteArray &line) { return line.contains("/plugins/platforms/"); });
    QVERIFY(hasPlatform); // plugins can be told by their folder
    for (const QByteArray &line : mapped) {
        for (const char *folder :
             {"/platformthemes/", "/styles/", "/platforminputcontexts/libibus", "/xcbglintegrations/"}) {
            QVERIFY2(!line.contains(folder), line.constData());
        }
    }
}

void EnvironmentTest::theFontIsTheTests()
{
    const QFontInfo font(QApplication::font());
    // The fonts are those of fonts.conf.
    const bool isOffscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
    QCOMPARE(font.family(), isOffscreen ? QStringLiteral("DejaVu Sans") : QStringLiteral("Noto Sans"));
    QVERIFY(font.pointSize() < 13); // a default size of the platform
}

void EnvironmentTest::theLanguageIsNobodys()
{
    QCOMPARE(QLocale::system().name(), QStringLiteral("C"));
    QCOMPARE(QLocale::system().uiLanguages(), QStringList {QStringLiteral("C")});
}

void EnvironmentTest::settingsLieInAHomeOfTheTests()
{
    const QString home = QStringLiteral(VELA_TEST_HOME);
    QCOMPARE(QDir::homePath(), home);
    for (const auto location : {QStandardPaths::GenericConfigLocation, QStandardPaths::GenericDataLocation,
                                QStandardPaths::GenericCacheLocation}) {
        const QString folder = QStandardPaths::writableLocation(location);
        QVERIFY2(folder.startsWith(home + QLatin1Char('/')), qPrintable(folder));
    }
}

QTEST_MAIN(EnvironmentTest)
#include "tst_environment.moc"
