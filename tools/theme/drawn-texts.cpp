// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "drawn-texts.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace {

constexpr ushort Ellipsis = 0x2026;
constexpr double Blur = 1.0; // pixel around a letter that may have a trace of it

// Takes texts down and paints nothing.
class TextEngine : public QPaintEngine
{
public:
    explicit TextEngine(QVector<DrawnText> *texts) : QPaintEngine(AllFeatures), m_texts(texts) { }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState &change) override
    {
        if (change.state() & DirtyTransform) {
            m_transform = change.transform();
        }
    }
    void drawTextItem(const QPointF &position, const QTextItem &item) override;
    void drawPath(const QPainterPath &) override { }
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override { }
    void drawRects(const QRectF *, int) override { }
    void drawLines(const QLineF *, int) override { }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { }
    void drawTiledPixmap(const QRectF &, const QPixmap &, const QPointF &) override { }
    void drawImage(const QRectF &, const QImage &, const QRectF &, Qt::ImageConversionFlags) override { }

private:
    QRectF clipOnDevice() const;

    QTransform m_transform;
    QVector<DrawnText> *const m_texts;
};

void TextEngine::drawTextItem(const QPointF &position, const QTextItem &item)
{
    const QString text = item.text().trimmed();
    if (text.isEmpty()) {
        return;
    }
    const QRectF letters = QFontMetricsF(item.font()).tightBoundingRect(text).translated(position);
    const QRectF onDevice = m_transform.mapRect(letters);
    const QRectF clip = clipOnDevice();
    const bool isAllSeen = clip.contains(onDevice.adjusted(Blur, Blur, -Blur, -Blur));
    const QRectF seen = onDevice.intersected(clip);
    m_texts->append({text, onDevice, (seen.isEmpty() ? clip : seen).center().toPoint(),
                     !isAllSeen || text.contains(QChar(Ellipsis)), painter()->pen().color()});
}

QRectF TextEngine::clipOnDevice() const
{
    const QRectF widget = systemClip().boundingRect();
    return painter()->hasClipping() ? widget.intersected(m_transform.mapRect(painter()->clipBoundingRect())) : widget;
}

class TextDevice : public QPaintDevice
{
public:
    TextDevice(const QWidget *widget, QVector<DrawnText> *texts) : m_widget(widget), m_engine(texts) { }

    QPaintEngine *paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_widget->width();
        case PdmHeight:
            return m_widget->height();
        case PdmWidthMM:
            return m_widget->widthMM();
        case PdmHeightMM:
            return m_widget->heightMM();
        case PdmNumColors:
            return 0;
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_widget->logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_widget->logicalDpiY();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        }
        return 0;
    }

private:
    const QWidget *const m_widget;
    mutable TextEngine m_engine;
};

} // namespace

QVector<DrawnText> drawnTexts(QWidget *widget, const QRegion &part)
{
    QVector<DrawnText> texts;
    TextDevice device(widget, &texts);
    widget->render(&device, part.boundingRect().topLeft(), part);
    return texts;
}
