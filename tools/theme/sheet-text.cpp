// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheet-text.h"

#include "findings.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>

namespace {

constexpr int MarkSize = 2; // "/*", "*/", "//", "=="

void blankOut(QByteArray &text, int begin, int end)
{
    for (int i = begin; i < end; ++i) {
        if (text.at(i) != '\n') {
            text[i] = ' ';
        }
    }
}

bool isHeader(const QByteArray &line)
{
    return line.startsWith("==") && line.endsWith("==");
}

// The key of the library's kind that is all a line has, marks of another format aside.
QByteArray keyAlone(const QByteArray &line)
{
    static const QRegularExpression form(QStringLiteral("^[-#*\\[\\s:=]*(component\\.\\w+)[-#*\\]\\s:=]*$"));
    return form.match(QString::fromLatin1(line)).captured(1).toLatin1();
}

// Of a line that may be no header: what stands between the first marks.
QByteArray keyOf(const QByteArray &line)
{
    if (const QByteArray key = keyAlone(line); !key.isEmpty()) {
        return key;
    }
    const QList<QByteArray> parts = line.split('=');
    for (const QByteArray &part : parts) {
        const QByteArray key = part.simplified().replace(' ', "");
        if (!key.isEmpty()) {
            return key;
        }
    }
    return QByteArray();
}

// Whether a line was meant as a header, as no line of a rule begins or ends like this, or is a key and no more.
bool isMeantAsHeader(const QByteArray &line)
{
    const QByteArray trimmed = line.trimmed();
    return trimmed.startsWith('=') || (trimmed.endsWith("==") && !trimmed.contains('{'))
        || !keyAlone(trimmed).isEmpty();
}

int endOfLine(const QByteArray &text, int position)
{
    const int lineBreak = text.indexOf('\n', position);
    return lineBreak < 0 ? text.size() : lineBreak;
}

// Whether an address or a string is open at the end of text.
bool isInAddress(const QByteArray &text)
{
    return text.lastIndexOf("url(") > text.lastIndexOf(')') || text.count('"') % 2 == 1;
}

QByteArray decodedAsLibraryDoes(QByteArray text)
{
    text.replace("\r", "");
    return QString::fromUtf8(text.constData(), text.size()).toUtf8();
}

// The line of the first character that is not UTF-8, 0 if there is none.
int firstForeignLine(const QByteArray &text)
{
    const QTextCodec *codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState all;
    codec->toUnicode(text.constData(), text.size(), &all);
    if (all.invalidChars == 0 && all.remainingChars == 0) {
        return 0;
    }
    int line = 1;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &content : lines) {
        QTextCodec::ConverterState state;
        codec->toUnicode(content.constData(), content.size(), &state);
        if (state.invalidChars > 0 || state.remainingChars > 0) {
            return line;
        }
        ++line;
    }
    return 1;
}

QVector<int> lineBeginsOf(const QByteArray &text)
{
    QVector<int> begins {0};
    for (int i = text.indexOf('\n'); i >= 0; i = text.indexOf('\n', i + 1)) {
        begins.append(i + 1);
    }
    return begins;
}

// Index of the last element that is not greater than value.
int indexBelow(const QVector<int> &sorted, int value)
{
    return static_cast<int>(std::upper_bound(sorted.cbegin(), sorted.cend(), value) - sorted.cbegin()) - 1;
}

// Where a text continues behind each part that was removed from it: in what is left, and in the text itself.
void findContinuations(const std::vector<TextRange> &removed, QVector<int> *left, QVector<int> *original)
{
    *left = {0};
    *original = {0};
    int size = 0;
    for (const TextRange &range : removed) {
        size += range.end - range.begin;
        left->append(range.end - size);
        original->append(range.end);
    }
}

int positionBefore(const QVector<int> &left, const QVector<int> &original, int position)
{
    const int index = indexBelow(left, position);
    return original.at(index) + position - left.at(index);
}

} // namespace

int lineNumber(const QByteArray &text, int position)
{
    return static_cast<int>(std::count(text.cbegin(), text.cbegin() + std::min(position, text.size()), '\n')) + 1;
}

QByteArray withBlankComments(QByteArray text)
{
    for (int open = text.indexOf("/*"); open >= 0; open = text.indexOf("/*", open)) {
        const int close = text.indexOf("*/", open + MarkSize);
        if (close < 0) {
            break;
        }
        blankOut(text, open, close + MarkSize);
    }
    return text;
}

SourceLine ThemeSection::lineOf(int position) const
{
    return lines.isEmpty() ? header : lines.at(std::max(0, indexBelow(lineBegins, position)));
}

SheetText::SheetText(const QString &folder, Findings *findings) : m_findings(findings)
{
    read(folder);
    if (m_names.isEmpty()) {
        m_findings->add("styles-missing", QStringLiteral("styles"), 0, QStringLiteral("no style sheets (*.qss)"));
    }
    for (int file = 0; file < m_names.size(); ++file) {
        m_fileBegins.append(m_joined.size());
        m_joined += mended(file) + '\n';
    }
    m_lineBegins = lineBeginsOf(m_joined);
    removeComments();
    mendHeaders();
    mendTextWithoutHeader();
    cut();
}

void SheetText::read(const QString &folder)
{
    const QDir styles(folder + QStringLiteral("/styles"));
    const QStringList names = styles.entryList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QString &name : names) {
        QFile file(styles.filePath(name));
        m_names.append(QStringLiteral("styles/") + name);
        m_originals.append(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
}

QByteArray SheetText::mended(int file)
{
    QByteArray &text = m_originals[file];
    if (const int line = firstForeignLine(text)) {
        const bool isUtf16 = text.startsWith("\xff\xfe") || text.startsWith("\xfe\xff");
        m_findings->add("utf8", m_names.at(file), line,
                        isUtf16 ? QStringLiteral("UTF-16, and not UTF-8") : QStringLiteral("not UTF-8"));
        text = isUtf16 ? QTextCodec::codecForName("UTF-16")->toUnicode(text).toUtf8() : text;
    }
    if (text.contains('\r') && !text.contains('\n')) {
        m_findings->add("line-breaks", m_names.at(file), 1, QStringLiteral("lines end with carriage returns"));
        text.replace('\r', '\n');
    }
    text = decodedAsLibraryDoes(text);
    QByteArray result = text;
    mendControlCharacters(file, result);
    mendBlockComments(file, result);
    mendLineComments(file, result);
    return result;
}

void SheetText::mendControlCharacters(int file, QByteArray &text)
{
    const auto isControl = [](char character) {
        return character >= 0 && character < ' ' && character != '\n' && character != '\t' && character != '\f';
    };
    const auto first = std::find_if(text.cbegin(), text.cend(), isControl);
    if (first == text.cend()) {
        return;
    }
    m_findings->add("control-character", m_names.at(file), lineNumber(text, static_cast<int>(first - text.cbegin())),
                    QStringLiteral("the control character %1").arg(int(*first)));
    text.resize(static_cast<int>(std::remove_if(text.begin(), text.end(), isControl) - text.begin()));
}

void SheetText::mendBlockComments(int file, QByteArray &text)
{
    int end = 0; // of the last comment
    int close = 0;
    for (int open = text.indexOf("/*"); open >= 0 && !m_findings->isFull(); open = text.indexOf("/*", end)) {
        close = close < 0 || close >= open + MarkSize ? close : text.indexOf("*/", open + MarkSize);
        const int lost = close < 0 ? text.size() : close;
        // In "images/*.png" it opens nothing.
        int second = text.indexOf("/*", open + MarkSize);
        while (second >= 0 && second < lost && !isspace(static_cast<unsigned char>(text.at(second - 1)))) {
            second = text.indexOf("/*", second + MarkSize);
        }
        const bool holdsAnother = second >= 0 && second < lost;
        end = lost + MarkSize;
        if (close >= 0 && !holdsAnother) {
            continue;
        }
        int resume = holdsAnother ? second : text.size();
        for (int line = open; line < resume; line = endOfLine(text, line) + 1) {
            const int lineEnd = endOfLine(text, line);
            const QByteArray content = text.mid(line, lineEnd - line).trimmed();
            if (line == open && content.endsWith('}')) {
                resume = std::min(resume, text.lastIndexOf('}', lineEnd - 1));
            } else if (line > open && (isHeader(content) || content.contains('{') || content.startsWith('}'))) {
                resume = line;
            }
        }
        const int line = lineNumber(text, open);
        m_findings->add("comment-unclosed", m_names.at(file), line,
                        close < 0
                            ? QStringLiteral("the comment is never closed")
                            : QStringLiteral("the comment is closed in line %1 only, by the \"*/\" of another one")
                                  .arg(lineNumber(text, close)));
        blankOut(text, open, resume);
        end = resume;
    }

    const QByteArray blank = withBlankComments(text);
    for (int stray = blank.indexOf("*/"); stray >= 0; stray = blank.indexOf("*/", stray + MarkSize)) {
        if (!m_findings->isFull()) {
            m_findings->add("comment-stray", m_names.at(file), lineNumber(text, stray),
                            QStringLiteral("\"*/\" closes nothing"));
        }
        blankOut(text, stray, stray + MarkSize);
    }
}

void SheetText::mendLineComments(int file, QByteArray &text)
{
    const QByteArray blank = withBlankComments(text);
    if (!blank.contains("//")) {
        return;
    }
    int number = 1;
    int gluing = 0; // line of the comment that the next line is joined to, 0 if there is none
    int gluingBegin = 0;
    int end = 0;
    for (int begin = 0; begin < blank.size(); begin = end + 1, ++number) {
        end = endOfLine(blank, begin);
        const QByteArray line = blank.mid(begin, end - begin);
        if (gluing > 0 && isHeader(line)) {
            m_findings->add("comment-glues-header", m_names.at(file), gluing,
                            QStringLiteral("the \"//\" comment joins the next line, which is no header then: %1")
                                .arg(QString::fromUtf8(line)));
            blankOut(text, gluingBegin, begin);
        }
        int comment = line.indexOf("//");
        if (comment >= 0 && isInAddress(line.left(comment))) {
            m_findings->add(
                "address-comment", m_names.at(file), number,
                QStringLiteral("\"//\" in an address begins a comment, which takes the rest of the line away"));
            while (comment >= 0) {
                text[begin + comment + 1] = '_';
                comment = line.indexOf("//", comment + MarkSize);
            }
            gluing = 0;
            continue;
        }
        if (comment >= 0 && isHeader(line.left(comment).trimmed())) {
            m_findings->add("comment-glues-header", m_names.at(file), number,
                            QStringLiteral("the \"//\" comment joins the header to the next line, so that it is none"));
            text.replace(begin, end - begin, line.left(comment).trimmed().leftJustified(end - begin, '='));
            gluing = 0;
            continue;
        }
        if (comment < 0) {
            gluing = 0;
        } else if (gluing == 0 && comment > 0) {
            gluing = number;
            gluingBegin = begin + comment;
        }
    }
}

void SheetText::removeComments()
{
    m_plain = ::removeComments(m_joined, &m_removed);
    findContinuations(m_removed.blocks, &m_blockPositions, &m_blockOriginals);
    findContinuations(m_removed.lines, &m_linePositions, &m_lineOriginals);
}

int SheetText::joinedPosition(int plainPosition) const
{
    return positionBefore(m_blockPositions, m_blockOriginals,
                          positionBefore(m_linePositions, m_lineOriginals, plainPosition));
}

int SheetText::fileOf(int plainPosition) const
{
    return indexBelow(m_fileBegins, joinedPosition(plainPosition));
}

SourceLine SheetText::lineOf(int plainPosition) const
{
    const int position = joinedPosition(plainPosition);
    const int file = indexBelow(m_fileBegins, position);
    return {m_names.at(file), indexBelow(m_lineBegins, position) - indexBelow(m_lineBegins, m_fileBegins.at(file)) + 1};
}

// All of this keeps the plain text's size, and with it what the positions in it mean.
void SheetText::mendHeaders()
{
    bool isUnderEmptyHeader = false;
    int end = 0;
    for (int begin = 0; begin < m_plain.size(); begin = end + 1) {
        end = endOfLine(m_plain, begin);
        const QByteArray line = m_plain.mid(begin, end - begin);
        if (isHeader(line)) {
            const QByteArray key = keyOf(line);
            isUnderEmptyHeader = key.isEmpty();
            if (key.isEmpty()) {
                const SourceLine place = lineOf(begin);
                m_findings->add("header-empty", place.file, place.line, QStringLiteral("a header without a key"));
            } else if (line.contains('\t')) {
                const SourceLine place = lineOf(begin);
                m_findings->add("header-form", place.file, place.line,
                                QStringLiteral("a tab stays in the key, and the library never asks for it"));
                m_plain.replace(begin, end - begin, QByteArray(line).replace('\t', ' '));
            }
        } else if (isMeantAsHeader(line)) {
            const SourceLine place = lineOf(begin);
            const QByteArray key = keyOf(line);
            m_findings->add(
                "header-form", place.file, place.line,
                QStringLiteral("no header: one begins with \"==\" in the first column and ends with \"==\": %1")
                    .arg(QString::fromUtf8(line.trimmed())));
            m_mentioned.insert(QString::fromUtf8(key));
            isUnderEmptyHeader = false;
            if (key.size() + 2 * MarkSize <= line.size()) {
                m_plain.replace(begin, end - begin, "==" + key.leftJustified(line.size() - 2 * MarkSize, ' ') + "==");
            } else {
                blankOut(m_plain, begin, end);
            }
        } else if (isUnderEmptyHeader) {
            blankOut(m_plain, begin, end);
        }
    }
}

void SheetText::mendTextWithoutHeader()
{
    int file = -1; // the last one that had a header
    bool isTold = false; // of the file at hand
    int toldFile = -1;
    int end = 0;
    for (int begin = 0; begin < m_plain.size(); begin = end + 1) {
        end = endOfLine(m_plain, begin);
        const QByteArray line = m_plain.mid(begin, end - begin);
        if (isHeader(line)) {
            file = fileOf(begin);
            continue;
        }
        if (line.trimmed().isEmpty()) {
            continue;
        }
        const int here = fileOf(begin + (line.size() - line.trimmed().size()));
        if (here == file) {
            continue;
        }
        isTold = toldFile == here;
        toldFile = here;
        if (!isTold) {
            const SourceLine place = lineOf(begin);
            m_findings->add(
                "text-before-header", m_names.at(here), place.file == m_names.at(here) ? place.line : 1,
                here == 0 ? QStringLiteral("text before the first header belongs to the section behind it")
                          : QStringLiteral("text before the file's first header belongs to the last section of %1")
                                .arg(m_names.at(here - 1)));
        }
        blankOut(m_plain, begin, end);
    }
}

void SheetText::cut()
{
    for (const SheetSection &found : findSections(m_plain)) {
        ThemeSection section;
        section.key = found.key;
        section.header = lineOf(found.header.begin);
        for (const TextRange &range : found.lines) {
            section.body += '\n';
            int begin = range.begin;
            while (begin < range.end) {
                const int end = std::min(endOfLine(m_plain, begin) + 1, range.end);
                section.lineBegins.append(section.body.size());
                section.lines.append(lineOf(begin));
                section.body += m_plain.mid(begin, end - begin);
                begin = end;
            }
        }
        m_sections.push_back(section);
    }
}
