// Calls: how they ring, connect, are held, swapped and merged, and end.
#include "simulator/model/CallList.h"

#include <gmock/gmock.h>

namespace accessory::simulator {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Call call(const char* uuid) {
    Call made;
    made.uuid = uuid;
    return made;
}

std::vector<std::pair<std::string, CallState>> statesOf(const std::vector<Call>& calls) {
    std::vector<std::pair<std::string, CallState>> states;
    for (const Call& each : calls)
        states.emplace_back(each.uuid, each.state);
    return states;
}

auto in(const char* uuid, CallState state) { return testing::Pair(uuid, state); }

/// One call that is active, and one that rings.
class CallDuringACall : public testing::Test {
  protected:
    CallDuringACall() {
        calls.outgoing(call("a"));
        calls.connected("a", 100);
        calls.incoming(call("b"));
        calls.takeChanged();
    }

    CallList calls;
};

TEST(CallList, WalksAnOutgoingCallThroughItsStates) {
    CallList calls;
    calls.outgoing(call("a"));
    EXPECT_TRUE(calls.connecting("a"));
    EXPECT_TRUE(calls.connected("a", 1234));
    EXPECT_TRUE(calls.end(nullptr));
    const std::vector<Call> changed = calls.takeChanged();
    EXPECT_THAT(statesOf(changed),
                ElementsAre(in("a", CallState::kDialling), in("a", CallState::kConnecting),
                            in("a", CallState::kActive), in("a", CallState::kDisconnected)));
    EXPECT_EQ(changed[2].startTime, 1234);
    EXPECT_EQ(changed[0].direction, CallDirection::kOutgoing);
    EXPECT_THAT(calls.calls(), IsEmpty());
}

TEST(CallList, MakesUpIdentifiersThatDiffer) {
    CallList calls;
    const std::string first = calls.incoming({});
    const std::string second = calls.incoming({});
    EXPECT_EQ(first.size(), 36u);
    EXPECT_NE(first, second);
}

TEST(CallList, DeclinesARingingCall) {
    CallList calls;
    calls.incoming(call("a"));
    EXPECT_TRUE(calls.end("a"));
    EXPECT_EQ(calls.takeChanged().back().reason, DisconnectReason::kDeclined);
}

TEST(CallList, DoesNothingWithoutASuitableCall) {
    CallList calls;
    EXPECT_FALSE(calls.accept(nullptr, false, 0));
    EXPECT_FALSE(calls.end(nullptr));
    EXPECT_FALSE(calls.endAll());
    EXPECT_FALSE(calls.swap());
    EXPECT_FALSE(calls.merge());
    EXPECT_FALSE(calls.hold(nullptr, true));
    EXPECT_FALSE(calls.connecting("a"));
    EXPECT_THAT(calls.takeChanged(), IsEmpty());
}

TEST_F(CallDuringACall, HoldsTheFirstWhenTheSecondIsAccepted) {
    EXPECT_TRUE(calls.accept("b", false, 200));
    EXPECT_THAT(statesOf(calls.takeChanged()),
                ElementsAre(in("a", CallState::kHeld), in("b", CallState::kActive)));
}

TEST_F(CallDuringACall, EndsTheFirstWhenAskedTo) {
    EXPECT_TRUE(calls.accept(nullptr, true, 200));
    EXPECT_THAT(statesOf(calls.takeChanged()),
                ElementsAre(in("a", CallState::kDisconnected), in("b", CallState::kActive)));
    EXPECT_THAT(statesOf(calls.calls()), ElementsAre(in("b", CallState::kActive)));
}

TEST_F(CallDuringACall, SwapsActiveAndHeld) {
    EXPECT_FALSE(calls.swap());
    calls.accept("b", false, 200);
    EXPECT_TRUE(calls.swap());
    EXPECT_THAT(statesOf(calls.calls()), ElementsAre(in("a", CallState::kActive), in("b", CallState::kHeld)));
}

TEST_F(CallDuringACall, MergesIntoAConferenceThatEndsWithItsLastButOne) {
    calls.accept("b", false, 200);
    EXPECT_TRUE(calls.merge());
    EXPECT_TRUE(calls.calls()[0].conference);
    EXPECT_TRUE(calls.calls()[1].conference);
    EXPECT_THAT(statesOf(calls.calls()),
                ElementsAre(in("a", CallState::kActive), in("b", CallState::kActive)));
    EXPECT_TRUE(calls.end("b"));
    EXPECT_FALSE(calls.calls()[0].conference);
}

TEST_F(CallDuringACall, HoldsAndResumes) {
    EXPECT_FALSE(calls.hold("b", true));
    EXPECT_TRUE(calls.hold("a", true));
    EXPECT_FALSE(calls.hold(nullptr, true));
    EXPECT_TRUE(calls.hold(nullptr, false));
    EXPECT_NE(calls.find("a", CallState::kActive), nullptr);
}

TEST_F(CallDuringACall, TellsWhatCouldBeDone) {
    CallAbilities can = calls.abilities();
    EXPECT_FALSE(can.initiate);
    EXPECT_TRUE(can.endAndAccept);
    EXPECT_TRUE(can.holdAndAccept);
    EXPECT_FALSE(can.swap);
    calls.accept("b", false, 0);
    can = calls.abilities();
    EXPECT_TRUE(can.swap);
    EXPECT_TRUE(can.merge);
    EXPECT_TRUE(can.hold);
    EXPECT_FALSE(can.endAndAccept);
    calls.endAll();
    EXPECT_TRUE(calls.abilities().initiate);
}

}  // namespace
}  // namespace accessory::simulator
