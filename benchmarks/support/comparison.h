// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>
#include <string>

/// One side of a comparison. It loops over the state as Google Benchmark has it; what it pauses is not
/// counted.
using Side = std::function<void(benchmark::State &)>;

/// Has @p ours measured against @p floor, the shortest code that does the same work. @p what names the row:
/// letters, digits, blanks and commas. Without a @p target the ratio is only reported.
void compare(const std::string &what, std::optional<double> target, Side ours, Side floor);

/// The same for sides that measure each iteration themselves and call State::SetIterationTime().
void compareByOwnTime(const std::string &what, std::optional<double> target, Side ours, Side floor);

/// The same for sides that count the bytes of each iteration and call setBytes().
void compareBytes(const std::string &what, std::optional<double> target, Side ours, Side floor);

/// Says how many bytes the iteration counts.
void setBytes(benchmark::State &state, std::size_t bytes);

/// Measures all comparisons, or those whose name `--benchmark_filter` matches, and prints them as a table.
///
/// The two sides take turns in short slices, so that whatever else the machine does meets both; of the
/// slices' CPU times per iteration the medians are shown, and as ratio the median of the ratios of
/// neighbouring slices. The exit code tells whether anything went wrong, not how fast it was.
int runComparisons(int &argc, char **argv);
