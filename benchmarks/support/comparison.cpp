// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/comparison.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <utility>
#include <vector>

namespace {

constexpr int SliceCount = 31;
constexpr double SecondsPerByte = 1e-9; // bytes, too, come from Google Benchmark as times
char minimalSliceTime[] = "--benchmark_min_time=0.02";

// A side as Google Benchmark knows it.
struct Entry
{
    std::string name;
    benchmark::internal::Benchmark *benchmark;
    bool measuresItself = false;
};

struct Comparison
{
    std::string what;
    std::optional<double> target;
    Entry ours;
    Entry floor;
    bool isOfBytes = false;
};

std::vector<Comparison> &comparisons()
{
    static std::vector<Comparison> all;
    return all;
}

Entry registered(const std::string &name, Side side)
{
    return {name, benchmark::RegisterBenchmark(name.c_str(), std::move(side))};
}

// Keeps the last run instead of printing it.
class LastRun : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override { run = runs.back(); }

    Run run;
};

benchmark::BenchmarkReporter::Run runOnce(const Entry &side)
{
    LastRun reporter;
    const std::string numbered =
        "^" + side.name + "(/iterations:[0-9]*)?(/manual_time)?$"; // its name once it is calibrated
    if (benchmark::RunSpecifiedBenchmarks(&reporter, numbered) != 1 || reporter.run.error_occurred) {
        std::fprintf(stderr, "%s failed: %s\n", side.name.c_str(), reporter.run.error_message.c_str());
        std::exit(EXIT_FAILURE);
    }
    return reporter.run;
}

// Lets Google Benchmark find how many iterations make up a slice, and keeps to that number.
void calibrate(const Entry &side)
{
    side.benchmark->Iterations(runOnce(side).iterations);
}

// Nanoseconds of CPU time, or of what the side has measured, of one iteration in a new slice.
double slice(const Entry &side)
{
    const auto run = runOnce(side);
    const double time = side.measuresItself ? run.real_accumulated_time : run.cpu_accumulated_time;
    return time * 1e9 / static_cast<double>(run.iterations);
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

using Units = std::array<std::pair<double, const char *>, 4>;

constexpr Units TimeUnits {{{1e9, "s"}, {1e6, "ms"}, {1e3, "us"}, {1.0, "ns"}}};
constexpr Units ByteUnits {{{1e9, "GB"}, {1e6, "MB"}, {1e3, "KB"}, {1.0, "B"}}};

std::string amount(double value, const Units &units)
{
    const auto *unit = std::find_if(units.begin(), units.end() - 1,
                                    [value](const auto &candidate) { return value >= candidate.first; });
    char text[32];
    std::snprintf(text, sizeof text, "%.3g %s", value / unit->first, unit->second);
    return text;
}

std::string verdict(double ratio, std::optional<double> target)
{
    if (!target) {
        return "none";
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.2f%s", *target, ratio <= *target ? "" : ", missed");
    return text;
}

void printHead()
{
    std::printf("| %-50s | %8s | %8s | %6s | %-12s |\n", "what", "ours", "floor", "ratio", "target");
    std::printf("|%s|%s|%s|%s|%s|\n", std::string(52, '-').c_str(),
                "---------:", "---------:", "-------:", std::string(14, '-').c_str());
}

void measure(const Comparison &comparison)
{
    calibrate(comparison.ours);
    calibrate(comparison.floor);
    std::vector<double> ours;
    std::vector<double> floor;
    std::vector<double> ratios;
    for (int i = 0; i < SliceCount; ++i) {
        ours.push_back(slice(comparison.ours));
        floor.push_back(slice(comparison.floor));
        ratios.push_back(ours.back() / floor.back());
    }
    const double ratio = median(ratios);
    const Units &units = comparison.isOfBytes ? ByteUnits : TimeUnits;
    std::printf("| %-50s | %8s | %8s | %6.2f | %-12s |\n", comparison.what.c_str(), amount(median(ours), units).c_str(),
                amount(median(floor), units).c_str(), ratio, verdict(ratio, comparison.target).c_str());
    std::fflush(stdout);
}

} // namespace

void compare(const std::string &what, std::optional<double> target, Side ours, Side floor)
{
    comparisons().push_back(
        {what, target, registered(what + "/ours", std::move(ours)), registered(what + "/floor", std::move(floor))});
}

void compareByOwnTime(const std::string &what, std::optional<double> target, Side ours, Side floor)
{
    compare(what, target, std::move(ours), std::move(floor));
    for (Entry *side : {&comparisons().back().ours, &comparisons().back().floor}) {
        side->measuresItself = true;
        side->benchmark->UseManualTime();
    }
}

void compareBytes(const std::string &what, std::optional<double> target, Side ours, Side floor)
{
    compareByOwnTime(what, target, std::move(ours), std::move(floor));
    comparisons().back().isOfBytes = true;
    for (const Entry *side : {&comparisons().back().ours, &comparisons().back().floor}) {
        side->benchmark->Iterations(1); // bytes do not need many
    }
}

void setBytes(benchmark::State &state, std::size_t bytes)
{
    state.SetIterationTime(static_cast<double>(bytes) * SecondsPerByte);
}

int runComparisons(int &argc, char **argv)
{
    std::vector<char *> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, minimalSliceTime);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return EXIT_FAILURE;
    }

    const std::regex picked(benchmark::GetBenchmarkFilter());
    printHead();
    for (const Comparison &comparison : comparisons()) {
        if (std::regex_search(comparison.what, picked)) {
            measure(comparison);
        }
    }
    return EXIT_SUCCESS;
}
