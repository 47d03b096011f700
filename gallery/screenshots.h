// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

class GalleryWindow;

/// Renders each of @p pages, as a whole, to `<page>.png` in @p folder and the main window to `main-window.png`, without
/// putting anything on a screen, and prints the paths of the files. Returns what went wrong, or an empty text.
QString saveScreenshots(GalleryWindow *window, const QStringList &pages, const QString &folder);
