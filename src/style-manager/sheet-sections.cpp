#include "style-manager/sheet-sections.h"

#include <QStringView>

#include <algorithm>
#include <utility>

namespace {

constexpr int MarkSize = 2; // "/*", "*/", "//", "=="
constexpr QChar Slash = QLatin1Char('/');
constexpr QChar Star = QLatin1Char('*');
constexpr QChar Mark = QLatin1Char('=');
constexpr QChar LineBreak = QLatin1Char('\n');

/// QString::indexOf(), which takes many characters at a time but takes longer to call than to look at a few.
int indexOf(const QString &text, QChar wanted, int from)
{
    constexpr int FewCharacters = 8;
    const int few = std::min(from + FewCharacters, text.size());
    for (int i = from; i < few; ++i) {
        if (text.at(i) == wanted) {
            return i;
        }
    }
    return text.indexOf(wanted, few);
}

/// Takes parts out of a text, in place, from its begin to its end. A text of which nothing is taken stays shared.
class Cutter
{
public:
    explicit Cutter(QString &text) : m_text(text) { }
    ~Cutter()
    {
        if (m_rest > 0) {
            keepUpTo(m_text.size());
            m_text.resize(m_kept);
        }
    }
    Q_DISABLE_COPY_MOVE(Cutter)

    /// Takes out [begin, end), which lies behind all that was cut before. What is behind it stays where it is for now.
    void cut(int begin, int end)
    {
        keepUpTo(begin);
        m_rest = end;
    }

private:
    void keepUpTo(int end)
    {
        if (m_rest > 0) {
            QChar *text = m_text.data();
            std::copy(text + m_rest, text + end, text + m_kept);
        }
        m_kept += end - m_rest;
    }

    QString &m_text;
    int m_kept = 0; // characters kept so far, at the text's begin
    int m_rest = 0; // where the part begins that is not decided yet
};

void removeBlockComments(QString &text)
{
    Cutter cutter(text);
    int open = -1;
    for (int i = indexOf(text, Slash, 0); i >= 0; i = indexOf(text, Slash, i + 1)) {
        const QChar *character = text.constData() + i;
        if (open < 0) {
            if (character[1] == Star) { // the text ends in a null character
                open = i;
            }
        } else if (character[-1] == Star && i > open + MarkSize) {
            cutter.cut(open, i + 1);
            open = -1;
        }
    }
}

void removeLineComments(QString &text)
{
    Cutter cutter(text);
    int i = indexOf(text, Slash, 0);
    while (i >= 0) {
        int next = i + 1;
        if (text.constData()[next] == Slash) {
            const int lineBreak = indexOf(text, LineBreak, i + MarkSize);
            if (lineBreak < 0) {
                break;
            }
            next = lineBreak + 1;
            cutter.cut(i, next);
        }
        i = indexOf(text, Slash, next);
    }
}

/// A header line, as positions in the text, without its line break.
struct Header
{
    int begin;
    int end;
};

/// First header line of @p text that begins at @p from or behind; beyond the text if there is none.
Header findHeader(const QString &text, int from)
{
    const QChar *characters = text.constData();
    for (int i = indexOf(text, Mark, from); i >= 0; i = indexOf(text, Mark, i + 1)) {
        const bool isAtLineBegin = i == 0 || characters[i - 1] == LineBreak;
        if (!isAtLineBegin || characters[i + 1] != Mark) {
            continue;
        }
        const int lineBreak = indexOf(text, LineBreak, i);
        const int end = lineBreak < 0 ? text.size() : lineBreak;
        if (characters[end - 1] == Mark && characters[end - 2] == Mark) {
            return {i, end};
        }
        i = end;
    }
    return {text.size(), text.size()};
}

QString keyOfHeader(QStringView header)
{
    QString key(static_cast<int>(header.size()), Qt::Uninitialized);
    QChar *out = std::copy_if(header.begin(), header.end(), key.data(), [](QChar character) {
        return character != Mark && character != QLatin1Char(' ');
    });
    key.resize(static_cast<int>(out - key.constData()));
    return key;
}

/// @p lines, each ended by a line break but perhaps the last, with their line breaks in front of them instead.
void appendLines(QString &body, QStringView lines)
{
    if (lines.isEmpty()) {
        return;
    }
    if (lines.back() == LineBreak) {
        lines.chop(1);
    }
    body.reserve(body.size() + 1 + static_cast<int>(lines.size()));
    body.append(LineBreak);
    body.append(lines.data(), static_cast<int>(lines.size()));
}

} // namespace

QString removeComments(QString text)
{
    removeBlockComments(text);
    removeLineComments(text);
    return text;
}

void readSections(const QString &text, std::map<QString, QString> &sections)
{
    const QStringView view(text);
    QString key;
    QString body;
    int bodyBegin = 0;
    while (bodyBegin < text.size()) {
        const Header header = findHeader(text, bodyBegin);
        appendLines(body, view.mid(bodyBegin, header.begin - bodyBegin));
        // What stands under no key, before the first header or behind one without a key, is kept for the next section.
        if (!key.isEmpty()) {
            sections[key] = std::exchange(body, QString());
        }
        key = keyOfHeader(view.mid(header.begin, header.end - header.begin));
        bodyBegin = header.end + 1;
    }
    if (!key.isEmpty()) {
        sections[key] = body;
    }
}
