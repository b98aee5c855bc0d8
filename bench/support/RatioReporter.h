// RatioReporter: prints the median of each benchmark, and at the end how ours compares with its peers.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace accessory::bench {

/// Benchmarks are named "what/contestant". The table has a row for each "what" and a column for each
/// contestant: our time as a multiple of the contestant's, below 1 when ours is faster.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    /// @param ours    contestant that the others are compared with.
    /// @param others  the other contestants, in the order of the columns.
    RatioReporter(std::string ours, std::vector<std::string> others);

    void ReportRuns(const std::vector<Run>& runs) override;
    /// Only now there is something to see: interleaved benchmarks all end at the end, and in any order.
    void Finalize() override;

  private:
    struct Row {
        std::string what;
        std::map<std::string, double> times;  ///< processor time by contestant
    };

    void enter(const Run& run);
    Row& rowOf(const std::string& what);
    void printRatios() const;
    void printHeading(int width) const;
    void printRow(const Row& row, int width) const;

    const std::string mOurs;
    const std::vector<std::string> mOthers;
    std::vector<Run> mMedians;
    std::vector<Row> mRows;
};

}  // namespace accessory::bench
