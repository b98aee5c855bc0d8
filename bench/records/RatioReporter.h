// RatioReporter: prints the median of each benchmark, and at the end how ours compares with its peers.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/support/Results.h"

namespace accessory::bench {

/// Benchmarks are named "operation/message/contender". The table of an operation has a row for each contender
/// and a column for each message: our time as a multiple of the contender's, below 1 when ours is faster.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    /// @param ours  the contender that the others are compared with.
    explicit RatioReporter(std::string ours);

    void ReportRuns(const std::vector<Run>& runs) override;
    /// Only now there is something to see: interleaved benchmarks all end at the end, and in any order.
    void Finalize() override;

    /// After the end: "cpu time" of each contender, and "ratio of <ours>" at each of the others.
    const Results& results() const { return mResults; }

  private:
    void enter(const Run& run);
    void compare();

    const std::string mOurs;
    std::vector<Run> mMedians;
    Results mResults;
};

}  // namespace accessory::bench
