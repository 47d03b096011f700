// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "pixel-contrast.h"

#include "support/color-counts.h"

#include <QPainter>
#include <QPair>
#include <QWidget>

#include <algorithm>

QImage enlargedPicture(QWidget *widget, const QRect &rect)
{
    QImage picture(rect.size() * Enlargement, QImage::Format_RGB32);
    picture.setDevicePixelRatio(Enlargement);
    picture.fill(Qt::magenta);
    widget->render(&picture, QPoint(), rect);
    picture.setDevicePixelRatio(1);
    return picture;
}

QString fault(const ColorPair &pair, double least)
{
    const double reached = contrast(pair.ink, pair.ground);
    return reached >= least
        ? QString()
        : QStringLiteral("%1 on %2 is %3").arg(pair.ink.name(), pair.ground.name()).arg(reached, 0, 'f', 2);
}

QVector<ColorPair> differences(const QImage &with, const QImage &without)
{
    QHash<QPair<QRgb, QRgb>, int> counts;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y)) {
                ++counts[{with.pixel(x, y), without.pixel(x, y)}];
            }
        }
    }
    QVector<ColorPair> pairs;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        pairs.append({QColor(it.key().first), QColor(it.key().second), it.value()});
    }
    std::sort(pairs.begin(), pairs.end(),
              [](const ColorPair &one, const ColorPair &other) { return one.count > other.count; });
    return pairs;
}

QVector<QColor> frequentColors(const QImage &picture, int leastCount)
{
    const QHash<QRgb, int> counts = colorCounts(picture);
    QVector<QColor> colors;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() >= leastCount) {
            colors.append(QColor(it.key()));
        }
    }
    std::sort(colors.begin(), colors.end(), [&counts](const QColor &one, const QColor &other) {
        return counts.value(one.rgb()) > counts.value(other.rgb());
    });
    return colors;
}
