// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

class QIcon;
class QPixmap;
class QSize;
class QWidget;

/// For images that point along the direction of reading. The catalogue has them as they are from left to right.
namespace Vela::Look {

/// @p pixmap, turned round where @p widget is laid out from right to left.
QPixmap mirrored(const QPixmap &pixmap, const QWidget *widget);
/// The same of an icon that @p widget is about to paint with this size.
QIcon mirrored(const QIcon &icon, const QSize &size, const QWidget *widget);

} // namespace Vela::Look
