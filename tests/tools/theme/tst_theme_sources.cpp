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

// A project that makes a theme of the files in "source", in the folder "assets".
class ThemeProject
{
public:
    ThemeProject()
    {
        write(QStringLiteral("palette.json"), R"({"accent": "#0a7f5a"})");
        write(QStringLiteral("source/styles/mine.qss"), "== mine.label ==\nQLabel {}\n");
        writeProject(QStringLiteral("assets"));
    }

    void writeProject(const QString &output) const
    {
        write(QStringLiteral("CMakeLists.txt"),
              QStringLiteral("cmake_minimum_required(VERSION 3.22)\nproject(Mine LANGUAGES NONE)\n"
                             "include([==[%1/cmake/VelaAddTheme.cmake]==])\n"
                             "set_property(GLOBAL PROPERTY VELA_THEME_SOURCE_DIR [==[%1/theme]==])\n"
                             "vela_add_theme(NAME mine PALETTE palette.json SOURCE source\n"
                             "    OUTPUT \"${CMAKE_CURRENT_SOURCE_DIR}/%2\")\n")
                  .arg(QStringLiteral(VELA_SOURCE_DIR), output)
                  .toUtf8());
    }

    QString path(const QString &file) const { return m_folder.filePath(file); }
    bool has(const QString &file) const { return QFile::exists(path(file)); }

    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        if (!QFileInfo(file).dir().mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly)
            || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(name));
        }
    }

    bool configure() const
    {
        return QProcess::execute(QStringLiteral("cmake"),
                                 {QStringLiteral("-S"), m_folder.path(), QStringLiteral("-B"),
                                  path(QStringLiteral("build")), QStringLiteral("--log-level=ERROR")})
            == 0;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class ThemeSourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewThemeChecksClean_data();
    void aNewThemeChecksClean();
    void aTextThatCanBeReadAsItIsMixedIsNotListed();
    void aFaultInASourceIsFound();
    void aSourceIsNotMadeWithoutCMake();
    void whatCannotBeMadeIsRefused_data();
    void whatCannotBeMadeIsRefused();

    void whatElseLiesInAThemesFolderStays();
    void whatASourceNoLongerHasGoes();
    void aThemeInAnotherFolderLeavesTheFormerOne();
    void aSourceIsNotReplacedByItsTheme();

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
#ifndef VELA_SANITIZED // under the sanitizers each takes half a minute, on the same way
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

void ThemeSourcesTest::aTextThatCanBeReadAsItIsMixedIsNotListed()
{
    const QTemporaryDir work;
    const QString folder = work.filePath(QStringLiteral("mine"));
    runThemeProgram({QStringLiteral("new"), folder, QStringLiteral("--accent"), QStringLiteral("#0A6A5A")});
    QFile palette(folder + QStringLiteral("/palette.json"));
    QVERIFY(palette.open(QIODevice::ReadOnly));
    QCOMPARE(QJsonDocument::fromJson(palette.readAll()).object().keys(),
             QStringList({QStringLiteral("accent"), QStringLiteral("inherits"), QStringLiteral("on_accent")}));
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

void ThemeSourcesTest::aSourceIsNotMadeWithoutCMake()
{
    const ThemeProject project;
    const ThemeRun checked =
        runThemeProgram({QStringLiteral("check"), project.path(QString())}, {QStringLiteral("PATH=/nonexistent")});
    QCOMPARE(checked.exitCode, 2);
    QVERIFY2(checked.errors.contains("takes CMake"), checked.errors.constData());
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

void ThemeSourcesTest::whatElseLiesInAThemesFolderStays()
{
    const ThemeProject project;
    project.write(QStringLiteral("assets/logo.png"), "mine");
    project.write(QStringLiteral("assets/styles/photos/mine.txt"), "mine");
    for (int i = 0; i < 2; ++i) {
        QVERIFY(project.configure());
        QVERIFY(project.has(QStringLiteral("assets/styles/mine.qss")));
        QVERIFY(project.has(QStringLiteral("assets/logo.png")));
        QVERIFY(project.has(QStringLiteral("assets/styles/photos/mine.txt")));
    }
}

void ThemeSourcesTest::whatASourceNoLongerHasGoes()
{
    const ThemeProject project;
    project.write(QStringLiteral("source/images/mine.svg"), "<svg/>");
    QVERIFY(project.configure());
    project.write(QStringLiteral("assets/images/mine.png"), "rendered");
    QVERIFY(QFile::remove(project.path(QStringLiteral("source/styles/mine.qss"))));
    QVERIFY(QFile::remove(project.path(QStringLiteral("source/images/mine.svg"))));
    QVERIFY(project.configure());
    QVERIFY(!project.has(QStringLiteral("assets/styles/mine.qss")));
    QVERIFY(!project.has(QStringLiteral("assets/images/mine.png")));
    QVERIFY(project.has(QStringLiteral("assets/styles/buttons.qss")));
}

void ThemeSourcesTest::aThemeInAnotherFolderLeavesTheFormerOne()
{
    const ThemeProject project;
    QVERIFY(project.configure());
    project.writeProject(QStringLiteral("elsewhere"));
    QVERIFY(project.configure());
    QVERIFY(project.has(QStringLiteral("elsewhere/styles/mine.qss")));
    QVERIFY(project.has(QStringLiteral("assets/styles/mine.qss")));
}

void ThemeSourcesTest::aSourceIsNotReplacedByItsTheme()
{
    const ThemeProject project;
    project.writeProject(QStringLiteral("source"));
    QVERIFY(!project.configure());
    QVERIFY(!project.has(QStringLiteral("source/styles/buttons.qss")));
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
