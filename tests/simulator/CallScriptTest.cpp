// Calls and communications as clients hear of them.
#include <gmock/gmock.h>

#include "tests/simulator/Script.h"

namespace accessory::simulator::test {
namespace {

using testing::ElementsAre;

/// Field 3 is the state, field 5 the identifier.
CallFields stateAndUuid() { return CallFields(0b10100); }

Call callFrom(const char* number, const char* uuid) {
    Call call;
    call.remoteId = number;
    call.uuid = uuid;
    return call;
}

TEST(CallScript, WalksAnOutgoingCall) {
    Script script(R"("answerAfter": 4000)");
    script.at(1, [](Device& device) {
        device.phone.startCallStates(CallFields(0b101));
        EXPECT_EQ(device.phone.initiate(Phone::kToDestination, "555", 1, nullptr), kDone);
    });
    script.at(10, [](Device& device) { EXPECT_EQ(device.phone.end(Phone::kEndOne, nullptr), kDone); });
    EXPECT_THAT(
        about("CallState", script.play(20)),
        ElementsAre("1 CallStateUpdate(1, {1: \"555\", 3: 1})", "2 CallStateUpdate(1, {1: \"555\", 3: 3})",
                    "5 CallStateUpdate(1, {1: \"555\", 3: 4})", "10 CallStateUpdate(1, {1: \"555\", 3: 0})"));
}

TEST(CallScript, EndsACallThatNobodyAccepts) {
    Script script;
    script.at(1, [](Device& device) {
        device.phone.startCallStates(stateAndUuid());
        device.phone.ring(callFrom("1", "a"), milliseconds(20'000));
    });
    EXPECT_THAT(about("CallState", script.play(60)), ElementsAre("1 CallStateUpdate(1, {3: 2, 5: \"a\"})",
                                                                 "21 CallStateUpdate(1, {3: 0, 5: \"a\"})"));
}

TEST(CallScript, KeepsAnAcceptedCall) {
    Script script;
    script.at(1, [](Device& device) {
        device.phone.startCallStates(stateAndUuid());
        device.phone.ring(callFrom("1", "a"), milliseconds(5'000));
        EXPECT_EQ(device.phone.accept(2, nullptr), kBadArgument);
        EXPECT_EQ(device.phone.accept(0, "b"), kNotFound);
        EXPECT_EQ(device.phone.accept(0, nullptr), kDone);
        EXPECT_EQ(device.phone.accept(0, nullptr), kWrongState);
    });
    EXPECT_THAT(about("CallState", script.play(60)), ElementsAre("1 CallStateUpdate(1, {3: 2, 5: \"a\"})",
                                                                 "1 CallStateUpdate(1, {3: 4, 5: \"a\"})"));
}

TEST(CallScript, SwapsMergesHoldsMutesAndSendsTones) {
    Script script;
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.phone.mute(true), kWrongState);
        EXPECT_EQ(device.phone.tone(5, nullptr), kWrongState);
        device.phone.ring(callFrom("1", "a"), milliseconds(0));
        device.phone.accept(0, nullptr);
        device.phone.ring(callFrom("2", "b"), milliseconds(0));
        device.phone.accept(0, nullptr);
        device.phone.startCallStates(stateAndUuid());
    });
    script.at(2, [](Device& device) { EXPECT_EQ(device.phone.swap(), kDone); });
    script.at(3, [](Device& device) { EXPECT_EQ(device.phone.merge(), kDone); });
    script.at(4, [](Device& device) {
        EXPECT_EQ(device.phone.swap(), kWrongState);
        EXPECT_EQ(device.phone.hold(true, "a"), kDone);
        EXPECT_EQ(device.phone.mute(true), kDone);
        EXPECT_EQ(device.phone.tone(12, nullptr), kBadArgument);
        EXPECT_EQ(device.phone.tone(11, nullptr), kDone);
        EXPECT_EQ(device.phone.end(Phone::kEndAll, nullptr), kDone);
        EXPECT_EQ(device.phone.end(Phone::kEndAll, nullptr), kWrongState);
    });
    EXPECT_THAT(
        about("CallState", script.play(60)),
        ElementsAre("1 CallStateUpdate(1, {3: 5, 5: \"a\"})", "1 CallStateUpdate(1, {3: 4, 5: \"b\"})",
                    "2 CallStateUpdate(1, {3: 4, 5: \"a\"})", "2 CallStateUpdate(1, {3: 5, 5: \"b\"})",
                    "3 CallStateUpdate(1, {3: 4, 5: \"a\"})", "3 CallStateUpdate(1, {3: 4, 5: \"b\"})",
                    "4 CallStateUpdate(1, {3: 5, 5: \"a\"})", "4 CallStateUpdate(1, {3: 0, 5: \"a\"})",
                    "4 CallStateUpdate(1, {3: 0, 5: \"b\"})"));
}

TEST(CallScript, RefusesCallsThatCannotBe) {
    Script script;
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.phone.initiate(3, "1", 1, nullptr), kBadArgument);
        EXPECT_EQ(device.phone.initiate(Phone::kToDestination, nullptr, 1, nullptr), kBadArgument);
        EXPECT_EQ(device.phone.initiate(Phone::kRedial, nullptr, 1, nullptr), kNotFound);
        Network network = device.phone.network();
        network.airplaneMode = true;
        device.phone.setNetwork(network);
        EXPECT_EQ(device.phone.initiate(Phone::kToDestination, "1", 1, nullptr), kWrongState);
        network.airplaneMode = false;
        device.phone.setNetwork(network);
        EXPECT_EQ(device.phone.initiate(Phone::kToVoicemail, nullptr, 1, nullptr), kDone);
    });
    script.play(2);
}

TEST(CommunicationsScript, TellsOnlyAskedFieldsThatChanged) {
    Script script(R"("network": {"carrier": "Net", "signalStrength": 5})");
    script.at(1, [](Device& device) {
        EXPECT_EQ(device.phone.stopCommunications(), kWrongState);
        // Fields 1, 4 and 10: signal, carrier and the number of calls.
        EXPECT_EQ(device.phone.startCommunications(CommunicationsFields(0b1000001001)), kDone);
    });
    script.at(2, [](Device& device) {
        Network network = device.phone.network();
        network.signalStrength = 1;
        network.newVoicemails = 3;
        device.phone.setNetwork(network);
    });
    script.at(3, [](Device& device) { device.phone.ring(callFrom("1", "a"), milliseconds(1000)); });
    EXPECT_THAT(about("Communications", script.play(10)),
                ElementsAre("1 CommunicationsUpdate(1, {1: 5, 4: \"Net\", 10: 0})",
                            "2 CommunicationsUpdate(1, {1: 1})", "3 CommunicationsUpdate(1, {10: 1})",
                            "4 CommunicationsUpdate(1, {10: 0})"));
}

TEST(AskedFields, AreOneBytePerField) {
    StartCallStateUpdateParam calls;
    calls.field1 = 1;
    calls.field12 = 255;
    EXPECT_EQ(askedFields(calls), CallFields(0b100000000001));
    StartCommunicationsUpdatesParam communications;
    communications.field17 = 1;
    EXPECT_EQ(askedFields(communications), CommunicationsFields(1 << 16));
}

}  // namespace
}  // namespace accessory::simulator::test
