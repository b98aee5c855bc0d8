// Contest: contenders side by side, in rounds that take turns, so that the load of a shared machine hits all
// of them alike.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "bench/support/Options.h"
#include "bench/support/Results.h"

namespace accessory::bench {

inline constexpr size_t kKibi = 1024;
/// The payloads of all contests, in bytes.
inline constexpr size_t kPayloadSizes[] = {16, kKibi, 64 * kKibi, 512 * kKibi};

/// Who is compared with whom.
struct Comparison {
    std::string ours;
    std::vector<std::string> others;  ///< all when empty
};

/// Runs all contenders that the options want, in both settings. One whose process fails is told of on stderr
/// and left out from there on.
///
/// Measures of each contender: "p50" and "p99" in microseconds, each the median of what the rounds told. Of
/// each of ours against each other one, "ratio of <ours>", at the other's name: the median over the
/// rounds of their medians' ratio.
/// @param failed  set when a contender failed.
Results runContest(const Options& options, const std::vector<Comparison>& comparisons, bool* failed);

/// The tables of such results.
void printContest(const Results& results, const std::vector<Comparison>& comparisons);

/// "16 B", "64 KiB".
std::string sizeName(size_t bytes);

}  // namespace accessory::bench
