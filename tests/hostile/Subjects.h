// The stubs of all five interfaces, over implementations that read all they are given.
#pragma once

#include <binder/IBinder.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/hostile/Examples.h"

namespace accessory::test {

/// A stub, what it serves, and whether it was believed.
struct Subject {
    const tools::Interface& interface;
    const android::sp<android::IBinder> stub;
    const std::function<size_t()> takeTold;  ///< calls of the implementation since the last time

    /// The code above all that are assigned.
    uint32_t firstFreeCode() const { return interface.operations.back()->code + 1; }
};

/// A fresh stub of the interface with that name, kept where a leak checker finds it.
Subject subjectOf(const std::string& name);

}  // namespace accessory::test
