#pragma once

#include <QString>

class QLabel;
class QPalette;

/// The look of the gallery itself: what stands around the library's widgets.
///
/// No widget that holds widgets of the library is given a style sheet, since it would reach into them.

/// @p logicalPixels times the screen's scale, truncated as the library does.
int scaled(int logicalPixels);

/// The palette of the whole application. The theme is a light one, so on a dark desktop whatever no style sheet covers
/// must be made light as well.
QPalette galleryPalette();

enum class TextStyle {
    PageTitle,
    SectionTitle,
    Body,
    Detail, ///< smaller and quieter
};

QLabel *createText(const QString &text, TextStyle style);
