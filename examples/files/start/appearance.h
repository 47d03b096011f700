// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The names of the themes that can be chosen.
QStringList themeNames();
/// The codes of the languages that can be chosen.
QStringList languageCodes();

/// Puts a theme and a language into force, at the start or while the program runs. False where the theme cannot be
/// read; why is written to the log.
bool applyAppearance(const QString &theme, const QString &language);

/// What is in force.
QString themeInForce();
QString languageInForce();

/// Folder of the program's own files, which lies beside it.
QString dataFolder();
