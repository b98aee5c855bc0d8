// What a death recipient may do while it is told: call others, link, unlink.
#include <gtest/gtest.h>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

TEST(ARecipientOfADeath, MayCallOtherServicesWhichMayCallBack) {
    ServiceProcess dying;
    const ServiceProcess service;
    const sp<IBinder> mine = new FunctionObject(
        [](uint32_t, const Parcel&, Parcel* reply, uint32_t) { return reply->writeInt32(6); });
    ask(service.object(), kKeep, mine);
    std::atomic<int> answer{0};
    const sp<Recipient> recipient = new Recipient([&] {
        Call call(service.object(), kAskKept);
        call << kEcho;
        EXPECT_EQ(NO_ERROR, call.run());
        EXPECT_EQ(NO_ERROR, call.reply.readInt32());
        answer = call.reply.readInt32();
    });
    ASSERT_EQ(NO_ERROR, dying.object()->linkToDeath(recipient));
    dying.kill();
    EXPECT_TRUE(eventually([&] { return answer == 6; }));
}

TEST(ARecipientOfADeath, MayLinkItselfToAnotherObjectAndIsToldOfThatDeathToo) {
    ServiceProcess first;
    ServiceProcess second;
    std::atomic<int> linked{0};
    sp<Recipient> recipient;
    recipient = new Recipient([&] {
        if (linked == 0) {
            EXPECT_EQ(NO_ERROR, second.object()->linkToDeath(recipient));
        }
        ++linked;
    });
    ASSERT_EQ(NO_ERROR, first.object()->linkToDeath(recipient));
    first.kill();
    EXPECT_TRUE(eventually([&] { return linked == 1; }));
    second.kill();
    EXPECT_TRUE(eventually([&] { return linked == 2; }));
    EXPECT_EQ(second.object().get(), recipient->who());
    EXPECT_EQ(2, recipient->notices());
}

TEST(ARecipientOfADeath, MayUnlinkItselfFromAnotherObjectWhoseDeathItIsNotTold) {
    ServiceProcess first;
    ServiceProcess second;
    sp<Recipient> recipient;
    recipient = new Recipient([&] { EXPECT_EQ(NO_ERROR, second.object()->unlinkToDeath(recipient)); });
    const sp<Recipient> last = new Recipient;
    ASSERT_EQ(NO_ERROR, first.object()->linkToDeath(recipient));
    ASSERT_EQ(NO_ERROR, second.object()->linkToDeath(recipient));
    ASSERT_EQ(NO_ERROR, second.object()->linkToDeath(last));
    first.kill();
    EXPECT_TRUE(recipient->isTold());
    second.kill();
    EXPECT_TRUE(last->isTold());
    EXPECT_EQ(1, recipient->notices());
}

TEST(ARecipientOfADeath, IsTooLateToUnlinkAnotherOneOfTheSameObject) {
    ServiceProcess dying;
    const sp<Recipient> other = new Recipient;
    const sp<Recipient> first =
        new Recipient([&] { EXPECT_EQ(DEAD_OBJECT, dying.object()->unlinkToDeath(other)); });
    ASSERT_EQ(NO_ERROR, dying.object()->linkToDeath(first));
    ASSERT_EQ(NO_ERROR, dying.object()->linkToDeath(other));
    dying.kill();
    EXPECT_TRUE(other->isTold());
    EXPECT_EQ(1, first->notices());
    EXPECT_EQ(1, other->notices());
}

TEST(ARecipientOfADeath, MayDropTheLastReferenceToTheDeadObjectAndToItself) {
    ServiceProcess dying;
    sp<IBinder> last = dying.object();
    dying.letGo();
    const wp<IBinder> proxy = last;
    sp<Recipient> recipient;
    std::atomic<bool> told{false};
    recipient = new Recipient([&] {
        last = nullptr;
        recipient = nullptr;
        told = true;
    });
    ASSERT_EQ(NO_ERROR, last->linkToDeath(recipient));
    dying.kill();
    EXPECT_TRUE(eventually([&] { return told.load(); }));
    EXPECT_TRUE(eventually([&] { return proxy.promote() == nullptr; }));
}

TEST(ARecipientOfADeath, MayKillAnotherProcessWhoseDeathIsToldAfterwards) {
    ServiceProcess first;
    ServiceProcess second;
    const sp<Recipient> ofTheSecond = new Recipient;
    const sp<Recipient> ofTheFirst = new Recipient([&] {
        ::kill(second.pid(), SIGKILL);
        EXPECT_EQ(DEAD_OBJECT, Call(second.object(), kWait).run());
        EXPECT_EQ(0, ofTheSecond->notices()) << "one after the other";
    });
    ASSERT_EQ(NO_ERROR, first.object()->linkToDeath(ofTheFirst));
    ASSERT_EQ(NO_ERROR, second.object()->linkToDeath(ofTheSecond));
    first.kill();
    EXPECT_TRUE(ofTheSecond->isTold());
    EXPECT_EQ(1, ofTheFirst->notices());
}

}  // namespace
}  // namespace accessory::test
