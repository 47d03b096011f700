// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "style-manager/style-manager.h"
#include "support/all-widgets.h"
#include "support/log-capture.h"
#include "support/theme-copy.h"
#include "theme/vela-theme.h"
#include "utils/component-strings.h"

#include <QDir>
#include <QtTest>

#include <functional>

namespace {

const QString English = QStringLiteral("enu");

using Fault = std::function<void(const ThemeCopy &)>;

} // namespace

Q_DECLARE_METATYPE(Fault)

class VelaThemeProblemsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(theme()->load(referenceTheme(QStringLiteral("light")), English).isEmpty()); }

    // Whatever the fault, it is told by file and line, nothing is logged, and a theme with an error is not taken.
    void aFaultIsToldWithItsPlace_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<QStringList>("told"); // paths within the folder

        const auto row = [](const char *name, const Fault &fault, const QStringList &told) {
            QTest::newRow(name) << fault << told;
        };
        const auto file = [](const char *name, const QByteArray &content) -> Fault {
            return [name, content](const ThemeCopy &copy) { copy.write(QString::fromLatin1(name), content); };
        };
        const auto removed = [](const char *name) -> Fault {
            return [name](const ThemeCopy &copy) { copy.remove(QString::fromLatin1(name)); };
        };
        const auto replaced = [](const char *name, const char *before, const char *after) -> Fault {
            return [=](const ThemeCopy &copy) { copy.replace(QString::fromLatin1(name), before, after); };
        };

        row("no catalogue", removed("images.json"),
            {QStringLiteral("images.json: error: Cannot be read: there is no such file")});
        row("catalogue is cut off", file("images.json", "{\n  \"images\": [\n"),
            {QStringLiteral("images.json:3: error: unterminated array")});
        row("catalogue is a list", file("images.json", "[]"),
            {QStringLiteral("images.json:1: error: There is no object in it")});
        row("image is missing", removed("images/folder.png"),
            {QStringLiteral("images.json:LINE(\"folder\"): warning: There is no image \"folder.png\"")});
        row("image is cut off",
            [](const ThemeCopy &copy) {
                const QString name = QStringLiteral("images/bt_add_hover.png");
                copy.write(name, copy.read(name).chopped(100));
            },
            {QStringLiteral("images/bt_add_hover.png: warning: The image is cut off")});
        row("image is a text", file("images/bt_add_hover.png", "text"),
            {QStringLiteral("images/bt_add_hover.png: warning: This is no PNG")});
        row("image is a folder",
            [](const ThemeCopy &copy) {
                copy.remove(QStringLiteral("images/bt_add_hover.png"));
                QDir().mkpath(copy.filePath(QStringLiteral("images/bt_add_hover.png")));
            },
            {QStringLiteral("images/bt_add_hover.png: error: This is no file")});
        row("image is not listed", replaced("images.json", "\"folder\"", "\"app_img\""),
            {QStringLiteral("images.json: warning: There is no \"folder\" in \"images\"")});
        row("texts are cut off", file("strings/enu.json", "{\n\n\"ok\": \"O"),
            {QStringLiteral("strings/enu.json:3: error: unterminated string")});
        row("text is a number", replaced("strings/enu.json", "\"Cancel\"", "1"),
            {QStringLiteral("strings/enu.json:LINE(\"cancel\"): error: The value of \"cancel\" is no text")});
        row("text is missing", replaced("strings/enu.json", "\"today\"", "\"todai\""),
            {QStringLiteral("strings/enu.json: warning: There is no text \"today\"")});
        row("no texts", removed("strings/enu.json"),
            {QStringLiteral("strings/enu.json: error: Cannot be read: there is no such file")});
        row("sheet is a link to nothing",
            [](const ThemeCopy &copy) {
                QVERIFY(QFile::link(QStringLiteral("/missing"), copy.filePath(QStringLiteral("styles/gone.qss"))));
            },
            {QStringLiteral("styles/gone.qss: error: Cannot be read: there is no such file")});
        // A part of the system that can be opened, but not be read where it begins.
        for (const char *name : {"images.json", "strings/enu.json", "styles/date.qss"}) {
            row(qPrintable(QLatin1String("cannot be read to its end: ") + QLatin1String(name)),
                [name](const ThemeCopy &copy) {
                    copy.remove(QString::fromLatin1(name));
                    QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), copy.filePath(QString::fromLatin1(name))));
                },
                {QString::fromLatin1(name) + QStringLiteral(": error: Cannot be read: Input/output error")});
        }
        row("section does not parse", replaced("styles/date.qss", "QComboBox:hover {", "QComboBox:hover {{"),
            {QStringLiteral("styles/date.qss:LINE(== component.date_selector ==): error: The toolkit cannot parse the "
                            "section \"component.date_selector\"")});
        row("section that replaces another does not parse",
            file("styles/zz.qss", "\n== component.label ==\nQLabel { color: red\n"),
            {QStringLiteral("styles/zz.qss:2: error: The toolkit cannot parse the section \"component.label\"")});
        row("section's header stands in a comment before",
            [](const ThemeCopy &copy) {
                copy.write(QStringLiteral("styles/aa.qss"), "/* former:\n== component.label ==\n*/\n== none ==\n");
                copy.write(QStringLiteral("styles/zz.qss"), "// now\n== component.label ==\nQLabel { color: red\n");
            },
            {QStringLiteral("styles/zz.qss:2: error: The toolkit cannot parse the section \"component.label\"")});
        row("section is missing", replaced("styles/inputs.qss", "== component.label ==", "== component.labels =="),
            {QStringLiteral("styles: warning: There is no section \"component.label\"")});
        row("sheet's image is missing", replaced("styles/date.qss", "arrow_up.png", "arrow_upp.png"),
            {QStringLiteral("styles/date.qss:LINE(arrow_upp): warning: There is no image \"FOLDER/images/"
                            "arrow_upp.png\"")});
        row("sheet's scaled image is none", replaced("styles/inputs.qss", "tmp_field_error", "tmp_folder"),
            {QStringLiteral("styles/inputs.qss:LINE(tmp_folder): warning: \"tmp_folder.png\" is no copy of an image in "
                            "\"tmp_images\"")});
        row("look is cut off", file("theme.json", "{\"colors\": {\"mask\": 1"),
            {QStringLiteral("theme.json:1: error: invalid termination by number")});
        row("look has no colour", file("theme.json", "{\n \"colors\": {\n \"mask\": \"#zz\"}}"),
            {QStringLiteral("theme.json:3: warning: \"mask\" is no colour")});
        row("look has another colour", file("theme.json", "{\"colors\": {\"tree\": \"red\"}}"),
            {QStringLiteral("theme.json:1: warning: \"tree\" has no meaning here")});
        row("look has another role", file("theme.json", "{\"palette\": {\"disabled\": {\"txt\": \"red\"}}}"),
            {QStringLiteral("theme.json:1: warning: \"txt\" has no meaning here")});
        row("look has another part", file("theme.json", "{\"fonts\": {}}"),
            {QStringLiteral("theme.json:1: warning: \"fonts\" has no meaning here")});
        row("look's part is a text", file("theme.json", "{\"palette\": \"red\"}"),
            {QStringLiteral("theme.json:1: warning: \"palette\" is no object")});
        row("look's font has no size", file("theme.json", "{\"font\": {\"point_size\": -1, \"weight\": 1}}"),
            {QStringLiteral("theme.json:1: warning: \"point_size\" is no size of a font"),
             QStringLiteral("theme.json:1: warning: \"weight\" is none of 100, 200 ... 900")});
        row("look's font has no name", file("theme.json", "{\"font\": {\n\"family\": 7}}"),
            {QStringLiteral("theme.json:2: warning: \"family\" is no name of a font")});
        row("look's tool tip has another part", file("theme.json", "{\"tool_tip\": {\"size\": \"red\"}}"),
            {QStringLiteral("theme.json:1: warning: \"size\" has no meaning here")});
    }

    void aFaultIsToldWithItsPlace()
    {
        QFETCH(Fault, fault);
        QFETCH(QStringList, told);
        const QString formerSheet = getStyleSheet("component.date_selector", true);
        const QString formerFolder = theme()->folder();
        const ThemeCopy copy;
        fault(copy);

        LogCapture log;
        const VelaTheme::Problems problems = theme()->load(copy.path(), English);
        QStringList texts;
        for (const VelaTheme::Problem &problem : problems) {
            texts.append(problem.toString());
        }
        for (QString &text : told) {
            const QString name = text.section(QLatin1Char(':'), 0, 0);
            static const QRegularExpression lineOf(QStringLiteral("LINE\\(([^)]*)\\)"));
            const QString part = lineOf.match(text).captured(1);
            if (!part.isEmpty()) {
                const QByteArray content = copy.read(name);
                const int line = 1 + content.left(content.indexOf(part.toUtf8())).count('\n');
                text.replace(lineOf, QString::number(line));
            }
            text = copy.filePath(text.replace(QStringLiteral("FOLDER"), copy.path()));
        }
        QCOMPARE(texts, told);
        QCOMPARE(log.takeTexts(), QStringList());
        const bool isTaken = !VelaTheme::hasErrors(problems);
        QCOMPARE(theme()->folder(), isTaken ? copy.path() : formerFolder);
        QCOMPARE(getStyleSheet("component.date_selector", true) == formerSheet, !isTaken);
    }

    void folderWithoutATheme_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::newRow("not there") << Fault([](const ThemeCopy &copy) { QDir(copy.path()).removeRecursively(); });
        QTest::newRow("empty") << Fault([](const ThemeCopy &copy) {
            QDir(copy.path()).removeRecursively();
            QDir().mkpath(copy.path());
        });
        QTest::newRow("without sheets") << Fault(
            [](const ThemeCopy &copy) { QDir(copy.filePath(QStringLiteral("styles"))).removeRecursively(); });
        QTest::newRow("links in a circle") << Fault([](const ThemeCopy &copy) {
            const QString first = copy.filePath(QStringLiteral("styles/buttons.qss"));
            const QString second = copy.filePath(QStringLiteral("styles/other.qss"));
            QFile::remove(first);
            QVERIFY(QFile::link(first, second));
            QVERIFY(QFile::link(second, first));
        });
        QTest::newRow("folder is a link to itself") << Fault([](const ThemeCopy &copy) {
            QDir(copy.path()).removeRecursively();
            QVERIFY(QFile::link(copy.path(), copy.path()));
        });
        QTest::newRow("look is a link to itself") << Fault([](const ThemeCopy &copy) {
            const QString look = copy.filePath(QStringLiteral("theme.json"));
            QFile::remove(look);
            QVERIFY(QFile::link(look, look));
        });
        QTest::newRow("catalogue is a folder") << Fault([](const ThemeCopy &copy) {
            copy.remove(QStringLiteral("images.json"));
            QDir().mkpath(copy.filePath(QStringLiteral("images.json")));
        });
    }

    void folderWithoutATheme()
    {
        QFETCH(Fault, fault);
        const ThemeCopy copy;
        fault(copy);
        LogCapture log;
        const VelaTheme::Problems problems = theme()->load(copy.path(), English);
        QVERIFY(VelaTheme::hasErrors(problems));
        for (const VelaTheme::Problem &problem : problems) {
            QVERIFY(QDir::isAbsolutePath(problem.file));
            QVERIFY(!problem.text.isEmpty());
        }
        QCOMPARE(theme()->folder(), referenceTheme(QStringLiteral("light")));
        QCOMPARE(log.takeTexts(), QStringList());
        QFile::remove(copy.path()); // some rows have put a link in its place
    }

    // Files as an editor or an interrupted copy leaves them. Living widgets go through all of it.
    void filesCutOffAnywhereNeverStopTheWidgets()
    {
        AllWidgets widgets;
        const QSize size(widgets.sizeHint());
        const ThemeCopy copy;
        int taken = 0;
        int refused = 0;
        const QStringList names = copy.files().filter(
            QRegularExpression(QStringLiteral("^([^/]*json|strings/enu.json|styles/.*|images/folder.png)$")));
        for (const QString &name : names) {
            const QByteArray content = copy.read(name);
            for (int tenth = 0; tenth < 10; ++tenth) {
                copy.write(name, content.left(content.size() * tenth / 10));
                const QString sheet = getStyleSheet("component.label", true);
                const VelaTheme::Problems problems = theme()->load(copy.path(), English);
                const bool isRefused = VelaTheme::hasErrors(problems);
                ++(isRefused ? refused : taken);
                if (isRefused) {
                    QCOMPARE(getStyleSheet("component.label", true), sheet);
                }
            }
            copy.write(name, content);
        }
        QVERIFY(taken > 0);
        QVERIFY(refused > 0);
        QVERIFY(theme()->load(copy.path(), English).isEmpty());
        QCOMPARE(widgets.sizeHint(), size);
    }

    void aLanguageThatCannotBeReadLeavesTheFormerOne()
    {
        const ThemeCopy copy;
        copy.write(QStringLiteral("strings/xyz.json"), "{ \"ok\": ");
        QVERIFY(theme()->load(copy.path(), English).isEmpty());
        const VelaTheme::Problems problems = theme()->setLanguage(QStringLiteral("xyz"));
        QCOMPARE(problems.size(), 1);
        QCOMPARE(problems.constFirst().toString(),
                 QString(copy.filePath(QStringLiteral("strings/xyz.json"))
                         + QStringLiteral(":1: error: unterminated object")));
        QCOMPARE(theme()->language(), English);
        QCOMPARE(ComponentStrings::getInstance()->getString(QStringLiteral("cancel")), QStringLiteral("Cancel"));
    }

    // They may be there, and no other language is taken for them.
    void textsThatCannotBeLookedUpAreNotTakenForMissing_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("fallback");
        QTest::newRow("language") << QStringLiteral("xyz") << English;
        QTest::newRow("fallback") << English << QStringLiteral("xyz");
    }

    void textsThatCannotBeLookedUpAreNotTakenForMissing()
    {
        QFETCH(QString, language);
        QFETCH(QString, fallback);
        const ThemeCopy copy;
        const QString circle = copy.filePath(QStringLiteral("strings/xyz.json"));
        QVERIFY(QFile::link(circle, circle));
        const VelaTheme::Problems problems = theme()->load(copy.path(), language, fallback);
        QCOMPARE(problems.size(), 1);
        QCOMPARE(problems.constFirst().severity, VelaTheme::Problem::Error);
        QCOMPARE(problems.constFirst().file, circle);
        QCOMPARE(theme()->folder(), referenceTheme(QStringLiteral("light")));
    }

    void aFallbackThatIsAFolderIsPassedOver()
    {
        const ThemeCopy copy;
        QVERIFY(QDir().mkpath(copy.filePath(QStringLiteral("strings/xyz.json"))));
        QVERIFY(theme()->load(copy.path(), English, QStringLiteral("xyz")).isEmpty());
        QCOMPARE(theme()->folder(), copy.path());
    }

    void digitsBeforePixelsInThePathAreTold()
    {
        const QTemporaryDir folder;
        const ThemeCopy copy;
        const QString path = folder.filePath(QStringLiteral("theme12px"));
        QVERIFY(QFile::rename(copy.path(), path));
        const VelaTheme::Problems problems = theme()->load(path, English);
        QVERIFY(!problems.isEmpty());
        QCOMPARE(problems.constFirst().file, path);
        QCOMPARE(problems.constFirst().severity, VelaTheme::Problem::Warning);
        QVERIFY(!VelaTheme::hasErrors(problems));
    }

private:
    const OwnDataFolder m_dataFolder;

    static VelaTheme *theme() { return VelaTheme::getInstance(); }
};

QTEST_MAIN(VelaThemeProblemsTest)

#include "tst_vela_theme_problems.moc"
