// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPoint>
#include <QRectF>
#include <QRegion>
#include <QString>
#include <QVector>

class QWidget;

/// A text that a widget paints, or one of the pieces that it is painted in.
struct DrawnText
{
    QString text;
    QRectF rect; ///< what its letters cover, in the widget
    QPoint seenAt; ///< where some of them are seen, or would be
    bool isCut; ///< whether they are not all seen
    QColor color;
};

/// The texts that @p widget and what it holds paint, in their order; of @p part of it, if that is not empty.
QVector<DrawnText> drawnTexts(QWidget *widget, const QRegion &part = QRegion());
