// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QString>

/// What the environment asks for, read from its variables and not from the library that is under test.

/// Logical DPI divided by 96.
double expectedScale();

/// Device pixels per pixel.
int expectedRatio();

/// @p logical pixels at the expected scale, truncated toward zero.
int expectedPixels(double logical);

/// Size in device pixels of an image whose file is of @p fileSize.
QSize expectedImageSize(const QSize &fileSize);

/// Runs @p program, waits for its end and returns what it wrote to standard error. @p crashed tells whether a signal
/// ended it.
QString runAndReadErrors(const QString &program, const QStringList &arguments, bool *crashed);
