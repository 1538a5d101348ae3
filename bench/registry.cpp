#include "registry.h"

#include <cstdio>
#include <map>

namespace registry {

namespace {

std::vector<Ratio>& ratios()
{
    static std::vector<Ratio> all;
    return all;
}

// The usual report, which also keeps the medians.
class Reporter : public benchmark::ConsoleReporter
{
public:
    Reporter() : ConsoleReporter(OO_None) {} // colours would stand in a kept report as signs

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const auto& run : runs) {
            if (run.aggregate_name == "median")
                wallMedians[run.run_name.function_name] = run.GetAdjustedRealTime();
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] = run.run_name.time_type == "manual_time"
                                                          ? run.GetAdjustedRealTime()
                                                          : run.GetAdjustedCPUTime();
            m_failed = m_failed || run.error_occurred;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] bool failed() const { return m_failed; }

    std::map<std::string, double> medians, wallMedians;

private:
    bool m_failed = false;
};

void printRatio(const Ratio& ratio, const std::map<std::string, double>& medians)
{
    const auto above = medians.find(ratio.above), below = medians.find(ratio.below);
    if (above == medians.end() || below == medians.end())
        return;
    std::printf("%-44s %12.1f / %12.1f = %5.2f", ratio.label.c_str(), above->second, below->second,
                above->second / below->second);
    if (ratio.target > 0)
        std::printf("  target %.1f", ratio.target);
    std::printf("\n");
}

} // namespace

void add(const Measure& measure)
{
    auto* const registered = benchmark::RegisterBenchmark(measure.name.c_str(), measure.run);
    registered->Unit(measure.unit)->Repetitions(measure.repetitions);
    if (measure.ownTime)
        registered->UseManualTime();
    else
        registered->MeasureProcessCPUTime();
    registered->ReportAggregatesOnly();
    if (measure.iterations > 0)
        registered->Iterations(measure.iterations);
}

void compare(const Ratio& ratio)
{
    ratios().push_back(ratio);
}

void runAll()
{
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nmedians of the CPU time, unless noted\n");
    for (const auto& ratio : ratios())
        printRatio(ratio, ratio.wall ? reporter.wallMedians : reporter.medians);
    if (reporter.failed())
        throw std::runtime_error("a benchmark failed");
}

} // namespace registry
