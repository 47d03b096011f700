// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <limits>

/// @p value cut toward zero to an integer. What is out of range, infinity and NaN too, gives the lowest integer, which
/// is what the conversion of x86-64 gives: sheets come out alike everywhere.
inline int truncated(double value)
{
    using Limits = std::numeric_limits<int>;
    const bool isInRange = value > Limits::min() - 1.0 && value < Limits::max() + 1.0;
    return isInRange ? static_cast<int>(value) : Limits::min();
}
