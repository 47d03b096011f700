// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <vector>

class QFile;

// Whatever has a meaning here is ASCII, so the text, valid UTF-8, is cut before it is decoded: that spares a copy of it
// twice its size.

/// A part of a text: the positions of its first byte and of the one behind it.
struct TextRange
{
    int begin;
    int end;
};

/// Where comments were removed from a text. Those of the second kind are told by their positions in what the removal
/// of the first kind has left.
struct RemovedComments
{
    std::vector<TextRange> blocks;
    std::vector<TextRange> lines;

    /// Where that stood before the removals which is at @p position behind them.
    int positionBefore(int position) const;
};

/// What is in @p file, which is open, as valid UTF-8 without carriage returns. Nothing where it cannot be read to its
/// end, which the file tells by its error().
QByteArray readSheets(QFile &file);

/// Puts the folders, as UTF-8, in the places of "IMG_LOC" and "TMPIMG_LOC".
void insertImageFolders(QByteArray &text, const QByteArray &images, const QByteArray &tempImages);

/// @p text without its comments: first without every "/* ... */", across lines too, then without every "// ..."
/// together with the line break that ends it, which joins the rest of its line to the next line. A comment that is
/// never closed, by "*/" or by a line break, is left standing. @p removed gets where they were.
///
/// Defined by removing all matches of the regular expression `/\*.*\*/` and then of `//.*\n`, both minimal; done here
/// in linear time.
QByteArray removeComments(QByteArray text, RemovedComments *removed = nullptr);

/// A section of a text. Its body holds the lines of each of @p lines, and what it was in front of a first header or
/// behind a header without a key.
struct SheetSection
{
    QString key;
    QString body;
    TextRange header;
    std::vector<TextRange> lines;
};

/// The sections of @p text, which is cut at its header lines ("== key =="), in their order.
std::vector<SheetSection> findSections(const QByteArray &text);

/// Adds each section of @p text to @p sections under its key.
void readSections(const QByteArray &text, std::map<QString, QString> &sections);
