// What is told of a row of samples.
#pragma once

#include <utility>
#include <vector>

namespace accessory::bench {

/// @param share    0.5 for the median, 0.99 for what one of a hundred exceeds.
/// @param samples  in any order; taken by value because it is sorted partly.
/// @return the sample at that share; 0 when there are none.
double percentile(std::vector<double> samples, double share);

inline double median(std::vector<double> samples) { return percentile(std::move(samples), 0.5); }

/// The slope of the straight line that lies closest to the points.
double slope(const std::vector<double>& x, const std::vector<double>& y);

}  // namespace accessory::bench
