// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QtTest>

namespace {

const QByteArray Broken =
    "== component.label ==\n/* a comment\n   of two lines */\nQLabel { color: red; }\nQLabel & {\n"
    "    color: red;\n}\n== component.menu ==\nQMenu { color: red; }\n";

} // namespace

// The category for the authors of themes.
class ThemeMessagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_folder.setAsPaths();
        m_folder.writeFile(QStringLiteral("a.qss"), Broken);
        m_folder.writeCatalogue({QStringLiteral("broken"), QStringLiteral("missing")});
        m_folder.writeFile(QStringLiteral("images/broken.png"), "no image");
    }
    void cleanup() { QLoggingCategory::setFilterRules(QString()); }

    void nothingIsSaidUnlessItIsAskedFor() { QCOMPARE(messages(), QStringList()); }

    void sectionsAndImagesAreToldWithTheirPlaces()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("vela.theme=true"));
        const QStringList told = messages();
        QCOMPARE(told.size(), 3);
        const QString section = QStringLiteral("vela.theme: component.label, %1/a.qss:5: ").arg(m_folder.path());
        const QString broken =
            m_folder.imagePath(QStringLiteral("broken")) + QStringLiteral(": the image cannot be read");
        const QString missing =
            m_folder.imagePath(QStringLiteral("missing")) + QStringLiteral(": there is no such image");
        QVERIFY2(told.at(0).contains(broken), qPrintable(told.at(0)));
        QVERIFY2(told.at(1).contains(missing), qPrintable(told.at(1)));
        QVERIFY2(told.at(2).startsWith(section), qPrintable(told.at(2)));
    }

    void anImageThatIsMissingIsToldOfOnce()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("vela.theme=true"));
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        LogCapture log;
        getGlobalImage("missing", ImageManager::IMAGE_NORMAL);
        QCOMPARE(log.takeTexts().filter(QStringLiteral("vela.theme")).size(), 1);
        getGlobalImage("missing", ImageManager::IMAGE_NORMAL);
        QCOMPARE(log.takeTexts().filter(QStringLiteral("vela.theme")), QStringList());
    }

    // A sheet whose first rule holds what a combo box replaces by its own.
    void aBrokenRuleOfATemplateIsToldWithItsLine()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("vela.theme=true"));
        m_folder.writeFile(QStringLiteral("template.qss"),
                           "== component.combobox ==\n"
                           "QComboBox {\n    %1\n    %2\n}\n"
                           "QComboBox:hover {{ color: red; }\n");
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        LogCapture log;
        StyleManager::getInstance()->initialize({m_folder.path() + QStringLiteral("/template.qss")});
        const QStringList told = log.takeTexts();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.at(0).startsWith(
                     QStringLiteral("vela.theme: component.combobox, %1/template.qss:6: ").arg(m_folder.path())),
                 qPrintable(told.at(0)));
    }

    void aBrokenListIsToldWithItsLine()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("vela.theme=true"));
        m_folder.writeFile(QStringLiteral("images.json"), "{\n\"images\": [\n");
        LogCapture log;
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        const QStringList told = log.takeTexts();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.at(0).startsWith(QStringLiteral("vela.theme: %1/images.json:3: ").arg(m_folder.path())),
                 qPrintable(told.at(0)));
    }

private:
    // What is said while images and sheets are read.
    QStringList messages() const
    {
        LogCapture log;
        ImageManager::getInstance()->initialize(ImageManager::INIT_PRELOAD);
        StyleManager::getInstance()->initialize({m_folder.path() + QStringLiteral("/a.qss")});
        return log.takeTexts();
    }

    ResourceFolder m_folder;
};

QTEST_MAIN(ThemeMessagesTest)
#include "tst_theme_messages.moc"
