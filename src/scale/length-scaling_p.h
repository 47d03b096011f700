// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// @p sheet with every pixel length multiplied by @p factor, as DPIinfo::getScaledStyleSheet() describes.
///
/// Defined by splitting the text at the regular expression `(\d+\.?\d*)(px)` and searching it again for the numbers,
/// each search three characters behind the start of the last match; done here in linear time.
QString scaleLengths(const QString &sheet, double factor);
