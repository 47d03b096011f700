// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <map>

// Whatever has a meaning here is ASCII, so the text, valid UTF-8, is cut before it is decoded: that spares a copy of it
// twice its size.

/// @p text without its comments: first without every "/* ... */", across lines too, then without every "// ..."
/// together with the line break that ends it, which joins the rest of its line to the next line. A comment that is
/// never closed, by "*/" or by a line break, is left standing.
///
/// Defined by removing all matches of the regular expression `/\*.*\*/` and then of `//.*\n`, both minimal; done here
/// in linear time.
QByteArray removeComments(QByteArray text);

/// Cuts @p text at its header lines ("== key ==") and adds each section to @p sections under its key.
void readSections(const QByteArray &text, std::map<QString, QString> &sections);
