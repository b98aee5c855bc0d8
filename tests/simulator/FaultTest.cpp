// Faults: spelling them, and when they happen.
#include <gmock/gmock.h>

#include "simulator/faults/FaultInjector.h"
#include "simulator/faults/Operations.h"

namespace accessory::simulator {
namespace {

constexpr const char* kManager = "AppleiAP2Manager";

Fault fault(const char* text) {
    Fault parsed;
    EXPECT_EQ(parseFault(text, &parsed), "");
    return parsed;
}

/// For which of eight calls of @p operation a fault happens, as digits.
std::string whenFor(const char* text, const char* operation) {
    FaultInjector faults({fault(text)});
    std::string calls;
    for (int call = 1; call <= 8; ++call) {
        if (faults.onCall(kManager, operation).hasStatus) calls += std::to_string(call);
    }
    return calls;
}

TEST(Fault, IsReadInFull) {
    const Fault read = fault("AcceptCall=error:-22@2/3");
    EXPECT_EQ(read.operation, "AcceptCall");
    EXPECT_EQ(read.kind, FaultKind::kError);
    EXPECT_EQ(read.value, -22);
    EXPECT_EQ(read.call, 2u);
    EXPECT_EQ(read.every, 3u);
}

TEST(Fault, HasUsualValues) {
    EXPECT_EQ(fault("*=delay").value, 1000);
    EXPECT_EQ(fault("*=error").value, -1);
    EXPECT_EQ(fault("*=die").value, 1);
    EXPECT_EQ(fault("*=empty").call, 0u);
}

TEST(Fault, IsWrittenAsItIsRead) {
    for (const char* text :
         {"*=delay:5", "AppleiAP2Manager.startup=error:-5@7", "SwapCalls=empty/2", "stop=die:3"})
        EXPECT_EQ(toString(fault(text)), text);
}

TEST(Fault, SaysWhatIsWrongWithIt) {
    Fault read;
    EXPECT_THAT(parseFault("AcceptCall", &read), testing::HasSubstr("is no fault; expected operation=kind"));
    EXPECT_THAT(parseFault("AceptCall=die", &read), testing::HasSubstr("there is no operation 'AceptCall'"));
    EXPECT_THAT(parseFault("AcceptCall=slow", &read),
                testing::HasSubstr("'slow' is no kind of fault; expected delay, error, empty or die"));
    EXPECT_THAT(parseFault("AcceptCall=error:99999999999", &read), testing::HasSubstr("too large"));
    EXPECT_THAT(parseFault("AcceptCall=error:x", &read), testing::HasSubstr("is no fault"));
}

TEST(Fault, KnowsTheOperationsOfAllThreeInterfaces) {
    for (const char* operation : {"*", "getDeviceCount", "CarPlayAvailableDigitalCarKeys", "setSampleRate",
                                  "AppleUSBAudioManager.startup", "AccessoryManager.getPath"})
        EXPECT_TRUE(isOperation(operation)) << operation;
    for (const char* operation : {"", "attach", "AppleiAP2Manager.getPath", "AppleiAP2Manager"})
        EXPECT_FALSE(isOperation(operation)) << operation;
}

TEST(HostedInterface, NamesOperationsByTheirCodes) {
    EXPECT_EQ(iAP2ManagerInterface().operations.size(), 86u);
    EXPECT_EQ(usbAudioManagerInterface().operations.size(), 11u);
    EXPECT_EQ(accessoryManagerInterface().operations.size(), 4u);
    EXPECT_STREQ(iAP2ManagerInterface().nameOf(67), "AcceptCall");
    EXPECT_STREQ(usbAudioManagerInterface().nameOf(7), "setVolume");
    EXPECT_STREQ(iAP2ManagerInterface().nameOf(16), "transaction");
}

TEST(FaultInjector, MeetsTheCallsThatAreMeant) {
    EXPECT_EQ(whenFor("stop=error", "stop"), "12345678");
    EXPECT_EQ(whenFor("stop=error@3", "stop"), "3");
    EXPECT_EQ(whenFor("stop=error/3", "stop"), "36");
    EXPECT_EQ(whenFor("*=error@2", "stop"), "2");
    EXPECT_EQ(whenFor("start=error", "stop"), "");
    EXPECT_EQ(whenFor("AppleiAP2Manager.stop=error@1", "stop"), "1");
    EXPECT_EQ(whenFor("AppleUSBAudioManager.stop=error", "stop"), "");
}

TEST(FaultInjector, CountsOperationsTogetherForAllAndApartForOne) {
    FaultInjector faults({fault("*=empty@3"), fault("stop=delay:7@2")});
    EXPECT_FALSE(faults.onCall(kManager, "start").empty);
    EXPECT_FALSE(faults.onCall(kManager, "stop").empty);
    EXPECT_TRUE(faults.onCall(kManager, "start").empty);
    EXPECT_EQ(faults.onCall(kManager, "stop").delayMs, 7u);
}

TEST(FaultInjector, PutsFaultsTogether) {
    FaultInjector faults(
        {fault("stop=delay:20"), fault("*=delay:3"), fault("stop=error:-5"), fault("stop=die:9")});
    const Mishap mishap = faults.onCall(kManager, "stop");
    EXPECT_EQ(mishap.delayMs, 23u);
    EXPECT_TRUE(mishap.hasStatus);
    EXPECT_EQ(mishap.status, -5);
    EXPECT_TRUE(mishap.dies);
    EXPECT_EQ(mishap.exitStatus, 9);
}

TEST(FaultInjector, TellsWhatHappened) {
    FaultInjector faults({fault("stop=error:-5/2")});
    for (int i = 0; i < 5; ++i)
        faults.onCall(kManager, "stop");
    std::string text;
    faults.describe(&text);
    EXPECT_EQ(text, "fault stop=error:-5/2: happened 2 times\n");
}

TEST(ForcedStatus, IsThatOfTheInnermostCall) {
    EXPECT_EQ(ForcedStatus::current(), nullptr);
    Mishap mishap;
    mishap.hasStatus = true;
    mishap.status = -7;
    const ForcedStatus outer(mishap);
    EXPECT_EQ(*ForcedStatus::current(), -7);
    {
        const ForcedStatus inner{Mishap()};
        EXPECT_EQ(ForcedStatus::current(), nullptr);
    }
    EXPECT_EQ(*ForcedStatus::current(), -7);
}

}  // namespace
}  // namespace accessory::simulator
