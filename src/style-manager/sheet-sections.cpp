#include "style-manager/sheet-sections.h"

#include <QStringView>

namespace {

constexpr int MarkSize = 2; // "/*", "*/", "//", "=="
constexpr QChar Slash = QLatin1Char('/');
constexpr QChar LineBreak = QLatin1Char('\n');

/// Copies a text but for the parts that are cut out of it.
class Cutter
{
public:
    explicit Cutter(const QString &text) : m_text(text) { }

    /// Leaves out [begin, end), which lies behind all that was cut before.
    void cut(int begin, int end)
    {
        if (m_rest == 0) {
            m_result.reserve(m_text.size());
        }
        m_result.append(m_text.constData() + m_rest, begin - m_rest);
        m_rest = end;
    }

    QString result()
    {
        if (m_rest == 0) {
            return m_text;
        }
        m_result.append(m_text.constData() + m_rest, m_text.size() - m_rest);
        return m_result;
    }

private:
    const QString &m_text;
    QString m_result;
    int m_rest = 0;
};

QString removeBlockComments(const QString &text)
{
    Cutter cutter(text);
    const QChar *characters = text.constData();
    int open = -1;
    for (int i = text.indexOf(Slash); i >= 0; i = text.indexOf(Slash, i + 1)) {
        if (open < 0) {
            if (characters[i + 1] == QLatin1Char('*')) { // the text ends in a null character
                open = i;
            }
        } else if (characters[i - 1] == QLatin1Char('*') && i - 1 >= open + MarkSize) {
            cutter.cut(open, i + 1);
            open = -1;
        }
    }
    return cutter.result();
}

QString removeLineComments(const QString &text)
{
    Cutter cutter(text);
    const QChar *characters = text.constData();
    int i = text.indexOf(Slash);
    while (i >= 0) {
        int next = i + 1;
        if (characters[next] == Slash) {
            const int lineBreak = text.indexOf(LineBreak, i + MarkSize);
            if (lineBreak < 0) {
                break;
            }
            next = lineBreak + 1;
            cutter.cut(i, next);
        }
        i = text.indexOf(Slash, next);
    }
    return cutter.result();
}

bool isHeader(QStringView line)
{
    const QLatin1String mark("==");
    return line.startsWith(mark) && line.endsWith(mark);
}

QString keyOfHeader(QStringView header)
{
    QString key = header.toString();
    key.remove(QLatin1Char('='));
    key.remove(QLatin1Char(' '));
    return key;
}

/// @p lines, each ended by a line break but perhaps the last, with their line breaks in front of them instead.
void appendLines(QString &body, QStringView lines)
{
    if (lines.isEmpty()) {
        return;
    }
    if (lines.endsWith(LineBreak)) {
        lines.chop(1);
    }
    body.reserve(body.size() + 1 + static_cast<int>(lines.size()));
    body.append(LineBreak);
    body.append(lines.data(), static_cast<int>(lines.size()));
}

} // namespace

QString removeComments(const QString &text)
{
    return removeLineComments(removeBlockComments(text));
}

void readSections(const QString &text, std::map<QString, QString> &sections)
{
    const QStringView view(text);
    QString key;
    QString body;
    int bodyBegin = 0;

    const auto endSection = [&](int bodyEnd) {
        appendLines(body, view.mid(bodyBegin, bodyEnd - bodyBegin));
        // What stands under no key, before the first header or behind one without a key, is kept for the next section.
        if (!key.isEmpty()) {
            sections[key] = body;
            body = QString();
        }
    };

    int lineEnd = 0;
    for (int lineBegin = 0; lineBegin < text.size(); lineBegin = lineEnd + 1) {
        lineEnd = text.indexOf(LineBreak, lineBegin);
        if (lineEnd < 0) {
            lineEnd = text.size();
        }
        const QStringView line = view.mid(lineBegin, lineEnd - lineBegin);
        if (isHeader(line)) {
            endSection(lineBegin);
            key = keyOfHeader(line);
            bodyBegin = qMin(lineEnd + 1, text.size());
        }
    }
    endSection(text.size());
}
