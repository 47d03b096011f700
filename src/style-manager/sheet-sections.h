#pragma once

#include <QString>

#include <map>

/// @p text without its comments: first without every "/* ... */", across lines too, then without every "// ..." together
/// with the line break that ends it, which joins the rest of its line to the next line. A comment that is never closed,
/// by "*/" or by a line break, is left standing.
///
/// Defined by removing all matches of the regular expression `/\*.*\*/` and then of `//.*\n`, both minimal; done here in
/// linear time.
QString removeComments(QString text);

/// Cuts @p text at its header lines ("== key ==") and adds each section to @p sections under its key.
void readSections(const QString &text, std::map<QString, QString> &sections);
