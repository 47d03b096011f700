// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRgb>
#include <QString>

class QAbstractScrollArea;
class QLabel;
class QPalette;

/// The look of the gallery itself: what stands around the library's widgets.
///
/// No widget that holds widgets of the library is given a style sheet, since it would reach into them.

namespace Color {

constexpr QRgb Text = 0xFF17202B;
constexpr QRgb QuietText = 0xFF45525F;
constexpr QRgb DisabledText = 0xFF667382;
constexpr QRgb Surface = 0xFFFFFFFF;
constexpr QRgb Page = 0xFFF5F7FA;
constexpr QRgb QuietSurface = 0xFFE6ECF3;
constexpr QRgb Line = 0xFFE4E9EF;
constexpr QRgb Accent = 0xFF2160C4;
constexpr QRgb Warning = 0xFFA92732;
constexpr QRgb ToolTip = 0xFF2B3542;

} // namespace Color

/// The palette of the whole application. The theme is a light one, so on a dark desktop whatever no style sheet covers
/// must be made light as well.
QPalette galleryPalette();

enum class TextStyle {
    PageTitle,
    SectionTitle,
    Body,
    Detail, ///< smaller and quieter
};

/// Gives @p area the scroll bars of the theme.
void styleScrollBars(QAbstractScrollArea *area);

QLabel *createText(const QString &text, TextStyle style);
