// main() of every test program: the tests, or one role when a test started the program as its child.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/ChildRole.h"
#include "tests/support/RuntimeDirectory.h"

int main(int argc, char** argv) {
    if (accessory::test::isChild(argc, argv)) return accessory::test::runChild(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    const accessory::test::RuntimeDirectory services;
    return RUN_ALL_TESTS();
}
