// The clock of all measurements.
#pragma once

#include <chrono>
#include <cstdint>

namespace accessory::bench {

/// Since some moment that does not change, the same for all processes of the machine.
inline uint64_t nanoseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

}  // namespace accessory::bench
