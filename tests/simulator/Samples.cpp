#include "tests/simulator/Samples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <numeric>

namespace accessory::simulator::test {

namespace {

/// The number behind @p name in a file like /proc/<pid>/status.
size_t numberBehind(const std::string& name, const std::string& path) {
    std::ifstream file(path);
    for (std::string word; file >> word;) {
        size_t number = 0;
        if (word == name && file >> number) return number;
    }
    ADD_FAILURE() << path << " has no " << name;
    return 0;
}

}  // namespace

Sample sampleOf(pid_t pid) {
    const std::string folder = "/proc/" + std::to_string(pid);
    const auto descriptors = std::filesystem::directory_iterator(folder + "/fd");
    return {numberBehind("VmRSS:", folder + "/status"), numberBehind("Threads:", folder + "/status"),
            static_cast<size_t>(std::distance(begin(descriptors), end(descriptors)))};
}

bool Range::isFlat(double part) const {
    return mean - static_cast<double>(least) <= mean * part &&
           static_cast<double>(most) - mean <= mean * part;
}

std::ostream& operator<<(std::ostream& out, const Range& range) {
    return out << range.mean << " (" << range.least << " to " << range.most << ')';
}

Range rangeOf(const std::vector<Sample>& samples, size_t Sample::*figure) {
    const auto [least, most] =
        std::minmax_element(samples.begin(), samples.end(),
                            [&](const Sample& a, const Sample& b) { return a.*figure < b.*figure; });
    const size_t sum =
        std::accumulate(samples.begin(), samples.end(), size_t{0},
                        [&](size_t before, const Sample& sample) { return before + sample.*figure; });
    return {static_cast<double>(sum) / static_cast<double>(samples.size()), (*least).*figure,
            (*most).*figure};
}

}  // namespace accessory::simulator::test
