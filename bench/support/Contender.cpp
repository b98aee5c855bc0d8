// The register of contenders, and the two roles that the processes of each play.
#include "bench/support/Contender.h"

#include <algorithm>
#include <stdexcept>

#include "bench/support/Child.h"
#include "bench/support/Clock.h"

namespace accessory::bench {
namespace {

std::vector<Contender>& entries() {
    static std::vector<Contender> all;
    return all;
}

const Contender& contenderNamed(const std::string& name) {
    const auto& all = contenders();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Contender& c) { return c.name == name; });
    if (found == all.end()) throw std::runtime_error("no contender " + name);
    return *found;
}

void callAndCheck(Caller& caller, const Payload& payload) {
    if (caller.call(payload) != payload.expected())
        throw std::runtime_error("the service received something else than was sent");
}

/// @return how long each call took, in nanoseconds, the payload's change and the check of the answer
/// included.
Words timeCalls(Caller& caller, size_t size, size_t count) {
    Payload payload(size);
    payload.askForChecksum();
    callAndCheck(caller, payload);
    Words times(count);
    uint64_t before = nanoseconds();
    for (uint64_t& time : times) {
        payload.stamp();
        callAndCheck(caller, payload);
        const uint64_t after = nanoseconds();
        time = after - before;
        before = after;
    }
    return times;
}

/// Arguments: the contender, the folder.
void playService(Channel& conductor, const Arguments& arguments) {
    contenderNamed(arguments.at(0)).serve(arguments.at(1), [&] { conductor.send({}); });
}

/// Arguments: the contender, the folder. Each order is a payload's size and a number of calls.
void playCaller(Channel& conductor, const Arguments& arguments) {
    const auto caller = contenderNamed(arguments.at(0)).connect(arguments.at(1));
    conductor.send({});
    Words order;
    while (conductor.receive(&order))
        conductor.send(timeCalls(*caller, order.at(0), order.at(1)));
}

const RoleRegistration kService("service", playService);
const RoleRegistration kCaller("caller", playCaller);

}  // namespace

ContenderRegistration::ContenderRegistration(const Contender& contender) { entries().push_back(contender); }

const std::vector<Contender>& contenders() {
    auto& all = entries();
    std::sort(all.begin(), all.end(),
              [](const Contender& a, const Contender& b) { return a.place < b.place; });
    return all;
}

}  // namespace accessory::bench
