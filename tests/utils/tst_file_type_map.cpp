// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/file_type_map.h"

#include <QtTest>

// The static table is filled by the first use of the instance, and not before: looked at before main() on purpose.
static const bool TableWasEmptyAtStart = FileTypeMap::m_file_type_map.empty();

namespace {

struct Row
{
    const char *type;
    const char *extensions;
};

// A copy of the library's table, so that a slip there is found.
constexpr Row Rows[] = {
    {"acc", "acc ade adp adn accdr accdb accdt mdb mda mdn mdt mdw mdf mde accde mam maq mar mat maf"},
    {"ai", "ai"},
    {"audio", "mp3 aac flac m4a m4b aif ogg pcm wav cda mid mp2 mka mpc ape ra ac3 dts wma"},
    {"bkpi", "bkpi"},
    {"doc", "doc docx wri rtf"},
    {"exe", "exe"},
    {"fla", "fla"},
    {"htm", "htm html"},
    {"idn", "idn"},
    {"image",
     "bmp ico tif tiff ufo raw arw srf sr2 dcr k25 kdc cr2 crw nef mrw ptx pef raf 3fr erf mef "
     "mos orf rw2 dng x3f jpg jpe jpeg png gif"},
    {"iso", "iso bin img mds nrg daa"},
    {"code",
     "js css actproj ad akp applescript as asax asc ascx asm asmx asp aspx asr c cc php jsx xml "
     "xhtml mhtml cpp cs cxx"},
    {"pdf", "pdf"},
    {"ppt", "ppt pptx pps ppsx"},
    {"psd", "psd"},
    {"swf", "swf flv f4v"},
    {"ttf", "ttf ttc otf"},
    {"txt", "txt"},
    {"video",
     "avi 3gp 3g2 asf dat divx dvr-ms m2t m2ts m4v mkv mp4 mts mov qt tp trp ts vob wmv xvid ac3 "
     "amr rm rmvb ifo mpeg mpg mpe m1v m2v mpeg1 mpeg2 mpeg4 ogv webm"},
    {"xls", "xls xla xlb xlc xld xlk xll xlm xlt xlv xlw xlsx xlsm xlsb xltm xlam"},
    {"zip", "zip tar 7z bz2 gz zip tgz tbz rar"},
};

constexpr int DistinctExtensions = 185;

} // namespace

class FileTypeMapTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTableIsFilledByTheFirstInstance();
    void thereIsOneInstance();
    void everyExtensionHasItsIcon_data();
    void everyExtensionHasItsIcon();
    void theLaterRowWinsForAnExtensionInTwo();
    void anUnknownExtensionHasTheUnknownIcon_data();
    void anUnknownExtensionHasTheUnknownIcon();
    void aLookUpNeverAddsAnEntry();
    void mappingSplitsAtSingleBlanksAndOverwrites();
    void keysAreComparedWithoutCase();
};

void FileTypeMapTest::theTableIsFilledByTheFirstInstance()
{
    QVERIFY(TableWasEmptyAtStart);
    QVERIFY(FileTypeMap::m_file_type_map.empty());
    QVERIFY(FileTypeMap::getInstance());
    QCOMPARE(int(FileTypeMap::m_file_type_map.size()), DistinctExtensions);
}

void FileTypeMapTest::thereIsOneInstance()
{
    QCOMPARE(FileTypeMap::getInstance(), FileTypeMap::getInstance());
}

void FileTypeMapTest::everyExtensionHasItsIcon_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("type");
    QMap<QString, QString> types;
    for (const Row &row : Rows) {
        const QStringList extensions = QString::fromLatin1(row.extensions).split(QLatin1Char(' '));
        for (const QString &extension : extensions) {
            types[extension] = QString::fromLatin1(row.type);
        }
    }
    QCOMPARE(types.size(), DistinctExtensions);
    for (auto it = types.constBegin(); it != types.constEnd(); ++it) {
        QTest::newRow(qPrintable(it.key())) << it.key() << it.value();
    }
}

void FileTypeMapTest::everyExtensionHasItsIcon()
{
    QFETCH(QString, extension);
    QFETCH(QString, type);
    FileTypeMap *map = FileTypeMap::getInstance();
    QCOMPARE(map->getFiletypeMapping(extension, false), type + QStringLiteral(".png"));
    QCOMPARE(map->getFiletypeMapping(extension, true), type + QStringLiteral("_removed.png"));
    QCOMPARE(map->getFiletypeMapping(extension.toUpper(), false), type + QStringLiteral(".png"));
}

void FileTypeMapTest::theLaterRowWinsForAnExtensionInTwo()
{
    QCOMPARE(FileTypeMap::getInstance()->getFiletypeMapping(QStringLiteral("ac3"), false), QStringLiteral("video.png"));
}

void FileTypeMapTest::anUnknownExtensionHasTheUnknownIcon_data()
{
    QTest::addColumn<QString>("extension");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("unknown");
    QTest::newRow("with its dot") << QStringLiteral(".mp3");
    QTest::newRow("padded") << QStringLiteral("mp3 ");
    QTest::newRow("half of a hyphenated one") << QStringLiteral("dvr");
}

void FileTypeMapTest::anUnknownExtensionHasTheUnknownIcon()
{
    QFETCH(QString, extension);
    QCOMPARE(FileTypeMap::getInstance()->getFiletypeMapping(extension, false), QStringLiteral("xxx.png"));
    QCOMPARE(FileTypeMap::getInstance()->getFiletypeMapping(extension, true), QStringLiteral("xxx_removed.png"));
}

void FileTypeMapTest::aLookUpNeverAddsAnEntry()
{
    FileTypeMap::getInstance()->getFiletypeMapping(QStringLiteral("never heard of"), false);
    FileTypeMap::getInstance()->getFiletypeMapping(QString(), true);
    QCOMPARE(int(FileTypeMap::m_file_type_map.size()), DistinctExtensions);
}

void FileTypeMapTest::mappingSplitsAtSingleBlanksAndOverwrites()
{
    const auto restore = FileTypeMap::m_file_type_map;
    FileTypeMap *map = FileTypeMap::getInstance();

    map->mappingFile(QStringLiteral("new"), QStringLiteral("one  MP3"));

    QCOMPARE(map->getFiletypeMapping(QStringLiteral("one"), false), QStringLiteral("new.png"));
    QCOMPARE(map->getFiletypeMapping(QString(), false), QStringLiteral("new.png"));
    QCOMPARE(map->getFiletypeMapping(QStringLiteral("mp3"), false), QStringLiteral("new.png"));
    QCOMPARE(int(FileTypeMap::m_file_type_map.size()), DistinctExtensions + 2);
    FileTypeMap::m_file_type_map = restore;
}

void FileTypeMapTest::keysAreComparedWithoutCase()
{
    const CaseLessCompare isLess;
    QVERIFY(isLess(QStringLiteral("a"), QStringLiteral("B")));
    QVERIFY(!isLess(QStringLiteral("B"), QStringLiteral("a")));
    QVERIFY(!isLess(QStringLiteral("JPG"), QStringLiteral("jpg")));
    QVERIFY(!isLess(QStringLiteral("jpg"), QStringLiteral("Jpg")));
}

QTEST_GUILESS_MAIN(FileTypeMapTest)
#include "tst_file_type_map.moc"
