// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// Files on the clipboard, for other programs too, as far as these understand the names.

void putOnClipboard(const QStringList &paths, bool isCut);
/// What is there; empty for no files.
QStringList filesOnClipboard(bool *isCut);
/// Files that were cut have gone to their place.
void clearClipboard();
