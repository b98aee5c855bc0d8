#include "bench/support/Statistics.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace accessory::bench {

double percentile(std::vector<double> samples, double share) {
    if (samples.empty()) return 0;
    const auto rank = static_cast<size_t>(share * static_cast<double>(samples.size()));
    const auto place = samples.begin() + static_cast<ptrdiff_t>(std::min(rank, samples.size() - 1));
    std::nth_element(samples.begin(), place, samples.end());
    return *place;
}

double slope(const std::vector<double>& x, const std::vector<double>& y) {
    const auto count = static_cast<double>(x.size());
    const double meanX = std::accumulate(x.begin(), x.end(), 0.0) / count;
    const double meanY = std::accumulate(y.begin(), y.end(), 0.0) / count;
    double together = 0;
    double alone = 0;
    for (size_t i = 0; i < x.size(); ++i) {
        together += (x[i] - meanX) * (y[i] - meanY);
        alone += (x[i] - meanX) * (x[i] - meanX);
    }
    return alone == 0 ? 0 : together / alone;
}

}  // namespace accessory::bench
