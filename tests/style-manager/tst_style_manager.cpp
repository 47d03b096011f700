// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QtTest>

#include <cstring>

class StyleManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void beforeTheImageManagerTheProcessIsAborted();
    void thereIsOneInstance();
    void aSectionIsStoredWithALineBreakBeforeEachLine();
    void aLineBreakAtTheEndOfTheFileIsOneMoreLine();
    void theLastLineOfAFileDoesNotRunIntoTheNextFile();
    void aSectionGoesOnIntoTheNextFile();
    void theLaterFileWins();
    void theLaterSectionOfAFileWins();
    void aSecondCallAddsAndOverwrites();
    void anUnknownKeyIsEmptyAndLoggedEachTime();
    void aMissingFileIsSkippedWithAWarning();
    void noFilesAtAllAreFine();
    void keysAreCaseSensitive();
    void rawTextIsAsItWasReadAndScaledTextIsNot();
    void theFreeFunctionsForward();
    void scalingLeavesTheStoredTextAlone();
    void imageFoldersAreInserted();
    void imageFoldersAreInsertedBeforeCommentsAreRemoved();
    void placeholdersAreCaseSensitive();
    void textIsUtf8();
    void aByteOrderMarkIsNoPartOfTheText();
    void carriageReturnsAreNoPartOfTheText();
    void aTextIsReadAsADeviceInTextModeReadsIt();
    void nullCharactersArePartOfTheText();
    void aHeaderBehindALineCommentIsNone();
    void aFileThatCannotBeReadAddsALineBreakOnly_data();
    void aFileThatCannotBeReadAddsALineBreakOnly();
    void hostileFilesAreRead_data();
    void hostileFilesAreRead();

private:
    QString write(const QByteArray &content);
    QString raw(const char *key);
    void read(const QByteArray &content);

    ResourceFolder m_folder;
    int m_files = 0;
};

void StyleManagerTest::initTestCase()
{
    m_folder.setAsPaths();
    m_folder.writeCatalogue({});
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
}

// Sections stay from one test to the next: each clears the keys that they share.
void StyleManagerTest::init()
{
    read("== a ==\n== b ==\n== c ==");
}

QString StyleManagerTest::write(const QByteArray &content)
{
    const QString name = QStringLiteral("%1.qss").arg(++m_files);
    m_folder.writeFile(name, content);
    return m_folder.path() + QLatin1Char('/') + name;
}

QString StyleManagerTest::raw(const char *key)
{
    return StyleManager::getInstance()->getStyleSheet(QString::fromUtf8(key), true);
}

void StyleManagerTest::read(const QByteArray &content)
{
    StyleManager::getInstance()->initialize({write(content)});
}

void StyleManagerTest::beforeTheImageManagerTheProcessIsAborted()
{
    bool crashed = false;
    const QString errors =
        runAndReadErrors(QStringLiteral(VELA_UNINITIALIZED), {QStringLiteral("style-manager")}, &crashed);
    QVERIFY(crashed);
    QVERIFY2(errors.contains(QLatin1String("ImageManager is not initialized")), qPrintable(errors));
}

void StyleManagerTest::thereIsOneInstance()
{
    QVERIFY(StyleManager::getInstance());
    QCOMPARE(StyleManager::getInstance(), StyleManager::getInstance());
}

void StyleManagerTest::aSectionIsStoredWithALineBreakBeforeEachLine()
{
    StyleManager::getInstance()->initialize({write("QLabel{}\n== component.label ==\ncolor: red;")});
    QCOMPARE(raw("component.label"), QStringLiteral("\nQLabel{}\ncolor: red;"));
}

void StyleManagerTest::aLineBreakAtTheEndOfTheFileIsOneMoreLine()
{
    StyleManager::getInstance()->initialize({write("QLabel{}\n== component.label ==\ncolor: red;\n")});
    QCOMPARE(raw("component.label"), QStringLiteral("\nQLabel{}\ncolor: red;\n"));
}

void StyleManagerTest::theLastLineOfAFileDoesNotRunIntoTheNextFile()
{
    StyleManager::getInstance()->initialize({write("== a ==\nx"), write("== b ==\ny")});
    QCOMPARE(raw("a"), QStringLiteral("\nx"));
    QCOMPARE(raw("b"), QStringLiteral("\ny"));
}

void StyleManagerTest::aSectionGoesOnIntoTheNextFile()
{
    StyleManager::getInstance()->initialize({write("== a ==\nx"), write("y\n== b ==\nz")});
    QCOMPARE(raw("a"), QStringLiteral("\nx\ny"));
}

void StyleManagerTest::theLaterFileWins()
{
    LogCapture log;
    StyleManager::getInstance()->initialize({write("== a ==\nold"), write("== a ==\nnew")});
    QCOMPARE(raw("a"), QStringLiteral("\nnew"));
    QCOMPARE(log.takeTexts(), QStringList());
}

void StyleManagerTest::theLaterSectionOfAFileWins()
{
    LogCapture log;
    read("== a ==\nold\n== b ==\nother\n==a==\nnew");
    QCOMPARE(raw("a"), QStringLiteral("\nnew"));
    QCOMPARE(log.takeTexts(), QStringList());
}

void StyleManagerTest::aSecondCallAddsAndOverwrites()
{
    read("== a ==\n1\n== b ==\n2");
    read("== b ==\n3\n== c ==\n4");
    QCOMPARE(raw("a"), QStringLiteral("\n1"));
    QCOMPARE(raw("b"), QStringLiteral("\n3"));
    QCOMPARE(raw("c"), QStringLiteral("\n4"));
}

void StyleManagerTest::anUnknownKeyIsEmptyAndLoggedEachTime()
{
    const QStringList warning {QStringLiteral("Cannot find stylesheet \"component.unknown\"")};
    LogCapture log;
    for (bool isRaw : {false, true, false}) {
        QCOMPARE(getStyleSheet("component.unknown", isRaw), QString());
        QCOMPARE(log.takeTexts(), warning);
    }
}

void StyleManagerTest::aMissingFileIsSkippedWithAWarning()
{
    LogCapture log;
    StyleManager::getInstance()->initialize(
        {write("== a ==\nx"), QStringLiteral("/no/such.qss"), write("y\n== b ==\nz")});

    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("file \"/no/such.qss\" not exist")});
    QCOMPARE(raw("a"), QStringLiteral("\nx\ny")); // no line break is added for it
    QCOMPARE(raw("b"), QStringLiteral("\nz"));
}

void StyleManagerTest::noFilesAtAllAreFine()
{
    read("== a ==\nx");
    LogCapture log;
    StyleManager::getInstance()->initialize({});
    QCOMPARE(raw("a"), QStringLiteral("\nx"));
    QCOMPARE(log.takeTexts(), QStringList());
}

void StyleManagerTest::keysAreCaseSensitive()
{
    read("== a ==\nx");
    LogCapture log;
    QCOMPARE(getStyleSheet("A", true), QString());
    QCOMPARE(log.takeTexts().size(), 1);
}

void StyleManagerTest::rawTextIsAsItWasReadAndScaledTextIsNot()
{
    read("== a ==\nQPushButton { padding: 4px 12px; border: 1.5px }");
    QCOMPARE(StyleManager::getInstance()->getStyleSheet(QStringLiteral("a"), true),
             QStringLiteral("\nQPushButton { padding: 4px 12px; border: 1.5px }"));
    QCOMPARE(StyleManager::getInstance()->getStyleSheet(QStringLiteral("a"), false),
             QStringLiteral("\nQPushButton { padding: %1px %2px; border: %3px }")
                 .arg(expectedPixels(4))
                 .arg(expectedPixels(12))
                 .arg(expectedPixels(1.5)));
}

void StyleManagerTest::theFreeFunctionsForward()
{
    read("== a ==\nwidth: 3.5px");
    const QString scaled = QStringLiteral("\nwidth: %1px").arg(expectedPixels(3.5));
    QCOMPARE(getStyleSheet("a", true), QStringLiteral("\nwidth: 3.5px"));
    QCOMPARE(getStyleSheet("a", false), scaled);
    QCOMPARE(getStyleSheet(QStringLiteral("a"), true), QStringLiteral("\nwidth: 3.5px"));
    QCOMPARE(getStyleSheet(QStringLiteral("a"), false), scaled);
}

void StyleManagerTest::scalingLeavesTheStoredTextAlone()
{
    read("== a ==\nwidth: 3.5px");
    getStyleSheet("a", false);
    QCOMPARE(raw("a"), QStringLiteral("\nwidth: 3.5px"));
}

void StyleManagerTest::imageFoldersAreInserted()
{
    read("== a ==\nurl(IMG_LOC/x.png) url(TMPIMG_LOC/tmp_y.png) IMG_LOCIMG_LOC");
    QCOMPARE(raw("a"),
             QStringLiteral("\nurl(%1/images/x.png) url(%2/tmp_images/tmp_y.png) %1/images%1/images")
                 .arg(m_folder.path(), m_folder.userDataPath()));
}

void StyleManagerTest::imageFoldersAreInsertedBeforeCommentsAreRemoved()
{
    read("== a ==\nx/IMG_LOC\ny"); // the slash and the folder's first make a comment
    QCOMPARE(raw("a"), QStringLiteral("\nxy"));
}

void StyleManagerTest::placeholdersAreCaseSensitive()
{
    read("== a ==\nimg_loc Tmpimg_loc");
    QCOMPARE(raw("a"), QStringLiteral("\nimg_loc Tmpimg_loc"));
}

void StyleManagerTest::textIsUtf8()
{
    read(QByteArray("== k\xc3\xa9y ==\ncontent: \"\xe6\x97\xa5\xf0\x9f\x98\x80\""));
    const QString expected = QString::fromUtf8("\ncontent: \"\xe6\x97\xa5\xf0\x9f\x98\x80\"");
    QCOMPARE(raw("k\xc3\xa9y"), expected);
    QCOMPARE(getStyleSheet("k\xc3\xa9y", true), expected);
}

void StyleManagerTest::aByteOrderMarkIsNoPartOfTheText()
{
    StyleManager::getInstance()->initialize({write("\xef\xbb\xbf== a ==\nx"), write("\xef\xbb\xbf== b ==\ny")});
    QCOMPARE(raw("a"), QStringLiteral("\nx"));
    QCOMPARE(raw("b"), QStringLiteral("\ny"));
}

void StyleManagerTest::carriageReturnsAreNoPartOfTheText()
{
    read("== a ==\r\nx\r\n== b ==\r\ny\r\n");
    QCOMPARE(raw("a"), QStringLiteral("\nx"));
    QCOMPARE(raw("b"), QStringLiteral("\ny\n"));
}

void StyleManagerTest::aTextIsReadAsADeviceInTextModeReadsIt()
{
    const QString path = write("== a ==\nx\ry\r\r\nz\n\r");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QString expected = QString::fromUtf8(file.readAll()).mid(int(std::strlen("== a ==")));

    StyleManager::getInstance()->initialize({path});

    QCOMPARE(raw("a"), expected);
}

void StyleManagerTest::nullCharactersArePartOfTheText()
{
    read(QByteArrayLiteral("== a ==\nx\0y"));
    QCOMPARE(raw("a"), QString::fromLatin1("\nx\0y", 4));
    read(QByteArrayLiteral("== a ==\n\xc3\xa9\0y"));
    QCOMPARE(raw("a"), QString::fromLatin1("\n\xe9\0y", 4));
}

void StyleManagerTest::aHeaderBehindALineCommentIsNone()
{
    read("== a ==\ncolor: red; // note\n== b ==\nx");
    QCOMPARE(raw("a"), QStringLiteral("\ncolor: red; == b ==\nx"));
    QCOMPARE(raw("b"), QString()); // the empty text that the test began with
}

void StyleManagerTest::aFileThatCannotBeReadAddsALineBreakOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("folder") << QStringLiteral("images");
    QTest::newRow("empty file") << QStringLiteral("empty.qss");
    m_folder.writeFile(QStringLiteral("empty.qss"), QByteArray());
}

void StyleManagerTest::aFileThatCannotBeReadAddsALineBreakOnly()
{
    QFETCH(QString, name);
    LogCapture log;
    StyleManager::getInstance()->initialize(
        {write("== a ==\nx"), m_folder.path() + QLatin1Char('/') + name, write("y")});
    QCOMPARE(raw("a"), QStringLiteral("\nx\n\ny"));
    QCOMPARE(log.takeTexts(), QStringList());
}

void StyleManagerTest::hostileFilesAreRead_data()
{
    QTest::addColumn<QByteArray>("content");
    QByteArray bytes;
    for (int i = 0; i < 65536; ++i) {
        bytes.append(char(i * 31 + i / 256));
    }
    QTest::newRow("binary") << bytes;
    QTest::newRow("null characters") << QByteArray(1000, '\0');
    QTest::newRow("invalid UTF-8") << QByteArray(1000, '\xc3');
    QTest::newRow("64 KB of unclosed comments") << QByteArray("/*").repeated(32768);
    QTest::newRow("64 KB of slashes") << QByteArray(65536, '/');
    QTest::newRow("64 KB of marks") << QByteArray(65536, '=');
    QTest::newRow("a thousand digits") << QByteArray(1000, '7') + "px";
    QTest::newRow("one line of a megabyte") << QByteArray(1 << 20, 'a');
}

// Reading goes on behind it: the file is followed by one that closes what it may have left open.
void StyleManagerTest::hostileFilesAreRead()
{
    QFETCH(QByteArray, content);
    LogCapture log;
    StyleManager::getInstance()->initialize({write("== hostile ==\n" + content), write("*/\n\n== a ==\nx")});
    StyleManager::getInstance()->initialize({write("== b ==\n" + content)});
    QVERIFY(raw("a").endsWith(QLatin1String("\nx")));
    QVERIFY(getStyleSheet("b", false).size() >= raw("b").size() / 2);
    QCOMPARE(log.takeTexts(), QStringList());
}

QTEST_MAIN(StyleManagerTest)
#include "tst_style_manager.moc"
