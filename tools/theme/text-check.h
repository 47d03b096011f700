// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>

class Findings;

/// Checks all files of texts of a theme.
void checkTexts(const QString &folder, Findings *findings);

/// The language to show a theme in: English, or else the first one; empty if it has none.
QString mainLanguageOf(const QString &folder);
/// The texts of one; empty if they cannot be read.
QMap<QString, QString> textsOf(const QString &folder, const QString &language);
/// All texts of the contract in a few letters, for which each section must have room.
QMap<QString, QString> shortTexts();
/// Texts that are a third longer and told by brackets, as those of another language might be.
QMap<QString, QString> lengthened(const QMap<QString, QString> &texts);
