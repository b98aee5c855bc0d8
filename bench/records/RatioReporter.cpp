#include "bench/records/RatioReporter.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace accessory::bench {
namespace {

constexpr char kTime[] = "cpu time";

// A single repetition is its own median.
bool isMedian(const benchmark::BenchmarkReporter::Run& run) {
    return run.aggregate_name == "median" || (run.repetitions == 1 && run.aggregate_name.empty());
}

}  // namespace

RatioReporter::RatioReporter(std::string ours) : ConsoleReporter(OO_Tabular), mOurs(std::move(ours)) {}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    std::copy_if(runs.begin(), runs.end(), std::back_inserter(mMedians), isMedian);
}

void RatioReporter::Finalize() {
    std::sort(mMedians.begin(), mMedians.end(),
              [](const Run& a, const Run& b) { return a.family_index < b.family_index; });
    ConsoleReporter::ReportRuns(mMedians);
    for (const Run& run : mMedians)
        enter(run);
    compare();
    std::fflush(stdout);
    for (const char* operation : {"encode", "decode"}) {
        printTable(std::string("Time to ") + operation + " '" + mOurs +
                       "' as a multiple of the others' (below 1: it is faster)",
                   mResults, operation, "ratio of " + mOurs, 2);
    }
}

void RatioReporter::enter(const Run& run) {
    const std::string& name = run.run_name.function_name;
    const size_t first = name.find('/');
    const size_t last = name.rfind('/');
    if (run.error_occurred || first == last) return;
    mResults.push_back({name.substr(0, first), name.substr(first + 1, last - first - 1),
                        name.substr(last + 1), kTime, "ns", run.GetAdjustedCPUTime()});
}

void RatioReporter::compare() {
    Results ratios;
    for (const Result& result : mResults) {
        const auto ours = std::find_if(mResults.begin(), mResults.end(), [&](const Result& own) {
            return own.contender == mOurs && own.setting == result.setting && own.what == result.what;
        });
        if (ours == mResults.end() || result.contender == mOurs) continue;
        ratios.push_back({result.setting, result.what, result.contender, "ratio of " + mOurs, "1",
                          ours->value / result.value});
    }
    mResults.insert(mResults.end(), ratios.begin(), ratios.end());
}

}  // namespace accessory::bench
