// Two children: a service that counts its allocations from call to call, and a caller. Allocations are
// counted without a trace, system calls under one, since a tracer's stops would take the service out of its
// stride.
#include "bench/support/CallCost.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <stdexcept>

#include "bench/support/Child.h"
#include "bench/support/Folder.h"
#include "bench/support/Heap.h"
#include "bench/support/IdleManager.h"
#include "bench/support/ManagerService.h"
#include "bench/support/Payload.h"
#include "bench/support/SystemCallTrace.h"

namespace accessory::bench {
namespace {

using android::sp;

constexpr unsigned int kAccessory = 1;
constexpr char kName[] = "cost";
constexpr size_t kWarmUp = 200;

class CountingManager : public IdleManager {
  public:
    int AcceptCall(unsigned int, int, const char* text) override {
        countSinceLastCall();
        return static_cast<int>(answerTo(text, claimedSize(text)));
    }
    /// Tells the allocations of all calls since it was asked last, its own included.
    int getEASessionCount(unsigned int) override {
        countSinceLastCall();
        return mTotal.exchange(0);
    }

  private:
    /// From one call to the next on the same thread lies all that serving a call takes.
    void countSinceLastCall() {
        thread_local size_t tBefore = allocations();
        const size_t now = allocations();
        mTotal += static_cast<int>(now - tBefore);
        tBefore = now;
    }

    std::atomic<int> mTotal{0};
};

void playService(Channel& conductor, const Arguments& /*arguments*/) {
    serveManager(new CountingManager, kName, [&] { conductor.send({}); });
}

void callTimes(IAppleiAP2Manager& manager, Payload& payload, size_t calls) {
    for (size_t i = 0; i < calls; ++i) {
        payload.stamp();
        const int answer = manager.AcceptCall(kAccessory, 0, payload.data());
        if (static_cast<uint32_t>(answer) != payload.expected()) throw std::runtime_error("a wrong answer");
    }
}

/// @return the allocations of the caller and of the service.
Words countAllocations(IAppleiAP2Manager& manager, Payload& payload, size_t calls) {
    manager.getEASessionCount(kAccessory);
    const size_t before = allocations();
    callTimes(manager, payload, calls);
    const size_t after = allocations();
    return {after - before, static_cast<uint64_t>(manager.getEASessionCount(kAccessory))};
}

/// Each order is a number of calls, and whether they are traced; nobody waits for the answer of those that
/// are.
void playCaller(Channel& conductor, const Arguments& /*arguments*/) {
    const sp<IAppleiAP2Manager> manager = managerNamed(kName);
    Payload payload(kSmallestPayload);
    callTimes(*manager, payload, kWarmUp);
    conductor.send({});
    for (Words order; conductor.receive(&order);) {
        if (order.at(1) == 0) {
            conductor.send(countAllocations(*manager, payload, order.at(0)));
        } else {
            callTimes(*manager, payload, kWarmUp);
            beginCounting();
            callTimes(*manager, payload, order.at(0));
            endCounting();
        }
    }
}

const RoleRegistration kService("cost service", playService);
const RoleRegistration kCaller("cost caller", playCaller);

}  // namespace

CallCost measureCallCost(size_t windows, size_t callsAWindow) {
    const Folder folder;
    Child service("cost service");
    service.answer();
    Child caller("cost caller");
    caller.answer();
    constexpr size_t kMost = std::numeric_limits<size_t>::max();
    CallCost least{callsAWindow, kMost, kMost, kMost, kMost};
    for (size_t i = 0; i < windows; ++i) {
        const Words counts = caller.ask({callsAWindow, 0});
        least.callerAllocations = std::min(least.callerAllocations, size_t{counts.at(0)});
        least.serviceAllocations = std::min(least.serviceAllocations, size_t{counts.at(1)});
    }
    SystemCallTrace trace({service.pid(), caller.pid()});
    for (size_t i = 0; i < windows; ++i) {
        caller.tell({callsAWindow, 1});
        const auto counts = trace.count();
        least.callerSystemCalls = std::min(least.callerSystemCalls, counts.at(caller.pid()));
        least.serviceSystemCalls = std::min(least.serviceSystemCalls, counts.at(service.pid()));
    }
    return least;
}

}  // namespace accessory::bench
