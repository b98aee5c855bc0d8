// A test, or a child that a test has started.
#include <gtest/gtest.h>

#include "bench/support/Child.h"

int main(int argc, char** argv) {
    if (accessory::bench::runAsChild(argc, argv)) return 0;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
