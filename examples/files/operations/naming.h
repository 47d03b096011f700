// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "disk/disk-error.h"

#include <QString>

/// Gives a file another name. It never replaces what has that name already: EEXIST.
DiskError renameFile(const QString &from, const QString &to);

DiskError createFolder(const QString &path);

/// Gives a file, under whatever name it lies, the name @p wanted in @p folder, or that with a number if it is taken.
/// Leaves the name in @p given.
DiskError renameToFreeName(const QString &from, const QString &folder, const QString &wanted, QString *given);

/// "name (2).txt" for the second of "name.txt".
QString numberedName(const QString &name, int number);

/// What a name lacks to be one, as a key of the texts; null for nothing.
const char *faultOfName(const QString &name);
