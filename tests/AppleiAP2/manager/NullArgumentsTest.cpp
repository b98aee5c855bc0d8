// What the manager's proxy sends of arguments that are not there: each is a failed step in the log, and the
// request goes out with what there is.
#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using android::sp;
using M = IAppleiAP2Manager;

struct Incomplete {
    const char* operation;
    uint32_t code;
    Bytes sent;          ///< behind the token
    size_t failedSteps;  ///< in the log
    Example::Call call;
};

class NullArguments : public ManagerProxyFixture {
  protected:
    void expectSent(const std::vector<Incomplete>& calls) {
        for (const Incomplete& each : calls) {
            remote->requests.clear();
            remote->answer = replied(-9);
            log.clear();
            EXPECT_EQ(each.call(*proxy), -9) << each.operation;
            ASSERT_EQ(remote->requests.size(), 1u) << each.operation;
            EXPECT_EQ(remote->requests[0].code, each.code) << each.operation;
            EXPECT_EQ(remote->requests[0].bytes, managerRequest(each.sent)) << each.operation;
            EXPECT_THAT(log.lines(), areLines(ExpectedLines(each.failedSteps, failedStep(each.operation))));
        }
    }
};

TEST_F(NullArguments, TravelAsNoBitOfAMask) {
    expectSent({
        {"startPowerUpdate", 30, parcel({i32(7), i32(0)}), 1,
         [](M& to) {
             sp<iAP2PowerUpdateMask> none;
             return to.startPowerUpdate(7, none);
         }},
        {"startNowPlayingUpdate", 27, parcel({i32(7), i32(0), i32(0)}), 2,
         [](M& to) {
             sp<iAP2ItemAttributeMask> attributes;
             sp<iAP2MediaPlaybackMask> playback;
             return to.startNowPlayingUpdate(7, attributes, playback);
         }},
        {"startMediaLibUpdates", 21, parcel({i32(7), cstr("a"), i32(0), i32(0), i32(0), cstr("b")}), 3,
         [](M& to) {
             sp<MediaLibDataMask> data;
             sp<MediaItemMask> item;
             sp<MediaPlaylistMask> playlist;
             return to.startMediaLibUpdates(7, "a", data, item, playlist, "b");
         }},
    });
}

TEST_F(NullArguments, TravelAsEmptyRecords) {
    expectSent({
        {"startMediaLibUpdates", 21, parcel({i32(7), cstr("-1"), cstr("-1"), repeated(5, i32(0))}), 1,
         [](M& to) {
             sp<MediaLibUpdateInfo> none;
             return to.startMediaLibUpdates(7, none);
         }},
        {"startHID", 89, parcel({i32(7), repeated(5, i32(0))}), 1,
         [](M& to) { return to.startHID(7, nullptr); }},
        {"InitiateCall", 69, parcel({i32(7), repeated(4, i32(0))}), 1,
         [](M& to) { return to.InitiateCall(7, nullptr); }},
        {"StartCommunicationsUpdates", 65, parcel({i32(7), raw(Bytes(17, 0))}), 1,
         [](M& to) { return to.StartCommunicationsUpdates(7, nullptr); }},
    });
}

TEST_F(NullArguments, LeaveStringsOut) {
    expectSent({
        {"setName", 3, {}, 1, [](M& to) { return to.setName(nullptr); }},
        {"launchAPP", 13, parcel({i32(7), i32(2)}), 1,
         [](M& to) { return to.launchAPP(7, nullptr, static_cast<AppLaunchMethod>(2)); }},
        {"accessoryWiFiConfigInforamtion", 36, parcel({i32(7), i32(1), i32(2)}), 2,
         [](M& to) {
             return to.accessoryWiFiConfigInforamtion(7, nullptr, nullptr, static_cast<WiFiSecurityType>(1),
                                                      2);
         }},
        {"playMediaLibCurrentSelection", 23, i32(7), 1,
         [](M& to) { return to.playMediaLibCurrentSelection(7, nullptr); }},
        {"RequestAppDiscoveryAppIcons", 62, i32(7), 1,
         [](M& to) { return to.RequestAppDiscoveryAppIcons(7, nullptr); }},
        {"CarPlayStartSession", 76, parcel({i32(7), i32(0), i32(0), i32(5)}), 3,
         [](M& to) { return to.CarPlayStartSession(7, nullptr, nullptr, 5, nullptr, nullptr, nullptr); }},
        {"DestinationInformationStatus", 82, parcel({i32(7), i32(3)}), 1,
         [](M& to) { return to.DestinationInformationStatus(7, nullptr, 3); }},
    });
}

TEST_F(NullArguments, LeaveBytesOutWhoseLengthTravels) {
    expectSent({
        {"setBluetoothAddr", 6, i32(4), 1, [](M& to) { return to.setBluetoothAddr(nullptr, 4); }},
        {"updateLocation", 18, parcel({i32(7), i32(4)}), 1,
         [](M& to) { return to.updateLocation(7, nullptr, 4); }},
        {"playMediaLibItems", 24, parcel({i32(7), cstr("lib"), i32(2), i32(9)}), 1,
         [](M& to) { return to.playMediaLibItems(7, "lib", nullptr, 2, 9); }},
        {"BTComponentInformation", 55, parcel({i32(7), i32(2)}), 1,
         [](M& to) { return to.BTComponentInformation(7, nullptr, 2); }},
        {"StartBTConnectionUpdate", 56, parcel({i32(7), i32(2)}), 1,
         [](M& to) { return to.StartBTConnectionUpdate(7, nullptr, 2); }},
        {"StartRouteGuidanceUpdate", 58, parcel({i32(7), i32(2), i32(9)}), 1,
         [](M& to) { return to.StartRouteGuidanceUpdate(7, nullptr, 2, 9); }},
        {"StopRouteGuidanceUpdate", 59, parcel({i32(7), i32(2)}), 1,
         [](M& to) { return to.StopRouteGuidanceUpdate(7, nullptr, 2); }},
        {"startHID", 89, parcel({i32(7), i32(1), i32(2), i32(3), i32(4), i32(5)}), 1,
         [](M& to) {
             HIDReportAttributes attributes{1, 2, 3, nullptr, 5, 4};
             return to.startHID(7, &attributes);
         }},
        {"accHIDReport", 90, parcel({i32(7), i32(4)}), 1,
         [](M& to) { return to.accHIDReport(7, nullptr, 4); }},
    });
}

TEST_F(NullArguments, AreAsManyAsANegativeCountSays) {
    expectSent({
        {"updateLocation", 18, parcel({i32(7), i32(-1)}), 1,
         [](M& to) {
             const unsigned char data[] = {1, 2, 3, 4};
             return to.updateLocation(7, data, -1);
         }},
        {"playMediaLibItems", 24, parcel({i32(7), cstr("lib"), i32(-1), i32(9)}), 1,
         [](M& to) {
             unsigned long long ids[] = {1};
             return to.playMediaLibItems(7, "lib", ids, -1, 9);
         }},
        {"StartRouteGuidanceUpdate", 58, parcel({i32(7), i32(INT32_MIN), i32(9)}), 1,
         [](M& to) {
             int ids[] = {1};
             return to.StartRouteGuidanceUpdate(7, ids, INT32_MIN, 9);
         }},
        {"accHIDReport", 90, parcel({i32(7), i32(INT32_MIN)}), 1,
         [](M& to) {
             unsigned char report[] = {1, 2, 3, 4};
             return to.accHIDReport(7, report, INT32_MIN);
         }},
    });
}

}  // namespace
}  // namespace accessory::test
