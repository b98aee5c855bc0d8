// The route guidance records: their log lines, their hazards, and how they take and give their arrays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/RecordMask.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::ElementsAre;

TEST(RouteGuidance, WritersAnnounceTheMask) {
    const LogCatcher log;
    sp<IRouteGuidaceUpdateInfo> route = new IRouteGuidaceUpdateInfo;
    route->mMask = 0xffc00000;
    written(route);
    written(sp<IRuoteGuidanceManeuverUpdateInfo>(new IRuoteGuidanceManeuverUpdateInfo));
    sp<ILaneGuidanceInformation> lane = new ILaneGuidanceInformation;
    lane->setLaneGuidanceIndex(4);
    written(lane);
    EXPECT_THAT(
        log.lines(),
        ElementsAre(
            Logged(ANDROID_LOG_DEBUG, kRecordTag, "RouteGuidaceUpdateInfo writeToParcel mask 0xffc00000"),
            Logged(ANDROID_LOG_DEBUG, kRecordTag, "RuoteGuidanceManeuverUpdateInfo writeToParcel mask 0x0"),
            Logged(ANDROID_LOG_DEBUG, kRecordTag, "ILaneGuidanceInformation writeToParcel mask 0x2")));
}

TEST(RouteGuidance, ReadersOfManeuversAndLanesAnnounceTheMaskInOneTextAndTheRouteReaderNothing) {
    const LogCatcher log;
    received<IRouteGuidaceUpdateInfo>(Words().i32(0xffc00000));
    received<IRuoteGuidanceManeuverUpdateInfo>(Words().i32(0xffff0000));
    received<ILaneGuidanceInformation>(Words().i32(0x10));
    EXPECT_THAT(log.lines(),
                ElementsAre(Logged(ANDROID_LOG_DEBUG, kRecordTag,
                                   "IRuoteGuidanceManeuverUpdateInfo FromParcel mask 0xffff0000"),
                            Logged(ANDROID_LOG_DEBUG, kRecordTag,
                                   "IRuoteGuidanceManeuverUpdateInfo FromParcel mask 0x10")));
}

TEST(RouteGuidance, AnEmptyIdentifierArrayIsItsCountAlone) {
    sp<IRouteGuidaceUpdateInfo> record = new IRouteGuidaceUpdateInfo;
    record->mMask = 0x1;
    EXPECT_EQ(Words().i32(0x1).i32(0), written(record));
    const auto read = received<IRouteGuidaceUpdateInfo>(Words().i32(0x3).i32(0).i32(6));
    EXPECT_EQ(0u, read->getDisplayIdCnt());
    EXPECT_EQ(nullptr, read->getDisplayID());
    EXPECT_EQ(6, read->getRouteGuidanceState());
}

/// A count of 0 for @p bit, and a field behind it, read back as no array and that field.
template <typename Record, typename Count, typename Entry, typename Next>
void expectEmptyArray(int bit, Count (Record::*count)() const, const Entry* (Record::*data)() const,
                      Next (Record::*next)() const, int nextBit) {
    const LogCatcher log;
    const auto read = received<Record>(Words().i32(1 << bit | 1 << nextBit).i32(0).i32(6));
    ASSERT_NE(nullptr, read) << bit;
    EXPECT_EQ(0u, ((*read).*count)()) << bit;
    EXPECT_EQ(nullptr, ((*read).*data)()) << bit;
    EXPECT_EQ(6, ((*read).*next)()) << bit;
    EXPECT_THAT(log.lines(), testing::Not(testing::Contains(LoggedStatusCheck(kRecordTag, "FromParcel"))));
}

TEST(RouteGuidance, AnEmptyArrayOfAnyRecordReadsBackAsNone) {
    using Route = IRouteGuidaceUpdateInfo;
    expectEmptyArray<Route>(13, &Route::getRouteGuidanceManeuverInCurrentListCnt,
                            &Route::getRouteGuidanceManeuverCurrentList,
                            &Route::getRouteGuidanceManeuverCount, 14);
    using Maneuver = IRuoteGuidanceManeuverUpdateInfo;
    expectEmptyArray<Maneuver>(0, &Maneuver::getRouteGuidanceDisplayComponentIDCnt,
                               &Maneuver::getRouteGuidanceDisplayComponentID, &Maneuver::getIndex, 1);
    expectEmptyArray<Maneuver>(10, &Maneuver::getJunctionElementAngelCnt, &Maneuver::getJunctionElementAngel,
                               &Maneuver::getJunctionElementExitAngel, 11);
    using Lanes = ILaneGuidanceInformation;
    expectEmptyArray<Lanes>(0, &Lanes::getRouteGuidanceDisplayComponentIDCnt,
                            &Lanes::getRouteGuidanceDisplayComponentID, &Lanes::getLaneGuidanceIndex, 1);
}

TEST(RouteGuidance, ANullDistanceToTheNextManeuverStopsTheWriting) {
    const auto record = RouteGuidanceSample::filled();
    record->mMask = 0x3ffc00;
    record->mDistanceToNextManeuverDisplayStr = nullptr;
    const LogCatcher log;
    EXPECT_EQ(Words().i32(0x3ffc00).i32(1010), written(record));
    EXPECT_THAT(log.lines(), ElementsAre(testing::_, LoggedCheck(kRecordTag, "writeToParcel", "tmpStr")));
}

TEST(RouteGuidance, ANullSourceNameStopsTheWriting) {
    const auto record = RouteGuidanceSample::filled();
    record->mMask = 0x3c0000;
    record->mSourceName = nullptr;
    const LogCatcher log;
    EXPECT_EQ(Words().i32(0x3c0000).i32(65018), written(record));
    EXPECT_THAT(log.lines(), ElementsAre(testing::_, LoggedCheck(kRecordTag, "writeToParcel", "tmpStr")));
}

TEST(RouteGuidance, ANegativeTimeZoneOffsetTravelsWithItsSign) {
    sp<IRouteGuidaceUpdateInfo> record = new IRouteGuidaceUpdateInfo;
    record->setDestinationTimeZoneOffsetMinutes(-300);
    const Words words = Words().i32(0x200000).i32(0xfffffed4);
    EXPECT_EQ(words, written(record));
    EXPECT_EQ(-300, received<IRouteGuidaceUpdateInfo>(words)->getDestinationTimeZoneOffsetMinutes());
}

TEST(RouteGuidance, SixteenBitFieldsKeepTheirLowBits) {
    const auto record = received<IRouteGuidaceUpdateInfo>(Words().i32(0x204000).i32(0x12345).i32(0x1fffe));
    EXPECT_EQ(0x2345, record->getRouteGuidanceManeuverCount());
    EXPECT_EQ(-2, record->getDestinationTimeZoneOffsetMinutes());
}

TEST(RouteGuidance, AnOddArrayIsFilledUpToWholeWords) {
    sp<IRuoteGuidanceManeuverUpdateInfo> record = new IRuoteGuidanceManeuverUpdateInfo;
    const int16_t angles[] = {-90, 0, 179};
    record->setJunctionElementAngel(angles, 3).setJunctionElementExitAngel(45);
    const Words words = Words().i32(0xc00).i32(3).i32(0x0000ffa6).i32(0x000000b3).i32(45);
    EXPECT_EQ(words, written(record));
    const auto read = received<IRuoteGuidanceManeuverUpdateInfo>(words);
    ASSERT_EQ(3u, read->getJunctionElementAngelCnt());
    EXPECT_EQ(-90, read->getJunctionElementAngel()[0]);
    EXPECT_EQ(179, read->getJunctionElementAngel()[2]);
    EXPECT_EQ(45, read->getJunctionElementExitAngel());
}

TEST(RouteGuidance, ABlockThatTheParcelLacksIsLoggedAndReadAsZeros) {
    const LogCatcher log;
    const auto record = received<IRouteGuidaceUpdateInfo>(Words().i32(0x3).i32(3).i32(9));
    ASSERT_NE(nullptr, record);
    ASSERT_EQ(3u, record->getDisplayIdCnt());
    EXPECT_THAT(std::vector<int>(record->getDisplayID(), record->getDisplayID() + 3), ElementsAre(0, 0, 0));
    EXPECT_EQ(9, record->getRouteGuidanceState());
    EXPECT_THAT(log.lines(), ElementsAre(LoggedStatusCheck(kRecordTag, "FromParcel")));
}

TEST(RouteGuidance, SettersCopyArraysAndReplaceThem) {
    sp<IRouteGuidaceUpdateInfo> record = new IRouteGuidaceUpdateInfo;
    uint16_t ids[] = {1, 2};
    record->setDisplayID(ids, 2);
    ids[0] = 99;
    EXPECT_EQ(1, record->getDisplayID()[0]);
    record->setDisplayID(record->getDisplayID() + 1, 1);
    ASSERT_EQ(1u, record->getDisplayIdCnt());
    EXPECT_EQ(2, record->getDisplayID()[0]);
    record->setDisplayID(nullptr, 0);
    EXPECT_EQ(nullptr, record->getDisplayID());
    EXPECT_EQ(0x1u, record->getMask());
}

constexpr char kInARecordsWriter[] = "AppleiAP2/IAppleiAP2ManagerNotifier.cpp:[0-9]+: .*::writeToParcel\\(.*";

/// Ends the process at a null string for each bit of @p stringBits alone.
template <typename Record>
void expectDeathForNullStrings(std::initializer_list<int> stringBits) {
    for (const int bit : stringBits) {
        sp<Record> record = new Record;
        record->mMask = 1u << bit;
        EXPECT_DEATH(written(record), std::string(kInARecordsWriter) + "Assertion `tmpStr' failed") << bit;
    }
}

TEST(RouteGuidanceDeathTest, ANullStringThatIsMarkedPresentEndsTheProcess) {
    expectDeathForNullStrings<IRouteGuidaceUpdateInfo>({3, 4, 8});
    expectDeathForNullStrings<IRuoteGuidanceManeuverUpdateInfo>({2, 4, 6, 13});
    expectDeathForNullStrings<ILaneGuidanceInformation>({3});
}

TEST(RouteGuidanceDeathTest, ANullArrayWithACountEndsTheProcess) {
    const std::string assertion = std::string(kInARecordsWriter) + "Assertion `data' failed";
    const auto route = sp<IRouteGuidaceUpdateInfo>(new IRouteGuidaceUpdateInfo);
    route->setDisplayID(nullptr, 2);
    EXPECT_DEATH(written(route), assertion);
    const auto list = sp<IRouteGuidaceUpdateInfo>(new IRouteGuidaceUpdateInfo);
    list->setRouteGuidanceManeuverCurrentList(nullptr, 2);
    EXPECT_DEATH(written(list), assertion);
    const auto maneuver = sp<IRuoteGuidanceManeuverUpdateInfo>(new IRuoteGuidanceManeuverUpdateInfo);
    maneuver->setRouteGuidanceDisplayComponentID(nullptr, 2);
    EXPECT_DEATH(written(maneuver), assertion);
    const auto angles = sp<IRuoteGuidanceManeuverUpdateInfo>(new IRuoteGuidanceManeuverUpdateInfo);
    angles->setJunctionElementAngel(nullptr, 2);
    EXPECT_DEATH(written(angles), assertion);
    const auto lane = sp<ILaneGuidanceInformation>(new ILaneGuidanceInformation);
    lane->setRouteGuidanceDisplayComponentID(nullptr, 2);
    EXPECT_DEATH(written(lane), assertion);
}

}  // namespace
}  // namespace accessory::test
