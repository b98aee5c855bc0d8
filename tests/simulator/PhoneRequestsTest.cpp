// Requests about calls and communications, through the program.
#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CallingSimulator : public QuietSimulator {
  protected:
    CallingSimulator() {
        attach();
        StartCallStateUpdateParam fields;
        fields.field1 = 1;
        fields.field3 = 1;
        EXPECT_EQ(manager.StartCallStateUpdates(kPhone, fields), kDone);
    }

    int call(const char* number) {
        InitiateCallParam param;
        param.destinationId = number;
        return manager.InitiateCall(kPhone, &param);
    }

    testing::AssertionResult hearsState(const char* number, int state) {
        return client.hears("CallStateUpdate(5, {\"" + std::string(number) + "\" null " +
                            std::to_string(state) + " null null null null null null null null null})");
    }
};

TEST_F(CallingSimulator, WalksACallThroughItsStates) {
    EXPECT_EQ(call("555"), kDone);
    for (const int state : {1, 3, 4})
        EXPECT_TRUE(hearsState("555", state)) << state;
    EXPECT_EQ(manager.MuteStatusUpdate(kPhone, true), kDone);
    EXPECT_EQ(manager.SendDTMF(kPhone, 10, nullptr), kDone);
    EXPECT_EQ(manager.SendDTMF(kPhone, 12, nullptr), kBadArgument);
    EXPECT_THAT(client.dump(), testing::AllOf(HasSubstr("\"555\" active"), HasSubstr("microphone: muted"),
                                              HasSubstr("tones sent: *")));
    EXPECT_EQ(manager.HoldStatusUpdate(kPhone, true, nullptr), kDone);
    EXPECT_TRUE(hearsState("555", 5));
    EXPECT_EQ(manager.SendDTMF(kPhone, 1, nullptr), kWrongState);
    EXPECT_EQ(manager.EndCall(kPhone, 0, nullptr), kDone);
    EXPECT_TRUE(hearsState("555", 0));
    EXPECT_EQ(manager.EndCall(kPhone, 0, nullptr), kWrongState);
    EXPECT_EQ(manager.EndCall(kPhone, 0, "nobody"), kNotFound);
    EXPECT_EQ(manager.EndCall(kPhone, 2, nullptr), kBadArgument);
}

TEST_F(CallingSimulator, SwapsAndMergesTwoCalls) {
    EXPECT_EQ(call("1"), kDone);
    EXPECT_TRUE(hearsState("1", 4));
    EXPECT_EQ(manager.SwapCalls(kPhone), kWrongState);
    EXPECT_EQ(call("2"), kDone);
    EXPECT_TRUE(hearsState("1", 5));
    EXPECT_TRUE(hearsState("2", 4));
    EXPECT_EQ(manager.SwapCalls(kPhone), kDone);
    EXPECT_TRUE(hearsState("1", 4));
    EXPECT_TRUE(hearsState("2", 5));
    EXPECT_EQ(manager.MergeCalls(kPhone), kDone);
    EXPECT_TRUE(hearsState("2", 4));
    EXPECT_EQ(manager.MergeCalls(kPhone), kWrongState);
    EXPECT_EQ(manager.EndCall(kPhone, 1, nullptr), kDone);
    EXPECT_TRUE(hearsState("1", 0));
    EXPECT_TRUE(hearsState("2", 0));
}

TEST_F(CallingSimulator, StopsTellingOfCalls) {
    EXPECT_EQ(manager.AcceptCall(kPhone, 0, nullptr), kWrongState);
    EXPECT_EQ(manager.StopCallStateUpdates(kPhone), kDone);
    EXPECT_EQ(manager.StopCallStateUpdates(kPhone), kWrongState);
}

TEST_F(CallingSimulator, TellsOfCommunicationsWhatWasAsked) {
    StartCommunicationsUpdatesParam fields;
    fields.field10 = 1;
    fields.field17 = 1;
    EXPECT_EQ(manager.StartCommunicationsUpdates(kPhone, &fields), kDone);
    EXPECT_TRUE(
        client.hears("CommunicationsUpdate(5, {null null null null null null null null null 0 null null null "
                     "null null null false})"));
    EXPECT_EQ(call("1"), kDone);
    EXPECT_TRUE(
        client.hears("CommunicationsUpdate(5, {null null null null null null null null null 1 null null null "
                     "null null null true})"));
    EXPECT_EQ(manager.StopCommunicationsUpdates(kPhone), kDone);
    EXPECT_EQ(manager.StopCommunicationsUpdates(kPhone), kWrongState);
}

TEST(Commute, RingsAndIsAccepted) {
    SimulatorProcess process({"commute", "--speed", "200"});
    ASSERT_TRUE(process.ready());
    SimulatorClient client;
    ASSERT_EQ(client.manager().startup(kTransportUSBHost), kDone);
    ASSERT_TRUE(client.hears("attach(1)"));
    StartCallStateUpdateParam fields;
    fields.field1 = 1;
    fields.field2 = 1;
    fields.field3 = 1;
    ASSERT_EQ(client.manager().StartCallStateUpdates(1, fields), kDone);
    EXPECT_TRUE(client.hears(StartsWith("CallStateUpdate(1, {\"+44 20 7946 0123\" \"Ben Falk\" 2 ")));
    EXPECT_TRUE(client.hears(StartsWith("CallStateUpdate(1, {\"+44 20 7946 0123\" \"Ben Falk\" 4 ")));
    EXPECT_TRUE(client.hears(StartsWith("CallStateUpdate(1, {\"+44 20 7946 0123\" \"Ben Falk\" 0 ")));
}

}  // namespace
}  // namespace accessory::simulator::test
