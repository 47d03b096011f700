// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"

#include <StyleManager>

#include <QAbstractScrollArea>
#include <QFontInfo>
#include <QLabel>
#include <QPalette>
#include <QScrollBar>

namespace {

using namespace Color;

struct ColorRow
{
    QPalette::ColorRole role;
    QRgb color;
};

constexpr ColorRow Colors[] = {
    {QPalette::Window, Page},         {QPalette::WindowText, Text},
    {QPalette::Base, Surface},        {QPalette::AlternateBase, Page},
    {QPalette::Text, Text},           {QPalette::PlaceholderText, QuietText},
    {QPalette::Button, QuietSurface}, {QPalette::ButtonText, Text},
    {QPalette::BrightText, Surface},  {QPalette::Light, Surface},
    {QPalette::Midlight, Line},       {QPalette::Mid, Line},
    {QPalette::Dark, QuietText},      {QPalette::Shadow, Text},
    {QPalette::Highlight, Accent},    {QPalette::HighlightedText, Surface},
    {QPalette::Link, Accent},         {QPalette::LinkVisited, Accent},
    {QPalette::ToolTipBase, ToolTip}, {QPalette::ToolTipText, Surface},
};

struct TextStyleRow
{
    TextStyle style;
    double size; // multiple of the size of the application's font
    QFont::Weight weight;
    QRgb color;
};

constexpr TextStyleRow TextStyles[] = {
    {TextStyle::PageTitle, 1.7, QFont::DemiBold, Text},
    {TextStyle::SectionTitle, 1.15, QFont::DemiBold, Text},
    {TextStyle::Body, 1.0, QFont::Normal, Text},
    {TextStyle::Detail, 0.9, QFont::Normal, QuietText},
};

} // namespace

QPalette galleryPalette()
{
    QPalette palette;
    for (const ColorRow &row : Colors) {
        palette.setColor(row.role, QColor(row.color));
    }
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(DisabledText));
    }
    return palette;
}

void styleScrollBars(QAbstractScrollArea *area)
{
    // Once, so that a missing one is warned of once.
    static const QString sheet = getStyleSheet("component.scrollbar", false);
    for (QScrollBar *bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
        bar->setStyleSheet(sheet);
    }
}

QLabel *createText(const QString &text, TextStyle style)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);

    const TextStyleRow &row = TextStyles[static_cast<int>(style)];
    QFont font = label->font();
    font.setPointSizeF(QFontInfo(font).pointSizeF() * row.size);
    font.setWeight(row.weight);
    label->setFont(font);

    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(row.color));
    label->setPalette(palette);
    return label;
}
