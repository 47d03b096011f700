// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/tool-tip.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QLabel>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>
#include <QtTest>

namespace {

// The tool tip's own widget, once it is shown.
QLabel *shownToolTip(const QString &text)
{
    QToolTip::showText(QPoint(10, 10), text);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *label = qobject_cast<QLabel *>(window);
        if (label && label->isVisible() && label->text() == text) {
            return label;
        }
    }
    return nullptr;
}

} // namespace

class ToolTipTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsEscapedForAToolTip_data();
    void textIsEscapedForAToolTip();
    void aToolTipShowsTheTextWithItsLinesAndBlanks_data();
    void aToolTipShowsTheTextWithItsLinesAndBlanks();
    void aToolTipIsNotWrapped();
};

void ToolTipTest::textIsEscapedForAToolTip_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inner");
    QTest::newRow("a sign and a line break") << "a<b\nc"
                                             << "a&lt;b<br>c";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("null") << QString() << "";
    QTest::newRow("plain") << "plain"
                           << "plain";
    QTest::newRow("every escaped sign") << "<>&\""
                                        << "&lt;&gt;&amp;&quot;";
    QTest::newRow("single quotes stay") << "it's"
                                        << "it's";
    QTest::newRow("an element is text") << "<b>bold</b>"
                                        << "&lt;b&gt;bold&lt;/b&gt;";
    QTest::newRow("a written line break is text") << "a<br>b"
                                                  << "a&lt;br&gt;b";
    QTest::newRow("an entity is text") << "a&lt;b"
                                       << "a&amp;lt;b";
    QTest::newRow("line breaks at both ends and in a row") << "\na\n\nb\n"
                                                           << "<br>a<br><br>b<br>";
    QTest::newRow("carriage returns stay") << "a\r\nb\rc"
                                           << "a\r<br>b\rc";
    QTest::newRow("blanks and tabs stay") << "  a   b\tc "
                                          << "  a   b\tc ";
    QTest::newRow("other letters stay") << QStringLiteral("Größe 尺寸") << QStringLiteral("Größe 尺寸");
}

void ToolTipTest::textIsEscapedForAToolTip()
{
    QFETCH(QString, text);
    QFETCH(QString, inner);
    QCOMPARE(getHtmlEscapedStringForToolTip(text),
             QStringLiteral("<p style='white-space:pre'>") + inner + QStringLiteral("</p>"));
}

void ToolTipTest::aToolTipShowsTheTextWithItsLinesAndBlanks_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("line breaks") << "first\nsecond\n\nfourth";
    QTest::newRow("runs of blanks") << "name:   value\n   x:   y";
    QTest::newRow("signs") << "a < b && c > \"d\" &amp; <br>";
}

void ToolTipTest::aToolTipShowsTheTextWithItsLinesAndBlanks()
{
    QFETCH(QString, text);
    const QString toolTip = getHtmlEscapedStringForToolTip(text);
    QVERIFY(Qt::mightBeRichText(toolTip));

    QTextDocument document;
    document.setHtml(toolTip);
    QCOMPARE(document.toPlainText(), text);

    document.setTextWidth(1.0);
    document.documentLayout()->documentSize(); // lays the text out
    QCOMPARE(document.firstBlock().layout()->lineCount(), text.count(QLatin1Char('\n')) + 1);
}

void ToolTipTest::aToolTipIsNotWrapped()
{
    const QString words = QStringLiteral("several words ").repeated(60);
    const QLabel *shortOne = shownToolTip(getHtmlEscapedStringForToolTip(QStringLiteral("word")));
    QVERIFY(shortOne);
    const int lineHeight = shortOne->height();

    const QLabel *wrapped = shownToolTip(QStringLiteral("<p>") + words + QStringLiteral("</p>"));
    QVERIFY(wrapped);
    QVERIFY(wrapped->height() > lineHeight);

    const QLabel *longOne = shownToolTip(getHtmlEscapedStringForToolTip(words));
    QVERIFY(longOne);
    QCOMPARE(longOne->height(), lineHeight);
    QToolTip::hideText();
}

QTEST_MAIN(ToolTipTest)
#include "tst_tool_tip.moc"
