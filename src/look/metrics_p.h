// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

// What several widgets have in common, so that they stay alike.

namespace Vela {

/// Logical pixels.
namespace Metric {

constexpr int RowHeight = 28; // height of a row in tables and trees
constexpr int FieldHeight = 28; // height of fields that code fixes, and of bars in line with them
constexpr int ButtonHeight = 32; // height of a sheet's buttons and of what stands in a row with buttons

constexpr int SheetWidth = 480; // width of a sheet that has the room
constexpr int SheetMargin = 10; // margin around a sheet's content
constexpr int SheetWindowMargin = 40; // part of its window's width that a sheet leaves free

} // namespace Metric

} // namespace Vela
