#include "support/comparison.h"

#include <algorithm>
#include <cstdio>
#include <regex>
#include <utility>
#include <vector>

namespace {

constexpr const char *OursSuffix = "/ours";
constexpr const char *FloorSuffix = "/floor";

struct Comparison
{
    std::string what;
    std::optional<double> target;
};

std::vector<Comparison> &comparisons()
{
    static std::vector<Comparison> all;
    return all;
}

/// Keeps the CPU time of one iteration in each slice, in nanoseconds, apart for the two sides.
class SliceCollector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                failed = true;
            } else if (run.run_type == Run::RT_Iteration) {
                const bool isOurs = run.run_name.function_name.find(OursSuffix) != std::string::npos;
                (isOurs ? ours : floor).push_back(run.cpu_accumulated_time * 1e9 / static_cast<double>(run.iterations));
            }
        }
    }

    std::vector<double> ours;
    std::vector<double> floor;
    bool failed = false;
};

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string duration(double nanoseconds)
{
    constexpr std::pair<double, const char *> Units[] = {{1e9, "s"}, {1e6, "ms"}, {1e3, "us"}, {1.0, "ns"}};
    const auto *unit = std::find_if(std::begin(Units), std::end(Units) - 1,
                                    [nanoseconds](const auto &candidate) { return nanoseconds >= candidate.first; });
    char text[32];
    std::snprintf(text, sizeof text, "%.3g %s", nanoseconds / unit->first, unit->second);
    return text;
}

std::string verdict(double ratio, std::optional<double> target)
{
    if (!target) {
        return "";
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.2f%s", *target, ratio <= *target ? "" : " missed");
    return text;
}

void printHead()
{
    std::printf("| %-56s | %8s | %8s | %6s | %-11s |\n", "what", "ours", "floor", "ratio", "target");
    std::printf("|%s|%s|%s|%s|%s|\n", std::string(58, '-').c_str(), "---------:", "---------:", "-------:",
                std::string(13, '-').c_str());
}

void printRow(const Comparison &comparison, const SliceCollector &slices)
{
    const double ours = median(slices.ours);
    const double floor = median(slices.floor);
    const double ratio = ours / floor;
    std::printf("| %-56s | %8s | %8s | %6.2f | %-11s |\n", comparison.what.c_str(), duration(ours).c_str(),
                duration(floor).c_str(), ratio, verdict(ratio, comparison.target).c_str());
    std::fflush(stdout);
}

} // namespace

void compare(const std::string &what, std::optional<double> target, Side ours, Side floor)
{
    comparisons().push_back({what, target});
    benchmark::RegisterBenchmark((what + OursSuffix).c_str(), std::move(ours));
    benchmark::RegisterBenchmark((what + FloorSuffix).c_str(), std::move(floor));
}

int runComparisons(int &argc, char **argv)
{
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    char slices[] = "--benchmark_repetitions=31";
    char sliceTime[] = "--benchmark_min_time=0.02";
    std::vector<char *> arguments{argv[0], interleave, slices, sliceTime};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return EXIT_FAILURE;
    }

    const std::string filter = benchmark::GetBenchmarkFilter();
    const std::regex picked(filter == "all" ? "" : filter);
    bool failed = false;
    printHead();
    for (const Comparison &comparison : comparisons()) {
        if (!std::regex_search(comparison.what, picked)) {
            continue;
        }
        SliceCollector collector;
        benchmark::RunSpecifiedBenchmarks(&collector, "^" + comparison.what + "/");
        if (collector.failed) {
            failed = true;
        } else {
            printRow(comparison, collector);
        }
    }
    return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}
