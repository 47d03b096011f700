// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QImage>
#include <QSet>

/// How many pixels of @p image have each of its colours.
inline QHash<QRgb, int> colorCounts(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    return counts;
}

inline QSet<QRgb> colorsIn(const QImage &image)
{
    const QHash<QRgb, int> counts = colorCounts(image);
    return QSet<QRgb>(counts.keyBegin(), counts.keyEnd());
}
