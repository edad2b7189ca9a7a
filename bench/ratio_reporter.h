#pragma once

// Benchmarks that compare: every pair in one run, and the ratio of their times behind the table.

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace qvui::bench {

/// "ours takes 1.20 times the time of theirs (at most 2.00)".
inline void PrintRatio(const char* ours, const char* theirs, double ratio, double most)
{
    std::printf("%s takes %.2f times the time of %s (at most %.2f%s)\n", ours, ratio, theirs, most,
                ratio <= most ? "" : ": MISSED");
}

/// Prints as the console does and keeps the shortest processor time of every benchmark.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred || run.run_type != Run::RT_Iteration)
                continue;
            const double time = run.GetAdjustedCPUTime();
            const auto [entry, isNew] = m_times.emplace(run.run_name.function_name, time);
            if (!isNew && time < entry->second)
                entry->second = time;
        }
    }

    /// The ratio of two benchmarks; nothing when one of them did not run.
    void PrintRatio(const char* ours, const char* theirs, double most) const
    {
        const auto left = m_times.find(ours);
        const auto right = m_times.find(theirs);
        if (left != m_times.end() && right != m_times.end())
            bench::PrintRatio(ours, theirs, left->second / right->second, most);
    }

private:
    std::map<std::string, double> m_times;
};

/// The most time that one benchmark may take, as a multiple of another's.
struct Limit {
    const char* ours;
    const char* theirs;
    double most;
};

/// Runs the benchmarks, and prints the ratios behind their table.
inline void RunAndCompare(const std::vector<Limit>& limits)
{
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const Limit& limit : limits)
        reporter.PrintRatio(limit.ours, limit.theirs, limit.most);
}

}  // namespace qvui::bench
