// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheet-rules.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

const QStringList Sides = {QStringLiteral("top"), QStringLiteral("right"), QStringLiteral("bottom"),
                           QStringLiteral("left")};
const QString Enabled = QStringLiteral("enabled");
const QString Disabled = QStringLiteral("disabled");

// "2px solid #2160C4" as width and colour; "none" as no width.
void expandBorder(const QString &side, const QString &value, Declarations *declarations)
{
    const QStringList parts = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString name = QStringLiteral("border-") + side;
    declarations->insert(name + QStringLiteral("-width"),
                         parts.value(0) == QLatin1String("none") ? QStringLiteral("0px") : parts.value(0));
    if (parts.size() > 2) {
        declarations->insert(name + QStringLiteral("-color"), parts.at(2));
    }
}

void expand(const QString &name, const QString &value, Declarations *declarations)
{
    static const QRegularExpression borderOfSide(QStringLiteral("^border-(top|right|bottom|left)$"));
    if (name == QLatin1String("border")) {
        for (const QString &side : Sides) {
            expandBorder(side, value, declarations);
        }
    } else if (name == QLatin1String("border-color")) {
        for (const QString &side : Sides) {
            declarations->insert(QStringLiteral("border-%1-color").arg(side), value);
        }
    } else if (const auto match = borderOfSide.match(name); match.hasMatch()) {
        expandBorder(match.captured(1), value, declarations);
    } else if (name == QLatin1String("padding")) {
        const QStringList parts = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const QString right = parts.value(1, parts.value(0));
        const QStringList values = {parts.value(0), right, parts.value(2, parts.value(0)), parts.value(3, right)};
        for (int side = 0; side < Sides.size(); ++side) {
            declarations->insert(QStringLiteral("padding-") + Sides.at(side), values.at(side));
        }
    } else {
        declarations->insert(name, value);
    }
}

QVector<Rule> readRules(const QString &text)
{
    static const QRegularExpression block(QStringLiteral("([^{}]*)\\{([^{}]*)\\}"));
    QVector<Rule> rules;
    for (auto blocks = block.globalMatch(text); blocks.hasNext();) {
        const QRegularExpressionMatch match = blocks.next();
        Declarations declarations;
        for (const QString &declaration : match.captured(2).split(QLatin1Char(';'))) {
            const int colon = declaration.indexOf(QLatin1Char(':'));
            if (colon > 0) {
                expand(declaration.left(colon).trimmed(), declaration.mid(colon + 1).trimmed(), &declarations);
            }
        }
        for (const QString &selector : match.captured(1).split(QLatin1Char(','))) {
            rules.append({parseSelector(selector.trimmed()), declarations});
        }
    }
    return rules;
}

} // namespace

QString Selector::target() const
{
    return ancestors + (ancestors.isEmpty() ? QString() : QStringLiteral(" ")) + type
        + (id.isEmpty() ? QString() : QLatin1Char('#') + id)
        + (subControl.isEmpty() ? QString() : QStringLiteral("::") + subControl);
}

QStringList Section::targets() const
{
    QStringList targets;
    for (const Rule &rule : rules) {
        if (!targets.contains(rule.selector.target())) {
            targets.append(rule.selector.target());
        }
    }
    return targets;
}

QVector<Rule> Section::rulesOf(const QString &target) const
{
    QVector<Rule> found;
    std::copy_if(rules.cbegin(), rules.cend(), std::back_inserter(found),
                 [&target](const Rule &rule) { return rule.selector.target() == target; });
    return found;
}

Declarations Section::resolved(const QString &target, const QStringList &states) const
{
    const Selector wanted = parseSelector(target);
    QStringList holding = states;
    holding.append(states.contains(Disabled) ? Disabled : Enabled);

    QVector<Rule> matching;
    for (const Rule &rule : rules) {
        const Selector &selector = rule.selector;
        const bool isAbout = selector.ancestors == wanted.ancestors && selector.type == wanted.type
            && selector.subControl == wanted.subControl && (selector.id.isEmpty() || selector.id == wanted.id);
        const bool holds = std::all_of(selector.states.cbegin(), selector.states.cend(),
                                       [&holding](const QString &state) { return holding.contains(state); });
        if (isAbout && holds) {
            matching.append(rule);
        }
    }
    const auto strength = [](const Rule &rule) {
        return rule.selector.states.size() + (rule.selector.id.isEmpty() ? 0 : 100);
    };
    std::stable_sort(matching.begin(), matching.end(),
                     [&strength](const Rule &one, const Rule &other) { return strength(one) < strength(other); });
    Declarations result;
    for (const Rule &rule : qAsConst(matching)) {
        for (auto it = rule.declarations.cbegin(); it != rule.declarations.cend(); ++it) {
            result.insert(it.key(), it.value());
        }
    }
    return result;
}

QString withoutComments(const QString &text)
{
    QString result;
    int position = 0;
    for (int begin = 0; (begin = text.indexOf(QLatin1String("/*"), position)) >= 0;) {
        const int end = text.indexOf(QLatin1String("*/"), begin + 2);
        if (end < 0) {
            break;
        }
        result += text.midRef(position, begin - position);
        position = end + 2;
    }
    return result + text.mid(position);
}

QVector<Section> readSections(const QString &text)
{
    QVector<Section> sections;
    for (const QString &line : withoutComments(text).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("==")) && line.endsWith(QLatin1String("=="))) {
            Section section;
            section.key = QString(line).remove(QLatin1Char('=')).remove(QLatin1Char(' '));
            sections.append(section);
        } else if (!sections.isEmpty()) {
            sections.last().text += line + QLatin1Char('\n');
        }
    }
    for (Section &section : sections) {
        section.rules = readRules(section.text);
    }
    return sections;
}

Selector parseSelector(const QString &selector)
{
    static const QRegularExpression form(
        QStringLiteral("^(?:(?<ancestors>.*\\S)\\s+)?(?<type>[A-Za-z]\\w*)(?:#(?<id>\\w+))?"
                       "(?<attributes>(?:\\[[^\\]]*\\])*)(?:::(?<sub>[\\w-]+))?"
                       "(?<states>(?::[\\w-]+)*)$"));
    const QRegularExpressionMatch match = form.match(selector);
    Selector result;
    if (!match.hasMatch()) {
        return result;
    }
    result.ancestors = match.captured(QStringLiteral("ancestors"));
    result.type = match.captured(QStringLiteral("type"));
    result.id = match.captured(QStringLiteral("id"));
    result.subControl = match.captured(QStringLiteral("sub"));
    result.states = match.captured(QStringLiteral("states")).split(QLatin1Char(':'), Qt::SkipEmptyParts);
    const QString attributes = match.captured(QStringLiteral("attributes"));
    if (!attributes.isEmpty()) {
        result.states.append(attributes);
    }
    return result;
}
