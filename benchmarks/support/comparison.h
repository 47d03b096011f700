#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>
#include <string>

/// One side of a comparison. It loops over the state as Google Benchmark has it; what it pauses is not counted.
using Side = std::function<void(benchmark::State &)>;

/// Has @p ours measured against @p floor, the shortest code that does the same work. @p what names the row: letters,
/// digits, blanks, dots and commas. Without a @p target the ratio is only reported.
void compare(const std::string &what, std::optional<double> target, Side ours, Side floor);

/// Measures all comparisons, or those that `--benchmark_filter` picks, and prints them as a table. The two sides take
/// turns in short slices of CPU time, so that what else the machine does meets both; a slice's order is random, and the
/// median of each side's slices is shown. The exit code tells only whether anything went wrong, not how fast it was.
int runComparisons(int &argc, char **argv);
