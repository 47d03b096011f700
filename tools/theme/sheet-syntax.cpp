// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheet-syntax.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstring>

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r' || character == '\f';
}

class Reader
{
public:
    explicit Reader(const QByteArray &body) : m_body(body) { }

    SheetSyntax read()
    {
        if (!m_body.contains('{') && !m_body.contains('}')) {
            SheetRule rule {0, m_body.size(), {}, {}};
            readDeclarations(0, m_body.size(), &rule);
            if (!rule.declarations.isEmpty()) {
                m_syntax.rules.append(rule);
            }
            return m_syntax;
        }
        int begin = 0;
        while (begin < m_body.size()) {
            begin = readRule(begin);
        }
        return m_syntax;
    }

private:
    // The next of the wanted characters outside of quotes; the body's end if there is none.
    int find(const char *wanted, int from)
    {
        for (int i = from; i < m_body.size(); ++i) {
            const char character = m_body.at(i);
            if (character == '"' || character == '\'') {
                const int close = m_body.indexOf(character, i + 1);
                const auto end = m_body.cbegin() + (close < 0 ? m_body.size() : close);
                const auto lineBreak = std::find(m_body.cbegin() + i, end, '\n');
                if (close < 0 || lineBreak != end) {
                    if (m_syntax.unclosedQuotes.isEmpty() || m_syntax.unclosedQuotes.last() < i) {
                        m_syntax.unclosedQuotes.append(i);
                    }
                } else {
                    i = close;
                }
            } else if (std::strchr(wanted, character)) {
                return i;
            }
        }
        return m_body.size();
    }

    // Returns where the next one begins.
    int readRule(int begin)
    {
        const int open = find("{}", begin);
        if (open == m_body.size()) {
            return open; // what follows the last rule, if anything, the toolkit refuses
        }
        if (m_body.at(open) == '}') {
            m_syntax.strayBraces.append(open);
            return open + 1;
        }
        SheetRule rule {skipBlanks(begin, open), 0, {}, {}};
        readSelectors(begin, open, &rule);

        int close = find("{}", open + 1);
        int next = close + 1;
        if (close == m_body.size() || m_body.at(close) == '{') {
            m_syntax.unclosedBraces.append(open);
            close = beginOfSelector(open + 1, close);
            next = close;
        }
        readDeclarations(open + 1, close, &rule);
        rule.end = next;
        m_syntax.rules.append(rule);
        return next;
    }

    int skipBlanks(int begin, int end) const
    {
        while (begin < end && isBlank(m_body.at(begin))) {
            ++begin;
        }
        return begin;
    }

    // Of the rule whose brace is at open, where the one before is not closed.
    int beginOfSelector(int from, int open) const
    {
        if (open == m_body.size()) {
            return open;
        }
        int lineBreak = from;
        for (int i = open - 1; i >= from; --i) {
            if (m_body.at(i) == ';') {
                return i + 1;
            }
            lineBreak = m_body.at(i) == '\n' && lineBreak == from ? i : lineBreak;
        }
        return lineBreak;
    }

    void readSelectors(int begin, int end, SheetRule *rule)
    {
        int depth = 0;
        int from = begin;
        for (int i = begin; i <= end; ++i) {
            const char character = i < end ? m_body.at(i) : ',';
            depth += character == '[' ? 1 : character == ']' ? -1 : 0;
            if (character == ',' && (depth <= 0 || i == end)) {
                const int first = skipBlanks(from, i);
                rule->selectors.append(selector(first, QString::fromUtf8(m_body.mid(first, i - first)).trimmed()));
                from = i + 1;
            }
        }
    }

    static SheetSelector selector(int begin, const QString &text)
    {
        static const QRegularExpression part(QStringLiteral(
            "\\G(?:(?<child>\\s*>\\s*)|(?<descendant>\\s+)|(?<element>\\*|[A-Za-z_][\\w-]*)|#(?<id>[\\w-]+)|"
            "\\.(?<class>[\\w-]+)|\\[\\s*(?<attribute>[\\w-]+)\\s*(?:(?<comparison>[~|^$*]?=)\\s*"
            "(?:\"(?<quoted>[^\"]*)\"|'(?<single>[^']*)'|(?<bare>[\\w-]+)))?\\s*\\]|::(?<sub>[\\w-]+)|"
            ":(?<state>!?\\s*[\\w-]+))"));
        SheetSelector selector {begin, text, !text.isEmpty(), {Compound()}};
        int position = 0;
        while (position < text.size()) {
            const QRegularExpressionMatch match =
                part.match(text, position, QRegularExpression::NormalMatch, QRegularExpression::AnchoredMatchOption);
            if (!match.hasMatch() || match.capturedLength() == 0) {
                selector.isUnderstood = false;
                return selector;
            }
            position = match.capturedEnd();
            take(match, &selector.compounds);
        }
        return selector;
    }

    static void take(const QRegularExpressionMatch &match, QVector<Compound> *compounds)
    {
        const auto captured = [&match](const char *name) { return match.captured(QLatin1String(name)); };
        if (!captured("child").isEmpty() || !captured("descendant").isEmpty()) {
            compounds->append(Compound());
            compounds->last().isChild = !captured("child").isEmpty();
            return;
        }
        Compound &last = compounds->last();
        if (!captured("element").isEmpty()) {
            last.element = captured("element").replace(QLatin1String("--"), QLatin1String("::"));
        } else if (!captured("id").isEmpty()) {
            last.ids.append(captured("id"));
        } else if (!captured("class").isEmpty()) {
            last.exactClasses.append(captured("class").replace(QLatin1String("--"), QLatin1String("::")));
        } else if (!captured("attribute").isEmpty()) {
            last.attributes.append({captured("attribute"), captured("comparison"),
                                    captured("quoted") + captured("single") + captured("bare")});
        } else if (!captured("sub").isEmpty()) {
            last.subControl = captured("sub").toLower();
        } else {
            last.states.append(captured("state").toLower().remove(QLatin1Char(' ')));
        }
    }

    void readDeclarations(int begin, int end, SheetRule *rule)
    {
        int lastParenthesis = end - 1;
        while (lastParenthesis > begin && m_body.at(lastParenthesis) != ')') {
            --lastParenthesis;
        }
        int from = begin;
        while (from < end) {
            const int semicolon = std::min(endOfDeclaration(from, end, lastParenthesis), end);
            const int first = skipBlanks(from, semicolon);
            if (first < semicolon) {
                rule->declarations.append(declaration(first, semicolon));
            }
            from = semicolon + 1;
        }
    }

    int endOfDeclaration(int from, int end, int lastParenthesis)
    {
        int depth = 0;
        for (int i = find(";()", from); i < end; i = find(";()", i + 1)) {
            if (m_body.at(i) == ';' && (depth <= 0 || i > lastParenthesis || lineEndsAt(i))) {
                return i;
            }
            depth += m_body.at(i) == '(' ? 1 : m_body.at(i) == ')' ? -1 : 0;
        }
        return end;
    }

    bool lineEndsAt(int position) const
    {
        const int next = position + 1;
        return next >= m_body.size() || m_body.at(next) == '\n';
    }

    SheetDeclaration declaration(int begin, int end) const
    {
        const QString text = QString::fromUtf8(m_body.mid(begin, end - begin)).trimmed();
        const int colon = text.indexOf(QLatin1Char(':'));
        static const QRegularExpression important(QStringLiteral("\\s*!\\s*important$"),
                                                  QRegularExpression::CaseInsensitiveOption);
        return {begin, text, text.left(std::max(colon, 0)).trimmed().toLower(),
                text.mid(colon + 1).trimmed().remove(important)};
    }

    const QByteArray &m_body;
    SheetSyntax m_syntax;
};

} // namespace

SheetSyntax readSyntax(const QByteArray &body)
{
    return Reader(body).read();
}

QStringList addressesIn(const QString &value)
{
    static const QRegularExpression form(QStringLiteral("url\\(\\s*(?:\"([^\"]*)\"|'([^']*)'|([^)\"']*))\\s*\\)"),
                                         QRegularExpression::CaseInsensitiveOption);
    QStringList addresses;
    for (auto matches = form.globalMatch(value); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QString address = match.captured(1) + match.captured(2) + match.captured(3);
        addresses.append(address.trimmed());
    }
    return addresses;
}
