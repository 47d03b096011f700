// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-sheet.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>
#include <iterator>

using namespace Vela;

namespace {

constexpr int ShadowWidth = 22; // logical pixels

// Place of a piece of the shadow along one direction of the sheet.
enum Place { Start, Middle, End };

struct ShadowPiece
{
    Image image;
    Place horizontal;
    Place vertical;
};

// The pieces in the order in which their images are requested, so that missing ones are logged in it.
constexpr ShadowPiece ShadowPieces[] = {
    // edges
    {Image::ShadowLeft, Start, Middle},
    {Image::ShadowRight, End, Middle},
    {Image::ShadowTop, Middle, Start},
    {Image::ShadowBottom, Middle, End},
    // corners
    {Image::ShadowTopLeft, Start, Start},
    {Image::ShadowTopRight, End, Start},
    {Image::ShadowBottomLeft, Start, End},
    {Image::ShadowBottomRight, End, End},
};

bool isEdge(const ShadowPiece &piece)
{
    return piece.horizontal == Middle || piece.vertical == Middle;
}

struct Span
{
    int start;
    int size;
};

Span spanOf(Place place, int length, int shadowWidth)
{
    switch (place) {
    case Start:
        return {0, shadowWidth};
    case Middle:
        return {shadowWidth, length - 2 * shadowWidth};
    case End:
        break;
    }
    return {length - shadowWidth, shadowWidth};
}

QRect rectangleOf(const ShadowPiece &piece, const QSize &size, int shadowWidth)
{
    const Span horizontal = spanOf(piece.horizontal, size.width(), shadowWidth);
    const Span vertical = spanOf(piece.vertical, size.height(), shadowWidth);
    return {horizontal.start, vertical.start, horizontal.size, vertical.size};
}

void drawPiece(QPainter &painter, const QPixmap &image, const QRect &place, bool isEdge)
{
    if (isEdge && !image.isNull()) {
        // On a sheet that is smaller than its shadow this gives a null pixmap, of which nothing is drawn.
        painter.drawPixmap(place, image.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
    } else {
        painter.drawPixmap(place, image);
    }
}

} // namespace

class VelaSheetPrivate
{
public:
    const int shadowWidth = scaled(ShadowWidth); // pixels
};

VelaSheet::VelaSheet(QWidget *parent) : QFrame(parent), d(std::make_unique<VelaSheetPrivate>())
{
    reserveShadow();
}

VelaSheet::~VelaSheet() = default;

void VelaSheet::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        if (change->isOfEverything()) {
            update();
        }
    }
    QFrame::customEvent(event);
}

void VelaSheet::reserveShadow()
{
    setContentsMargins(d->shadowWidth, d->shadowWidth, d->shadowWidth, d->shadowWidth);
}

// A frame loses its margins when it is styled. It gets them back as it is shown, but then its texts would have been
// measured in a width that they do not keep.
void VelaSheet::reserveShadowForShow()
{
    if (!isVisible() && window()->isVisible()) {
        reserveShadow();
    }
}

void VelaSheet::setWidget(QWidget *widget)
{
    delete layout();
    auto *row = new QHBoxLayout(this);
    row->addWidget(widget, 0, Qt::AlignCenter);
    updateGeometry();
    adjustSize();
}

void VelaSheet::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawShadow(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Look::color(Color::SheetBody));
    painter.drawRect(d->shadowWidth, d->shadowWidth, width() - 2 * d->shadowWidth, height() - 2 * d->shadowWidth);
}

void VelaSheet::drawShadow(QPainter &painter)
{
    QPixmap images[std::size(ShadowPieces)];
    std::transform(std::begin(ShadowPieces), std::end(ShadowPieces), images,
                   [](const ShadowPiece &piece) { return Look::image(piece.image); });
    // The corners first: after the edges, whose pictures are large, all would take a quarter longer.
    for (const bool drawsEdges : {false, true}) {
        for (std::size_t i = 0; i < std::size(images); ++i) {
            if (isEdge(ShadowPieces[i]) == drawsEdges) {
                drawPiece(painter, images[i], rectangleOf(ShadowPieces[i], size(), d->shadowWidth), drawsEdges);
            }
        }
    }
}

void VelaSheet::showEvent(QShowEvent *event)
{
    reserveShadow();
    QWidget::showEvent(event);
}
