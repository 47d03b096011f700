// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/color-counts.h"
#include "support/environment.h"
#include "support/resource-folder.h"
#include "support/x-connection.h"
#include "vela_components_version.h"

#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <vector>

namespace {

constexpr int PatienceMs = 60000;
constexpr int StayMs = 1000;
constexpr QSize SmallestPage(700, 500); // logical pixels
constexpr int FewestColors = 50;

struct Result
{
    int exitCode;
    QString output;
    QString errors;
};

// Something to break in a theme folder that is otherwise whole.
struct Damage
{
    const char *name;
    void (*make)(const ResourceFolder &theme);
    const char *error;
};

const Damage Damages[] = {
    {"no list of images",
     [](const ResourceFolder &theme) { QFile::remove(theme.path() + QStringLiteral("/images.json")); },
     "%1/images.json: error: Cannot be read: there is no such file"},
    {"malformed list of images",
     [](const ResourceFolder &theme) { theme.writeFile(QStringLiteral("images.json"), "{\"images\": "); },
     "%1/images.json:1: error: "},
    {"list of images without an object",
     [](const ResourceFolder &theme) { theme.writeFile(QStringLiteral("images.json"), "[]"); },
     "%1/images.json:1: error: There is no object in it"},
    {"malformed texts", [](const ResourceFolder &theme) { theme.writeFile(QStringLiteral("strings/enu.json"), "ok"); },
     "%1/strings/enu.json:1: error: "},
    {"texts without an object",
     [](const ResourceFolder &theme) { theme.writeFile(QStringLiteral("strings/enu.json"), "[1]"); },
     "%1/strings/enu.json:1: error: There is no object in it"},
    {"a text that is a number",
     [](const ResourceFolder &theme) { theme.writeFile(QStringLiteral("strings/enu.json"), "{\"cancel\": 1}"); },
     "%1/strings/enu.json:1: error: The value of \"cancel\" is no text"},
    {"no texts", [](const ResourceFolder &theme) { QFile::remove(theme.path() + QStringLiteral("/strings/enu.json")); },
     "%1/strings/enu.json: error: Cannot be read: there is no such file"},
    {"no style sheets",
     [](const ResourceFolder &theme) { QFile::remove(theme.path() + QStringLiteral("/styles/a.qss")); },
     "%1/styles: error: There are no style sheets (*.qss) in it"},
};

QByteArray applyButtonSheet(const char *color)
{
    return QByteArray("== component.apply_button ==\nQPushButton { background-color: ") + color + "; border: none; }\n";
}

// A theme that is as small as can be.
void writeTheme(const ResourceFolder &theme)
{
    theme.writeCatalogue({}, {});
    theme.writeFile(QStringLiteral("strings/enu.json"), R"({"ok": "OK", "cancel": "Cancel"})");
    theme.writeFile(QStringLiteral("styles/a.qss"), applyButtonSheet("#ff0000"));
}

// Titles of the windows that a window manager has on the display.
QStringList titles(const XConnection &x)
{
    QStringList titles;
    for (const quint32 window : x.property(x.rootWindow(), "_NET_CLIENT_LIST").elements) {
        QByteArray title;
        for (const quint32 byte : x.property(window, "_NET_WM_NAME").elements) {
            title.append(static_cast<char>(byte));
        }
        titles.append(QString::fromUtf8(title));
    }
    return titles;
}

} // namespace

// Runs the program as a person would.
class GalleryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void helpNamesEveryOption();
    void theVersionIsTheLibrarys();
    void pagesAreListed();
    void helpNeedsNoDisplayThatCanBeReached_data();
    void helpNeedsNoDisplayThatCanBeReached();

    void wrongArgumentsAreErrors_data();
    void wrongArgumentsAreErrors();
    void optionsOfTheToolkitAreNone();

    void theWindowStaysOpen();
    void aSecondStartHandsItsPageToTheFirst();
    void startsWithAnotherThemeOrLanguageAreOnTheirOwn();
    void withoutADisplayThereIsNoWindow();

    void screenshotsShowEveryPageAndTheWindow();
    void screenshotsCanBeOfOnePage();
    void screenshotsNeedNoDisplay();
    void screenshotsWithoutADisplayAreAtScaleOne();
    void screenshotsThatCannotBeWrittenAreAnError();
    void screenshotsAreInTheTheme_data();
    void screenshotsAreInTheTheme();
    void screenshotsMayBeRightToLeft();

    void aLanguageChangesTheTexts();
    void theDefaultLanguageIsTheSystems();
    void anUnknownLanguageIsAnError();
    void textsMissingInTheSystemsLanguageAreEnglish();
    void textsMissingInTheSystemsLanguageAndEnglishAreAnError();

    void preloadedImagesLookTheSame();

    void anotherThemeIsShown();
    void aThemeMayBeGivenRelatively();
    void styleSheetsAreReadInTheOrderOfTheirNames();
    void aMissingThemeFolderIsAnError();
    void aDamagedThemeIsAnError_data();
    void aDamagedThemeIsAnError();
    void anUnwritableUserFolderIsAWarning();

private:
    Result run(const QStringList &arguments) const;
    Result runForScreenshots(const QStringList &arguments = {}) const;
    Result runForScreenshot(const QStringList &arguments = {}) const;
    QString screenshotPath(const QString &name) const;
    QImage screenshot(const QString &name) const;
    void removeDisplay();
    QStringList sockets() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;
};

void GalleryTest::init()
{
    m_folder.reset(new QTemporaryDir);
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder->filePath(QStringLiteral("data")));
    // A socket of its own, too, so that it does not find a gallery that somebody runs.
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("t")));
    m_environment.insert(QStringLiteral("TMPDIR"), m_folder->filePath(QStringLiteral("t")));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("en_US.UTF-8"));
}

Result GalleryTest::run(const QStringList &arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_folder->path());
    process.start(QStringLiteral(VELA_GALLERY), arguments);
    const bool hasEnded = process.waitForFinished(PatienceMs) && process.exitStatus() == QProcess::NormalExit;
    return {hasEnded ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

Result GalleryTest::runForScreenshots(const QStringList &arguments) const
{
    return run(arguments + QStringList {QStringLiteral("--screenshots"), m_folder->filePath(QStringLiteral("shots"))});
}

// Takes the page of buttons only.
Result GalleryTest::runForScreenshot(const QStringList &arguments) const
{
    return runForScreenshots(arguments + QStringList {QStringLiteral("--page"), QStringLiteral("buttons")});
}

QString GalleryTest::screenshotPath(const QString &name) const
{
    return m_folder->filePath(QStringLiteral("shots/") + name + QStringLiteral(".png"));
}

QImage GalleryTest::screenshot(const QString &name) const
{
    return QImage(screenshotPath(name)).convertToFormat(QImage::Format_RGB32);
}

void GalleryTest::removeDisplay()
{
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        m_environment.remove(QString::fromLatin1(name));
    }
}

void GalleryTest::helpNamesEveryOption()
{
    const Result result = run({QStringLiteral("--help")});
    QCOMPARE(result.exitCode, 0);
    for (const char *option :
         {"--help", "--version", "--page <NAME>", "--list-pages", "--language <CODE>", "--theme, --resources <THEME>",
          "--right-to-left", "--lazy", "--preload", "--screenshots <DIR>"}) {
        QVERIFY2(result.output.contains(QString::fromLatin1(option)), option);
    }
}

void GalleryTest::theVersionIsTheLibrarys()
{
    const Result result = run({QStringLiteral("--version")});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output, QStringLiteral("vela-gallery " VELA_COMPONENTS_VERSION_STRING "\n"));
}

void GalleryTest::pagesAreListed()
{
    const Result result = run({QStringLiteral("--list-pages")});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.output.split(u'\n').contains(QStringLiteral("buttons")));
}

void GalleryTest::helpNeedsNoDisplayThatCanBeReached_data()
{
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("option");
    for (const char *display : {"", ":7654"}) {
        for (const char *option : {"--help", "--version", "--list-pages"}) {
            QTest::addRow("%s %s", display, option) << QString::fromLatin1(display) << QString::fromLatin1(option);
        }
    }
}

void GalleryTest::helpNeedsNoDisplayThatCanBeReached()
{
    QFETCH(QString, display);
    QFETCH(QString, option);
    removeDisplay();
    m_environment.insert(QStringLiteral("DISPLAY"), display);
    const Result result = run({option});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(!result.output.isEmpty());
    QCOMPARE(result.errors, QString());
}

void GalleryTest::wrongArgumentsAreErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *arguments, const char *error) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments).split(u' ') << QString::fromLatin1(error);
    };
    row("--unheard-of", "Unknown option 'unheard-of'.");
    row("--page", "Missing value after '--page'.");
    row("--page no-such-page", "There is no page 'no-such-page'. There are: buttons");
    row("--page Buttons", "There is no page 'Buttons'. There are: buttons");
    row("--list-pages --page no-such-page", "There is no page 'no-such-page'. There are: buttons");
    row("--lazy --preload", "Either '--lazy' or '--preload' can be given, not both.");
    row("buttons", "Unexpected argument 'buttons'.");
    row("--help too", "Unexpected argument 'too'.");
    row("--lazy=no", "Unexpected value after '--lazy'.");
    row("--screenshots=", "The value of '--screenshots' is empty.");
    row("--screenshots ", "The value of '--screenshots' is empty.");
    row("--theme ", "The value of '--theme' is empty.");
    row("--resources ", "The value of '--theme' is empty.");
    row("--language ", "The value of '--language' is empty.");
}

void GalleryTest::wrongArgumentsAreErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    const Result result = run(arguments);
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: ") + error), qPrintable(result.errors));
}

void GalleryTest::optionsOfTheToolkitAreNone()
{
    const Result result = runForScreenshot({QStringLiteral("-style"), QStringLiteral("windows")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
}

void GalleryTest::theWindowStaysOpen()
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(QStringLiteral(VELA_GALLERY), QStringList());
    QVERIFY(process.waitForStarted(PatienceMs));
    QVERIFY2(!process.waitForFinished(StayMs), process.readAllStandardError().constData());
    process.terminate();
    QVERIFY(process.waitForFinished(PatienceMs));
}

// The sockets of the galleries that run.
QStringList GalleryTest::sockets() const
{
    return QDir(m_folder->filePath(QStringLiteral("t")))
        .entryList({QStringLiteral("qtsingleapp-velaga-*")}, QDir::System);
}

void GalleryTest::aSecondStartHandsItsPageToTheFirst()
{
    QProcess first;
    first.setProcessEnvironment(m_environment);
    first.start(QStringLiteral(VELA_GALLERY), QStringList());
    QVERIFY(first.waitForStarted(PatienceMs));
    QTRY_COMPARE_WITH_TIMEOUT(sockets().size(), 1, PatienceMs);

    const XConnection x;
    for (const QString &page : {QStringLiteral("table"), QString(), QStringLiteral("buttons")}) {
        const Result second = run(page.isEmpty() ? QStringList() : QStringList {QStringLiteral("--page"), page});
        QVERIFY2(second.exitCode == 0, qPrintable(second.errors));
        QCOMPARE(first.state(), QProcess::Running);
        QCOMPARE(sockets().size(), 1);
        if (qEnvironmentVariable("QT_QPA_PLATFORM") == QStringLiteral("xcb")) {
            const QString title =
                page == QStringLiteral("buttons") ? QStringLiteral("Buttons") : QStringLiteral("Table");
            QTRY_VERIFY2(titles(x).filter(title).size() == 1, qPrintable(titles(x).join(u'\n')));
        }
    }
    first.terminate();
    QVERIFY(first.waitForFinished(PatienceMs));
}

void GalleryTest::startsWithAnotherThemeOrLanguageAreOnTheirOwn()
{
    const ResourceFolder theme;
    writeTheme(theme);
    const QStringList starts[] = {{},
                                  {QStringLiteral("--language"), QStringLiteral("deu")},
                                  {QStringLiteral("--resources"), theme.path()},
                                  {QStringLiteral("--preload")}};
    std::vector<std::unique_ptr<QProcess>> processes;
    for (const QStringList &arguments : starts) {
        processes.push_back(std::make_unique<QProcess>());
        processes.back()->setProcessEnvironment(m_environment);
        processes.back()->start(QStringLiteral(VELA_GALLERY), arguments);
        QVERIFY(processes.back()->waitForStarted(PatienceMs));
        QTRY_COMPARE_WITH_TIMEOUT(sockets().size(), static_cast<int>(processes.size()), PatienceMs);
    }
    for (const auto &process : processes) {
        QCOMPARE(process->state(), QProcess::Running);
        process->terminate();
        QVERIFY(process->waitForFinished(PatienceMs));
    }
}

void GalleryTest::withoutADisplayThereIsNoWindow()
{
    removeDisplay();
    const Result result = run({});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: There is no display. '--screenshots DIR' renders the "
                                                   "pages without one.")),
             qPrintable(result.errors));
}

void GalleryTest::screenshotsShowEveryPageAndTheWindow()
{
    QStringList names = run({QStringLiteral("--list-pages")}).output.split(u'\n', Qt::SkipEmptyParts);
    names.append(QStringLiteral("main-window"));

    const Result result = runForScreenshots();
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QStringList paths;
    for (const QString &name : qAsConst(names)) {
        paths.append(screenshotPath(name));
        const QImage image = screenshot(name);
        QVERIFY2(image.width() > expectedPixels(SmallestPage.width()) * expectedRatio(), qPrintable(name));
        QVERIFY2(image.height() > expectedPixels(SmallestPage.height()) * expectedRatio(), qPrintable(name));
        QVERIFY2(colorsIn(image).size() > FewestColors, qPrintable(name));
    }
    QCOMPARE(result.output.split(u'\n', Qt::SkipEmptyParts), paths);
}

void GalleryTest::screenshotsCanBeOfOnePage()
{
    const Result result = runForScreenshot();
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(QDir(m_folder->filePath(QStringLiteral("shots"))).entryList(QDir::Files, QDir::Name),
             QStringList({QStringLiteral("buttons.png"), QStringLiteral("main-window.png")}));
}

void GalleryTest::screenshotsNeedNoDisplay()
{
    removeDisplay();
    const Result result = runForScreenshot();
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QVERIFY(colorsIn(screenshot(QStringLiteral("buttons"))).size() > FewestColors);
}

void GalleryTest::screenshotsWithoutADisplayAreAtScaleOne()
{
    removeDisplay();
    m_environment.remove(QStringLiteral("QT_FONT_DPI"));
    QCOMPARE(runForScreenshot().exitCode, 0);
    const QImage ofItself = screenshot(QStringLiteral("buttons"));
    m_environment.insert(QStringLiteral("QT_FONT_DPI"), QStringLiteral("96"));
    QCOMPARE(runForScreenshot().exitCode, 0);
    QCOMPARE(ofItself, screenshot(QStringLiteral("buttons")));
}

void GalleryTest::screenshotsThatCannotBeWrittenAreAnError()
{
    const QString shots = m_folder->filePath(QStringLiteral("shots"));
    QVERIFY(QDir().mkpath(shots + QStringLiteral("/buttons.png")));
    Result result = runForScreenshot();
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: Cannot write '%1/buttons.png'.").arg(shots)),
             qPrintable(result.errors));

    QVERIFY(QDir(shots).removeRecursively());
    QFile file(shots);
    QVERIFY(file.open(QIODevice::WriteOnly));
    result = runForScreenshot();
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: Cannot make the folder '%1'.").arg(shots)),
             qPrintable(result.errors));
}

void GalleryTest::screenshotsAreInTheTheme_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("window"); // colour of the palette
    const auto row = [](const char *theme, const char *window) {
        QTest::newRow(theme) << QStringList {QStringLiteral("--theme"), QString::fromLatin1(theme)}
                             << QString::fromLatin1(window);
    };
    QTest::newRow("none") << QStringList() << QStringLiteral("#f5f7fa");
    row("light", "#f5f7fa");
    row("dark", "#14191f");
    row("high-contrast", "#000000");
}

void GalleryTest::screenshotsAreInTheTheme()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, window);
    const Result result = runForScreenshot(arguments);
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QCOMPARE(QColor(screenshot(QStringLiteral("buttons")).pixel(1, 1)).name(), window);
}

void GalleryTest::screenshotsMayBeRightToLeft()
{
    QCOMPARE(runForScreenshot().exitCode, 0);
    const QImage leftToRight = screenshot(QStringLiteral("main-window"));
    QCOMPARE(runForScreenshot({QStringLiteral("--right-to-left")}).exitCode, 0);
    const QImage rightToLeft = screenshot(QStringLiteral("main-window"));
    // The side bar is white, the ground of the pages is not.
    const QPoint left(1, 1);
    const QPoint right(leftToRight.width() - 2, 1);
    QVERIFY(leftToRight.pixel(left) != leftToRight.pixel(right));
    QCOMPARE(rightToLeft.pixel(right), leftToRight.pixel(left));
    QCOMPARE(rightToLeft.pixel(left), leftToRight.pixel(right));
}

void GalleryTest::aLanguageChangesTheTexts()
{
    QCOMPARE(runForScreenshot({QStringLiteral("--language"), QStringLiteral("enu")}).exitCode, 0);
    const QImage english = screenshot(QStringLiteral("buttons"));
    const Result result = runForScreenshot({QStringLiteral("--language"), QStringLiteral("deu")});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QVERIFY(english != screenshot(QStringLiteral("buttons")));
}

void GalleryTest::theDefaultLanguageIsTheSystems()
{
    QCOMPARE(runForScreenshot({QStringLiteral("--language"), QStringLiteral("deu")}).exitCode, 0);
    const QImage german = screenshot(QStringLiteral("buttons"));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_AT.UTF-8"));
    QCOMPARE(runForScreenshot().exitCode, 0);
    QCOMPARE(screenshot(QStringLiteral("buttons")), german);
}

void GalleryTest::anUnknownLanguageIsAnError()
{
    const Result result = runForScreenshot({QStringLiteral("--language"), QStringLiteral("xyz")});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral(
                 "vela-gallery: There are no texts in the language 'xyz'. There are: chs, cht, csy, dan, deu, enu, ")),
             qPrintable(result.errors));
}

void GalleryTest::textsMissingInTheSystemsLanguageAreEnglish()
{
    const ResourceFolder theme;
    writeTheme(theme);
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    const Result result = runForScreenshot({QStringLiteral("--resources"), theme.path()});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: %1/strings/deu.json: warning: There are no such "
                                                   "texts; those in \"enu\" are shown")
                                        .arg(theme.path())),
             qPrintable(result.errors));
}

void GalleryTest::textsMissingInTheSystemsLanguageAndEnglishAreAnError()
{
    const ResourceFolder theme;
    writeTheme(theme);
    QVERIFY(QFile::rename(theme.path() + QStringLiteral("/strings/enu.json"),
                          theme.path() + QStringLiteral("/strings/fra.json")));
    const Result result = runForScreenshot({QStringLiteral("--resources"), theme.path()});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(
                 QStringLiteral("vela-gallery: %1/strings/enu.json: error: Cannot be read").arg(theme.path())),
             qPrintable(result.errors));
}

void GalleryTest::preloadedImagesLookTheSame()
{
    QCOMPARE(runForScreenshot({QStringLiteral("--lazy")}).exitCode, 0);
    const QImage lazy = screenshot(QStringLiteral("buttons"));
    QCOMPARE(runForScreenshot({QStringLiteral("--preload")}).exitCode, 0);
    QCOMPARE(screenshot(QStringLiteral("buttons")), lazy);
}

void GalleryTest::anotherThemeIsShown()
{
    const ResourceFolder theme;
    writeTheme(theme);
    const Result result = runForScreenshot({QStringLiteral("--resources"), theme.path()});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QVERIFY(colorsIn(screenshot(QStringLiteral("buttons"))).contains(qRgb(255, 0, 0)));
}

void GalleryTest::aThemeMayBeGivenRelatively()
{
    const ResourceFolder theme;
    writeTheme(theme);
    const QString relative = QDir(m_folder->path()).relativeFilePath(theme.path()) + u'/';
    const Result result = runForScreenshot({QStringLiteral("--resources"), relative});
    QVERIFY2(result.exitCode == 0, qPrintable(result.errors));
    QVERIFY(colorsIn(screenshot(QStringLiteral("buttons"))).contains(qRgb(255, 0, 0)));
}

void GalleryTest::styleSheetsAreReadInTheOrderOfTheirNames()
{
    const ResourceFolder theme;
    theme.writeFile(QStringLiteral("styles/b.qss"), applyButtonSheet("#00ff00"));
    writeTheme(theme);
    QCOMPARE(runForScreenshot({QStringLiteral("--resources"), theme.path()}).exitCode, 0);
    const QSet<QRgb> colors = colorsIn(screenshot(QStringLiteral("buttons")));
    QVERIFY(colors.contains(qRgb(0, 255, 0)));
    QVERIFY(!colors.contains(qRgb(255, 0, 0)));
}

void GalleryTest::aMissingThemeFolderIsAnError()
{
    const QString missing = m_folder->filePath(QStringLiteral("missing"));
    const Result result = runForScreenshot({QStringLiteral("--resources"), missing});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: %1: error: There is no such folder").arg(missing)),
             qPrintable(result.errors));
}

void GalleryTest::aDamagedThemeIsAnError_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Damage &damage : Damages) {
        QTest::newRow(damage.name) << index++;
    }
}

void GalleryTest::aDamagedThemeIsAnError()
{
    QFETCH(int, index);
    const ResourceFolder theme;
    writeTheme(theme);
    Damages[index].make(theme);
    const Result result = runForScreenshot({QStringLiteral("--resources"), theme.path()});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output, QString());
    const QString error = QString::fromLatin1(Damages[index].error).replace(QLatin1String("%1"), theme.path());
    QVERIFY2(result.errors.contains(QStringLiteral("vela-gallery: ") + error), qPrintable(result.errors));
}

void GalleryTest::anUnwritableUserFolderIsAWarning()
{
    const QString path = m_folder->filePath(QStringLiteral("data"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const Result result = runForScreenshot();
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.errors.contains(
                 QStringLiteral("vela-gallery: %1/vela-gallery/tmp_images: warning: Cannot be written to").arg(path)),
             qPrintable(result.errors));
}

QTEST_GUILESS_MAIN(GalleryTest)

#include "tst_gallery.moc"
