// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/literal-sections.h"
#include "style-manager/sheet-sections_p.h"
#include "support/generated-text.h"

#include <QtTest>

using Sections = std::map<QString, QString>;

namespace {

constexpr int GeneratedTexts = 60000;

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

QString withoutComments(const QString &text)
{
    const QByteArray plain = removeComments('.' + text.toUtf8()); // a leading dot makes a byte order mark a character
    return QString::fromUtf8(plain.constData(), plain.size()).mid(1);
}

Sections sectionsOf(const QString &text)
{
    Sections sections;
    readSections(text.toUtf8(), sections);
    return sections;
}

QByteArray without(const std::vector<TextRange> &ranges, QByteArray text)
{
    for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
        text.remove(range->begin, range->end - range->begin);
    }
    return text;
}

QString decoded(const QByteArray &text, TextRange range)
{
    return QString::fromUtf8(text.constData() + range.begin, range.end - range.begin);
}

// The body of a section, made from the lines that it tells.
QString bodyFromLines(const QByteArray &text, const SheetSection &section)
{
    QString body;
    for (const TextRange &range : section.lines) {
        QString lines = decoded(text, range);
        lines.chop(lines.endsWith(QLatin1Char('\n')) ? 1 : 0);
        body += QLatin1Char('\n') + lines;
    }
    return body;
}

} // namespace

Q_DECLARE_METATYPE(Sections)

class SheetSectionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commentsAreRemoved_data();
    void commentsAreRemoved();
    void aTextWithoutCommentsIsNotCopied();
    void sectionsAreCutAtHeaders_data();
    void sectionsAreCutAtHeaders();
    void aLaterSectionReplacesAnEarlierOne();
    void sectionsThatWereThereStay();
    void generatedTextsAreTheDefinitions_data();
    void generatedTextsAreTheDefinitions();
    void rangesTellWhereCommentsAndSectionsStand_data() { generatedTextsAreTheDefinitions_data(); }
    void rangesTellWhereCommentsAndSectionsStand();
    void hostileTextsTakeNoLongerThanTheirSize_data();
    void hostileTextsTakeNoLongerThanTheirSize();
};

void SheetSectionsTest::commentsAreRemoved_data()
{
    QTest::addColumn<QString>("commented");
    QTest::addColumn<QString>("plain");
    const auto row = [](const char *name, const char *commented, const char *plain) {
        QTest::newRow(name) << text(commented) << text(plain);
    };
    row("block", "a/* b */c", "ac");
    row("blocks", "a/* b */c/**/d", "acd");
    row("across lines", "a/* b\n c\n*/d", "ad");
    row("block ends at the first end", "a/* /* b */ c */", "a c */");
    row("a slash does not end its own block", "a/*/b*/c", "ac");
    row("unclosed block stays", "a/* b", "a/* b");
    row("unclosed block behind a closed one", "a/*b*/c/*d", "ac/*d");
    row("end without a start stays", "a*/b", "a*/b");
    row("line, with its line break", "color: red; // note\nb", "color: red; b");
    row("line without a line break stays", "a // b", "a // b");
    row("line takes what looks like an address", "url(http://host)\nb", "url(http:b");
    row("three slashes", "a/// b\nc", "ac");
    row("block before line", "a // /* b\n c */ d\n e", "a  e");
    row("line start in a block", "a /* // */ b\nc", "a  b\nc");
    row("the blocks' removal makes a line comment", "a//**// b\nc", "ac");
    row("the lines' removal makes no block", "a/// x\n* b */", "a* b */");
    row("slash at the end", "a/", "a/");
    row("header in a block", "/*\n== a ==\n*/b", "b");
    row("header joined to the line before", "a // b\n== c ==\n", "a == c ==\n");
}

void SheetSectionsTest::commentsAreRemoved()
{
    QFETCH(QString, commented);
    QFETCH(QString, plain);
    QCOMPARE(withoutComments(commented), plain);
    QCOMPARE(literallyWithoutComments(commented), plain);
}

void SheetSectionsTest::aTextWithoutCommentsIsNotCopied()
{
    const QByteArray plain("QLabel { color: red; } / * /");
    QCOMPARE(removeComments(plain).constData(), plain.constData());
}

void SheetSectionsTest::sectionsAreCutAtHeaders_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<Sections>("sections");
    const auto row = [](const char *name, const char *sheet, const Sections &sections) {
        QTest::newRow(name) << text(sheet) << sections;
    };
    row("nothing", "", {});
    row("no header", "a\nb\n", {});
    row("each line has its line break in front", "== a ==\nb\nc\n", {{text("a"), text("\nb\nc")}});
    row("no line break at the end", "== a ==\nb", {{text("a"), text("\nb")}});
    row("empty last line", "== a ==\nb\n\n", {{text("a"), text("\nb\n")}});
    row("no body", "== a ==\n== b ==\n", {{text("a"), QString()}, {text("b"), QString()}});
    row("empty line", "== a ==\n\n== b ==", {{text("a"), text("\n")}, {text("b"), QString()}});
    row("header without blanks", "==a==\nb", {{text("a"), text("\nb")}});
    row("header of two marks", "====\nb", {});
    row("blanks in a key", "== component.apply button ==\nb", {{text("component.applybutton"), text("\nb")}});
    row("marks in a key", "== a=b ==\nc", {{text("ab"), text("\nc")}});
    row("tabs in a key", "==\ta\t==\nc", {{text("\ta\t"), text("\nc")}});
    row("case of a key", "== A ==\nb\n== a ==\nc", {{text("A"), text("\nb")}, {text("a"), text("\nc")}});
    row("a header has no leading blank", "== a ==\n == b ==\nc", {{text("a"), text("\n == b ==\nc")}});
    row("a header has no trailing blank", "== a ==\n== b == \nc", {{text("a"), text("\n== b == \nc")}});
    row("a header begins with two marks", "== a ==\n=b==\nc", {{text("a"), text("\n=b==\nc")}});
    row("a header ends with two marks", "== a ==\n==b=\nc", {{text("a"), text("\n==b=\nc")}});
    row("lines before the first header are carried into it", "QLabel{}\n== component.label ==\ncolor: red;",
        {{text("component.label"), text("\nQLabel{}\ncolor: red;")}});
    row("lines behind a header without a key too", "== a ==\nb\n==\nc\n== d ==\ne",
        {{text("a"), text("\nb")}, {text("d"), text("\nc\ne")}});
    row("headers of marks only", "==\na\n===\nb\n=====\nc\n== d ==\ne", {{text("d"), text("\na\nb\nc\ne")}});
    row("one mark is no header", "=\n== a ==\nb", {{text("a"), text("\n=\nb")}});
    row("carried lines do not reach the section after next", "x\n== a ==\nb\n== c ==\nd",
        {{text("a"), text("\nx\nb")}, {text("c"), text("\nd")}});
}

void SheetSectionsTest::sectionsAreCutAtHeaders()
{
    QFETCH(QString, sheet);
    QFETCH(Sections, sections);
    QCOMPARE(sectionsOf(sheet), sections);
    Sections literal;
    readSectionsLiterally(sheet, literal);
    QCOMPARE(literal, sections);
}

void SheetSectionsTest::aLaterSectionReplacesAnEarlierOne()
{
    const Sections sections {{text("a"), text("\nnew")}};
    QCOMPARE(sectionsOf(text("== a ==\nold\n==a==\nnew")), sections);
}

void SheetSectionsTest::sectionsThatWereThereStay()
{
    Sections sections {{text("a"), text("old")}, {text("b"), text("old")}};
    readSections("== a ==\nnew", sections);
    QCOMPARE(sections, (Sections {{text("a"), text("\nnew")}, {text("b"), text("old")}}));
}

void SheetSectionsTest::generatedTextsAreTheDefinitions_data()
{
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("comment marks") << QStringList {text("/"),  text("*"),  text("/*"), text("*/"),
                                                   text("//"), text("\n"), text("a"),  text("== k ==\n")};
    QTest::newRow("headers") << QStringList {text("="),  text("=="), text("== a ==\n"), text("\n== b ==\n"), text(" "),
                                             text("\n"), text("\n"), text("=="),        text("\n==\n"),      text("c")};
    QTest::newRow("all of it") << QStringList {text("/*"),
                                               text("*/"),
                                               text("// c\n"),
                                               text("== a ==\n"),
                                               text("\n"),
                                               text("== b /* c */ ==\n"),
                                               text("== d // e ==\n"),
                                               text("\ufeff"),
                                               QString(QChar(0)),
                                               text("\t"),
                                               text("url(IMG_LOC/a.png)"),
                                               text("="),
                                               text("\u65e5\u672c"),
                                               text("\n==\n")};
}

void SheetSectionsTest::generatedTextsAreTheDefinitions()
{
    QFETCH(QStringList, parts);
    GeneratedText generated(parts.toVector(), 24);
    for (int i = 0; i < GeneratedTexts / 3; ++i) {
        const QString sheet = generated.next();
        const QString plain = withoutComments(sheet);
        const QString literalPlain = literallyWithoutComments(sheet);
        Sections literal;
        readSectionsLiterally(literalPlain, literal);
        if (plain != literalPlain || sectionsOf(plain) != literal) {
            qWarning() << "of" << sheet;
            QCOMPARE(plain, literalPlain);
            QCOMPARE(sectionsOf(plain), literal);
        }
    }
}

void SheetSectionsTest::rangesTellWhereCommentsAndSectionsStand()
{
    QFETCH(QStringList, parts);
    GeneratedText generated(parts.toVector(), 24);
    for (int i = 0; i < GeneratedTexts / 10; ++i) {
        const QByteArray sheet = '.' + generated.next().toUtf8();
        RemovedComments removed;
        const QByteArray plain = removeComments(sheet, &removed);
        QCOMPARE(without(removed.lines, without(removed.blocks, sheet)), plain);
        for (const SheetSection &section : findSections(plain)) {
            QCOMPARE(section.body, bodyFromLines(plain, section));
            QCOMPARE(decoded(plain, section.header).remove(QLatin1Char('=')).remove(QLatin1Char(' ')), section.key);
        }
    }
}

void SheetSectionsTest::hostileTextsTakeNoLongerThanTheirSize_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("unclosed blocks") << text("/*");
    QTest::newRow("unclosed blocks, closed in themselves") << text("/*/");
    QTest::newRow("slashes") << text("/");
    QTest::newRow("lines without a break") << text("// ");
    QTest::newRow("marks") << text("=");
    QTest::newRow("headers without a key") << text("==\n");
    QTest::newRow("headers") << text("== a ==\n");
    QTest::newRow("line breaks") << text("\n");
}

// The definition itself is quadratic on most of these; the test's own limit of time is what fails then.
void SheetSectionsTest::hostileTextsTakeNoLongerThanTheirSize()
{
    QFETCH(QString, part);
    const QString sheet = QLatin1String("== begin ==\n") + part.repeated(4000000);
    QVERIFY(sectionsOf(withoutComments(sheet)).size() <= 2);
}

QTEST_GUILESS_MAIN(SheetSectionsTest)
#include "tst_sheet_sections.moc"
