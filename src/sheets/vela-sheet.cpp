#include "sheets/vela-sheet.h"

#include "image-manager/image-manager.h"
#include "scale/scaled.h"

#include <QHBoxLayout>
#include <QPainter>

namespace {

constexpr int ShadowWidth = 22; // logical pixels

/// Place of a piece of the shadow along one direction of the sheet.
enum Place { Start, Middle, End };

struct ShadowPiece
{
    const char *imageName;
    Place horizontal;
    Place vertical;
};

/// In the order in which their images are requested, so that missing ones are logged in it.
constexpr ShadowPiece ShadowPieces[] = {
    // edges
    {"bg_tutorial_l", Start, Middle},
    {"bg_tutorial_r", End, Middle},
    {"bg_tutorial_t", Middle, Start},
    {"bg_tutorial_b", Middle, End},
    // corners
    {"bg_tutorial_lt", Start, Start},
    {"bg_tutorial_rt", End, Start},
    {"bg_tutorial_lb", Start, End},
    {"bg_tutorial_rb", End, End},
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

} // namespace

VelaSheet::VelaSheet(QWidget *parent) : QFrame(parent), m_shadowWidth(scaled(ShadowWidth))
{
    reserveShadow();
}

VelaSheet::~VelaSheet() = default;

void VelaSheet::reserveShadow()
{
    setContentsMargins(m_shadowWidth, m_shadowWidth, m_shadowWidth, m_shadowWidth);
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
    painter.setBrush(QBrush(Qt::white, Qt::SolidPattern));
    painter.drawRect(m_shadowWidth, m_shadowWidth, width() - 2 * m_shadowWidth, height() - 2 * m_shadowWidth);
}

void VelaSheet::drawShadow(QPainter &painter)
{
    for (const ShadowPiece &piece : ShadowPieces) {
        QPixmap image = getGlobalImage(piece.imageName, ImageManager::IMAGE_NORMAL);
        const QRect place = rectangleOf(piece, size(), m_shadowWidth);
        if (isEdge(piece) && !image.isNull()) {
            // On a sheet that is smaller than its shadow this gives a null pixmap, of which nothing is drawn.
            image = image.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
        }
        painter.drawPixmap(place, image);
    }
}

void VelaSheet::showEvent(QShowEvent *event)
{
    reserveShadow();
    QWidget::showEvent(event);
}
