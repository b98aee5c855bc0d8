// The service that the parts of bench_scale call, in a process of its own.
#pragma once

#include <memory>
#include <string>

#include "bench/support/Child.h"

namespace accessory::bench {

inline constexpr char kScaleService[] = "scale";
inline constexpr unsigned int kAccessory = 1;

/// Once it can be reached.
std::unique_ptr<Child> startScaleService();

}  // namespace accessory::bench
