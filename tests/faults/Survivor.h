// Survivor: this process as the one that lives on, its pool fully grown and its holdings known.
#pragma once

#include <gtest/gtest.h>

#include "tests/faults/Depot.h"
#include "tests/faults/Holdings.h"

namespace accessory::test {

/// Tests in which other processes die. SetUp() of a derived class calls settle() after its first own death.
class Survivor : public testing::Test {
  protected:
    /// Publishes the depot under depotName() and lets a crowd occupy every thread that the pool may have, so
    /// that it grows no more afterwards.
    Survivor();

    const std::string& depotName() const { return mDepotName; }

    /// Waits until nothing is held of those that died; what is held then is held for good.
    void settle();
    /// Whether this process holds, soon, exactly what it held when it settled.
    testing::AssertionResult holdsWhatItHeld() const;

    const android::sp<Depot> depot{new Depot};

  private:
    const std::string mDepotName;
    Holdings mAtFirst;
};

}  // namespace accessory::test
