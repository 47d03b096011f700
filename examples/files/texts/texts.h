// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The application's own texts, which lie in the program; those of the library come from the theme.

/// The text of that key in the language in force; the key itself if there is none.
QString text(const char *key);

/// Puts the texts in @p language into force, a code such as "deu": English where there are none. Dates, numbers and the
/// direction of the windows go with it.
void setTextLanguage(const QString &language);

/// The code for the user's system, of a language of the library's texts or of ours.
QString systemLanguage();

/// The name of a language in that language itself.
QString nameOfLanguage(const QString &language);

/// Whether the application has texts of its own in it.
bool hasOwnTexts(const QString &language);
