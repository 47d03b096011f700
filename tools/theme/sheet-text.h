// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "style-manager/sheet-sections_p.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

class Findings;

/// A line of a file of the theme.
struct SourceLine
{
    QString file; ///< relative to the theme's folder
    int line; ///< from 1 on
};

/// A section as the library cuts it from all style sheets of a theme.
struct ThemeSection
{
    QString key;
    SourceLine header;
    QByteArray body; ///< UTF-8, without comments

    /// The line that the byte at @p position of the body stands on.
    SourceLine lineOf(int position) const;

    QVector<int> lineBegins; ///< positions in the body
    QVector<SourceLine> lines; ///< of each of them
};

/// The style sheets of a theme, read and cut by the library's own parser.
///
/// What disturbs the cutting is told as a finding and then mended, so that it hides nothing else and leads to no
/// second finding.
class SheetText
{
public:
    SheetText(const QString &folder, Findings *findings);

    const std::vector<ThemeSection> &sections() const { return m_sections; }
    /// Keys of lines that were meant as headers, but are none.
    const QSet<QString> &mentionedKeys() const { return m_mentioned; }
    const QStringList &files() const { return m_names; }
    /// The text of a file, as it stands there.
    const QByteArray &original(int file) const { return m_originals.at(file); }
    /// Whether @p text stands anywhere in the files, comments aside.
    bool contains(const QByteArray &text) const { return m_plain.contains(text); }

private:
    void read(const QString &folder);
    QByteArray mended(int file);
    void mendControlCharacters(int file, QByteArray &text);
    void mendBlockComments(int file, QByteArray &text);
    void mendLineComments(int file, QByteArray &text);
    void removeComments();
    void mendHeaders();
    void mendTextWithoutHeader();
    void cut();
    SourceLine lineOf(int plainPosition) const;
    int fileOf(int plainPosition) const;
    int joinedPosition(int plainPosition) const;

    Findings *const m_findings;
    QStringList m_names;
    QVector<QByteArray> m_originals;
    QVector<int> m_fileBegins; // in the joined text
    QVector<int> m_lineBegins; // in the joined text
    QByteArray m_joined; // all files one behind the other
    RemovedComments m_removed;
    QVector<int> m_blockPositions; // behind each removed comment, in the text without them
    QVector<int> m_blockOriginals;
    QVector<int> m_linePositions;
    QVector<int> m_lineOriginals;
    QByteArray m_plain; // the joined text without comments
    std::vector<ThemeSection> m_sections;
    QSet<QString> m_mentioned;
};

/// The number of the line, from 1 on, that @p position stands on.
int lineNumber(const QByteArray &text, int position);
/// @p text with a blank in place of each character of its block comments, line breaks aside.
QByteArray withBlankComments(QByteArray text);
