// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"

#include <StyleManager>
#include <VelaTheme>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QLabel>
#include <QPalette>
#include <QScrollBar>

namespace {

constexpr int MaskAlpha = 20;
constexpr int MaskAlphaOnDark = 140;
constexpr int MiddleLightness = 128;

struct TextStyleRow
{
    TextStyle style;
    double size; // multiple of the size of the application's font
    QFont::Weight weight;
    QPalette::ColorRole color;
};

constexpr TextStyleRow TextStyles[] = {
    {TextStyle::PageTitle, 1.7, QFont::DemiBold, QPalette::WindowText},
    {TextStyle::SectionTitle, 1.15, QFont::DemiBold, QPalette::WindowText},
    {TextStyle::Body, 1.0, QFont::Normal, QPalette::WindowText},
    {TextStyle::Detail, 0.9, QFont::Normal, QPalette::PlaceholderText},
};

// A label that stands at the side where lines begin. By itself one aligns to the direction of the text that it holds,
// and all of the gallery's texts are English.
class Text : public QLabel
{
public:
    explicit Text(const QString &text) : QLabel(text) { align(); }

protected:
    void changeEvent(QEvent *event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::LayoutDirectionChange) {
            align();
        }
    }

private:
    void align()
    {
        setAlignment((isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter);
    }
};

} // namespace

void followTheme(QObject *owner, const std::function<void()> &renew)
{
    renew();
    QObject::connect(VelaTheme::getInstance(), &VelaTheme::changed, owner, renew);
}

void followSections(QWidget *widget, const QStringList &keys)
{
    followTheme(widget, [widget, keys] {
        QString sheet;
        for (const QString &key : keys) {
            sheet += getStyleSheet(qPrintable(key), false);
        }
        widget->setStyleSheet(sheet);
    });
}

void styleScrollBars(QAbstractScrollArea *area)
{
    followTheme(area, [area] {
        const QString sheet = getStyleSheet("component.scrollbar", false);
        for (QScrollBar *bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
            bar->setStyleSheet(sheet);
        }
    });
}

QColor maskColor()
{
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < MiddleLightness;
    return {0, 0, 0, isDark ? MaskAlphaOnDark : MaskAlpha};
}

Stage::Stage()
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

// A sheet lets its parts take the focus each time that it is shown, which is before the stage is.
void Stage::showEvent(QShowEvent *event)
{
    const QList<QWidget *> parts = findChildren<QWidget *>();
    for (QWidget *part : parts) {
        part->setFocusPolicy(Qt::NoFocus);
    }
    QWidget::showEvent(event);
}

QLabel *createText(const QString &text, TextStyle style)
{
    auto *label = new Text(text);
    label->setTextFormat(Qt::PlainText);

    const TextStyleRow &row = TextStyles[static_cast<int>(style)];
    label->setForegroundRole(row.color);
    followTheme(label, [label, &row] {
        QFont font = QApplication::font(label);
        font.setPointSizeF(QFontInfo(font).pointSizeF() * row.size);
        font.setWeight(row.weight);
        label->setFont(font);
    });
    return label;
}
