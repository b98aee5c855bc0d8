// Requests that carry bytes or arrays: short ones, and lengths that no transaction can carry.
#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using testing::IsEmpty;

using RequestBuffers = ManagerStubFixture;

constexpr android::status_t kBadValue = -22;
constexpr int64_t kMebibyte = 1 << 20;

/// Expects that each of @p counts ends the request, @p before in front of it, with -22 and that check.
void expectRefused(BnAppleiAP2Manager& stub, ManagerRecorder& recorder, uint32_t code, const Bytes& before,
                   std::initializer_list<int64_t> counts, const char* condition) {
    for (const int64_t count : counts) {
        LogCatcher log;
        const Bytes bytes = managerRequest(parcel({before, i32(count), i64(1), i64(2)}));
        EXPECT_EQ(ask(stub, code, bytes), stopped(kBadValue)) << code << " with " << count;
        EXPECT_THAT(log.lines(), areLines({failedCheck(condition)})) << code << " with " << count;
        EXPECT_THAT(recorder.takeTold(), IsEmpty()) << code << " with " << count;
    }
}

TEST_F(RequestBuffers, ArriveZeroFilledWhenTheRequestEndsEarlyAndTheFailedReadIsLogged) {
    const struct {
        uint32_t code;
        Bytes arguments;
        const char* told;
    } cases[] = {
        {6, i32(3), "setBluetoothAddr([00 00 00], 3)"},
        {18, parcel({i32(7), i32(3)}), "updateLocation(7, [00 00 00], 3)"},
        {24, parcel({i32(7), cstr("l"), i32(1)}),
         "playMediaLibItems(7, \"l\", [00 00 00 00 00 00 00 00], 1, 0)"},
        {55, parcel({i32(7), i32(1), i32(-1)}), "BTComponentInformation(7, [00 00 00 00 00 00 00 00], 1)"},
        {56, parcel({i32(7), i32(2), i32(-1)}), "StartBTConnectionUpdate(7, [00 00 00 00 00 00 00 00], 2)"},
        {59, parcel({i32(7), i32(1)}), "StopRouteGuidanceUpdate(7, [00 00 00 00], 1)"},
        {63, i32(7), "StartCallStateUpdates(7, [00 00 00 00 00 00 00 00 00 00 00 00])"},
        {65, i32(7), "StartCommunicationsUpdates(7, [00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00])"},
        {89, parcel({i32(7), i32(1), i32(2), i32(3), i32(4), i32(2)}), "startHID(7, {1 2 3 [00 00] 2 4})"},
        {90, parcel({i32(7), i32(2)}), "accHIDReport(7, [00 00], 2)"},
    };
    for (const auto& each : cases) {
        log.clear();
        EXPECT_EQ(toldOf(each.code, each.arguments), each.told);
        EXPECT_EQ(last, answered(0)) << each.told;
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact")})) << each.told;
    }
}

TEST_F(RequestBuffers, ArriveZeroFilledWhenAPairingBlockIsShort) {
    const std::string zeros =
        "[00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00]";
    EXPECT_EQ(toldOf(78, parcel({i32(7), i32(2), i32(0), i32(1), i32(-1)})),
              "BluetoothPairingAccessoryInformation(7, 2, null, " + zeros + ")");
    EXPECT_THAT(log.lines(), areLines({failedStep("onTransact")}));
}

TEST_F(RequestBuffers, HoldWhatAWholeTransactionCanCarry) {
    const Bytes bytes(900'000, 0x01);
    EXPECT_EQ(toldOf(18, parcel({i32(7), i32(900'000), bytes})),
              "updateLocation(7, [900000 bytes, sum 900000], 900000)");
    EXPECT_EQ(toldOf(24, parcel({i32(7), cstr("l"), i32(112'500), bytes, i32(4)})),
              "playMediaLibItems(7, \"l\", [900000 bytes, sum 900000], 112500, 4)");
    EXPECT_EQ(toldOf(55, parcel({i32(7), i32(112'500), bytes})),
              "BTComponentInformation(7, [900000 bytes, sum 900000], 112500)");
    EXPECT_EQ(toldOf(58, parcel({i32(7), i32(225'000), bytes, i32(4)})),
              "StartRouteGuidanceUpdate(7, [900000 bytes, sum 900000], 225000, 4)");
    EXPECT_THAT(log.lines(), IsEmpty());
}

constexpr int64_t kMost = kMebibyte - (8 << 10);  ///< bytes that a transaction carries

TEST_F(RequestBuffers, MayBeAsLongAsATransaction) {
    const Bytes bytes(kMost, 0x01);
    EXPECT_EQ(toldOf(18, parcel({i32(7), i32(kMost), bytes})),
              "updateLocation(7, [1040384 bytes, sum 1040384], 1040384)");
    EXPECT_EQ(toldOf(90, parcel({i32(7), i32(kMost), bytes})),
              "accHIDReport(7, [1040384 bytes, sum 1040384], 1040384)");
    EXPECT_EQ(toldOf(55, parcel({i32(7), i32(kMost / 8), bytes})),
              "BTComponentInformation(7, [1040384 bytes, sum 1040384], 130048)");
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(RequestBuffers, AreRefusedWhenTheyAreOneLongerThanATransactionThoughAllBytesAreThere) {
    const Bytes bytes(kMost + 8, 0x01);
    const struct {
        uint32_t code;
        int64_t count;
        const char* check;
    } cases[] = {{18, kMost + 1, "buf"}, {90, kMost + 1, "reportData"}, {55, kMost / 8 + 1, "info"}};
    for (const auto& each : cases) {
        log.clear();
        EXPECT_EQ(toldOf(each.code, parcel({i32(7), i32(each.count), bytes})), "") << each.code;
        EXPECT_EQ(last, stopped(kBadValue)) << each.code;
        EXPECT_THAT(log.lines(), areLines({failedCheck(each.check)})) << each.code;
    }
}

TEST(ImpossibleLength, OfAnAddressIsNotTestedAndGivesNull) {
    for (const int64_t length : {int64_t{0xffffffff}, int64_t{INT32_MAX}, kMebibyte + 1}) {
        const android::sp<ManagerRecorder> recorder = new ManagerRecorder;
        recorder->answer = 5;
        const android::sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(recorder));
        LogCatcher log;
        EXPECT_EQ(ask(*stub, 6, managerRequest(parcel({i32(length), i64(1)}))), answered(5));
        EXPECT_THAT(recorder->takeTold(),
                    testing::ElementsAre("setBluetoothAddr(null, " + std::to_string(length) + ")"));
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact")}));
    }
}

class ImpossibleCount : public testing::Test {
  protected:
    void refused(uint32_t code, const Bytes& before, std::initializer_list<int64_t> counts,
                 const char* condition) {
        expectRefused(*stub, *recorder, code, before, counts, condition);
    }

    const android::sp<ManagerRecorder> recorder{new ManagerRecorder};
    const android::sp<BnAppleiAP2Manager> stub{kept(new BnAppleiAP2Manager(recorder))};
};

TEST_F(ImpossibleCount, RefusesALocation) {
    refused(18, i32(7), {-1, INT32_MIN, INT32_MAX, kMebibyte + 1}, "buf");
}

TEST_F(ImpossibleCount, RefusesBluetoothComponents) {
    // The last two, times the size of an element, are small in 32 bits.
    refused(55, i32(7), {-1, INT32_MAX, kMebibyte / 8 + 1, 0x20000000, 0x20000001}, "info");
}

TEST_F(ImpossibleCount, RefusesBluetoothConnections) {
    refused(56, i32(7), {-1, INT32_MAX, kMebibyte / 4 + 1, 0x40000000, 0x40000001}, "buf");
}

TEST_F(ImpossibleCount, RefusesRouteGuidance) {
    for (const uint32_t code : {58u, 59u})
        refused(code, i32(7), {-1, INT32_MIN, INT32_MAX, kMebibyte / 4 + 1, 0x40000000, 0x40000001}, "buf");
}

TEST_F(ImpossibleCount, RefusesAReportDescriptor) {
    refused(89, parcel({i32(7), i32(1), i32(2), i32(3), i32(4)}), {-1, INT32_MAX, kMebibyte + 1},
            "attributes.reportDescriptor");
}

TEST_F(ImpossibleCount, RefusesAReport) {
    refused(90, i32(7), {-1, INT32_MIN, INT32_MAX, kMebibyte + 1}, "reportData");
}

TEST_F(ImpossibleCount, DropsMediaItemsWithSuccess) {
    for (const int64_t count : {int64_t{-1}, int64_t{INT32_MIN}, int64_t{INT32_MAX}, kMebibyte / 8 + 1,
                                int64_t{0x20000000}, int64_t{0x20000001}}) {
        LogCatcher log;
        const Bytes arguments = parcel({i32(7), cstr("lib"), i32(count), i64(1), i32(2)});
        EXPECT_EQ(ask(*stub, 24, managerRequest(arguments)), stopped(0)) << count;
        EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_ERROR, "malloc failed for mediaItemIdArray!"}}));
        EXPECT_THAT(recorder->takeTold(), IsEmpty()) << count;
    }
}

}  // namespace
}  // namespace accessory::test
