// Counts that a peer made up: what no transaction can carry counts as an allocation that failed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/RecordMask.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using testing::Contains;
using testing::Not;

constexpr int64_t kMostBytes = 1024 * 1024 - 8 * 1024;
constexpr int64_t kMostHalves = kMostBytes / 2;
constexpr int64_t kMostLanes = kMostBytes / 4;

/// The reader gives no record for a count of @p tooMany at the end of @p before, and logs the name of the
/// array.
template <typename Record>
void expectRefused(const Words& before, int64_t tooMany, const char* array) {
    for (const int64_t count : {tooMany, int64_t{0x7fffffff}, int64_t{0x80000000}, int64_t{0xffffffff}}) {
        Words words = before;
        words.i32(count).i32(0).i32(0);
        const LogCatcher log;
        EXPECT_EQ(nullptr, received<Record>(words)) << array << ' ' << count;
        EXPECT_THAT(log.lines(), Contains(LoggedCheck(kRecordTag, "FromParcel", array)).Times(1)) << count;
    }
}

TEST(ArrayLimit, HoldsForTheArraysOfTheRoute) {
    expectRefused<IRouteGuidaceUpdateInfo>(Words().i32(0x1), kMostHalves + 1, "info->displayComponentID");
    expectRefused<IRouteGuidaceUpdateInfo>(Words().i32(0x2001).i32(1).halves({7}), kMostHalves,
                                           "info->routeGuidanceManeuverCurrentList");
}

TEST(ArrayLimit, HoldsForTheArraysOfAManeuver) {
    using Maneuver = IRuoteGuidanceManeuverUpdateInfo;
    expectRefused<Maneuver>(Words().i32(0x1), kMostHalves + 1, "info->routeGuidanceDisplayComponentID");
    expectRefused<Maneuver>(Words().i32(0x401).i32(1).halves({7}), kMostHalves, "info->junctionElementAngel");
}

TEST(ArrayLimit, HoldsForTheArraysOfLaneGuidance) {
    using Lanes = ILaneGuidanceInformation;
    expectRefused<Lanes>(Words().i32(0x1), kMostHalves + 1, "info->routeGuidanceDisplayComponentID");
    expectRefused<Lanes>(Words().i32(0x4), kMostLanes + 1, "info->laneInformation");
    expectRefused<Lanes>(Words().i32(0x4).i32(1).i32(0x4), kMostHalves, "curLaneInformation->laneAngle");
}

TEST(ArrayLimit, LetsPassWhatATransactionCanCarry) {
    const LogCatcher log;
    const auto route = received<IRouteGuidaceUpdateInfo>(Words().i32(0x1).i32(kMostHalves));
    ASSERT_NE(nullptr, route);
    EXPECT_EQ(kMostHalves, route->getDisplayIdCnt());
    EXPECT_EQ(0, route->getDisplayID()[kMostHalves - 1]);
    const auto lanes = received<ILaneGuidanceInformation>(Words().i32(0x4).i32(kMostLanes));
    ASSERT_NE(nullptr, lanes);
    EXPECT_EQ(kMostLanes, lanes->getLaneInformationCnt());
    EXPECT_EQ(0u, lanes->getLaneInformation()[kMostLanes - 1].mask);
    EXPECT_THAT(log.lines(),
                Not(Contains(LoggedCheck(kRecordTag, "FromParcel", "info->displayComponentID"))));
    EXPECT_THAT(log.lines(), Not(Contains(LoggedCheck(kRecordTag, "FromParcel", "info->laneInformation"))));
}

TEST(ArrayLimit, IsOneForAllArraysOfARecord) {
    Words words = Words().i32(0x4).i32(1000);
    for (int lane = 0; lane < 1000; ++lane)
        words.i32(0x4).i32(kMostHalves / 4);
    const LogCatcher log;
    EXPECT_EQ(nullptr, received<ILaneGuidanceInformation>(words));
    EXPECT_THAT(log.lines(),
                Contains(LoggedCheck(kRecordTag, "FromParcel", "curLaneInformation->laneAngle")).Times(1));
    EXPECT_THAT(log.lines(), Contains(LoggedStatusCheck(kRecordTag, "FromParcel")).Times(testing::Le(3)));
}

}  // namespace
}  // namespace accessory::test
