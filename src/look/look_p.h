// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "look/keys_p.h"

#include <QPixmap>
#include <QString>

#include <array>

class QWidget;

/// The widgets' door to what an application has installed: sheets, images and texts.
///
/// What is missing is logged by its registry and replaced by an empty sheet, a null pixmap, the key as text.
namespace Vela::Look {

/// The section of the style sheets, scaled for the screen.
QString sheet(Style style);

/// The image in its normal state.
QPixmap image(Image image);
/// Its name in the catalogue, for a VelaIconButton, which takes all states.
QString nameOf(Image image);
/// The size of @p pixmap in logical pixels: its pixels divided by the screen's ratio, rounded.
QSize logicalSize(const QPixmap &pixmap);

QString text(Text text);
/// @p custom, or the text where that is empty.
QString textOr(const QString &custom, Text text);
/// The text, or its fallback, with @p first and @p second in the places of %1 and %2. Nothing is logged.
QString spoken(SpokenText text, const QString &first = QString(), const QString &second = QString());

/// The theme's colour, or the standard one where it sets none.
QColor color(Color color);
using Colors = std::array<QColor, static_cast<std::size_t>(Color::Count)>;
Colors colors();
/// Sets the theme's colours; the standard ones take the place of invalid ones.
void setColors(const Colors &colors);

/// Sets the style sheet of a widget under construction. At its first sheet a widget is told of a change of style, asks
/// the new one, and Qt parses that sheet; the next one, before the widget is polished, is only kept. Both are parsed
/// anew when it gets its parent and when it is polished, so the first is one without rules, of which it is not told.
void setFirstStyleSheet(QWidget *widget, const QString &sheet);

/// Gives @p child, which has been made without a parent, its parent and its first style sheet. In the other order it
/// would be polished twice. As in that order it keeps the application's font, whatever that of the window.
void adopt(QWidget *child, QWidget *parent, const QString &sheet);

} // namespace Vela::Look
