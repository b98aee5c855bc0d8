// The assertion: it ends the process in a build that has asked for no assertions, as this source does, and
// says what failed and where.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>

#include "common/Check.h"

#ifndef NDEBUG
#error "This program is to be built with NDEBUG."
#endif

namespace accessory::test {
namespace {

using testing::KilledBySignal;

class Registry {
  public:
    /// @param insertion what inserting gave; negative when it failed.
    static void add(int insertion, unsigned int /*pid*/) {
        ACCESSORY_ASSERT(kiAP2ManagerUnit, insertion >= 0);
    }

    static void give(const int* impl) {
        ACCESSORY_ASSERT_AS(kAccessoryManagerUnit, impl != nullptr, "impl.get()");
    }
};

TEST(AssertionDeathTest, ReportsUnitLineSignatureAndCondition) {
    EXPECT_EXIT(Registry::add(-1, 7), KilledBySignal(SIGABRT),
                "AppleiAP2/IAppleiAP2Manager\\.cpp:[0-9]+: .*Registry::add\\(int, unsigned int\\): "
                "Assertion `insertion >= 0' failed\\.");
}

TEST(AssertionDeathTest, ShowsTheTextItIsGivenInPlaceOfTheSource) {
    EXPECT_EXIT(Registry::give(nullptr), KilledBySignal(SIGABRT),
                "AccessoryManager/IAccessoryManager\\.cpp:[0-9]+: .*Registry::give\\(const int\\s?\\*\\): "
                "Assertion `impl\\.get\\(\\)' failed\\.");
}

TEST(AssertionDeathTest, ReportsAnAssertionThatAlwaysFails) {
    EXPECT_EXIT(ACCESSORY_ASSERT(kiAP2ManagerUnit, 0), KilledBySignal(SIGABRT),
                "AppleiAP2/IAppleiAP2Manager\\.cpp:[0-9]+: .*TestBody\\(\\): Assertion `0' failed\\.");
}

TEST(Assertion, LeavesTheProcessAloneWhenItsConditionHolds) {
    const int impl = 0;
    int evaluations = 0;
    Registry::add(0, 7);
    Registry::give(&impl);
    ACCESSORY_ASSERT(kiAP2ManagerUnit, ++evaluations == 1);
    EXPECT_EQ(evaluations, 1);
}

}  // namespace
}  // namespace accessory::test
