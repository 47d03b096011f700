// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outcome.h"

/// Copies a file, a link or a folder with all that is in it. There must be nothing at @p target. When an error comes
/// back, part of the copy is there.
DiskError copyTree(const QString &source, const QString &target, Progress *progress);

/// Removes a file, a link or a folder with all that is in it.
DiskError removeTree(const QString &path);

/// Removes a copy that is not whole, with folders in it that nobody may change.
void discardCopy(const QString &path);

/// The size of a file, or of all files in a folder.
qint64 bytesOfTree(const QString &path, const Progress &progress);
