// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A style sheet from its file to its sections, and where comments and sections were.

#include "style-manager/literal-sections.h"
#include "style-manager/sheet-sections_p.h"
#include "support/input.h"

namespace {

using Sections = std::map<QString, QString>;

struct ImageFolders
{
    const char *images;
    const char *tempImages;
};

constexpr ImageFolders Folders[] = {
    {"/images", "/tmp_images"},
    {"/home/user/theme/images", "/home/user/.local/share/app/tmp_images"},
    {"/IMG_LOC/images", "/TMPIMG_LOC/IMG_LOC/tmp_images"},
    {"/b\xC3\xA4r/images", "//*/tmp_images"},
    {"/a\n==b==\n/images", "/a//tmp_images"},
};

QString literallyRead(QFile &file, const ImageFolders &folders)
{
    QString text = textOf(file.readAll());
    text.replace(QLatin1String("TMPIMG_LOC"), QString::fromUtf8(folders.tempImages));
    text.replace(QLatin1String("IMG_LOC"), QString::fromUtf8(folders.images));
    return text;
}

// The text that is left when the ranges, told from its begin to its end, are taken out.
QByteArray without(const std::vector<TextRange> &ranges, QByteArray text)
{
    for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
        text.remove(range->begin, range->end - range->begin);
    }
    return text;
}

// The body of a section, made from the lines that it tells.
QString bodyFromLines(const QByteArray &text, const SheetSection &section)
{
    QString body;
    for (const TextRange &range : section.lines) {
        QString lines = textOf('.' + text.mid(range.begin, range.end - range.begin)).mid(1);
        lines.chop(lines.endsWith(QLatin1Char('\n')) ? 1 : 0);
        body += QLatin1Char('\n') + lines;
    }
    return body;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static MemoryFile sheets;
    FuzzInput input(data, size);
    const ImageFolders folders = input.takeOneOf(Folders);
    sheets.write(input.rest());

    QFile textFile;
    sheets.open(textFile, QIODevice::ReadOnly | QIODevice::Text);
    const QString literal = literallyWithoutComments(literallyRead(textFile, folders));
    const Sections earlier {{QStringLiteral("a"), QStringLiteral("old")}, {QStringLiteral("z"), QString()}};
    Sections literalSections = earlier;
    readSectionsLiterally(literal, literalSections);

    QFile file;
    sheets.open(file, QIODevice::ReadOnly);
    QByteArray text = readSheets(file);
    insertImageFolders(text, folders.images, folders.tempImages);
    RemovedComments removed;
    const QByteArray plain = removeComments(text, &removed);
    Sections sections = earlier;
    readSections(plain, sections);

    agree("text without comments", plain, literal.toUtf8());
    agree("sections", sections, literalSections);
    agree("text without the ranges", without(removed.lines, without(removed.blocks, text)), plain);
    for (const SheetSection &section : findSections(plain)) {
        agree("body", section.body, bodyFromLines(plain, section));
    }
    return 0;
}
