#include "bench/support/RatioReporter.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <utility>

namespace accessory::bench {
namespace {

constexpr int kColumnGap = 2;

// A single repetition is its own median.
bool isMedian(const benchmark::BenchmarkReporter::Run& run) {
    return run.aggregate_name == "median" || (run.repetitions == 1 && run.aggregate_name.empty());
}

int columnWidth(const std::string& title) { return static_cast<int>(title.size()) + kColumnGap; }

}  // namespace

RatioReporter::RatioReporter(std::string ours, std::vector<std::string> others)
    : ConsoleReporter(OO_Tabular), mOurs(std::move(ours)), mOthers(std::move(others)) {}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    std::copy_if(runs.begin(), runs.end(), std::back_inserter(mMedians), isMedian);
}

void RatioReporter::Finalize() {
    std::sort(mMedians.begin(), mMedians.end(),
              [](const Run& a, const Run& b) { return a.family_index < b.family_index; });
    ConsoleReporter::ReportRuns(mMedians);
    for (const Run& run : mMedians)
        enter(run);
    if (!mRows.empty()) printRatios();
}

void RatioReporter::enter(const Run& run) {
    const std::string& name = run.run_name.function_name;
    const size_t slash = name.rfind('/');
    if (run.error_occurred || slash == std::string::npos) return;
    rowOf(name.substr(0, slash)).times[name.substr(slash + 1)] = run.GetAdjustedCPUTime();
}

RatioReporter::Row& RatioReporter::rowOf(const std::string& what) {
    const auto found =
        std::find_if(mRows.begin(), mRows.end(), [&](const Row& row) { return row.what == what; });
    return found != mRows.end() ? *found : mRows.emplace_back(Row{what, {}});
}

void RatioReporter::printRatios() const {
    size_t width = 0;
    for (const Row& row : mRows)
        width = std::max(width, row.what.size());
    printHeading(static_cast<int>(width));
    for (const Row& row : mRows)
        printRow(row, static_cast<int>(width));
}

void RatioReporter::printHeading(int width) const {
    std::ostream& out = GetOutputStream();
    out << "\nThe time of '" << mOurs << "' as a multiple of the others' (below 1: it is faster)\n"
        << std::setw(width) << "";
    for (const std::string& other : mOthers)
        out << std::setw(columnWidth(other)) << other;
    out << '\n';
}

void RatioReporter::printRow(const Row& row, int width) const {
    std::ostream& out = GetOutputStream();
    out << std::left << std::setw(width) << row.what << std::right << std::fixed << std::setprecision(2);
    const auto ours = row.times.find(mOurs);
    for (const std::string& other : mOthers) {
        const auto theirs = row.times.find(other);
        out << std::setw(columnWidth(other));
        if (ours == row.times.end() || theirs == row.times.end()) {
            out << '-';
        } else {
            out << ours->second / theirs->second;
        }
    }
    out << '\n';
}

}  // namespace accessory::bench
