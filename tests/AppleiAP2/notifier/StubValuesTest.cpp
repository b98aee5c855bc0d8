// How the stub takes values that a proxy of this library would not send: wide values, other presence words,
// other truths, null strings, arguments that are not there.
#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using StubValues = StubFixture;

constexpr char kZeros8[] = "[00 00 00 00 00 00 00 00]";

TEST_F(StubValues, CutsWideValuesToTheirArguments) {
    EXPECT_EQ(toldOf(8, parcel({i32(7), i64(1), i32(0x12348000), i32(0x12345680)})),
              "deviceTimeUpdate(7, 1, -32768, -128)");
    EXPECT_EQ(toldOf(8, parcel({i32(7), i64(1), i32(0x10000), i32(0x100)})), "deviceTimeUpdate(7, 1, 0, 0)");
    EXPECT_EQ(toldOf(41, parcel({i32(7), i32(0x12348001), i32(0)})), "StartBluetoothPairing(7, 32769, null)");
    EXPECT_EQ(toldOf(42, parcel({i32(7), i32(-1), i32(-1)})), "StopBluetoothPairing(7, 65535, 4294967295)");
    EXPECT_EQ(toldOf(45, parcel({i32(7), i32(0x7fff0002), i32(0)})), "hidComponentUpdate(7, 2, false)");
    EXPECT_EQ(toldOf(37, parcel({i32(7), cstr("a"), i32(0), i32(0x1234567f), i32(0)})),
              "AppDiscoveryAppIcon(7, \"a\", false, 127, [], 0)");
}

TEST_F(StubValues, KeepsTheLowHalfOfTheCountOfAnApplicationList) {
    EXPECT_EQ(toldOf(36, parcel({i32(7), i32(1), i32(0x30000), i32(1), i32(2), i32(0x50001), i32(0)})),
              "AppDiscoveryUpdate(7, 1, null, 0, 2, null, 1)");
    EXPECT_EQ(toldOf(36, parcel({i32(7), i32(1), i32(0x10001), i32(1), i32(0x12345678), cstr("a"), cstr("b"),
                                 i32(3), i32(0), i32(2), i32(0), i32(0)})),
              "AppDiscoveryUpdate(7, 1, [{22136 \"a\" \"b\" 3 null 0}], 1, 2, null, 0)");
}

TEST_F(StubValues, TakesAnyWordButZeroForTrue) {
    for (const int64_t word : {2LL, -1LL, 0x100LL, 0x80000000LL}) {
        EXPECT_EQ(toldOf(37, parcel({i32(7), cstr("a"), i32(word), i32(0), i32(0)})),
                  "AppDiscoveryAppIcon(7, \"a\", true, 0, [], 0)")
            << word;
        EXPECT_EQ(toldOf(38, parcel({i32(7), repeated(8, i32(0)), i32(1), i32(word), repeated(3, i32(0))})),
                  "CallStateUpdate(7, {null null null null null null null null true null null null})")
            << word;
        EXPECT_EQ(toldOf(44, parcel({i32(7), i32(word)})), "AssistiveTouchInformation(7, true)") << word;
        EXPECT_EQ(toldOf(45, parcel({i32(7), i32(1), i32(word)})), "hidComponentUpdate(7, 1, true)") << word;
    }
}

TEST_F(StubValues, TakesAnyWordButZeroForTrueInCommunications) {
    const Bytes truths = parcel({i32(1), i32(0x100)});
    EXPECT_EQ(toldOf(39, parcel({i32(7), i32(0), i32(0), truths, i32(0), repeated(5, truths), i32(1),
                                 i32(0x1fe), i32(0), repeated(6, truths)})),
              "CommunicationsUpdate(7, {null null true null true true true true true 254 null true true true "
              "true true true})");
}

TEST_F(StubValues, TakesTheLowByteOfAnAvailabilityForTheTruth) {
    EXPECT_EQ(toldOf(40, parcel({i32(7), i32(0x100), i32(0xffffff00)})),
              "CarPlayAvailability(7, {false null}, {false null})");
    EXPECT_EQ(toldOf(40, parcel({i32(7), i32(0x102), cstr("usb"), i32(-1), cstr("wifi")})),
              "CarPlayAvailability(7, {true \"usb\"}, {true \"wifi\"})");
}

TEST_F(StubValues, TakesAnyWordButZeroForPresence) {
    for (const int64_t word : {2LL, -1LL, 0x100LL}) {
        EXPECT_EQ(toldOf(6, parcel({i32(7), i32(word), cstr("a"), i32(word), cstr("b")})),
                  "DeviceTransportIdentifierNotification(7, \"a\", \"b\")")
            << word;
        EXPECT_EQ(toldOf(38, parcel({i32(7), i32(word), cstr("a"), repeated(11, i32(0))})),
                  "CallStateUpdate(7, {\"a\" null null null null null null null null null null null})")
            << word;
        EXPECT_EQ(
            toldOf(39, parcel({i32(7), i32(word), i32(5), repeated(16, i32(0))})),
            "CommunicationsUpdate(7, {5 null null null null null null null null null null null null null "
            "null null null})")
            << word;
        EXPECT_EQ(toldOf(41, parcel({i32(7), i32(1), i32(word), raw({1, 2, 3, 4, 5, 6})})),
                  "StartBluetoothPairing(7, 1, [01 02 03 04 05 06])")
            << word;
        EXPECT_EQ(toldOf(36, parcel({i32(7), i32(1), i32(1), i32(word), i32(2), cstr("a"), cstr("b"), i32(3),
                                     i32(0), i32(2), i32(0), i32(0)})),
                  "AppDiscoveryUpdate(7, 1, [{2 \"a\" \"b\" 3 null 0}], 1, 2, null, 0)")
            << word;
    }
}

TEST_F(StubValues, ReadsTheLastFieldOfACallAsASignedWordAndLeavesTheUpperOne) {
    const Bytes before = parcel({i32(7), repeated(11, i32(0)), i32(1)});
    const std::string fields = "CallStateUpdate(7, {null null null null null null null null null null null ";
    EXPECT_EQ(toldOf(38, parcel({before, i64(0x7fffffff)})), fields + "2147483647})");
    EXPECT_EQ(toldOf(38, parcel({before, i64(0x80000000)})), fields + "-2147483648})");
    EXPECT_EQ(toldOf(38, parcel({before, i64(0x100000005)})), fields + "5})");
    EXPECT_EQ(toldOf(38, parcel({before, i32(-6)})), fields + "-6})");
}

TEST_F(StubValues, SkipsKeysThatAreNotThere) {
    EXPECT_EQ(toldOf(46, parcel({i32(7), i32(3), cstr("a")})), "CarPlayMatchedDigitalCarKeys(7, {\"a\"})");
    EXPECT_EQ(toldOf(46, parcel({i32(7), i32(1)})), "CarPlayMatchedDigitalCarKeys(7, {})");
    EXPECT_EQ(toldOf(46, parcel({i32(7), i32(1), cstr("a"), cstr("b")})),
              "CarPlayMatchedDigitalCarKeys(7, {\"a\"})");
}

TEST_F(StubValues, TakesTheLengthBehindTheSetupForTheBuffers) {
    const Bytes words = parcel({repeated(5, i32(1)), i32(0x12345678), i32(99), i32(8)});
    EXPECT_EQ(toldOf(23, parcel({i32(7), words, i32(3), raw({1, 2, 3})})),
              "fileTransferSetup(7, {1 1 1 1 1 [01 02 03] 3 8})");
    EXPECT_EQ(toldOf(23, parcel({i32(7), words, i32(0)})), "fileTransferSetup(7, {1 1 1 1 1 null 0 8})");
    EXPECT_EQ(toldOf(23, parcel({i32(7), words})), "fileTransferSetup(7, {1 1 1 1 1 null 0 8})");
}

TEST_F(StubValues, ReadsASetupWholeOrNotAtAll) {
    // Eight bytes where 32 should be: they are the length and the bytes.
    EXPECT_EQ(toldOf(23, parcel({i32(7), i32(3), raw({1, 2, 3})})),
              "fileTransferSetup(7, {0 0 0 0 0 [01 02 03] 3 0})");
}

TEST_F(StubValues, ReadsWhatIsNotThereAsZeroAndNull) {
    const std::string nulls12 = "null null null null null null null null null null null null";
    const std::pair<uint32_t, std::string> told[] = {
        {1, "notify(0, 0)"},
        {2, "attach(0)"},
        {3, "detach(0)"},
        {4, "deviceInfoUpdate(0, null)"},
        {5, "wirelessCPStateUpdate(0, 0)"},
        {6, "DeviceTransportIdentifierNotification(0, null, null)"},
        {7, "deviceLanguageUpdate(0, null)"},
        {8, "deviceTimeUpdate(0, 0, 0, 0)"},
        {9, "deviceUUIDUpdate(0, null)"},
        {10, "deviceHIDReport(0, 0, [], 0)"},
        {11, "startLocation(0, 0, 0)"},
        {12, "stopLocation(0)"},
        {13, "mediaLibInfoUpdate(0, null, null, 0)"},
        {14, "mediaLibUpdateDataReady(0, {0x0})"},
        {15, "nowPlayingUpdate(0, {0x0}, {0x0})"},
        {16, "powerUpdate(0, {0x0})"},
        {17, "USBDeviceModeAudioInfo(0, 0)"},
        {18, "WiFiInformation(0, 0, null, null)"},
        {19, "requestAccWiFiConfigInfo(0)"},
        {20, "EASessionStart(0, 0, 0)"},
        {21, "EASessionStop(0, 0)"},
        {22, "EASessionRecvDataReady(0, 0, 0)"},
        {23, "fileTransferSetup(0, {0 0 0 0 0 null 0 0})"},
        {24, "fileTransferStart(0, 0)"},
        {25, "fileTransferPause(0, 0)"},
        {26, "fileTransferCancel(0, 0)"},
        {27, "fileTransferRecvFinish(0, 0)"},
        {29, "startOOBBTP(0)"},
        {30, "OOBBTPLinkKeyInfo(0, [], 0, [], 0)"},
        {31, "stopOOBBTP(0)"},
        {32, "BTConnectionUpdate(0, 0, 0)"},
        {33, "RouteGuidanceUpdates(0, {0x0})"},
        {34, "RouteGuidanceManeuverUpdates(0, {0x0})"},
        {35, "LaneGuidanceInformation(0, {0x0})"},
        {36, "AppDiscoveryUpdate(0, 0, null, 0, 0, null, 0)"},
        {37, "AppDiscoveryAppIcon(0, null, false, 0, [], 0)"},
        {38, "CallStateUpdate(0, {" + nulls12 + "})"},
        {39, "CommunicationsUpdate(0, {" + nulls12 + " null null null null null})"},
        {40, "CarPlayAvailability(0, {false null}, {false null})"},
        {41, "StartBluetoothPairing(0, 0, null)"},
        {42, "StopBluetoothPairing(0, 0, 0)"},
        {43, std::string("DestinationInformation(0, {0 null null ") + kZeros8 + " null 0 null 0 null null})"},
        {44, "AssistiveTouchInformation(0, false)"},
        {45, "hidComponentUpdate(0, 0, false)"},
        {46, "CarPlayMatchedDigitalCarKeys(0, {})"},
    };
    recorder->answer = 6;
    for (const auto& [code, text] : told) {
        EXPECT_EQ(toldOf(code, {}), text);
        EXPECT_EQ(last, answered(6)) << code;
    }
}

TEST_F(StubValues, ReadsWhatIsAnnouncedButNotThereAsZeroAndNull) {
    EXPECT_EQ(toldOf(6, parcel({i32(7), i32(1)})), "DeviceTransportIdentifierNotification(7, null, null)");
    EXPECT_EQ(toldOf(38, parcel({i32(7), repeated(8, i32(0)), i32(1)})),
              "CallStateUpdate(7, {null null null null null null null null false null null null})");
    EXPECT_EQ(toldOf(38, parcel({i32(7), repeated(11, i32(0)), i32(1)})),
              "CallStateUpdate(7, {null null null null null null null null null null null 0})");
    EXPECT_EQ(
        toldOf(39, parcel({i32(7), repeated(9, i32(0)), i32(1)})),
        "CommunicationsUpdate(7, {null null null null null null null null null 0 null null null null null "
        "null null})");
    EXPECT_EQ(toldOf(40, parcel({i32(7), i32(1)})), "CarPlayAvailability(7, {true null}, {false null})");
    EXPECT_EQ(toldOf(41, parcel({i32(7), i32(2), i32(1)})),
              "StartBluetoothPairing(7, 2, [00 00 00 00 00 00])");
    EXPECT_EQ(toldOf(41, parcel({i32(7), i32(2), i32(1), raw({1, 2, 3, 4})})),
              "StartBluetoothPairing(7, 2, [00 00 00 00 00 00])");
}

}  // namespace
}  // namespace accessory::test
