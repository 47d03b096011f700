// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QVector>

class QWidget;

/// An example of the reference: the lines of snippets.cpp between two marks with the name of its class.
struct Snippet
{
    const char *name;
    QSize size; // of its window in logical pixels; without one the window is as large as it needs to be
    QWidget *(*show)(QWidget *window); // returns what the picture shows; null for examples that show nothing
};

const QVector<Snippet> &snippets();

/// The start-up calls of the registries, for the theme in @p folder.
void startUp(const QString &folder);
