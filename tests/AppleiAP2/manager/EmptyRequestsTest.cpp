// Requests that end too early: what is missing arrives as 0 or null, wherever they end.
#include <stdexcept>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using EmptyRequests = ManagerStubFixture;

struct Empty {
    uint32_t code;
    const char* told;
    Bytes values{};
};

/// What the implementation is told of a request that ends behind its token.
const Empty kEmpty[] = {
    {3, "setName(null)"},
    {4, "setSerialNumber(null)"},
    {5, "setDisplayName(null)"},
    {6, "setBluetoothAddr([], 0)"},
    {7, "startup(0)"},
    {8, "shutdown(0)"},
    {9, "setConfigPath(0, null)"},
    {12, "getAPPIds(0, clear)", parcel({i32(3), cstr("app.one"), cstr(""), cstr("c")})},
    {13, "launchAPP(0, null, 0)"},
    {14, "startHID(0)"},
    {15, "dispatchMediaPlaybackRemoteEvent(0, 0, 0)"},
    {17, "stopHID(0)"},
    {18, "updateLocation(0, [], 0)"},
    {19, "startMediaLibInformation(0)"},
    {20, "stopMediaLibInformation(0)"},
    {21, "startMediaLibUpdates(0, {null null 0 0 0 0 0})"},
    {22, "stopMediaLibUpdates(0, null)"},
    {23, "playMediaLibCurrentSelection(0, null)"},
    {24, "playMediaLibItems(0, null, [], 0, 0)"},
    {25, "playMediaLibCollection(0, null, 0, 0, 0)"},
    {26, "playMediaLibSpecial(0, null, 0)"},
    {27, "startNowPlayingUpdate(0, 0, 0)"},
    {28, "stopNowPlayingUpdate(0)"},
    {29, "setNowPlayingInfo(0, 0, 0)"},
    {30, "startPowerUpdate(0, 0)"},
    {31, "stopPowerUpdate(0)"},
    {32, "powerSourceUpdate(0, 0, false)"},
    {33, "startUSBDeviceModeAudio(0)"},
    {34, "stopUSBDeviceModeAudio(0)"},
    {35, "requestWiFiInformation(0)"},
    {36, "accessoryWiFiConfigInforamtion(0, null, null, 0, 0)"},
    {37, "getEASessionCount(0)"},
    {38, "getEASessionId(0, 0, clear)", parcel({i32(-5), i32(0x01020304)})},
    {39, "registerEASessionChannel(0, 0, 0, 0)"},
    {40, "unregisterEASessionChannel(0, 0, 0, 0)"},
    {41, "EASessionSendDataReady(0, 0, 0)"},
    {42, "updateEAPStatus(0, 0, 0)"},
    {47, "fileTransferRecvInit(0, 0, 0)"},
    {48, "fileTransferRecvStart(0, 0)"},
    {49, "fileTransferRecvPause(0, 0)"},
    {50, "fileTransferRecvCancel(0, 0)"},
    {51, "registerFileTransferChannel(0, 0, 0, 0)"},
    {52, "unregisterFileTransferChannel(0, 0, 0, 0)"},
    {53, "OOBBTPAccInfo(0, 0)"},
    {54, "OOBBTPCompletionInfo(0, 0)"},
    {55, "BTComponentInformation(0, [], 0)"},
    {56, "StartBTConnectionUpdate(0, [], 0)"},
    {57, "StopBTConnectionUpdate(0)"},
    {58, "StartRouteGuidanceUpdate(0, null, 0, 0)"},
    {59, "StopRouteGuidanceUpdate(0, null, 0)"},
    {60, "StartAppDiscoveryUpdates(0, 0, 0, 0, 0, 0)"},
    {61, "StopAppDiscoveryUpdates(0)"},
    {64, "StopCallStateUpdates(0)"},
    {66, "StopCommunicationsUpdates(0)"},
    {67, "AcceptCall(0, 0, null)"},
    {68, "EndCall(0, 0, null)"},
    {69, "InitiateCall(0, {0 null 0 null})"},
    {70, "SwapCalls(0)"},
    {71, "MergeCalls(0)"},
    {72, "HoldStatusUpdate(0, false, null)"},
    {73, "MuteStatusUpdate(0, false)"},
    {74, "SendDTMF(0, 0, null)"},
    {76, "CarPlayStartSession(0, null, null, 0, null, null, null)"},
    {78, "BluetoothPairingAccessoryInformation(0, 0, null, null)"},
    {79, "BluetoothPairingStatus(0, 0, 0, null)"},
    {80, "StartDestinationInformation(0, 0)"},
    {81, "StopDestinationInformation(0)"},
    {82, "DestinationInformationStatus(0, null, 0)"},
    {83, "start(0)"},
    {84, "stop(0)"},
    {85, "StartAssistiveTouch(0)"},
    {86, "StopAssistiveTouch(0)"},
    {87, "StartAssistiveTouchInformation(0)"},
    {88, "StopAssistiveTouchInformation(0)"},
    {89, "startHID(0, {0 0 0 [] 0 0})"},
    {90, "accHIDReport(0, [], 0)"},
    {91, "CarPlayAvailableDigitalCarKeys(0, {})"},
};

TEST_F(EmptyRequests, ArriveAsZerosAndNulls) {
    recorder->answer = 12;
    for (const Empty& empty : kEmpty) {
        EXPECT_EQ(toldOf(empty.code, {}), empty.told);
        EXPECT_EQ(last, answered(12, empty.values)) << empty.told;
    }
}

/// How a cut request may end: told and answered, or left early as its operation promises.
testing::AssertionResult isPromised(const Example& example, const Answer& answer, size_t told) {
    if (answer.status == 0 && told == 1 && answer.reply == example.replyWith(12))
        return testing::AssertionSuccess();
    const bool isDropped = example.code == 62 && told == 0 && answer == stopped(0);
    if (isDropped) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(answer) << ", told " << told;
}

bool needsItsStrings(const Example& example) { return example.code == 77 || example.code == 91; }

TEST_F(EmptyRequests, AreAnsweredWhereverTheyEnd) {
    recorder->answer = 12;
    for (const Example& example : allExamples()) {
        if (needsItsStrings(example)) continue;
        for (size_t length = 0; length < example.arguments.size(); ++length) {
            const Answer answer = ask(*stub, example.code, managerRequest(cut(example.arguments, length)));
            EXPECT_TRUE(isPromised(example, answer, recorder->takeTold().size()))
                << testing::PrintToString(example) << " cut at " << length;
        }
    }
}

TEST_F(EmptyRequests, RaiseALogicErrorWhereverAStringOfTheStandardLibraryIsMissing) {
    for (const Example& example : allExamples()) {
        if (!needsItsStrings(example)) continue;
        // Behind a count of 0 no string is missing. Cut by words: a string is there without its fill-up.
        const size_t begin = example.code == 77 ? 0 : 8;
        for (size_t length = begin; length < example.arguments.size(); length += 4)
            EXPECT_THROW(ask(*stub, example.code, managerRequest(cut(example.arguments, length))),
                         std::logic_error)
                << testing::PrintToString(example) << " cut at " << length;
    }
    EXPECT_THAT(recorder->takeTold(), testing::IsEmpty());
}

}  // namespace
}  // namespace accessory::test
