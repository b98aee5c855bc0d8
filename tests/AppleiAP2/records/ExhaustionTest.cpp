// Arrays of the route guidance records for which there is no memory: copies that a setter cannot make, and
// what a reader makes of them. A program of its own: it replaces the heap's entrance.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include "tests/AppleiAP2/notifier/ExhaustedHeap.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::Contains;

constexpr uint32_t kFew = 2'000;              ///< 16-bit values for which there is memory
constexpr uint32_t kMany = 40'000;            ///< and for which there is none
constexpr size_t kLarge = size_t{2} * kMany;  ///< bytes

/// Bytes in use, as far as the heap's lists for small pieces do not hide them.
size_t inUse() { return mallinfo2().uordblks; }

TEST(SettersWithoutMemory, LeaveAnArrayAbsent) {
    const std::vector<uint16_t> values(kMany, 7);
    const sp<IRouteGuidaceUpdateInfo> route = new IRouteGuidaceUpdateInfo;
    route->setRouteGuidanceState(1).setDisplayID(values.data(), 2);
    ASSERT_EQ(0x3u, route->getMask());
    {
        const ExhaustedHeap exhausted(kLarge);
        route->setDisplayID(values.data(), kMany);
    }
    EXPECT_EQ(0x2u, route->getMask());
    EXPECT_EQ(0u, route->getDisplayIdCnt());
    EXPECT_EQ(nullptr, route->getDisplayID());
}

TEST(SettersWithoutMemory, LeaveLanesAbsentAndGiveBackWhatTheyHad) {
    std::vector<int16_t> angles(kMany, 45);
    const std::vector<LaneInformation> lanes = {{0x4, 0, 0, kFew, angles.data(), 0},
                                                {0x4, 0, 0, kMany, angles.data(), 0},
                                                {0x4, 0, 0, kFew, angles.data(), 0}};
    const sp<ILaneGuidanceInformation> record = new ILaneGuidanceInformation;
    record->setLaneGuidanceIndex(4);
    const size_t before = inUse();
    record->setLaneInformation(lanes.data(), 1);
    ASSERT_EQ(0x6u, record->getMask());
    ASSERT_GT(inUse(), before);
    {
        const ExhaustedHeap exhausted(kLarge);
        record->setLaneInformation(lanes.data(), 3);
    }
    EXPECT_EQ(0x2u, record->getMask());
    EXPECT_EQ(0u, record->getLaneInformationCnt());
    EXPECT_EQ(nullptr, record->getLaneInformation());
    EXPECT_LE(inUse(), before + 1024) << "no copy is lost, small pieces aside";
}

/// The reader gives no record for what @p words hold, and names @p array.
template <typename Record>
void expectNone(Words words, uint32_t count, size_t width, const char* array) {
    words.i32(count);
    for (size_t word = 0; word < count * width / 4; ++word)
        words.i32(0);
    android::Parcel parcel;
    words.putInto(parcel);
    const LogCatcher log;
    sp<Record> record;
    {
        const ExhaustedHeap exhausted(kLarge);
        record = Record::FromParcel(parcel);
    }
    EXPECT_EQ(nullptr, record) << array;
    EXPECT_THAT(log.lines(), Contains(LoggedCheck(kRecordTag, "FromParcel", array)).Times(1));
    EXPECT_THAT(log.lines(), testing::Not(Contains(LoggedStatusCheck(kRecordTag, "FromParcel")))) << array;
}

TEST(ReadersWithoutMemory, GiveNoRecordAndNameTheArray) {
    using Route = IRouteGuidaceUpdateInfo;
    using Maneuver = IRuoteGuidanceManeuverUpdateInfo;
    using Lanes = ILaneGuidanceInformation;
    expectNone<Route>(Words().i32(0x1), kMany, 2, "info->displayComponentID");
    expectNone<Route>(Words().i32(0x2000), kMany, 2, "info->routeGuidanceManeuverCurrentList");
    expectNone<Maneuver>(Words().i32(0x1), kMany, 2, "info->routeGuidanceDisplayComponentID");
    expectNone<Maneuver>(Words().i32(0x400), kMany, 2, "info->junctionElementAngel");
    expectNone<Lanes>(Words().i32(0x1), kMany, 2, "info->routeGuidanceDisplayComponentID");
    expectNone<Lanes>(Words().i32(0x4), kMany, 4, "info->laneInformation");
    expectNone<Lanes>(Words().i32(0x4).i32(1).i32(0x4), kMany, 2, "curLaneInformation->laneAngle");
}

}  // namespace
}  // namespace accessory::test
