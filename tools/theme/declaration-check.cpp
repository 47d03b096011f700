// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "declaration-check.h"

#include "scaled-text.h"
#include "section-findings.h"
#include "sheet-syntax.h"
#include "toolkit-words.h"

#include <QColor>
#include <QRegularExpression>

#include <algorithm>

namespace {

// A value with blanks in place of addresses, strings and what is in parentheses.
QString outerText(const QString &value)
{
    QString text = value;
    int depth = 0;
    QChar quote;
    for (QChar &character : text) {
        const QChar now = character;
        const bool isInside = depth > 0 || !quote.isNull();
        if (!quote.isNull()) {
            quote = now == quote ? QChar() : quote;
        } else if (now == QLatin1Char('"') || now == QLatin1Char('\'')) {
            quote = now;
            character = QLatin1Char(' ');
        } else if (now == QLatin1Char('(')) {
            ++depth;
        } else if (now == QLatin1Char(')')) {
            depth = std::max(0, depth - 1);
        }
        if (isInside) {
            character = QLatin1Char(' ');
        }
    }
    return text;
}

bool isBorder(const QString &property)
{
    return (property.startsWith(QLatin1String("border")) || property.startsWith(QLatin1String("outline")))
        && !property.endsWith(QLatin1String("-image")) && !property.endsWith(QLatin1String("radius"));
}

bool isHexColor(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^#([0-9A-Fa-f]{3}|[0-9A-Fa-f]{6}|[0-9A-Fa-f]{8}|[0-9A-Fa-f]{9}|[0-9A-Fa-f]{12})$"));
    return form.match(text).hasMatch();
}

bool isOneColor(const QString &property)
{
    return Toolkit::isColor(property) && property != QLatin1String("border-color")
        && property != QLatin1String("outline-color");
}

bool isColorFunction(const QString &name, const QString &arguments)
{
    const QStringList values = arguments.split(QLatin1Char(','));
    if (name == QLatin1String("palette")) {
        return Toolkit::paletteRoles().contains(arguments.trimmed());
    }
    static const QStringList withThree = {QStringLiteral("rgb"), QStringLiteral("hsv"), QStringLiteral("hsl")};
    const bool isPlain = withThree.contains(name);
    if (!isPlain && !(name.endsWith(QLatin1Char('a')) && withThree.contains(name.chopped(1)))) {
        return false;
    }
    if (values.size() != 4 && (values.size() != 3 || !isPlain)) {
        return false;
    }
    const int most = name.startsWith(QLatin1String("rgb")) ? 255 : 359;
    return std::all_of(values.cbegin(), values.cend(), [most](const QString &value) {
        QString number = value.trimmed();
        const bool isPercentage = number.endsWith(QLatin1Char('%'));
        number.chop(isPercentage ? 1 : 0);
        bool isNumber = false;
        const double parsed = number.toDouble(&isNumber);
        return isNumber && parsed >= 0 && parsed <= (isPercentage ? 100 : most);
    });
}

bool checkForm(const SheetDeclaration &declaration, SectionFindings *findings)
{
    static const QRegularExpression name(QStringLiteral("^[a-z-][\\w-]*$"));
    const QString shown = declaration.text.left(60).simplified();
    const QString outer = outerText(declaration.value);
    if (!name.match(declaration.name).hasMatch() || declaration.value.isEmpty()) {
        findings->add("declaration-form", declaration.begin, QStringLiteral("no \"property: value\": %1").arg(shown));
        return false;
    }
    if (outer.contains(QLatin1Char(':'))) {
        const QString next = outer.section(QLatin1Char(':'), 0, 0).simplified().section(QLatin1Char(' '), -1);
        findings->add("declaration-form", declaration.begin,
                      QStringLiteral("a \";\" is missing in front of \"%1\": %2").arg(next, shown));
        return false;
    }
    if (declaration.value.count(QLatin1Char('(')) != declaration.value.count(QLatin1Char(')'))) {
        findings->add("declaration-form", declaration.begin, QStringLiteral("a parenthesis is missing: %1").arg(shown));
        return false;
    }
    return true;
}

void checkLength(const SheetDeclaration &declaration, const QString &digits, SectionFindings *findings)
{
    constexpr int LongestLength = 3;
    const QString length = digits + QLatin1String("px");
    if (digits.size() > LongestLength && !digits.startsWith(QLatin1Char('.'))) {
        findings->add("length-long", declaration.begin,
                      QStringLiteral("\"%1\" has more than three characters before \"px\", so that the line becomes %2")
                          .arg(length, atEachScale(declaration.text + QLatin1Char(';'))));
        return;
    }
    if (!digits.contains(QLatin1Char('.'))) {
        return;
    }
    const bool vanishes = std::any_of(ToldScales.cbegin(), ToldScales.cend(),
                                      [&length](double scale) { return scaledLength(length, scale) == 0; });
    if (isBorder(declaration.name) && vanishes && digits.toDouble() > 0.0) {
        findings->add(
            "border-vanishes", declaration.begin,
            QStringLiteral("a border of \"%1\" is none at some scale: it is %2").arg(length, atEachScale(length)));
    } else {
        findings->add("length-fraction", declaration.begin,
                      QStringLiteral("the fraction of \"%1\" is lost: it is %2").arg(length, atEachScale(length)));
    }
}

void checkLengths(const SheetDeclaration &declaration, SectionFindings *findings)
{
    static const QRegularExpression number(
        QStringLiteral("(?<![\\w#.-])-?(\\d+\\.?\\d*|\\.\\d+)(\\s*)(px\\b|[A-Za-z%]*)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QStringList units = {QStringLiteral("px"), QStringLiteral("pt"), QStringLiteral("em"),
                                      QStringLiteral("ex"), QStringLiteral("%")};
    if (Toolkit::isColor(declaration.name)) {
        return;
    }
    const QString outer = outerText(declaration.value);
    if (Toolkit::isLength(declaration.name) && outer.contains(QLatin1Char('('))) {
        findings->add("length-unit", declaration.begin,
                      QStringLiteral("no length: the toolkit does not reckon \"%1\"").arg(declaration.value.left(60)));
        return;
    }
    static const QRegularExpression foreignDigit(QStringLiteral("(?![0-9])\\p{Nd}[\\p{Nd}.]*px"));
    if (const QRegularExpressionMatch match = foreignDigit.match(outer); match.hasMatch()) {
        findings->add("length-unit", declaration.begin,
                      QStringLiteral("\"%1\" is 0: write it in the digits 0 to 9").arg(match.captured()));
        return;
    }
    for (auto matches = number.globalMatch(outer); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString digits = match.captured(1);
        const bool isApart = !match.captured(2).isEmpty();
        const QString unit = match.captured(3);
        const bool isPixels = unit.compare(QLatin1String("px"), Qt::CaseInsensitive) == 0;
        if (declaration.name == QLatin1String("font-size") && digits.toDouble() == 0.0) {
            findings->add("length-unit", declaration.begin,
                          QStringLiteral("a font cannot have the size \"%1\"").arg(match.captured().trimmed()));
            return;
        }
        if (isPixels && (isApart || unit != QLatin1String("px"))) {
            findings->add(
                "length-unit", declaration.begin,
                QStringLiteral("\"%1\" is not scaled: write \"%2px\"").arg(match.captured().trimmed(), digits));
        } else if (unit == QLatin1String("pt") && Toolkit::isLength(declaration.name)
                   && !declaration.name.startsWith(QLatin1String("font"))) {
            findings->add("length-unit", declaration.begin,
                          QStringLiteral("\"%1\" is 0: only the size of a font is told in points")
                              .arg(match.captured().trimmed()));
        } else if (!isApart && !unit.isEmpty() && !units.contains(unit)) {
            findings->add("length-unit", declaration.begin,
                          QStringLiteral("\"%1\" has an unknown unit").arg(match.captured()));
        } else if ((isApart || unit.isEmpty() || unit == QLatin1String("%")) && digits.toDouble() != 0.0
                   && (Toolkit::isLength(declaration.name) || isBorder(declaration.name))) {
            findings->add("length-unit", declaration.begin,
                          QStringLiteral("\"%1\" without \"px\" is not scaled").arg(match.captured().trimmed()));
        } else if (isPixels) {
            checkLength(declaration, digits, findings);
        }
    }
}

bool isColorText(const QString &text)
{
    static const QRegularExpression function(QStringLiteral("^([A-Za-z]+)\\s*\\((.*)\\)$"));
    if (text.startsWith(QLatin1Char('#'))) {
        return isHexColor(text);
    }
    const QRegularExpressionMatch match = function.match(text);
    return match.hasMatch() ? isColorFunction(match.captured(1).toLower(), match.captured(2))
                            : QColor::isValidColor(text) || text == QLatin1String("transparent");
}

bool checkGradients(const SheetDeclaration &declaration, SectionFindings *findings)
{
    static const QRegularExpression gradient(QStringLiteral("([A-Za-z-]*gradient)\\s*\\("),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression stop(
        QStringLiteral("\\bstop\\s*:\\s*[-\\d.]+\\s+([A-Za-z]+\\s*\\([^()]*\\)|[^\\s,()]+)"),
        QRegularExpression::CaseInsensitiveOption);
    for (auto matches = gradient.globalMatch(declaration.value); matches.hasNext();) {
        const QString name = matches.next().captured(1).toLower();
        if (!Toolkit::gradients().contains(name)) {
            findings->add("color-invalid", declaration.begin,
                          QStringLiteral("no gradient: %1").arg(name) + suggestion(name, Toolkit::gradients()));
            return false;
        }
    }
    for (auto matches = stop.globalMatch(declaration.value); matches.hasNext();) {
        const QString color = matches.next().captured(1);
        if (!isColorText(color)) {
            findings->add("color-invalid", declaration.begin, QStringLiteral("no colour: %1").arg(color));
            return false;
        }
    }
    return true;
}

void checkColors(const SheetDeclaration &declaration, SectionFindings *findings)
{
    const bool isColor = Toolkit::isColor(declaration.name);
    if ((!isColor && !Toolkit::holdsColor(declaration.name)) || !checkGradients(declaration, findings)) {
        return;
    }
    static const QRegularExpression part(
        QStringLiteral("(#\\w*)|([A-Za-z][\\w-]*)\\(([^()]*)\\)|([A-Za-z][\\w-]*)\\(|\"[^\"]*\"|([A-Za-z][\\w-]*)"
                       "|([\\d.]+\\w*)"));
    int colors = 0;
    for (auto parts = part.globalMatch(declaration.value); parts.hasNext();) {
        const QRegularExpressionMatch match = parts.next();
        const QString hex = match.captured(1);
        const QString function = match.captured(2).toLower();
        const QString word = match.captured(5).toLower();
        bool isValid = ++colors == 1 || !isOneColor(declaration.name);
        if (!isValid) {
            findings->add("color-invalid", declaration.begin,
                          QStringLiteral("one colour is taken, and no more: %1").arg(declaration.value));
            return;
        }
        if (!hex.isEmpty()) {
            isValid = isHexColor(hex);
        } else if (!function.isEmpty()) {
            isValid = function == QLatin1String("url") || Toolkit::gradients().contains(function)
                || isColorFunction(function, match.captured(3));
        } else if (!match.captured(4).isEmpty()) { // a gradient with colours made by functions
            return;
        } else if (!word.isEmpty()) {
            isValid = QColor::isValidColor(word) || word == QLatin1String("transparent")
                || (!isColor && Toolkit::keywords().contains(word));
        } else if (isColor && !match.captured(6).isEmpty()) {
            isValid = false;
        }
        if (!isValid) {
            findings->add("color-invalid", declaration.begin,
                          QStringLiteral("no colour%1: %2")
                                  .arg(isColor ? QString() : QStringLiteral(" or keyword"), match.captured())
                              + (isColor ? QString() : suggestion(word, Toolkit::keywords())));
            return;
        }
    }
}

void checkKeywords(const SheetDeclaration &declaration, SectionFindings *findings)
{
    const QStringList known = Toolkit::keywordsOf(declaration.name);
    if (known.isEmpty()) {
        return;
    }
    const QStringList words = declaration.value.toLower().simplified().split(QLatin1Char(' '));
    for (const QString &word : words) {
        const bool isWeight = declaration.name == QLatin1String("font-weight") && word.toDouble() > 0;
        if (!known.contains(word) && !isWeight) {
            findings->add("keyword-unknown", declaration.begin,
                          QStringLiteral("\"%1\" cannot be \"%2\"").arg(declaration.name, word)
                              + suggestion(word, known));
            return;
        }
    }
}

} // namespace

bool checkDeclaration(const SheetDeclaration &declaration, SectionFindings *findings)
{
    if (!checkForm(declaration, findings)) {
        return false;
    }
    const QString &property = declaration.name;
    if (!Toolkit::properties().contains(property) && !property.startsWith(QLatin1String("qproperty-"))
        && !property.startsWith(QLatin1String("-qt-")) && !property.startsWith(QLatin1String("-vela-"))) {
        findings->add("property-unknown", declaration.begin,
                      QStringLiteral("unknown property \"%1\"").arg(property)
                          + suggestion(property, Toolkit::properties()));
        return true;
    }
    for (const auto check : {checkLengths, checkColors, checkKeywords}) {
        check(declaration, findings);
        if (findings->hasAny(declaration.begin)) {
            return true;
        }
    }
    return true;
}
