// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// What changes from one theme folder to another, in words, a line each.
QStringList themeDifferences(const QString &before, const QString &after);
/// What changes from one contract, a JSON file, to another. Null if one cannot be read.
QStringList contractDifferences(const QString &before, const QString &after, QString *errorText);
