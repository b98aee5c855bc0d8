// The register of ways, and the two roles of their processes.
#include "bench/fan_out/FanOut.h"

#include <algorithm>
#include <stdexcept>

#include "bench/fan_out/Tally.h"
#include "bench/support/Child.h"
#include "bench/support/Clock.h"

namespace accessory::bench {
namespace {

std::vector<FanOut>& entries() {
    static std::vector<FanOut> all;
    return all;
}

const FanOut& fanOutNamed(const std::string& name) {
    const auto& all = fanOuts();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const FanOut& one) { return one.name == name; });
    if (found == all.end()) throw std::runtime_error("no such way: " + name);
    return *found;
}

/// Raises events one at a time. @return how long each took until the last client had it, in nanoseconds.
Words timeEvents(Broadcaster& broadcaster, Tally& tally, uint32_t clients, size_t count) {
    static uint32_t event = 0;
    broadcaster.await(clients);
    Words times(count);
    for (uint64_t& time : times) {
        tally.expect(clients);
        const uint64_t before = nanoseconds();
        broadcaster.raise(++event);
        tally.awaitAll();
        time = nanoseconds() - before;
    }
    return times;
}

/// Arguments: the way, the folder. Each order is how many clients there are, and a number of events.
void playBroadcaster(Channel& conductor, const Arguments& arguments) {
    Tally tally(arguments.at(1), arguments.at(0));
    const auto broadcaster = fanOutNamed(arguments.at(0)).broadcast(arguments.at(1));
    conductor.send({});
    Words order;
    while (conductor.receive(&order))
        conductor.send(timeEvents(*broadcaster, tally, static_cast<uint32_t>(order.at(0)), order.at(1)));
}

/// Arguments: the way, the folder. Every event has the number after the one before it; a client that misses
/// one stops counting, and the broadcaster waits in vain.
void playClient(Channel& conductor, const Arguments& arguments) {
    Tally tally(arguments.at(1), arguments.at(0));
    uint32_t last = 0;
    const Heard heard = [&](uint32_t event) {
        const bool next = last == 0 || event == last + 1;
        last = event;
        if (next) tally.count();
    };
    fanOutNamed(arguments.at(0)).listen(arguments.at(1), heard, [&] { conductor.send({}); });
}

const RoleRegistration kBroadcaster("broadcaster", playBroadcaster);
const RoleRegistration kClient("client", playClient);

}  // namespace

FanOutRegistration::FanOutRegistration(const FanOut& fanOut) { entries().push_back(fanOut); }

const std::vector<FanOut>& fanOuts() {
    auto& all = entries();
    std::sort(all.begin(), all.end(), [](const FanOut& a, const FanOut& b) { return a.place < b.place; });
    return all;
}

}  // namespace accessory::bench
