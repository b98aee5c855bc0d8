// Objects that travel between two and three processes: what they are at the other end, and how long they
// live.
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <utility>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

testing::AssertionResult hasAlive(const ServiceProcess& owner, int count) {
    return eventually([&] { return ask(owner.object(), kMade) == count; });
}

/// Calls what @p holder keeps. @return the pid of the process that served the call.
int32_t ownerOfKept(const ServiceProcess& holder, int32_t* callingPid) {
    Call call(holder.object(), kAskKept);
    call << kCaller;
    EXPECT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    *callingPid = call.reply.readInt32();
    call.reply.readInt32();
    return call.reply.readInt32();
}

/// Gives @p object, and this process's last reference to it, to @p middle, has it back and kills the middle.
sp<IBinder> passedOnByOneWhoDies(sp<IBinder> object, ServiceProcess* middle) {
    ask(middle->object(), kKeep, object);
    object = nullptr;
    object = askForObject(middle->object(), kKept);
    middle->kill();
    return object;
}

TEST(SentObject, IsAProxyAtTheOtherEnd) {
    const ServiceProcess owner;
    const sp<IBinder> made = askForObject(owner.object(), kMake);
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(nullptr, made->localBinder());
    EXPECT_NE(nullptr, made->remoteBinder());
    EXPECT_EQ(getpid(), ask(made, kCaller));
}

TEST(SentObject, IsItselfAgainWhenItComesHome) {
    const ServiceProcess service;
    const sp<IBinder> mine = new BBinder;
    EXPECT_EQ(mine, askForObject(service.object(), kEcho, mine));
    ask(service.object(), kKeep, mine);
    EXPECT_EQ(mine, askForObject(service.object(), kKept));
}

TEST(SentObject, IsItselfAgainWhenAThirdProcessSendsItHome) {
    const ServiceProcess first;
    const ServiceProcess second;
    const sp<IBinder> mine = new BBinder;
    ask(first.object(), kKeep, mine);
    ask(second.object(), kKeep, askForObject(first.object(), kKept));
    ask(first.object(), kDrop);
    EXPECT_EQ(mine, askForObject(second.object(), kKept));
}

TEST(SentObject, ThatIsNullArrivesAsNull) {
    const ServiceProcess service;
    EXPECT_EQ(nullptr, askForObject(service.object(), kEcho, sp<IBinder>()));
}

TEST(ReceivedObject, IsTheSameProxyHoweverOftenItIsReceived) {
    const ServiceProcess service;
    EXPECT_EQ(service.object(), askForObject(service.object(), kEcho, service.object()));
    const sp<IBinder> made = askForObject(service.object(), kMake);
    ask(service.object(), kKeep, made);
    EXPECT_EQ(made, askForObject(service.object(), kKept));
    EXPECT_EQ(made, askForObject(service.object(), kKept));
}

TEST(ReceivedObject, IsTheSameProxyWhenAThirdProcessPassesIt) {
    const ServiceProcess owner;
    const ServiceProcess middle;
    const sp<IBinder> made = askForObject(owner.object(), kMake);
    ask(middle.object(), kKeep, made);
    EXPECT_EQ(made, askForObject(middle.object(), kKept));
}

TEST(ReceivedObject, IsReleasedByItsOwnerWhenTheLastProxyIsDropped) {
    const ServiceProcess owner;
    sp<IBinder> made = askForObject(owner.object(), kMake);
    sp<IBinder> again = askForObject(owner.object(), kEcho, made);
    EXPECT_EQ(1, ask(owner.object(), kMade));
    again = nullptr;
    EXPECT_EQ(getpid(), ask(made, kCaller));
    made = nullptr;
    EXPECT_TRUE(hasAlive(owner, 0));
}

TEST(ReceivedObject, IsReleasedWhenNobodyTookItOutOfTheReply) {
    const ServiceProcess owner;
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(NO_ERROR, Call(owner.object(), kMake).run());
    EXPECT_TRUE(hasAlive(owner, 0));
}

TEST(ReceivedObject, IsReleasedWhenItWasSentBackToItsOwner) {
    const ServiceProcess owner;
    for (int i = 0; i < 50; ++i)
        askForObject(owner.object(), kEcho, askForObject(owner.object(), kMake));
    EXPECT_TRUE(hasAlive(owner, 0));
}

TEST(PassedOnObject, ReachesItsOwnerDirectly) {
    const ServiceProcess owner;
    const ServiceProcess other;
    ask(other.object(), kKeep, askForObject(owner.object(), kMake));
    int32_t caller = 0;
    EXPECT_EQ(owner.pid(), ownerOfKept(other, &caller));
    EXPECT_EQ(other.pid(), caller);
}

TEST(PassedOnObject, StaysAliveWhenTheMiddleDropsIt) {
    const ServiceProcess owner;
    const ServiceProcess other;
    for (int round = 0; round < 20; ++round) {
        ask(other.object(), kKeep, askForObject(owner.object(), kMake));
        EXPECT_TRUE(hasAlive(owner, 1));
        int32_t caller = 0;
        EXPECT_EQ(owner.pid(), ownerOfKept(other, &caller));
    }
    ask(other.object(), kDrop);
    EXPECT_TRUE(hasAlive(owner, 0));
}

TEST(PassedOnObject, StaysAliveWhenTheMiddleDies) {
    const ServiceProcess owner;
    const ServiceProcess other;
    ServiceProcess middle;
    Call relay(middle.object(), kRelay);
    relay << owner.object() << other.object();
    ASSERT_EQ(NO_ERROR, relay.run());
    middle.kill();
    EXPECT_EQ(DEAD_OBJECT, middle.object()->pingBinder());
    int32_t caller = 0;
    EXPECT_EQ(owner.pid(), ownerOfKept(other, &caller));
    EXPECT_EQ(1, ask(owner.object(), kMade));
}

TEST(PassedOnObject, OutlivesAGiverWhoDiesBeforeItsOwnerHasLetHimIn) {
    ServiceProcess owner;
    ServiceProcess middle;
    sp<IBinder> made = askForObject(owner.object(), kMake);
    owner.process().stop();
    made = passedOnByOneWhoDies(std::move(made), &middle);
    owner.process().kill(SIGCONT);
    EXPECT_EQ(getpid(), ask(made, kCaller));
}

/// Of two links to the giver, the one on which he said nothing may end first.
TEST(PassedOnObject, OutlivesAGiverWhoSaidMuchBeforeHeDied) {
    ServiceProcess owner;
    ServiceProcess middle;
    owner.process().stop();
    ask(middle.object(), kKeep, owner.object());
    owner.process().kill(SIGCONT);
    sp<IBinder> made = askForObject(owner.object(), kMake);
    owner.process().stop();
    for (int i = 0; i < 200; ++i)
        askForObject(middle.object(), kKept);
    made = passedOnByOneWhoDies(std::move(made), &middle);
    owner.process().kill(SIGCONT);
    EXPECT_EQ(getpid(), ask(made, kCaller));
}

TEST(PassedOnObject, ComesHomeFromOneWhoDiesBeforeHeIsLetIn) {
    ServiceProcess owner;
    ServiceProcess middle;
    sp<IBinder> made = askForObject(owner.object(), kMake);
    owner.process().stop();
    ask(middle.object(), kKeep, made);
    made = nullptr;
    ask(middle.object(), kPassKept, owner.object());
    middle.kill();
    owner.process().kill(SIGCONT);
    EXPECT_TRUE(eventually([&] { return askForObject(owner.object(), kKept) != nullptr; }));
    EXPECT_EQ(1, ask(owner.object(), kMade));
}

TEST(PassedOnObject, IsReleasedWhenItsHolderDies) {
    const ServiceProcess owner;
    ServiceProcess other;
    ask(other.object(), kKeep, askForObject(owner.object(), kMake));
    EXPECT_TRUE(hasAlive(owner, 1));
    other.kill();
    EXPECT_TRUE(hasAlive(owner, 0));
}

TEST(LentObject, IsReleasedWhenItsHolderDies) {
    class Watched : public BBinder {
      public:
        explicit Watched(std::atomic<bool>& gone) : mGone(gone) {}
        ~Watched() override { mGone = true; }

      private:
        std::atomic<bool>& mGone;
    };
    std::atomic<bool> gone{false};
    ServiceProcess holder;
    ask(holder.object(), kKeep, sp<IBinder>(new Watched(gone)));
    EXPECT_FALSE(gone);
    holder.kill();
    EXPECT_TRUE(eventually([&] { return gone.load(); }));
}

TEST(LentObject, AnswersItsProxyAfterItsOwnerForgotIt) {
    const ServiceProcess holder;
    sp<IBinder> mine = new FunctionObject(
        [](uint32_t, const Parcel&, Parcel* reply, uint32_t) { return reply->writeInt32(77); });
    ask(holder.object(), kKeep, mine);
    mine = nullptr;
    Call call(holder.object(), kAskKept);
    call << kEcho;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(77, call.reply.readInt32());
}

}  // namespace
}  // namespace accessory::test
