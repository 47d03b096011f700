// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "image-manager/image-manager.h"
#include "look/keys_p.h"
#include "style-manager/style-manager.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "support/theme-copy.h"
#include "theme/vela-theme.h"
#include "utils/component-strings.h"
#include "utils/ui-path-manager.h"

#include <QApplication>
#include <QProcess>
#include <QResource>
#include <QStandardPaths>
#include <QToolTip>
#include <QtTest>

namespace {

using Problems = VelaTheme::Problems;

const QString English = QStringLiteral("enu");
const QString German = QStringLiteral("deu");

QStringList textsOf(const Problems &problems)
{
    QStringList texts;
    for (const VelaTheme::Problem &problem : problems) {
        texts.append(problem.toString());
    }
    return texts;
}

QString textOf(const char *key)
{
    return ComponentStrings::getInstance()->getString(QString::fromLatin1(key));
}

} // namespace

class VelaThemeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeLoadingItHasNoFolderAndNoLanguage()
    {
        QCOMPARE(theme()->folder(), QString());
        QCOMPARE(theme()->language(), QString());
        QCOMPARE(theme()->fallbackLanguage(), QString());
    }

    void aLanguageAloneIsRefusedBeforeLoading()
    {
        LogCapture log;
        QSignalSpy changed(theme(), &VelaTheme::changed);
        QVERIFY(VelaTheme::hasErrors(theme()->setLanguage(German)));
        QVERIFY(VelaTheme::hasErrors(theme()->reload()));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(log.takeTexts(), QStringList());
    }

    void aFailedFirstLoadLeavesEverythingAsItWas()
    {
        LogCapture log;
        QVERIFY(VelaTheme::hasErrors(theme()->load(QStringLiteral("/nowhere"), English)));
        QCOMPARE(theme()->folder(), QString());
        QCOMPARE(log.takeTexts(), QStringList());
        QCOMPARE(UIPathManager::getInstance()->getPath(QStringLiteral("resource_path")), QString());
        QCOMPARE(log.takeTexts(), QStringList(QStringLiteral("Cannot find path by key \"resource_path\"")));
    }

    void theFoldersBecomePaths()
    {
        LogCapture log;
        QVERIFY(theme()->load(light(), English).isEmpty());
        UIPathManager *paths = UIPathManager::getInstance();
        QCOMPARE(paths->getPath(QStringLiteral("resource_path")), light());
        QCOMPARE(paths->getPath(QStringLiteral("user_data_path")),
                 QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
        QCOMPARE(log.takeTexts(), QStringList());
    }

    void aFolderForUserDataThatIsSetAlreadyStays()
    {
        const ResourceFolder folder;
        folder.setAsPaths();
        QVERIFY(theme()->load(light(), English).isEmpty());
        UIPathManager *paths = UIPathManager::getInstance();
        QCOMPARE(paths->getPath(QStringLiteral("user_data_path")), folder.userDataPath());
        QCOMPARE(paths->getPath(QStringLiteral("resource_path")), light());
        QVERIFY(QFile::exists(folder.tempImagePath(QStringLiteral("field_error"))));
        LogCapture log;
        paths->setPath(QStringLiteral("user_data_path"),
                       QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    }

    // What the start-up calls install and what VelaTheme does, side by side.
    void itInstallsWhatTheStartUpCallsInstall()
    {
        QVERIFY(theme()->load(light(), English).isEmpty());
        QStringList sheets;
        QVector<QImage> images;
        QStringList texts;
        const auto take = [&] {
            for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
                sheets.append(getStyleSheet(entry.key, false));
            }
            for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
                images.append(getGlobalImage(entry.name, ImageManager::IMAGE_NORMAL).toImage());
            }
            for (const Vela::TextEntry &entry : Vela::TextEntries) {
                texts.append(textOf(entry.key));
            }
        };
        take();
        QVERIFY(!sheets.contains(QString()));
        const QStringList loadedSheets = std::exchange(sheets, {});
        const QVector<QImage> loadedImages = std::exchange(images, {});
        const QStringList loadedTexts = std::exchange(texts, {});

        UIPathManager *paths = UIPathManager::getInstance();
        {
            const LogCapture log;
            paths->setPath(QStringLiteral("resource_path"), light());
        }
        installReferenceTheme(); // has a folder for user data of its own
        {
            const LogCapture log;
            paths->setPath(QStringLiteral("user_data_path"),
                           QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
        }
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        std::vector<QString> files;
        const QDir styles(light() + QStringLiteral("/styles"));
        const QStringList names = styles.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
        for (const QString &name : names) {
            files.push_back(styles.filePath(name));
        }
        StyleManager::getInstance()->initialize(files);
        take();
        QCOMPARE(loadedSheets, sheets);
        QCOMPARE(loadedImages, images);
        QCOMPARE(loadedTexts, texts);
    }

    void imagesAreLoadedAsAskedFor_data()
    {
        QTest::addColumn<int>("loading");
        QTest::addColumn<bool>("isFound");
        QTest::newRow("at first request") << int(ImageManager::INIT_LAZY) << false;
        QTest::newRow("at once") << int(ImageManager::INIT_PRELOAD) << true;
    }

    void imagesAreLoadedAsAskedFor()
    {
        QFETCH(int, loading);
        QFETCH(bool, isFound);
        const ThemeCopy copy;
        QVERIFY(
            theme()->load(copy.path(), English, English, static_cast<ImageManager::InitializeType>(loading)).isEmpty());
        copy.remove(QStringLiteral("images/folder.png"));
        const LogCapture log;
        QCOMPARE(!getGlobalImage("folder", ImageManager::IMAGE_NORMAL).isNull(), isFound);
    }

    void sectionsThatTheNewThemeLacksAreGone()
    {
        const ThemeCopy copy;
        copy.write(QStringLiteral("styles/own.qss"), "== application.own ==\nQLabel { color: red; }\n");
        QVERIFY(theme()->load(copy.path(), English).isEmpty());
        QVERIFY(getStyleSheet("application.own", true).contains(QStringLiteral("red")));
        QVERIFY(theme()->load(light(), English).isEmpty());
        LogCapture log;
        QCOMPARE(getStyleSheet("application.own", true), QString());
        QCOMPARE(log.takeTexts().size(), 1);
    }

    void textsComeFromTheLanguage()
    {
        QVERIFY(theme()->load(light(), German).isEmpty());
        QCOMPARE(textOf("cancel"), QStringLiteral("Abbrechen"));
        QCOMPARE(theme()->language(), German);
        QCOMPARE(theme()->fallbackLanguage(), English);
    }

    void textsThatItLacksComeFromTheFallback()
    {
        const ThemeCopy copy;
        copy.write(QStringLiteral("strings/xyz.json"), json("{'cancel': 'Xyz', 'own': 'mine'}"));
        QVERIFY(theme()->load(copy.path(), QStringLiteral("xyz"), German).isEmpty());
        QCOMPARE(textOf("cancel"), QStringLiteral("Xyz"));
        QCOMPARE(textOf("own"), QStringLiteral("mine"));
        QCOMPARE(textOf("today"), QStringLiteral("Heute"));
    }

    void aLanguageThatIsNotThereGivesWayToTheFallback()
    {
        const Problems problems = theme()->load(light(), QStringLiteral("xyz"), German);
        QCOMPARE(textsOf(problems),
                 QStringList(light()
                             + QStringLiteral("/strings/xyz.json: warning: There are no such texts; those in \"deu\" "
                                              "are shown")));
        QCOMPARE(textOf("cancel"), QStringLiteral("Abbrechen"));
    }

    void aLanguageThatNoFileCanHaveGivesWayToTheFallback_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("file in its way") << QStringLiteral("enu.json/xyz");
        QTest::newRow("too long for a file") << QString(300, QLatin1Char('x'));
    }

    void aLanguageThatNoFileCanHaveGivesWayToTheFallback()
    {
        QFETCH(QString, language);
        const Problems problems = theme()->load(light(), language, German);
        QCOMPARE(problems.size(), 1);
        QVERIFY(!VelaTheme::hasErrors(problems));
        QCOMPARE(textOf("cancel"), QStringLiteral("Abbrechen"));
    }

    void aThemeInResourcesIsTakenAsOneOnTheDisk()
    {
        const ThemeCopy copy(QStringLiteral("dark"));
        const QTemporaryDir made;
        const QString list = made.filePath(QStringLiteral("theme.qrc"));
        const QString resources = made.filePath(QStringLiteral("theme.rcc"));
        QVERIFY(compileResources(copy.path(), {QStringLiteral("--project"), QStringLiteral("--output"), list}));
        QVERIFY(QFile::rename(list, copy.filePath(QStringLiteral("theme.qrc"))));
        QVERIFY(compileResources(
            copy.path(),
            {QStringLiteral("--binary"), QStringLiteral("--output"), resources, QStringLiteral("theme.qrc")}));
        QVERIFY(QResource::registerResource(resources, QStringLiteral("/own-theme")));
        const QString folder = QStringLiteral(":/own-theme");

        QVERIFY(theme()->load(referenceTheme(QStringLiteral("dark")), German).isEmpty());
        const QPalette palette = QApplication::palette();
        const QImage button = pictureOfButton();
        const QImage folderImage = getGlobalImage("folder", ImageManager::IMAGE_NORMAL).toImage();
        QVERIFY(theme()->load(light(), English).isEmpty());
        QVERIFY(pictureOfButton() != button);

        QVERIFY(theme()->load(folder, German).isEmpty());
        QCOMPARE(theme()->folder(), folder);
        QCOMPARE(textOf("cancel"), QStringLiteral("Abbrechen"));
        QCOMPARE(QApplication::palette(), palette);
        QCOMPARE(pictureOfButton(), button);
        QCOMPARE(getGlobalImage("folder", ImageManager::IMAGE_NORMAL).toImage(), folderImage);

        const Problems problems = theme()->load(folder, QStringLiteral("xyz"), German);
        QCOMPARE(textsOf(problems),
                 QStringList(QStringLiteral(":/own-theme/strings/xyz.json: warning: There are no such texts; those in "
                                            "\"deu\" are shown")));

        QVERIFY(theme()->load(light(), English).isEmpty());
        QVERIFY(QResource::unregisterResource(resources, QStringLiteral("/own-theme")));
    }

    void itKnowsTheLanguagesOfAFolder()
    {
        const QStringList languages = VelaTheme::languages(light());
        QCOMPARE(languages.size(), 20);
        QCOMPARE(languages.constFirst(), QStringLiteral("chs"));
        QCOMPARE(VelaTheme::languages(QStringLiteral("/nowhere")), QStringList());
    }

    void paletteFontAndToolTipAreTheThemes()
    {
        const ThemeCopy copy;
        copy.write(QStringLiteral("theme.json"),
                   json("{ 'palette': { 'window': '#102030', 'text': 'red', 'disabled': { 'text': '#010203' } }, "
                        "'font': { 'family': 'DejaVu Sans Mono', 'point_size': 13.5, 'weight': 700 }, 'tool_tip': { "
                        "'base': '#040506', 'text': '#070809' } }"));
        QVERIFY(theme()->load(copy.path(), English).isEmpty());
        const QPalette palette = QApplication::palette();
        QCOMPARE(palette.color(QPalette::Active, QPalette::Window), QColor(0x10, 0x20, 0x30));
        QCOMPARE(palette.color(QPalette::Active, QPalette::Text), QColor(Qt::red));
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::Text), QColor(1, 2, 3));
        QCOMPARE(QApplication::font().family(), QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(QApplication::font().pointSizeF(), 13.5);
        QCOMPARE(QApplication::font().weight(), int(QFont::Bold));
        QCOMPARE(QToolTip::palette().color(QPalette::ToolTipBase), QColor(4, 5, 6));
        QCOMPARE(QToolTip::palette().color(QPalette::ToolTipText), QColor(7, 8, 9));
    }

    void whatAThemeDoesNotTellIsTheApplicationsOwn()
    {
        const ThemeCopy plain;
        plain.remove(QStringLiteral("theme.json"));
        QVERIFY(theme()->load(plain.path(), English).isEmpty());
        const QPalette palette = QApplication::palette();
        const QFont font = QApplication::font();
        const QPalette toolTip = QToolTip::palette();

        const ThemeCopy own;
        own.write(QStringLiteral("theme.json"),
                  json("{ 'palette': { 'window': '#102030' }, 'font': { 'point_size': 30 }, 'tool_tip': { 'base': "
                       "'#040506' } }"));
        QVERIFY(theme()->load(own.path(), English).isEmpty());
        QVERIFY(QApplication::palette() != palette);
        QVERIFY(QApplication::font() != font);
        QVERIFY(QToolTip::palette() != toolTip);
        QVERIFY(theme()->load(plain.path(), English).isEmpty());
        QCOMPARE(QApplication::palette(), palette);
        QCOMPARE(QApplication::font(), font);
        QCOMPARE(QToolTip::palette(), toolTip);
    }

    void aChangeIsToldOnce()
    {
        QSignalSpy changed(theme(), &VelaTheme::changed);
        QVERIFY(theme()->load(light(), English).isEmpty());
        QCOMPARE(changed.count(), 1);
        QVERIFY(theme()->setLanguage(German).isEmpty());
        QCOMPARE(changed.count(), 2);
        QVERIFY(theme()->setFolder(referenceTheme(QStringLiteral("dark"))).isEmpty());
        QCOMPARE(changed.count(), 3);
        QCOMPARE(theme()->language(), German);
        QVERIFY(theme()->reload().isEmpty());
        QCOMPARE(changed.count(), 4);
        QCOMPARE(theme()->folder(), referenceTheme(QStringLiteral("dark")));
    }

    void aChangeWithinAChangeIsRefused()
    {
        class Changer : public QWidget
        {
        public:
            int refused = 0;

        protected:
            void changeEvent(QEvent *event) override
            {
                if (event->type() == QEvent::LanguageChange) {
                    refused += VelaTheme::hasErrors(theme()->setLanguage(QStringLiteral("fra"))) ? 1 : 0;
                    refused += VelaTheme::hasErrors(theme()->reload()) ? 1 : 0;
                }
            }
        };
        QVERIFY(theme()->load(light(), English).isEmpty());
        const Changer changer;
        QVERIFY(theme()->setLanguage(German).isEmpty());
        QCOMPARE(changer.refused, 2);
        QCOMPARE(textOf("cancel"), QStringLiteral("Abbrechen"));
    }

    // A dialog may wait there, in which another theme is chosen.
    void onceItIsToldTheNextChangeMayCome()
    {
        QVERIFY(theme()->load(light(), English).isEmpty());
        bool isBusy = true;
        bool isRefused = true;
        bool isFirst = true;
        const auto connection = connect(theme(), &VelaTheme::changed, this, [&] {
            if (std::exchange(isFirst, false)) {
                isBusy = QApplication::overrideCursor();
                isRefused = VelaTheme::hasErrors(theme()->setLanguage(QStringLiteral("fra")));
            }
        });
        QVERIFY(theme()->setLanguage(German).isEmpty());
        disconnect(connection);
        QVERIFY(!isBusy);
        QVERIFY(!isRefused);
        QCOMPARE(theme()->language(), QStringLiteral("fra"));
    }

    void nothingIsLogged()
    {
        LogCapture log;
        QVERIFY(theme()->load(light(), English).isEmpty());
        QVERIFY(theme()->load(referenceTheme(QStringLiteral("dark")), German).isEmpty());
        QVERIFY(theme()->setLanguage(English).isEmpty());
        QCOMPARE(log.takeTexts(), QStringList());
    }

private:
    const OwnDataFolder m_dataFolder;

    static VelaTheme *theme() { return VelaTheme::getInstance(); }

    static bool compileResources(const QString &folder, const QStringList &arguments)
    {
        QProcess compiler;
        compiler.setWorkingDirectory(folder);
        compiler.start(QStringLiteral(VELA_RESOURCE_COMPILER), arguments);
        return compiler.waitForFinished() && compiler.exitCode() == 0;
    }

    static QImage pictureOfButton()
    {
        VelaButton button(QStringLiteral("Caption"), VelaButton::ApplyButton);
        return button.grab().toImage();
    }
    static QString light() { return referenceTheme(QStringLiteral("light")); }
};

QTEST_MAIN(VelaThemeTest)

#include "tst_vela_theme.moc"
