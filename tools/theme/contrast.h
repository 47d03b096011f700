// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QList>

/// From 0, black, to 1, white.
double luminance(const QColor &color);
/// Contrast of two opaque colours, from 1 to 21.
double contrast(const QColor &one, const QColor &other);
/// The contrast of @p color to that of @p surfaces which it is hardest to tell from.
double leastContrast(const QColor &color, const QList<QColor> &surfaces);
