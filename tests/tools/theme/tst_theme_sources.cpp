// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-program.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

namespace {

const QString Buttons = QStringLiteral("styles/buttons.qss");

QStringList differences(const QString &before, const QString &after)
{
    const ThemeRun run = runThemeProgram({QStringLiteral("diff"), before, after});
    QStringList lines = QString::fromUtf8(run.out).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (run.exitCode != (lines.isEmpty() ? 0 : 1)) {
        qFatal("vela-theme diff: %s", run.errors.constData());
    }
    return lines;
}

} // namespace

class ThemeSourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewThemeChecksClean_data();
    void aNewThemeChecksClean();
    void aFaultInASourceIsFound();
    void whatCannotBeMadeIsRefused_data();
    void whatCannotBeMadeIsRefused();

    void aThemeDoesNotDifferFromItself();
    void aChangeIsToldInWords_data();
    void aChangeIsToldInWords();
    void contractsAreCompared();
};

void ThemeSourcesTest::aNewThemeChecksClean_data()
{
    QTest::addColumn<QString>("accent");
    QTest::addColumn<QString>("base");
    QTest::newRow("green") << "#0a7f5a"
                           << "light";
#ifndef __SANITIZE_ADDRESS__ // under the sanitizers each takes half a minute, on the same way
    QTest::newRow("yellow") << "#FFFF00"
                            << "light";
    QTest::newRow("dark blue in dark") << "#00008B"
                                       << "dark";
#endif
}

void ThemeSourcesTest::aNewThemeChecksClean()
{
    QFETCH(QString, accent);
    QFETCH(QString, base);
    const QTemporaryDir work;
    const QString folder = work.filePath(QStringLiteral("my theme"));
    const ThemeRun made = runThemeProgram(
        {QStringLiteral("new"), folder, QStringLiteral("--accent"), accent, QStringLiteral("--base"), base});
    QCOMPARE(made.errors, QByteArray());
    QCOMPARE(made.exitCode, 0);
    const ThemeRun checked = runThemeProgram({QStringLiteral("check"), folder});
    QCOMPARE(checked.errors, QByteArray());
    QCOMPARE(checked.out, QByteArray());
    QCOMPARE(checked.exitCode, 0);
}

void ThemeSourcesTest::aFaultInASourceIsFound()
{
    const QTemporaryDir work;
    const QString folder = work.filePath(QStringLiteral("mine"));
    runThemeProgram({QStringLiteral("new"), folder, QStringLiteral("--accent"), QStringLiteral("#0a7f5a")});
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/source/styles")));
    QFile sheet(folder + QStringLiteral("/source/styles/mine.qss"));
    QVERIFY(sheet.open(QIODevice::WriteOnly));
    sheet.write("== component.label ==\nQLabel {\n    colour: red;\n}\n");
    sheet.close();
    const ThemeRun checked = runThemeProgram({QStringLiteral("check"), folder});
    QCOMPARE(checked.exitCode, 1);
    QVERIFY2(checked.out.contains("styles/mine.qss:3: error: unknown property \"colour\""), checked.out.constData());
}

void ThemeSourcesTest::whatCannotBeMadeIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QTemporaryDir work;
    const QString folder = work.filePath(QStringLiteral("theme"));
    QTest::newRow("no accent") << QStringList {folder};
    QTest::newRow("no colour") << QStringList {folder, QStringLiteral("--accent"), QStringLiteral("greenish")};
    QTest::newRow("no such base") << QStringList {folder, QStringLiteral("--accent"), QStringLiteral("#123456"),
                                                  QStringLiteral("--base"), QStringLiteral("pink")};
    QTest::newRow("folder that is not empty")
        << QStringList {referenceTheme(), QStringLiteral("--accent"), QStringLiteral("#123456")};
}

void ThemeSourcesTest::whatCannotBeMadeIsRefused()
{
    QFETCH(QStringList, arguments);
    const ThemeRun run = runThemeProgram(QStringList {QStringLiteral("new")} + arguments);
    QCOMPARE(run.exitCode, 2);
    QVERIFY(!run.errors.isEmpty());
}

void ThemeSourcesTest::aThemeDoesNotDifferFromItself()
{
    const ThemeCopy theme;
    QCOMPARE(differences(referenceTheme(), theme.path()), QStringList());
}

void ThemeSourcesTest::aChangeIsToldInWords_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QString>("told");
    QTest::newRow("value") << Buttons << QByteArray("border-radius: 6px") << QByteArray("border-radius: 2px")
                           << "component.apply_button: QPushButton border-radius was \"6px\" and is \"2px\"";
    QTest::newRow("declaration") << Buttons << QByteArray("    border-radius: 6px;\n") << QByteArray()
                                 << "component.apply_button: QPushButton border-radius was \"6px\" and is gone";
    QTest::newRow("section") << Buttons << QByteArray("== component.apply_button ==")
                             << QByteArray("== my.button ==\nQLabel {}\n== component.apply_button ==")
                             << "section my.button is new";
    QTest::newRow("text") << "strings/enu.json" << QByteArray("\"Cancel\"") << QByteArray("\"Abort\"")
                          << "strings/enu.json: cancel was \"Cancel\" and is \"Abort\"";
    QTest::newRow("catalogue") << "images.json" << QByteArray("        \"field_error\"\n") << QByteArray()
                               << "images.json: tmp_images was \"field_error\" and is \"\"";
}

void ThemeSourcesTest::aChangeIsToldInWords()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QString, told);
    const ThemeCopy theme;
    theme.replace(file, from, to);
    QCOMPARE(differences(referenceTheme(), theme.path()), QStringList(told));
}

void ThemeSourcesTest::contractsAreCompared()
{
    const QTemporaryDir work;
    const QByteArray contract = runThemeProgram({QStringLiteral("contract")}).out;
    const auto write = [&work](const QString &name, const QByteArray &content) {
        QFile file(work.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(name));
        }
        return file.fileName();
    };
    const QString old = write(QStringLiteral("old.json"), contract);
    const QString now = write(QStringLiteral("new.json"),
                              QByteArray(contract).replace("\"%1, %2\"", "\"%1\"").replace("Page %1 of %2", "Page"));
    QCOMPARE(differences(old, now),
             QStringList(QStringLiteral(
                 "contract: spokenTexts accessible_page_of fallback was \"Page %1 of %2\" and is \"Page\"")));
    QCOMPARE(runThemeProgram({QStringLiteral("diff"), old, referenceTheme()}).exitCode, 2);
}

QTEST_GUILESS_MAIN(ThemeSourcesTest)
#include "tst_theme_sources.moc"
