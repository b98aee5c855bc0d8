// Samples: how much a process uses, again and again.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace accessory::simulator::test {

/// What /proc says of a process at one moment.
struct Sample {
    size_t memory = 0;  ///< resident, in KiB
    size_t threads = 0;
    size_t descriptors = 0;
};

Sample sampleOf(pid_t pid);

/// One of the figures over all samples.
struct Range {
    double mean = 0;
    size_t least = 0;
    size_t most = 0;

    /// Whether nothing lies further from the mean than @p part of it.
    bool isFlat(double part) const;
};

std::ostream& operator<<(std::ostream& out, const Range& range);

/// @param samples at least one.
Range rangeOf(const std::vector<Sample>& samples, size_t Sample::*figure);

}  // namespace accessory::simulator::test
