// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "border-check.h"

#include "scaled-text.h"
#include "section-findings.h"
#include "sheet-syntax.h"

#include <QHash>
#include <QRegularExpression>

namespace {

constexpr int LongestLength = 5; // three digits and the unit

using Lengths = QHash<QString, QString>; // by property and side, such as "padding-left"

void takeLengths(const SheetDeclaration &declaration, Lengths *lengths)
{
    static const QStringList sides = {QStringLiteral("top"), QStringLiteral("right"), QStringLiteral("bottom"),
                                      QStringLiteral("left")};
    static const QRegularExpression side(QStringLiteral("^(border|padding)-(top|right|bottom|left)(-width)?$"));
    QStringList values;
    const QStringList words = declaration.value.simplified().split(QLatin1Char(' '));
    for (const QString &word : words) {
        if (word.endsWith(QLatin1String("px")) && word.size() <= LongestLength) {
            values.append(word);
        }
    }
    const bool isNone = declaration.value == QLatin1String("none") || declaration.value == QLatin1String("0");
    if (isNone) {
        values = QStringList(QStringLiteral("0px"));
    }
    if (values.isEmpty()) {
        return;
    }
    const QRegularExpressionMatch ofSide = side.match(declaration.name);
    if (ofSide.hasMatch()) {
        lengths->insert(ofSide.captured(1) + QLatin1Char('-') + ofSide.captured(2), values.first());
        return;
    }
    const bool isBorderOfAll =
        declaration.name == QLatin1String("border") || declaration.name == QLatin1String("border-width");
    if (!isBorderOfAll && declaration.name != QLatin1String("padding")) {
        return;
    }
    const QString right = values.value(1, values.first());
    const QStringList all = {values.first(), right, values.value(2, values.first()), values.value(3, right)};
    for (int i = 0; i < sides.size(); ++i) {
        lengths->insert((isBorderOfAll ? QStringLiteral("border-") : QStringLiteral("padding-")) + sides.at(i),
                        declaration.name == QLatin1String("border") ? values.first() : all.at(i));
    }
}

void compareLengths(const SheetSelector &selector, const Lengths &atRest, const Lengths &inState,
                    SectionFindings *findings)
{
    for (const char *name : {"top", "right", "bottom", "left"}) {
        const QString border = QStringLiteral("border-") + QLatin1String(name);
        const QString padding = QStringLiteral("padding-") + QLatin1String(name);
        if (!inState.contains(border) || !inState.contains(padding) || !atRest.contains(border)
            || !atRest.contains(padding)) {
            continue;
        }
        const auto sum = [&](const Lengths &lengths, double scale) {
            return scaledLength(lengths.value(border), scale) + scaledLength(lengths.value(padding), scale);
        };
        if (atRest.value(padding) == inState.value(padding)) {
            continue; // it gives no way, so that nothing is meant to stay
        }
        for (const double scale : ToldScales) {
            if (sum(atRest, scale) != sum(inState, scale) && !findings->hasAny(selector.begin)) {
                findings->add("border-uneven", selector.begin,
                              QStringLiteral("at scale %1 border and padding are %2 pixels at the %3, and %4 at rest")
                                  .arg(QString::number(scale), QString::number(sum(inState, scale)),
                                       QLatin1String(name), QString::number(sum(atRest, scale))));
                return;
            }
        }
    }
}

} // namespace

void checkBordersAreEven(const SheetSyntax &syntax, SectionFindings *findings)
{
    QHash<QString, Lengths> atRest;
    for (int pass = 0; pass < 2; ++pass) {
        for (const SheetRule &rule : syntax.rules) {
            Lengths lengths;
            for (const SheetDeclaration &declaration : rule.declarations) {
                takeLengths(declaration, &lengths);
            }
            if (lengths.isEmpty()) {
                continue;
            }
            for (const SheetSelector &selector : rule.selectors) {
                const QStringList states = selector.compounds.last().states;
                QString target = selector.text;
                for (const QString &state : states) {
                    target.remove(QLatin1Char(':') + state);
                }
                if (pass == 0 && states.isEmpty()) {
                    for (auto it = lengths.cbegin(); it != lengths.cend(); ++it) {
                        atRest[target].insert(it.key(), it.value());
                    }
                } else if (pass == 1 && !states.isEmpty()) {
                    compareLengths(selector, atRest.value(target), lengths, findings);
                }
            }
        }
    }
}
