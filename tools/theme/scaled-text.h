// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <array>

/// The scales that what becomes of lengths is told at.
constexpr std::array<double, 4> ToldScales {1.0, 1.25, 1.5, 2.0};

/// What becomes of @p text at each of them, in words.
QString atEachScale(const QString &text);
/// The whole number that a length such as "2px" is at a scale.
int scaledLength(const QString &length, double scale);
/// Whether something in @p text is taken for a length: in a name or a path nothing is to be.
bool holdsLength(const QString &text);
