// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "help/help-test.h"
#include "support/controls.h"

#include <QDesktopServices>
#include <QDir>
#include <QImage>
#include <QScopeGuard>
#include <QTextCodec>
#include <QtTest>

namespace {

// Records the addresses that are to be opened outside.
class ExternalLinks : public QObject
{
    Q_OBJECT

public:
    ExternalLinks() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~ExternalLinks() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url); }
};

} // namespace

class HelpWindowPagesTest : public HelpTest
{
    Q_OBJECT

private Q_SLOTS:
    void aPlainTextIsShownAsItIs_data() { addOnlineAndOffline(); }
    void aPlainTextIsShownAsItIs();
    void aPageDoesNotEndAtANullByte_data() { addOnlineAndOffline(); }
    void aPageDoesNotEndAtANullByte();
    void aPageIsUtf8WhateverTheLocale_data() { addOnlineAndOffline(); }
    void aPageIsUtf8WhateverTheLocale();
    void aPageIsUtf8WhateverItDeclares_data() { addOnlineAndOffline(); }
    void aPageIsUtf8WhateverItDeclares();
    void aByteOrderMarkOfAnOfflinePageCounts();
    void imagesOfAPageAreThoseOfTheOfflineFolder_data() { addOnlineAndOffline(); }
    void imagesOfAPageAreThoseOfTheOfflineFolder();
    void linksOfAPageLeadIntoTheOfflineFolder_data() { addOnlineAndOffline(); }
    void linksOfAPageLeadIntoTheOfflineFolder();
    void aLinkedPageIsWhatItDeclaresAndUtf8ByDefault_data();
    void aLinkedPageIsWhatItDeclaresAndUtf8ByDefault();
    void externalLinksAreOpenedOutside();
};

void HelpWindowPagesTest::aPlainTextIsShownAsItIs()
{
    QFETCH(bool, isOnline);
    const Help help(offer("2 < 3 & Grüße\nnext", isOnline));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("2 < 3 & Grüße\nnext"), Patience);
}

void HelpWindowPagesTest::aPageDoesNotEndAtANullByte()
{
    QFETCH(bool, isOnline);
    const Help help(offer(page(QStringLiteral("before\0after")), isOnline));
    QTRY_VERIFY_WITH_TIMEOUT(help.text().startsWith(QStringLiteral("before")), Patience);
    QVERIFY2(help.text().endsWith(QStringLiteral("after")), qPrintable(help.text()));
}

void HelpWindowPagesTest::aPageIsUtf8WhateverTheLocale()
{
    QFETCH(bool, isOnline);
    QTextCodec *const before = QTextCodec::codecForLocale();
    const auto restore = qScopeGuard([before] { QTextCodec::setCodecForLocale(before); });
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    const Help help(offer(page(Online), isOnline));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
}

void HelpWindowPagesTest::aPageIsUtf8WhateverItDeclares()
{
    QFETCH(bool, isOnline);
    const QByteArray declaration =
        "<head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\"></head><body>";
    const Help help(offer(page(Online).replace("<body>", declaration), isOnline));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Online, Patience);
}

void HelpWindowPagesTest::aByteOrderMarkOfAnOfflinePageCounts()
{
    const QByteArray utf16 = QTextCodec::codecForName("UTF-16")->fromUnicode(QString::fromUtf8(page(Offline)));
    const Help help(offer(utf16, false));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), Offline, Patience);
}

void HelpWindowPagesTest::imagesOfAPageAreThoseOfTheOfflineFolder()
{
    QFETCH(bool, isOnline);
    QVERIFY(QDir(root()).mkpath(QStringLiteral("enu/images")));
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QVERIFY(image.save(root() + QStringLiteral("/enu/images/picture.png")));
    const Help help(offer("<html><body><p><img src=\"images/picture.png\"></p></body></html>", isOnline));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QString(QChar::ObjectReplacementCharacter), Patience);
    QTRY_COMPARE_WITH_TIMEOUT(paintedColor(help.browser()->viewport(), QPoint(15, 20)), QColor(Qt::magenta), Patience);
}

void HelpWindowPagesTest::linksOfAPageLeadIntoTheOfflineFolder()
{
    QFETCH(bool, isOnline);
    writeHelp(QStringLiteral("enu/other.html"), page(QStringLiteral("the other page")));
    const Help help(offer("<html><body><p><a href=\"other.html\">onward</a></p></body></html>", isOnline));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("onward"), Patience);
    const ExternalLinks external;
    help.click(QStringLiteral("onward"));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("the other page"), Patience);
    QCOMPARE(external.opened, QList<QUrl>());
}

void HelpWindowPagesTest::aLinkedPageIsWhatItDeclaresAndUtf8ByDefault_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("declaration");
    const auto declared = [](const char *codec) -> QByteArray {
        return "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=" + QByteArray(codec) + "\">";
    };
    QTest::newRow("nothing") << QByteArray("UTF-8") << QByteArray();
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << declared("utf-8");
    QTest::newRow("UTF-8, in short") << QByteArray("UTF-8") << QByteArray("<meta charset=\"utf-8\">");
    QTest::newRow("Latin-1") << QByteArray("ISO-8859-1") << declared("iso-8859-1");
    QTest::newRow("Windows") << QByteArray("Windows-1252") << declared("windows-1252");
    QTest::newRow("what nobody knows") << QByteArray("UTF-8") << declared("no-such-codec");
    QTest::newRow("by a mark") << QByteArray("UTF-16") << QByteArray();
}

void HelpWindowPagesTest::aLinkedPageIsWhatItDeclaresAndUtf8ByDefault()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, declaration);
    const QString text = QStringLiteral("Grüße");
    const QString whole = QStringLiteral("<html><head>%1</head><body><p>%2</p></body></html>")
                              .arg(QString::fromLatin1(declaration), text);
    writeHelp(QStringLiteral("enu/other.html"), QTextCodec::codecForName(codec)->fromUnicode(whole));
    const Help help(offer("<html><body><p><a href=\"other.html\">onward</a></p></body></html>", false));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("onward"), Patience);
    help.click(QStringLiteral("onward"));
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), text, Patience);
    help.browser()->reload();
    QCOMPARE(help.text(), text);
}

void HelpWindowPagesTest::externalLinksAreOpenedOutside()
{
    answerWith(
        KnowledgeBase::ok("<html><body><p><a href=\"https://shop.vela.invalid/a?b\">shop</a></p></body></html>"));
    const Help help(context(root()));
    help.show();
    QTRY_COMPARE_WITH_TIMEOUT(help.text(), QStringLiteral("shop"), Patience);
    const ExternalLinks external;
    help.click(QStringLiteral("shop"));
    QTRY_COMPARE_WITH_TIMEOUT(external.opened, QList<QUrl> {QUrl(QStringLiteral("https://shop.vela.invalid/a?b"))},
                              Patience);
    QCOMPARE(help.text(), QStringLiteral("shop"));
}

QTEST_MAIN(HelpWindowPagesTest)
#include "tst_help_window_pages.moc"
