// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "findings.h"

#include <QPoint>
#include <QString>
#include <QStringList>
#include <QVector>

class QWidget;

/// A section of the theme's style sheets that a widget has.
struct InspectedSection
{
    QString key;
    QString file; ///< relative to the theme's folder
    int firstLine; ///< its header's, from 1 on
    int lastLine;
    QString raw; ///< as it is written, without comments
    QString scaled;
};

/// What a widget has from the theme in force, by the theme's own files.
struct Inspection
{
    QString title; ///< class, and what tells the widget from others of it
    QVector<InspectedSection> sections; ///< of the widget or, where it has none, of the nearest one around it
    QStringList images; ///< those that it shows and those that its sections name: name and file
    QStringList texts; ///< those that it shows: key, file and line
};

Inspection inspect(const QWidget *widget);

/// Those of a theme's findings that are about what a widget has from it.
Findings findingsOf(const Inspection &inspection, const Findings &all);

/// The innermost widget at @p position, in global coordinates; also one that lets clicks through. Null if there is
/// none.
QWidget *widgetAt(const QPoint &position);
