// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

// What several widgets have in common, so that they stay alike.

namespace Vela {

/// Logical pixels.
namespace Metric {

constexpr int RowHeight = 28; // tables and trees
constexpr int FieldHeight = 28; // fields whose height is fixed, and bars of that height
constexpr int ButtonHeight = 32; // answers of sheets, and what stands in a row with them

constexpr int SheetWidth = 480; // of a sheet that has the room
constexpr int SheetMargin = 10; // around its content
constexpr int SheetWindowMargin = 40; // what it leaves of its window's width

} // namespace Metric

namespace Color {

constexpr QColor Mask {0, 0, 0, 20}; // over a window, below its sheet
constexpr QColor Surface {255, 255, 255}; // body of a sheet

} // namespace Color

} // namespace Vela
