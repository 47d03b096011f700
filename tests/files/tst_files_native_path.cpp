// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "disk/native-path.h"

#include <QtTest>

class NativePathTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytesComeBackAsTheyWere_data();
    void bytesComeBackAsTheyWere();
    void whatIsShownStandsOnOneLine_data();
    void whatIsShownStandsOnOneLine();
    void onlyNamesInUtf8AreKnownToTheToolkit();
    void partsArePutTogetherAndTakenApart();
    void aNeighbourIsNotWithin();
};

void NativePathTest::bytesComeBackAsTheyWere_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("plain") << QByteArray("/tmp/a b");
    QTest::newRow("other letters") << QByteArray("/tmp/\xC3\xBC\xE4\xB8\xAD\xF0\x9F\x98\x80");
    QTest::newRow("no UTF-8") << QByteArray("/tmp/\xFF\xFE x\xC3");
    QTest::newRow("a sequence cut off before a letter") << QByteArray("\xE4\xB8z");
    QTest::newRow("too long a sequence") << QByteArray("\xC0\xAF");
    QTest::newRow("a surrogate in UTF-8") << QByteArray("\xED\xB2\x80");
    QTest::newRow("a byte order mark") << QByteArray("\xEF\xBB\xBFx");
    QTest::newRow("a replacement character") << QByteArray("\xEF\xBF\xBD");
    QTest::newRow("a line break") << QByteArray("a\nb\tc");
    QTest::newRow("an emoji before a bad byte") << QByteArray("\xF0\x9F\x98\x80\x80");
}

void NativePathTest::bytesComeBackAsTheyWere()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(bytesFromPath(pathFromBytes(bytes)), bytes);
}

void NativePathTest::whatIsShownStandsOnOneLine_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << QByteArray("a b.txt") << QStringLiteral("a b.txt");
    QTest::newRow("a line break") << QByteArray("a\nb") << QStringLiteral("a\u240Ab");
    QTest::newRow("a bad byte") << QByteArray("a\xFF") << QStringLiteral("a\\xff");
    QTest::newRow("an order turned round") << QByteArray("a\xE2\x80\xAE"
                                                         "txt.exe")
                                           << QStringLiteral("a\uFFFDtxt.exe");
    QTest::newRow("an emoji") << QByteArray("\xF0\x9F\x98\x80") << QString::fromUtf8("\xF0\x9F\x98\x80");
}

void NativePathTest::whatIsShownStandsOnOneLine()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, shown);
    QCOMPARE(shownName(pathFromBytes(bytes)), shown);
}

void NativePathTest::onlyNamesInUtf8AreKnownToTheToolkit()
{
    QVERIFY(isKnownToToolkit(QStringLiteral("/tmp/a")));
    QVERIFY(!isKnownToToolkit(pathFromBytes("/tmp/\xFF")));
}

void NativePathTest::partsArePutTogetherAndTakenApart()
{
    QCOMPARE(joinedPath(QStringLiteral("/"), QStringLiteral("a")), QStringLiteral("/a"));
    QCOMPARE(joinedPath(QStringLiteral("/a"), QStringLiteral("b")), QStringLiteral("/a/b"));
    QCOMPARE(nameOfPath(QStringLiteral("/a/b")), QStringLiteral("b"));
    QCOMPARE(parentOfPath(QStringLiteral("/a/b")), QStringLiteral("/a"));
    QCOMPARE(parentOfPath(QStringLiteral("/a")), QStringLiteral("/"));
    QCOMPARE(parentOfPath(QStringLiteral("/")), QStringLiteral("/"));
}

void NativePathTest::aNeighbourIsNotWithin()
{
    QVERIFY(isWithin(QStringLiteral("/a/b"), QStringLiteral("/a/b")));
    QVERIFY(isWithin(QStringLiteral("/a/b/c"), QStringLiteral("/a/b")));
    QVERIFY(isWithin(QStringLiteral("/a"), QStringLiteral("/")));
    QVERIFY(!isWithin(QStringLiteral("/a/bc"), QStringLiteral("/a/b")));
}

QTEST_GUILESS_MAIN(NativePathTest)
#include "tst_files_native_path.moc"
