// What the proxy sends of values that are not there: null strings, records and buffers, odd lengths.
#include <gmock/gmock.h>

#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using android::sp;

/// A proxy whose requests are kept, and can be handed to a stub.
class ProxyLimits : public StubFixture {
  protected:
    ProxyLimits() { log.clear(); }

    /// Makes the call, expects one request of @p code.
    /// @return its arguments behind the token.
    Bytes sent(uint32_t code, const Event::Call& call) {
        remote->requests.clear();
        call(*proxy);
        EXPECT_EQ(remote->requests.size(), 1u);
        if (remote->requests.size() != 1) return {};
        EXPECT_EQ(remote->requests[0].code, code);
        const Bytes& bytes = remote->requests[0].bytes;
        const size_t start = std::min(request({}).size(), bytes.size());
        EXPECT_EQ(cut(bytes, start), request({}));
        return Bytes(bytes.begin() + static_cast<Bytes::difference_type>(start), bytes.end());
    }

    const sp<FakeRemote> remote{new FakeRemote};
    const sp<IAppleiAP2ManagerNotifier> proxy{new BpAppleiAP2ManagerNotifier(remote)};
};

TEST_F(ProxyLimits, LogsAStringThatIsNotThereAndGoesOn) {
    using Notifier = IAppleiAP2ManagerNotifier;
    EXPECT_EQ(sent(4, [](Notifier& to) { return to.deviceInfoUpdate(7, nullptr); }), i32(7));
    EXPECT_EQ(sent(7, [](Notifier& to) { return to.deviceLanguageUpdate(7, nullptr); }), i32(7));
    EXPECT_EQ(sent(9, [](Notifier& to) { return to.deviceUUIDUpdate(7, nullptr); }), i32(7));
    EXPECT_EQ(sent(13,
                   [](Notifier& to) {
                       return to.mediaLibInfoUpdate(7, nullptr, nullptr, static_cast<MediaLibType>(3));
                   }),
              parcel({i32(7), i32(3)}));
    EXPECT_EQ(sent(18,
                   [](Notifier& to) {
                       return to.WiFiInformation(7, static_cast<requestWiFiStatues>(3), nullptr, "second");
                   }),
              parcel({i32(7), i32(3), cstr("second")}));
    EXPECT_THAT(log.lines(), areLines({failedStep("deviceInfoUpdate"), failedStep("deviceLanguageUpdate"),
                                       failedStep("deviceUUIDUpdate"), failedStep("mediaLibInfoUpdate"),
                                       failedStep("mediaLibInfoUpdate"), failedStep("WiFiInformation")}));
}

TEST_F(ProxyLimits, LogsAnIdentifierOfAnApplicationThatIsNotThereAndGoesOn) {
    char icon[] = {1};
    EXPECT_EQ(sent(37, [&](auto& to) { return to.AppDiscoveryAppIcon(7, nullptr, true, 2, icon, 1); }),
              parcel({i32(7), i32(1), i32(2), i32(1), raw({1})}));
    EXPECT_THAT(log.lines(), areLines({failedStep("AppDiscoveryAppIcon"), debug("AppDiscoveryAppIcon out")}));
}

TEST_F(ProxyLimits, LogsAStringOfAnAvailableWayThatIsNotThereAndGoesOn) {
    CPAvailabilityWiredAttributes wired;
    wired.available = true;
    CPAvailabilityWirelessAttributes wireless;
    EXPECT_EQ(sent(40, [&](auto& to) { return to.CarPlayAvailability(7, &wired, &wireless); }),
              parcel({i32(7), i32(1), i32(0)}));
    EXPECT_THAT(log.lines(), areLines({failedStep("CarPlayAvailability")}));
}

TEST_F(ProxyLimits, LogsADestinationsStringThatIsNotThereAndGoesOn) {
    DestinationInfo info;
    info.mask = 0x29;
    info.value = 5;
    info.thirdString = "third";
    EXPECT_EQ(sent(43, [&](auto& to) { return to.DestinationInformation(7, &info); }),
              parcel({i32(7), i32(0x29), cstr("third"), i32(5)}));
    EXPECT_THAT(log.lines(),
                areLines({failedStep("DestinationInformation"), debug("DestinationInformation out")}));
}

TEST_F(ProxyLimits, SendsTheCountOfADestinationWithoutPointsAlone) {
    DestinationInfo info;
    info.mask = 0x30;
    info.value = 5;
    EXPECT_EQ(sent(43, [&](auto& to) { return to.DestinationInformation(7, &info); }),
              parcel({i32(7), i32(0x30), i32(0), i32(5)}));
}

TEST_F(ProxyLimits, SendsNoBytesForAnElementThatHasALengthAndNoBuffer) {
    AppleAppList element;
    element.value16 = 3;
    element.string1 = "a";
    element.string2 = "b";
    element.value32 = 5;
    element.bufferLength = 4;
    const Bytes byHand = parcel({i32(7), i32(1), i32(1), i32(1), i32(3), cstr("a"), cstr("b"), i32(5), i32(4),
                                 i32(0x01020304), i32(0), i32(0)});
    EXPECT_EQ(
        sent(36, [&](auto& to) { return to.AppDiscoveryUpdate(7, 1, &element, 1, 0x01020304, nullptr, 0); }),
        byHand);
    // The receiver takes the second list's number for the bytes; all that follows moves up.
    EXPECT_EQ(toldOf(36, byHand),
              "AppDiscoveryUpdate(7, 1, [{3 \"a\" \"b\" 5 [04 03 02 01] 4}], 1, 0, null, 0)");
}

TEST_F(ProxyLimits, SendsTheLengthButNoBytesOfAnEmptyOrNegativeReport) {
    unsigned char report[] = {1, 2, 3, 4};
    EXPECT_EQ(sent(10, [&](auto& to) { return to.deviceHIDReport(7, 3, report, 0); }),
              parcel({i32(7), i32(0)}));
    EXPECT_THAT(log.lines(), testing::IsEmpty());
    EXPECT_EQ(sent(10, [&](auto& to) { return to.deviceHIDReport(7, 3, report, -1); }),
              parcel({i32(7), i32(-1)}));
    EXPECT_THAT(log.lines(), areLines({failedStep("deviceHIDReport")}));
}

TEST_F(ProxyLimits, SendsAReportThatIsLongerThanTheReceiversBuffer) {
    Bytes report(1026, 0x5a);
    EXPECT_EQ(sent(10, [&](auto& to) { return to.deviceHIDReport(7, 3, report.data(), 1026); }),
              parcel({i32(7), i32(1026), raw(report)}));
}

TEST_F(ProxyLimits, SendsThirtyTwoBytesOfASetupWithoutItsPointer) {
    unsigned char bytes[] = {1};
    FileTransferSetup setup;
    setup.buffer = bytes;
    setup.bufferLength = 1;
    setup.value8 = 0xffffffff;
    EXPECT_EQ(sent(23, [&](auto& to) { return to.fileTransferSetup(7, &setup); }),
              parcel({i32(7), repeated(6, i32(0)), i32(1), i32(-1), i32(1), raw({1})}));
}

TEST_F(ProxyLimits, LogsABufferThatIsNotThereAndGoesOn) {
    unsigned char mac[] = {1, 2};
    EXPECT_EQ(sent(10, [](auto& to) { return to.deviceHIDReport(7, 3, nullptr, 4); }),
              parcel({i32(7), i32(4)}));
    EXPECT_EQ(sent(30, [&](auto& to) { return to.OOBBTPLinkKeyInfo(7, nullptr, 4, mac, 2); }),
              parcel({i32(7), i32(4), i32(2), raw({1, 2})}));
    EXPECT_EQ(sent(37, [](auto& to) { return to.AppDiscoveryAppIcon(7, "a", false, 0, nullptr, 4); }),
              parcel({i32(7), cstr("a"), i32(0), i32(0), i32(4)}));
    FileTransferSetup setup;
    setup.bufferLength = 4;
    EXPECT_EQ(sent(23, [&](auto& to) { return to.fileTransferSetup(7, &setup); }),
              parcel({i32(7), repeated(6, i32(0)), i32(4), i32(0), i32(4)}));
    DestinationInfo info;
    info.mask = 0x30;
    info.pointCount = 2;
    EXPECT_EQ(sent(43, [&](auto& to) { return to.DestinationInformation(7, &info); }),
              parcel({i32(7), i32(0x30), i32(2), i32(0)}));
    EXPECT_THAT(log.lines(), areLines({failedStep("deviceHIDReport"), failedStep("OOBBTPLinkKeyInfo"),
                                       failedStep("AppDiscoveryAppIcon"), debug("AppDiscoveryAppIcon out"),
                                       failedStep("fileTransferSetup"), failedStep("DestinationInformation"),
                                       debug("DestinationInformation out")}));
}

TEST_F(ProxyLimits, SendsArgumentStructuresThatAreNotThereAsEmptyOnes) {
    EXPECT_EQ(sent(23, [](auto& to) { return to.fileTransferSetup(7, nullptr); }),
              parcel({i32(7), repeated(9, i32(0))}));
    EXPECT_EQ(sent(39, [](auto& to) { return to.CommunicationsUpdate(7, nullptr); }),
              parcel({i32(7), repeated(17, i32(0))}));
    EXPECT_EQ(sent(40, [](auto& to) { return to.CarPlayAvailability(7, nullptr, nullptr); }),
              parcel({i32(7), i32(0), i32(0)}));
    EXPECT_THAT(log.lines(),
                areLines({failedStep("fileTransferSetup"), failedStep("CommunicationsUpdate"),
                          failedStep("CarPlayAvailability"), failedStep("CarPlayAvailability")}));
}

TEST_F(ProxyLimits, SendsTheLastFieldOfACallWhole) {
    const int64_t wide = 0x1122334455667788;
    CallStateUpdateParam param;
    param.field12 = &wide;
    const Bytes bytes = sent(38, [&](auto& to) { return to.CallStateUpdate(7, param); });
    EXPECT_EQ(bytes, parcel({i32(7), repeated(11, i32(0)), i32(1), i64(0x1122334455667788)}));
    EXPECT_EQ(toldOf(38, bytes),
              "CallStateUpdate(7, {null null null null null null null null null null null 1432778632})");
}

TEST_F(ProxyLimits, LogsEveryRecordThatIsNotThere) {
    const auto logged = [this](const Event::Call& call) {
        log.clear();
        call(*proxy);
        return log.lines();
    };
    const auto expectLogged = [&](const char* operation, size_t records, const Event::Call& call) {
        EXPECT_THAT(logged(call), testing::Contains(LoggedStatusCheck(kTag, operation)).Times(records))
            << operation;
    };
    expectLogged("mediaLibUpdateDataReady", 1,
                 [](auto& to) { return to.mediaLibUpdateDataReady(7, nullptr); });
    expectLogged("nowPlayingUpdate", 2, [](auto& to) { return to.nowPlayingUpdate(7, nullptr, nullptr); });
    expectLogged("powerUpdate", 1, [](auto& to) { return to.powerUpdate(7, nullptr); });
    expectLogged("RouteGuidanceUpdates", 1, [](auto& to) { return to.RouteGuidanceUpdates(7, nullptr); });
    expectLogged("RouteGuidanceManeuverUpdates", 1,
                 [](auto& to) { return to.RouteGuidanceManeuverUpdates(7, nullptr); });
    expectLogged("LaneGuidanceInformation", 1,
                 [](auto& to) { return to.LaneGuidanceInformation(7, nullptr); });
}

TEST_F(ProxyLimits, SendsAKeyAsFarAsItsFirstNul) {
    std::vector<std::string> keys = {std::string("a\0b", 3)};
    EXPECT_EQ(sent(46, [&](auto& to) { return to.CarPlayMatchedDigitalCarKeys(7, keys); }),
              parcel({i32(7), i32(1), cstr("a")}));
}

TEST_F(ProxyLimits, SurvivesALibraryUpdateThatIsNotThere) {
    const Bytes bytes = sent(14, [](auto& to) { return to.mediaLibUpdateDataReady(7, nullptr); });
    EXPECT_EQ(toldOf(14, bytes), "mediaLibUpdateDataReady(7, {0x0})");
}

TEST_F(ProxyLimits, DoesNotLetTheReceiverMisreadThePlayerWhenTheSongIsNotThere) {
    const sp<IiAP2MediaPlayback> playback = new IiAP2MediaPlayback;
    playback->setElaspedTime(5).setAppName("Music");
    const Bytes bytes = sent(15, [&](auto& to) { return to.nowPlayingUpdate(7, nullptr, playback); });
    EXPECT_EQ(toldOf(15, bytes), "nowPlayingUpdate(7, {0x0}, {0x82 1:5 7:\"Music\"})");
}

TEST_F(ProxyLimits, SurvivesAPlayerThatIsNotThere) {
    const sp<IiAP2ItemAttribute> song = new IiAP2ItemAttribute;
    song->setTitle("Blue");
    EXPECT_EQ(toldOf(15, sent(15, [&](auto& to) { return to.nowPlayingUpdate(7, song, nullptr); })),
              "nowPlayingUpdate(7, {0x2 1:\"Blue\"}, {0x0})");
    EXPECT_EQ(toldOf(15, sent(15, [&](auto& to) { return to.nowPlayingUpdate(7, nullptr, nullptr); })),
              "nowPlayingUpdate(7, {0x0}, {0x0})");
}

TEST_F(ProxyLimits, SurvivesPowerAndGuidanceRecordsThatAreNotThere) {
    EXPECT_EQ(toldOf(16, sent(16, [](auto& to) { return to.powerUpdate(7, nullptr); })),
              "powerUpdate(7, {0x0})");
    EXPECT_EQ(toldOf(33, sent(33, [](auto& to) { return to.RouteGuidanceUpdates(7, nullptr); })),
              "RouteGuidanceUpdates(7, {0x0})");
    EXPECT_EQ(toldOf(34, sent(34, [](auto& to) { return to.RouteGuidanceManeuverUpdates(7, nullptr); })),
              "RouteGuidanceManeuverUpdates(7, {0x0})");
    EXPECT_EQ(toldOf(35, sent(35, [](auto& to) { return to.LaneGuidanceInformation(7, nullptr); })),
              "LaneGuidanceInformation(7, {0x0})");
}

}  // namespace
}  // namespace accessory::test
