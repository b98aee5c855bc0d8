// The lane list: entries with masks of their own, and the memory of their angles.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/AppleiAP2/records/RecordMask.h"
#include "tests/AppleiAP2/records/RouteGuidanceSamples.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::sp;

sp<ILaneGuidanceInformation> withLanes(const std::vector<LaneInformation>& lanes) {
    sp<ILaneGuidanceInformation> record = new ILaneGuidanceInformation;
    record->setLaneInformation(lanes.data(), static_cast<uint32_t>(lanes.size()));
    return record;
}

TEST(LaneGuidance, WritesEachFieldOfALaneAloneAfterTheLanesMask) {
    int16_t angles[] = {-45, 45, 90};
    const std::vector<std::pair<uint32_t, Words>> alone = {
        {0x0, Words()},         {0x1, Words().i32(65535)},
        {0x2, Words().i32(-7)}, {0x4, Words().i32(3).i32(0x002dffd3).i32(0x0000005a)},
        {0x8, Words().i32(-1)}, {0xfffffff0, Words()},
    };
    for (const auto& [mask, fields] : alone) {
        Words words = Words().i32(0x4).i32(1).i32(mask);
        words += fields;
        EXPECT_EQ(words, written(withLanes({{mask, 65535, -7, 3, angles, 0xffff}}))) << mask;
    }
}

TEST(LaneGuidance, ReadsALaneOfMaskZeroBetweenOthersAsZeros) {
    const auto record =
        received<ILaneGuidanceInformation>(Words().i32(0x4).i32(3).i32(0x1).i32(5).i32(0).i32(0x2).i32(6));
    ASSERT_EQ(3u, record->getLaneInformationCnt());
    const LaneInformation* lanes = record->getLaneInformation();
    EXPECT_EQ(5, lanes[0].laneField0);
    EXPECT_EQ("LaneInformation{}", toString(lanes[1]));
    EXPECT_EQ(0, lanes[1].laneField0);
    EXPECT_EQ(0, lanes[1].laneField1);
    EXPECT_EQ(nullptr, lanes[1].laneAngle);
    EXPECT_EQ(6, lanes[2].laneField1);
}

TEST(LaneGuidance, SendsAFullLaneFieldAsMinusOneAndReadsItBackFull) {
    EXPECT_EQ(Words().i32(0x4).i32(1).i32(0x8).i32(-1),
              written(withLanes({{0x8, 0, 0, 0, nullptr, 0xffff}})));
    const auto record = received<ILaneGuidanceInformation>(Words().i32(0x4).i32(1).i32(0x8).i32(-1));
    EXPECT_EQ(0xffff, record->getLaneInformation()[0].laneField3);
}

TEST(LaneGuidance, OwnsAnAngleBufferEvenForNoAngles) {
    EXPECT_EQ(Words().i32(0x4).i32(1).i32(0x4).i32(0), written(withLanes({{0x4, 0, 0, 0, nullptr, 0}})));
    const LogCatcher log;
    const auto record = received<ILaneGuidanceInformation>(Words().i32(0x6).i32(9).i32(1).i32(0x4).i32(0));
    EXPECT_EQ(0u, record->getLaneInformation()[0].laneAngleCnt);
    EXPECT_NE(nullptr, record->getLaneInformation()[0].laneAngle);
    EXPECT_EQ(1u, log.lines().size()) << "the reader announces itself and misses nothing";
}

TEST(LaneGuidance, OwnsALaneArrayEvenForNoLanes) {
    const auto record = received<ILaneGuidanceInformation>(Words().i32(0x6).i32(9).i32(0));
    EXPECT_EQ(0u, record->getLaneInformationCnt());
    EXPECT_NE(nullptr, record->getLaneInformation());
}

TEST(LaneGuidance, WritesTheCountAloneWithoutALaneArray) {
    sp<ILaneGuidanceInformation> record = new ILaneGuidanceInformation;
    record->setLaneInformation(nullptr, 3).setLaneGuidanceDescription("Keep right");
    EXPECT_EQ(Words().i32(0xc).i32(3).cstr("Keep right"), written(record));
}

TEST(LaneGuidance, SetterCopiesTheAnglesAndOnlyThoseThatAreNamed) {
    int16_t angles[] = {1, 2};
    const auto record = withLanes({{0x4, 0, 0, 2, angles, 0}, {0x1, 7, 0, 2, angles, 0}});
    angles[0] = 99;
    EXPECT_EQ(1, record->getLaneInformation()[0].laneAngle[0]);
    EXPECT_EQ(nullptr, record->getLaneInformation()[1].laneAngle);
    EXPECT_EQ(7, record->getLaneInformation()[1].laneField0);
}

TEST(LaneGuidance, SetterCanTakeTheRecordsOwnLanes) {
    const auto record = LaneGuidanceSample::filled();
    const std::string before = toString(*record);
    record->setLaneInformation(record->getLaneInformation(), record->getLaneInformationCnt());
    EXPECT_EQ(before, toString(*record));
}

TEST(LaneGuidanceDeathTest, ALaneWithACountAndNoAnglesEndsTheProcess) {
    EXPECT_DEATH(written(withLanes({{0x4, 0, 0, 2, nullptr, 0}})),
                 "AppleiAP2/IAppleiAP2ManagerNotifier.cpp:[0-9]+: .*accessory::ILaneGuidanceInformation::"
                 "writeToParcel\\(.*Assertion `data' failed");
}

}  // namespace
}  // namespace accessory::test
