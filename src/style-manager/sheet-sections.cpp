// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/sheet-sections_p.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string_view>
#include <vector>

namespace {

constexpr int MarkSize = 2; // "/*", "*/", "//", "=="
constexpr char Slash = '/';
constexpr char Star = '*';
constexpr char HeaderMark = '=';
constexpr char LineBreak = '\n';

// QByteArray::indexOf(), but many bytes at a time where wanted is not close by.
int indexOf(const QByteArray &text, char wanted, int from)
{
    constexpr int Close = 8; // distance up to which a loop takes no longer than the call
    const char *begin = text.constData() + from;
    const char *end = text.constData() + text.size();
    const char *close = std::min(begin + Close, end);
    const void *found = std::find(begin, close, wanted);
    if (found == close) {
        found = std::memchr(close, wanted, static_cast<std::size_t>(end - close));
    }
    return found ? static_cast<int>(static_cast<const char *>(found) - text.constData()) : -1;
}

// Takes parts out of a text, in place, from its begin to its end, and tells which. A text of which nothing is taken
// stays shared.
class Cutter
{
public:
    Cutter(QByteArray &text, std::vector<TextRange> *removed) : m_text(text), m_removed(removed) { }
    ~Cutter()
    {
        if (m_rest > 0) {
            keepUpTo(m_text.size());
            m_text.resize(m_kept);
        }
    }
    Q_DISABLE_COPY_MOVE(Cutter)

    // Takes out [begin, end), which lies behind all that was cut before. What is behind it stays where it is
    // for now.
    void cut(int begin, int end)
    {
        keepUpTo(begin);
        m_rest = end;
        if (m_removed) {
            m_removed->push_back({begin, end});
        }
    }

private:
    void keepUpTo(int end)
    {
        if (m_rest > 0) {
            char *text = m_text.data();
            std::copy(text + m_rest, text + end, text + m_kept);
        }
        m_kept += end - m_rest;
    }

    QByteArray &m_text;
    std::vector<TextRange> *const m_removed;
    int m_kept = 0; // bytes kept so far, at the text's begin
    int m_rest = 0; // begin of the part that is not decided yet
};

void removeBlockComments(QByteArray &text, std::vector<TextRange> *removed)
{
    Cutter cutter(text, removed);
    int open = -1;
    for (int i = indexOf(text, Slash, 0); i >= 0; i = indexOf(text, Slash, i + 1)) {
        const char *character = text.constData() + i;
        if (open < 0) {
            // Behind the last character there is a null byte to be read.
            if (character[1] == Star) {
                open = i;
            }
        } else if (character[-1] == Star && i > open + MarkSize) {
            cutter.cut(open, i + 1);
            open = -1;
        }
    }
}

void removeLineComments(QByteArray &text, std::vector<TextRange> *removed)
{
    Cutter cutter(text, removed);
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

// The first header line of text that begins at from or behind, without its line break; at the text's end if there is
// none.
TextRange findHeader(const QByteArray &text, int from)
{
    const char *characters = text.constData();
    for (int i = indexOf(text, HeaderMark, from); i >= 0; i = indexOf(text, HeaderMark, i + 1)) {
        const bool isAtLineBegin = i == 0 || characters[i - 1] == LineBreak;
        if (!isAtLineBegin || characters[i + 1] != HeaderMark) {
            continue;
        }
        const int lineBreak = indexOf(text, LineBreak, i);
        const int end = lineBreak < 0 ? text.size() : lineBreak;
        if (characters[end - 1] == HeaderMark && characters[end - 2] == HeaderMark) {
            return {i, end};
        }
        i = end - 1;
    }
    return {text.size(), text.size()};
}

QString keyOf(const QByteArray &text, TextRange header)
{
    QString key = QString::fromUtf8(text.constData() + header.begin, header.end - header.begin);
    return key.remove(QLatin1Char(HeaderMark)).remove(QLatin1Char(' '));
}

// The lines of text in [begin, end), each ended by a line break but perhaps the last, with their line
// breaks in front of them instead.
QString linesOf(const QByteArray &text, int begin, int end)
{
    if (begin == end) {
        return QString();
    }
    const int size = end - begin - (text.at(end - 1) == LineBreak ? 1 : 0);
    if (begin > 0) {
        // The line with the line break of the one before in front.
        return QString::fromUtf8(text.constData() + begin - 1, 1 + size);
    }
    QByteArray lines(1 + size, LineBreak);
    std::copy_n(text.constData(), size, lines.data() + 1);
    return QString::fromUtf8(lines.constData(), lines.size());
}

bool isAscii(const QByteArray &text)
{
    const auto unite = [](char all, char character) { return static_cast<char>(all | character); };
    return static_cast<unsigned char>(std::accumulate(text.cbegin(), text.cend(), '\0', unite)) < 0x80;
}

// Replaces each name by value, which is no shorter. Unlike QByteArray::replace() it moves a byte only
// once, however many matches there are.
void replaceAll(QByteArray &text, std::string_view name, const QByteArray &value)
{
    const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
    std::vector<std::size_t> matches;
    for (auto i = view.find(name); i != view.npos; i = view.find(name, i + name.size())) {
        matches.push_back(i);
    }
    if (matches.empty()) {
        return;
    }

    std::size_t end = view.size();
    text.resize(text.size() + static_cast<int>(matches.size()) * (value.size() - static_cast<int>(name.size())));
    const char *begin = text.constData();
    char *out = text.data() + text.size();
    for (auto match = matches.crbegin(); match != matches.crend(); ++match) {
        out = std::copy_backward(begin + *match + name.size(), begin + end, out);
        out = std::copy_backward(value.cbegin(), value.cend(), out);
        end = *match;
    }
}

int positionBeforeRemoval(const std::vector<TextRange> &removed, int position)
{
    for (const TextRange &range : removed) {
        if (range.begin > position) {
            break;
        }
        position += range.end - range.begin;
    }
    return position;
}

} // namespace

int RemovedComments::positionBefore(int position) const
{
    return positionBeforeRemoval(blocks, positionBeforeRemoval(lines, position));
}

QByteArray readSheets(QFile &file)
{
    QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return QByteArray(); // a file that cannot be read is empty, not one that ends anywhere
    }
    // A device in text mode does the same, but looks for carriage returns a byte at a time.
    if (std::memchr(text.constData(), '\r', static_cast<std::size_t>(text.size()))) {
        text.replace("\r", "");
    }
    // A conversion of the whole array would stop at a null byte.
    return isAscii(text) ? text : QString::fromUtf8(text.constData(), text.size()).toUtf8();
}

void insertImageFolders(QByteArray &text, const QByteArray &images, const QByteArray &tempImages)
{
    // The second name is part of the first, so the first must be gone by then.
    replaceAll(text, "TMPIMG_LOC", tempImages);
    replaceAll(text, "IMG_LOC", images);
}

QByteArray removeComments(QByteArray text, RemovedComments *removed)
{
    removeBlockComments(text, removed ? &removed->blocks : nullptr);
    removeLineComments(text, removed ? &removed->lines : nullptr);
    return text;
}

std::vector<SheetSection> findSections(const QByteArray &text)
{
    std::vector<SheetSection> sections;
    SheetSection section;
    int bodyBegin = 0;
    while (bodyBegin < text.size()) {
        const TextRange header = findHeader(text, bodyBegin);
        if (header.begin > bodyBegin) {
            section.body += linesOf(text, bodyBegin, header.begin);
            section.lines.push_back({bodyBegin, header.begin});
        }
        // What stands under no key, before the first header or behind one without a key, is kept for the next
        // section.
        if (!section.key.isEmpty()) {
            sections.push_back(std::move(section));
            section = SheetSection();
        }
        section.key = keyOf(text, header);
        section.header = header;
        bodyBegin = header.end + 1;
    }
    if (!section.key.isEmpty()) {
        sections.push_back(std::move(section));
    }
    return sections;
}

void readSections(const QByteArray &text, std::map<QString, QString> &sections)
{
    for (SheetSection &section : findSections(text)) {
        sections[section.key] = std::move(section.body);
    }
}
