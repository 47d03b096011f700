// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRegExp>
#include <QString>
#include <QTextStream>

#include <map>

// What the scanner of sheets does in linear time, in the terms of its definition.

/// @p text without its comments, step by step.
inline QString literallyWithoutComments(QString text)
{
    QRegExp blockComment(QStringLiteral("/\\*.*\\*/"));
    blockComment.setMinimal(true);
    QRegExp lineComment(QStringLiteral("//.*\n"));
    lineComment.setMinimal(true);
    text.remove(blockComment);
    text.remove(lineComment);
    return text;
}

/// Adds the sections of @p text to @p sections, line by line.
inline void readSectionsLiterally(QString text, std::map<QString, QString> &sections)
{
    QTextStream stream(&text);
    QString key;
    QString body;
    while (!stream.atEnd()) {
        const QString line = stream.readLine();
        if (line.startsWith(QLatin1String("==")) && line.endsWith(QLatin1String("=="))) {
            if (!key.isEmpty()) {
                sections[key] = body;
                key.clear();
                body.clear();
            }
            key = line;
            key.remove(QLatin1Char('='));
            key.remove(QLatin1Char(' '));
        } else {
            body += QLatin1Char('\n');
            body += line;
        }
    }
    if (!key.isEmpty()) {
        sections[key] = body;
    }
}
