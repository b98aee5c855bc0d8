#include "bench/scale/Part.h"
#include "bench/support/CallCost.h"
#include "bench/support/Progress.h"

namespace accessory::bench {

void measureCostOfACall(const Options& options, Results* results) {
    const auto windows = options.pick<size_t>(40, 20, 3);
    const auto calls = options.pick<size_t>(200, 200, 20);
    progress("cost of a call: the quietest of " + std::to_string(windows) + " windows of " +
             std::to_string(calls) + " calls");
    const CallCost cost = measureCallCost(windows, calls);
    const auto add = [&](const char* side, const char* what, size_t sum) {
        const double each = static_cast<double>(sum) / static_cast<double>(cost.calls);
        results->push_back({"", side, what, "a warm small call", "1", each});
    };
    add("caller", "allocations", cost.callerAllocations);
    add("service", "allocations", cost.serviceAllocations);
    add("caller", "system calls", cost.callerSystemCalls);
    add("service", "system calls", cost.serviceSystemCalls);
}

}  // namespace accessory::bench
