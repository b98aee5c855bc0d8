#include "bench/fan_out/Crowd.h"

#include <algorithm>

namespace accessory::bench {
namespace {

/// How many clients are on their way up at the same time.
constexpr size_t kBatch = 25;

}  // namespace

Crowd::Crowd(const std::string& way, const std::string& folder)
    : name(way), mFolder(folder), mBroadcaster("broadcaster", {way, folder}) {
    mBroadcaster.answer();
}

void Crowd::growTo(size_t clients) {
    while (mClients.size() < clients)
        addBatch(std::min(kBatch, clients - mClients.size()));
}

std::vector<double> Crowd::timeEvents(size_t count) {
    const Words times = mBroadcaster.ask({mClients.size(), count});
    std::vector<double> result(times.size());
    std::transform(times.begin(), times.end(), result.begin(),
                   [](uint64_t time) { return static_cast<double>(time) / 1000; });
    return result;
}

void Crowd::addBatch(size_t count) {
    const size_t before = mClients.size();
    for (size_t i = 0; i < count; ++i)
        mClients.push_back(std::make_unique<Child>("client", Arguments{name, mFolder}));
    for (size_t i = before; i < mClients.size(); ++i)
        mClients[i]->answer();
}

}  // namespace accessory::bench
