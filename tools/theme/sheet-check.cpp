// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheet-check.h"

#include "border-check.h"
#include "contract.h"
#include "declaration-check.h"
#include "section-findings.h"
#include "selector-check.h"
#include "sheet-syntax.h"

#include "look/keys_p.h"
#include "style-manager/toolkit-parser_p.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace {

const Vela::StyleEntry *entryOf(const QString &key)
{
    const auto entry = std::find_if(std::begin(Vela::StyleEntries), std::end(Vela::StyleEntries),
                                    [&key](const Vela::StyleEntry &e) { return key == QLatin1String(e.key); });
    return entry == std::end(Vela::StyleEntries) ? nullptr : entry;
}

QStringList libraryKeys()
{
    QStringList keys;
    for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
        keys.append(QString::fromLatin1(entry.key));
    }
    return keys;
}

// Checks one section.
class SectionCheck
{
public:
    SectionCheck(const ThemeSection &section, AddressCheck *addresses, Findings *findings) :
        m_section(section), m_entry(entryOf(section.key)), m_addresses(addresses), m_findings(section, findings)
    {
    }

    void run()
    {
        const QByteArray body = bodyWithoutMarkers();
        const SheetSyntax syntax = readSyntax(body);
        checkBraces(syntax);
        for (const SheetRule &rule : syntax.rules) {
            for (const SheetDeclaration &declaration : rule.declarations) {
                if (m_findings.isFull()) {
                    return;
                }
                checkOneDeclaration(declaration);
            }
        }
        if (isAccepted(body, syntax)) {
            checkSelectors(syntax);
        }
        checkBordersAreEven(syntax, &m_findings);
    }

private:
    QByteArray bodyWithoutMarkers()
    {
        QByteArray body = m_section.body;
        const QStringList wanted = m_entry ? listOf(m_entry->markers) : QStringList();
        for (const QString &marker : wanted) {
            const int count = body.count(marker.toLatin1());
            if (count != 1) {
                m_findings.addToHeader("marker-missing",
                                       QStringLiteral("%1 has to have %2 once, and has it %3 times")
                                           .arg(m_section.key, marker, QString::number(count)));
            }
            body.replace(marker.toLatin1(), QByteArray(marker.size(), ' '));
        }
        static const QRegularExpression marker(QStringLiteral("(?<![\\d.])%\\d+"));
        const QString text = QString::fromLatin1(body); // a character for each byte
        for (auto matches = marker.globalMatch(text); m_entry && matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            const int position = match.capturedStart();
            m_findings.add("marker-unknown", position,
                           QStringLiteral("nothing is put in the place of %1").arg(match.captured()));
            body.replace(position, match.capturedLength(), QByteArray(match.capturedLength(), ' '));
        }
        return body;
    }

    void checkBraces(const SheetSyntax &syntax)
    {
        // A rule within another looks like both: one that is not closed, and a brace too many behind it.
        QVector<int> stray = syntax.strayBraces;
        for (const int position : syntax.unclosedBraces) {
            const auto closing =
                std::find_if(stray.begin(), stray.end(), [position](int brace) { return brace > position; });
            const bool isAround = closing != stray.end();
            if (isAround) {
                stray.erase(closing);
            }
            m_findings.add("brace-unclosed", position,
                           isAround ? QStringLiteral("this rule holds another, which rules cannot")
                                    : QStringLiteral("the \"{\" of this rule is never closed"));
        }
        for (const int position : qAsConst(stray)) {
            m_findings.add("brace-stray", position, QStringLiteral("\"}\" closes nothing"));
        }
        for (const int position : syntax.unclosedQuotes) {
            m_findings.add("declaration-form", position, QStringLiteral("the quote is not closed on its line"));
        }
    }

    // Whether the toolkit takes the section, as far as that can be told.
    bool isAccepted(const QByteArray &body, const SheetSyntax &syntax)
    {
        if (!syntax.isSound() || !m_areDeclarationsSound) {
            return true;
        }
        // The text from one rule on, up to the end of the one before another.
        const QVector<SheetRule> &rules = syntax.rules;
        const auto isGood = [&](int from, int to) {
            const int begin = from == 0 ? 0 : rules.at(from - 1).end;
            const int end = to == 0 ? begin : rules.at(to - 1).end;
            return Vela::isUnderstood(QString::fromUtf8(body.mid(begin, end - begin)));
        };
        // In parts, since the toolkit takes the square of the time for much that it skips.
        constexpr int PartSize = 16384;
        int good = 0;
        int bad = -1;
        while (good < rules.size() && bad < 0) {
            int last = good + 1;
            while (last < rules.size() && rules.at(last).end - rules.at(good).begin < PartSize) {
                ++last;
            }
            (isGood(good, last) ? good : bad) = last;
        }
        const int begin = good;
        while (bad - good > 1) {
            const int middle = (good + bad) / 2;
            (isGood(begin, middle) ? good : bad) = middle;
        }
        const int rest = rules.isEmpty() ? 0 : rules.last().end;
        if (bad < 0 && Vela::isUnderstood(QString::fromUtf8(body.mid(rules.isEmpty() ? 0 : rules.last().begin)))) {
            return true;
        }
        if (bad >= 0 && hasAnyIn(rules.at(bad - 1))) { // which is the reason
            return false;
        }
        int position = bad < 0 ? rest : refusedPart(body, rules.at(bad - 1));
        while (position < body.size() - 1 && isspace(static_cast<unsigned char>(body.at(position)))) {
            ++position;
        }
        if (!m_findings.hasAny(position)) {
            const QByteArray line = body.mid(position, body.indexOf('\n', position) - position);
            m_findings.add("section-refused", position,
                           QStringLiteral("the toolkit refuses %1 because of this: %2")
                               .arg(m_section.key, QString::fromUtf8(line.left(60)).trimmed()));
        }
        return false;
    }

    bool hasAnyIn(const SheetRule &rule) const
    {
        return std::any_of(
            rule.declarations.cbegin(), rule.declarations.cend(),
            [this](const SheetDeclaration &declaration) { return m_findings.hasAny(declaration.begin); });
    }

    // The place of the declaration without which the toolkit takes the rule, or else of the rule.
    static int refusedPart(const QByteArray &body, const SheetRule &rule)
    {
        for (const SheetDeclaration &declaration : rule.declarations) {
            QByteArray text = body.mid(rule.begin, rule.end - rule.begin);
            const int length = declaration.text.toUtf8().size();
            text.replace(declaration.begin - rule.begin, length, QByteArray(length, ' '));
            if (Vela::isUnderstood(QString::fromUtf8(text))) {
                return declaration.begin;
            }
        }
        return rule.begin;
    }

    void checkSelectors(const SheetSyntax &syntax)
    {
        for (const SheetRule &rule : syntax.rules) {
            for (const SheetSelector &selector : rule.selectors) {
                if (m_findings.isFull()) {
                    return;
                }
                checkSelector(selector, m_entry, &m_findings);
            }
        }
    }

    void checkOneDeclaration(const SheetDeclaration &declaration)
    {
        if (m_findings.hasAny(declaration.begin)) {
            return;
        }
        m_areDeclarationsSound = checkDeclaration(declaration, &m_findings) && m_areDeclarationsSound;
        if (!m_findings.hasAny(declaration.begin)) {
            m_addresses->run(declaration, &m_findings);
        }
    }

    const ThemeSection &m_section;
    const Vela::StyleEntry *const m_entry; // null for a section of the application's own
    AddressCheck *const m_addresses;
    SectionFindings m_findings;
    bool m_areDeclarationsSound = true;
};

// Also where the beginning is missing, or more stands behind it.
QString meantKey(const QString &key, const QStringList &known)
{
    const QString whole = QStringLiteral("component.") + key;
    const QString first = key.section(QLatin1Char(','), 0, 0);
    return known.contains(whole) ? whole : known.contains(first) ? first : nearest(key, known);
}

void checkKeys(const SheetText &text, Findings *findings)
{
    if (text.files().isEmpty()) {
        return;
    }
    const QStringList known = libraryKeys();
    QHash<QString, SourceLine> found;
    QStringList meant;
    for (const ThemeSection &section : text.sections()) {
        if (findings->isFull()) {
            return;
        }
        const QString near = known.contains(section.key) ? QString() : meantKey(section.key, known);
        if (!known.contains(section.key) && (section.key.startsWith(QLatin1String("component.")) || !near.isEmpty())) {
            findings->add("key-unknown", section.header.file, section.header.line,
                          QStringLiteral("unknown key \"%1\"").arg(section.key)
                              + (near.isEmpty() ? QString() : QStringLiteral(", did you mean \"%1\"?").arg(near)));
            meant.append(near);
        }
        if (found.contains(section.key)) {
            const SourceLine first = found.value(section.key);
            findings->add("key-doubled", section.header.file, section.header.line,
                          QStringLiteral("%1 stands at %2:%3 already, and this one replaces it")
                              .arg(section.key, first.file, QString::number(first.line)));
        } else {
            found.insert(section.key, section.header);
        }
    }
    for (const QString &key : known) {
        if (!found.contains(key) && !meant.contains(key) && !text.mentionedKeys().contains(key)) {
            findings->add(
                "key-missing", QStringLiteral("styles"), 0,
                QStringLiteral("no section %1, which %2 asks for").arg(key, QString::fromLatin1(entryOf(key)->usedBy)));
        }
    }
}

} // namespace

UsedImages checkSheets(const SheetText &text, const ThemeImages &images, Findings *findings)
{
    checkKeys(text, findings);
    AddressCheck addresses(text, images);
    for (const ThemeSection &section : text.sections()) {
        SectionCheck(section, &addresses, findings).run();
    }
    return addresses.used();
}
