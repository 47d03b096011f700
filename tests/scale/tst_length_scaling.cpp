// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "scale/length-scaling_p.h"
#include "scale/literal-scaling.h"
#include "support/generated-text.h"

#include <QtTest>

namespace {

constexpr int GeneratedTexts = 150000;
constexpr double Factors[] = {1.0, 1.25, 1.5, 2.0, 96.0 / 97.0};

QString text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

class LengthScalingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthsAreMultipliedAndTruncated_data();
    void lengthsAreMultipliedAndTruncated();
    void aTextWithoutLengthsComesBackUnchanged_data();
    void aTextWithoutLengthsComesBackUnchanged();
    void aLongNumberPutsTextAndNumbersOutOfStep_data();
    void aLongNumberPutsTextAndNumbersOutOfStep();
    void numbersOfEveryLengthAreTheDefinitions_data();
    void numbersOfEveryLengthAreTheDefinitions();
    void aThousandDigitsAreTheLowestInteger();
    void aDigitFarBehindThePointCanDecide();
    void aForeignDigitMakesANumberZeroHoweverLong();
    void generatedTextsAreTheDefinitions_data();
    void generatedTextsAreTheDefinitions();
    void aHugeNumberTakesNoLongerThanItsSize();
};

void LengthScalingTest::lengthsAreMultipliedAndTruncated_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("scaled");
    const QString rule = text("min-width: 80px; padding: 0px 12px;");
    QTest::newRow("rule at 1") << rule << 1.0 << rule;
    QTest::newRow("rule at 1.25") << rule << 1.25 << text("min-width: 100px; padding: 0px 15px;");
    QTest::newRow("width at 1.5") << text("width:100px") << 1.5 << text("width:150px");
    QTest::newRow("truncated") << text("1px 3px 5px") << 1.25 << text("1px 3px 6px");
    QTest::newRow("truncated at 1.5") << text("1px 3px 5px") << 1.5 << text("1px 4px 7px");
    QTest::newRow("fraction at 1") << text("1.5px") << 1.0 << text("1px");
    QTest::newRow("fraction at 1.5") << text("1.5px") << 1.5 << text("2px");
    QTest::newRow("point without fraction") << text("5.px") << 1.5 << text("7px");
    QTest::newRow("point without integer") << text(".5px") << 1.0 << text(".5px");
    QTest::newRow("sign stays") << text("-3px") << 1.5 << text("-4px");
    QTest::newRow("three digits") << text("999px") << 1.5 << text("1498px");
    QTest::newRow("leading zeros") << text("007px") << 1.0 << text("7px");
    QTest::newRow("in a word") << text("a12pxb") << 1.5 << text("a18pxb");
    QTest::newRow("in a file name") << text("url(arrow_16px.png)") << 1.25 << text("url(arrow_20px.png)");
    QTest::newRow("next to each other") << text("1px2px3px") << 2.0 << text("2px4px6px");
    QTest::newRow("at the end") << text("a 8px") << 2.0 << text("a 16px");
    QTest::newRow("two points") << text("1.2.3px") << 1.0 << text("1.2px");
    QTest::newRow("non-ASCII digit") << text("a \u0663px b") << 2.0 << text("a 0px b");
    QTest::newRow("mixed digits") << text("a 1\u0663px b") << 2.0 << text("a 0px b");
}

void LengthScalingTest::lengthsAreMultipliedAndTruncated()
{
    QFETCH(QString, sheet);
    QFETCH(double, factor);
    QFETCH(QString, scaled);
    QCOMPARE(scaleLengths(sheet, factor), scaled);
    QCOMPARE(literallyScaled(sheet, factor), scaled);
}

void LengthScalingTest::aTextWithoutLengthsComesBackUnchanged_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << text("");
    QTest::newRow("other units") << text("QLabel { font: 12pt; margin: 3em 4 }");
    QTest::newRow("unit without a number") << text("px xpx .px pxpx p1x x");
    QTest::newRow("capitals") << text("12PX 3Px 4pX");
    QTest::newRow("blank before the unit") << text("12 px");
    QTest::newRow("x alone") << text("x");
    QTest::newRow("digits alone") << text("12345");
}

void LengthScalingTest::aTextWithoutLengthsComesBackUnchanged()
{
    QFETCH(QString, sheet);
    const QString scaled = scaleLengths(sheet, 1.5);
    QCOMPARE(scaled, sheet);
    QCOMPARE(scaled.constData(), sheet.constData()); // a text without lengths is not copied
}

void LengthScalingTest::aLongNumberPutsTextAndNumbersOutOfStep_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("scaled");
    QTest::newRow("one") << text("a{width: 1000px;}") << text("a{width: 1000px;}0px");
    QTest::newRow("before others") << text("a 1000px b 2px c 3px d") << text("a 1000px b 0px c 2px d3px");
    QTest::newRow("fraction") << text("a 12.5px b") << text("a 12px b5px");
    QTest::newRow("tail at the point") << text("a 123.4px b") << text("a 123px b4px");
    QTest::newRow("tail before the point") << text("a 1234.5px b") << text("a 1234px b4px");
    QTest::newRow("two tails") << text("a 1234567px b") << text("a 1234567px b4567px7px");
    QTest::newRow("nothing after the point") << text("a 123.px b") << text("a 123px b");
}

void LengthScalingTest::aLongNumberPutsTextAndNumbersOutOfStep()
{
    QFETCH(QString, sheet);
    QFETCH(QString, scaled);
    QCOMPARE(scaleLengths(sheet, 1.0), scaled);
    QCOMPARE(literallyScaled(sheet, 1.0), scaled);
}

void LengthScalingTest::numbersOfEveryLengthAreTheDefinitions_data()
{
    QTest::addColumn<QString>("pattern");
    for (const char *pattern : {"1", "9", "0", "90", "09", "123456789"}) {
        QTest::newRow(pattern) << text(pattern);
    }
}

void LengthScalingTest::numbersOfEveryLengthAreTheDefinitions()
{
    QFETCH(QString, pattern);
    for (int integers = 0; integers <= 30; ++integers) {
        for (int fractions = -1; fractions <= 30; ++fractions) {
            QString number = pattern.repeated(integers).left(integers);
            if (fractions >= 0) {
                number += QLatin1Char('.') + pattern.repeated(fractions).left(fractions);
            }
            const QString sheet = QLatin1String("a ") + number + QLatin1String("px b 7px c");
            const double factor = Factors[(integers + fractions + 1) % int(std::size(Factors))];
            QCOMPARE(scaleLengths(sheet, factor), literallyScaled(sheet, factor));
        }
    }
    for (int digits : {40, 308, 309, 310, 311, 810}) {
        const QString run = pattern.repeated(digits).left(digits);
        const QString zeros(digits, QLatin1Char('0'));
        const QStringList numbers {run,
                                   run + QLatin1Char('.') + run,
                                   zeros + run,
                                   zeros + QLatin1Char('.') + zeros + run,
                                   QLatin1String("2.") + zeros + run,
                                   QLatin1String("1.9") + run};
        for (const QString &number : numbers) {
            const QString sheet = QLatin1String("a ") + number + QLatin1String("px b");
            QCOMPARE(scaleLengths(sheet, 1.25), literallyScaled(sheet, 1.25));
        }
    }
}

void LengthScalingTest::aThousandDigitsAreTheLowestInteger()
{
    const QString scaled = scaleLengths(QString(1000, QLatin1Char('9')) + QLatin1String("px"), 1.0);
    QVERIFY(scaled.startsWith(text("-2147483648px-2147483648px")));
    QVERIFY(scaled.endsWith(text("-2147483648px9999999px9999px9px")));
    QCOMPARE(scaled.count(text("px")), 334);
}

// Numbers exactly between two doubles, of which the lower one is even: only the last digit rounds them up.
void LengthScalingTest::aDigitFarBehindThePointCanDecide()
{
    const QString tie = text("2.3999999999999996891375531049561686813831329345703125");
    const QString zeros(1000, QLatin1Char('0'));
    const QString below = tie + zeros + QLatin1String("0px");
    const QString above = tie + zeros + QLatin1String("1px");

    QVERIFY(scaleLengths(below, 1.25).startsWith(QLatin1String("2px")));
    QVERIFY(scaleLengths(above, 1.25).startsWith(QLatin1String("3px")));
    QCOMPARE(scaleLengths(below, 1.25), literallyScaled(below, 1.25));
    QCOMPARE(scaleLengths(above, 1.25), literallyScaled(above, 1.25));
}

void LengthScalingTest::aForeignDigitMakesANumberZeroHoweverLong()
{
    const QString sheet = QString(400, QLatin1Char('9')) + text("\u0663px");
    const QString scaled = scaleLengths(sheet, 1.0);
    QVERIFY(scaled.startsWith(QLatin1String("0px")));
    QCOMPARE(scaled, literallyScaled(sheet, 1.0));
}

void LengthScalingTest::generatedTextsAreTheDefinitions_data()
{
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("numbers") << QStringList {text("0"),  text("1"),  text("25"), text("987"), text("6543"), text("."),
                                             text("px"), text("px"), text("p"),  text("x"),   text(" "),    text("a")};
    QTest::newRow("sheets") << QStringList {
        text("margin: "), text("12px"), text("1000px"), text("1.5px"),
        text("; "),       text("\n"),   text("0px"),    text("url(IMG_LOC/a_16px.png)"),
        text("#1e2px"),   text("300"),  text("px"),     text(".")};
    QTest::newRow("odd characters") << QStringList {
        text("\u0663"), text("\u0967"), text("\U0001D7D9"), text("\u00b2"), QString(QChar(0)), text("\ufeff"),
        text("1"),      text("."),      text("px"),         text("12"),     text("\r\n"),      QString(QChar(0xd835))};
}

void LengthScalingTest::generatedTextsAreTheDefinitions()
{
    QFETCH(QStringList, parts);
    GeneratedText generated(parts.toVector(), 16);
    for (int i = 0; i < GeneratedTexts / 3; ++i) {
        const QString sheet = generated.next();
        const double factor = Factors[generated.bounded(int(std::size(Factors)))];
        const QString scaled = scaleLengths(sheet, factor);
        const QString literal = literallyScaled(sheet, factor);
        if (scaled != literal) {
            qWarning() << "of" << sheet << "at" << factor;
            QCOMPARE(scaled, literal);
        }
    }
}

// The definition itself takes minutes here; the test's own limit of time is what fails then.
void LengthScalingTest::aHugeNumberTakesNoLongerThanItsSize()
{
    constexpr int Digits = 1000000;
    for (const char *pattern : {"9", "0", "000000001", "\u0663"}) {
        const QString run = text(pattern).repeated(Digits);
        QVERIFY(scaleLengths(run + QLatin1String("px"), 1.5).endsWith(QLatin1String("px")));
        QVERIFY(scaleLengths(QLatin1String("1.") + run + QLatin1String("px"), 1.5).endsWith(QLatin1String("px")));
    }
    QVERIFY(scaleLengths(text("1.").repeated(Digits) + QLatin1String("px"), 1.5).endsWith(QLatin1String("px")));
    QVERIFY(scaleLengths(text("1p").repeated(Digits) + QLatin1String("px"), 1.5).endsWith(QLatin1String("px")));
}

QTEST_GUILESS_MAIN(LengthScalingTest)
#include "tst_length_scaling.moc"
