// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "contrast.h"

#include <QColor>
#include <QImage>
#include <QVector>

#include <optional>

class QWidget;

/// How many pixels a picture has for each one on the screen: strokes are so thick in it that their middle has the
/// very colour that they are painted in.
constexpr int Enlargement = 4;

/// The part @p rect of a widget, in its logical pixels, as it is painted with its children.
QImage enlargedPicture(QWidget *widget, const QRect &rect);

/// What is painted, and what is painted in its place where it is missing.
struct ColorPair
{
    QColor ink;
    QColor ground;
    int count = 0; ///< pixels of the enlarged picture
};

/// What is to be told of a pair that has less contrast than @p least, or else nothing.
QString fault(const ColorPair &pair, double least);

/// The pairs at the pixels in which the pictures differ, the most frequent one first. Smoothed pixels come last.
QVector<ColorPair> differences(const QImage &with, const QImage &without);

/// The colours of a picture, the most frequent one first.
QVector<QColor> frequentColors(const QImage &picture, int leastCount);
