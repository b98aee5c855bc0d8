#include "bench/support/ContenderProcesses.h"

#include <algorithm>

#include "bench/support/Contender.h"

namespace accessory::bench {

ContenderProcesses::ContenderProcesses(const Contender& contender, const std::string& folder)
    : name(contender.name), mService(std::make_unique<Child>("service", Arguments{name, folder})) {
    mService->answer();
    mCaller = std::make_unique<Child>("caller", Arguments{name, folder});
    mCaller->answer();
}

std::vector<double> ContenderProcesses::timeCalls(size_t size, size_t calls) {
    const Words times = mCaller->ask({size, calls});
    std::vector<double> result(times.size());
    std::transform(times.begin(), times.end(), result.begin(),
                   [](uint64_t time) { return static_cast<double>(time) / 1000; });
    return result;
}

}  // namespace accessory::bench
