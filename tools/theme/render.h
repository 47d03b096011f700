// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// A screen that widgets are shown on.
struct RenderScreen
{
    const char *name; ///< in names of files
    const char *fontDpi;
    const char *scaleFactor;
};

/// The screens, by their number.
int renderScreenCount();
/// Sets the environment for one, before the QApplication.
void prepareRenderScreen(int screen);

/// Renders all widgets of the theme in @p folder for the screen that this process has: PNG files in @p output. Returns
/// what went wrong, empty if nothing did.
QString renderScreen(const QString &folder, const QString &output, int screen);

/// Renders them for all screens, in processes of their own, with a list of the cells and a contact sheet.
QString renderTheme(const QString &folder, const QString &output);

/// Hashes of the cells in a folder of rendered pictures, by their names.
QMap<QString, QString> renderedCells(const QString &folder);

/// Takes out of a folder of rendered pictures all but the list of cells and the pictures at scale 1, left to right.
void makeCompact(const QString &folder);

/// What differs between two folders of rendered pictures, a line each. Pictures of the differences go to @p output,
/// unless that is empty.
QStringList compareRendered(const QString &approved, const QString &rendered, const QString &output);
