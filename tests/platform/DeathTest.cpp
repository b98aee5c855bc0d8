// The end of a process, as those see it who hold its objects.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// Far less than the patience of a test: a death is told at once, not at some timeout.
constexpr std::chrono::milliseconds kPromptly{2000};

struct End {
    const char* name;
    ServiceEnd end;
};

class ProcessEnd : public testing::TestWithParam<End> {};

TEST_P(ProcessEnd, IsToldToALinkedRecipientAndEndsTheCallInFlight) {
    const ServiceProcess service;
    const sp<Recipient> recipient = new Recipient;
    ASSERT_EQ(NO_ERROR, service.object()->linkToDeath(recipient));
    const auto start = std::chrono::steady_clock::now();
    Call call(service.object(), kEnd);
    call << GetParam().end;
    EXPECT_EQ(DEAD_OBJECT, call.run());
    EXPECT_EQ(0u, call.reply.dataSize());
    EXPECT_TRUE(recipient->isTold());
    EXPECT_LT(std::chrono::steady_clock::now() - start, kPromptly);
    EXPECT_EQ(service.object().get(), recipient->who());
    EXPECT_FALSE(service.object()->isBinderAlive());
}

TEST_P(ProcessEnd, EndsTheCallsOfOtherThreads) {
    const ServiceProcess service;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] { EXPECT_EQ(DEAD_OBJECT, Call(service.object(), kWait).run()); });
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 4; }));
    Call call(service.object(), kEnd);
    call << GetParam().end;
    EXPECT_EQ(NO_ERROR, call.send());
    for (std::thread& thread : threads)
        thread.join();
}

INSTANTIATE_TEST_SUITE_P(Ways, ProcessEnd,
                         testing::Values(End{"Exit", kExit}, End{"QuickExit", kQuickExit}, End{"Kill", kKill},
                                         End{"Segfault", kSegfault}, End{"Exec", kBecomeSleep}),
                         [](const auto& info) { return info.param.name; });

TEST(DeathNotice, ComesOncePerLink) {
    ServiceProcess service;
    const sp<Recipient> once = new Recipient;
    const sp<Recipient> twice = new Recipient;
    EXPECT_EQ(NO_ERROR, service.object()->linkToDeath(once));
    EXPECT_EQ(NO_ERROR, service.object()->linkToDeath(twice));
    EXPECT_EQ(NO_ERROR, service.object()->linkToDeath(twice));
    const sp<Recipient> last = new Recipient;
    EXPECT_EQ(NO_ERROR, service.object()->linkToDeath(last));
    service.kill();
    EXPECT_TRUE(last->isTold());
    EXPECT_EQ(DEAD_OBJECT, service.object()->pingBinder());
    EXPECT_EQ(1, once->notices());
    EXPECT_EQ(2, twice->notices());
    EXPECT_EQ(1, last->notices());
}

TEST(DeathNotice, ComesForEveryObjectOfTheProcess) {
    ServiceProcess service;
    const sp<IBinder> made = askForObject(service.object(), kMake);
    const sp<Recipient> ofTheService = new Recipient;
    const sp<Recipient> ofTheOther = new Recipient;
    EXPECT_EQ(NO_ERROR, service.object()->linkToDeath(ofTheService));
    EXPECT_EQ(NO_ERROR, made->linkToDeath(ofTheOther));
    service.kill();
    EXPECT_TRUE(ofTheService->isTold());
    EXPECT_TRUE(ofTheOther->isTold());
    EXPECT_EQ(made.get(), ofTheOther->who());
}

TEST(DeathNotice, ComesForAnObjectThatAThirdProcessPassedOn) {
    ServiceProcess owner;
    ServiceProcess middle;
    ask(middle.object(), kKeep, askForObject(owner.object(), kMake));
    owner.letGo();
    const sp<IBinder> made = askForObject(middle.object(), kKept);
    const sp<Recipient> recipient = new Recipient;
    EXPECT_EQ(NO_ERROR, made->linkToDeath(recipient));
    middle.kill();
    EXPECT_EQ(getpid(), ask(made, kCaller));
    EXPECT_EQ(0, recipient->notices());
    owner.kill();
    EXPECT_TRUE(recipient->isTold());
}

TEST(DeathNotice, DoesNotComeAfterUnlinking) {
    ServiceProcess service;
    const sp<Recipient> unlinked = new Recipient;
    const sp<Recipient> unlinkedByCookie = new Recipient;
    const sp<Recipient> linked = new Recipient;
    int cookie = 0;
    service.object()->linkToDeath(unlinked);
    service.object()->linkToDeath(unlinkedByCookie, &cookie);
    service.object()->linkToDeath(linked);
    wp<IBinder::DeathRecipient> removed;
    EXPECT_EQ(NO_ERROR, service.object()->unlinkToDeath(unlinked));
    EXPECT_EQ(NO_ERROR, service.object()->unlinkToDeath(nullptr, &cookie, 0, &removed));
    EXPECT_EQ(unlinkedByCookie.get(), removed.unsafe_get());
    EXPECT_EQ(NAME_NOT_FOUND, service.object()->unlinkToDeath(unlinked));
    service.kill();
    EXPECT_TRUE(linked->isTold());
    EXPECT_EQ(0, unlinked->notices());
    EXPECT_EQ(0, unlinkedByCookie->notices());
}

TEST(DeathNotice, DoesNotComeToARecipientThatIsGone) {
    ServiceProcess service;
    std::atomic<int> told{0};
    sp<Recipient> shortLived = new Recipient([&] { ++told; });
    const sp<Recipient> recipient = new Recipient;
    service.object()->linkToDeath(shortLived);
    service.object()->linkToDeath(recipient);
    shortLived = nullptr;
    service.kill();
    EXPECT_TRUE(recipient->isTold());
    EXPECT_EQ(0, told);
}

TEST(DeathNotice, ReachesTheOthersWhenARecipientThrows) {
    ServiceProcess service;
    const sp<Recipient> throwing = new Recipient([] { throw std::runtime_error("on purpose"); });
    const sp<Recipient> other = new Recipient;
    service.object()->linkToDeath(throwing);
    service.object()->linkToDeath(other);
    service.kill();
    EXPECT_TRUE(other->isTold());
    EXPECT_EQ(1, throwing->notices());
}

TEST(DeathNotice, MayUnlinkLinkAndCallTheDeadObject) {
    ServiceProcess service;
    std::atomic<int> checked{0};
    sp<Recipient> recipient;
    recipient = new Recipient([&] {
        EXPECT_EQ(DEAD_OBJECT, service.object()->unlinkToDeath(recipient));
        EXPECT_EQ(DEAD_OBJECT, service.object()->linkToDeath(recipient));
        EXPECT_EQ(DEAD_OBJECT, service.object()->pingBinder());
        ++checked;
    });
    service.object()->linkToDeath(recipient);
    service.kill();
    EXPECT_TRUE(eventually([&] { return checked == 1; }));
}

TEST(DeathNotice, ThatBlocksDoesNotHoldUpCalls) {
    ServiceProcess dying;
    const ServiceProcess service;
    Gate gate;
    std::atomic<bool> passed{false};
    const sp<Recipient> blocking = new Recipient([&] { passed = gate.pass(); });
    dying.object()->linkToDeath(blocking);
    dying.kill();
    EXPECT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
    EXPECT_EQ(DEAD_OBJECT, dying.object()->pingBinder());
    gate.open();
    EXPECT_TRUE(eventually([&] { return passed.load(); }));
}

TEST(DeadObject, CannotBeLinkedToAndSendsNoNotice) {
    ServiceProcess service;
    const sp<Recipient> early = new Recipient;
    service.object()->linkToDeath(early);
    service.kill();
    EXPECT_TRUE(early->isTold());
    const sp<Recipient> late = new Recipient;
    EXPECT_EQ(DEAD_OBJECT, service.object()->linkToDeath(late));
    EXPECT_EQ(DEAD_OBJECT, service.object()->unlinkToDeath(early));
    EXPECT_EQ(0, late->notices());
}

TEST(DeadObject, IsRefusedOrFollowedByANoticeWhenItIsLinkedToWhileItDies) {
    for (int round = 0; round < 10; ++round) {
        ServiceProcess service;
        service.process().kill();
        const sp<Recipient> recipient = new Recipient;
        const status_t status = service.object()->linkToDeath(recipient);
        EXPECT_TRUE(status == DEAD_OBJECT || (status == NO_ERROR && recipient->isTold())) << status;
    }
}

TEST(DeadObject, ReceivedFromAThirdProcessIsDeadFromTheStart) {
    ServiceProcess owner;
    const ServiceProcess middle;
    ask(middle.object(), kKeep, askForObject(owner.object(), kMake));
    owner.kill();
    EXPECT_EQ(DEAD_OBJECT, owner.object()->pingBinder());
    owner.letGo();
    const sp<IBinder> made = askForObject(middle.object(), kKept);
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(DEAD_OBJECT, made->pingBinder());
    EXPECT_TRUE(eventually([&] { return made->linkToDeath(new Recipient) == DEAD_OBJECT; }));
}

TEST(DeadObject, DoesNotAffectTheNextProcessUnderItsName) {
    ServiceProcess first;
    first.kill();
    EXPECT_EQ(DEAD_OBJECT, first.object()->pingBinder());
    const ServiceProcess next;
    EXPECT_EQ(NO_ERROR, next.object()->pingBinder());
}

TEST(DeadProcess, LeavesNoDescriptorsBehind) {
    const auto liveAndDie = [] {
        ServiceProcess service;
        Call note(service.object(), kRecord);
        note << 1 << 0;
        EXPECT_EQ(NO_ERROR, note.send());
        EXPECT_EQ(5, ask(service.object(), kEcho, 5));
        const sp<Recipient> recipient = new Recipient;
        service.object()->linkToDeath(recipient);
        service.kill();
        EXPECT_TRUE(recipient->isTold());
    };
    liveAndDie();
    const int before = openDescriptors();
    for (int i = 0; i < 5; ++i)
        liveAndDie();
    EXPECT_TRUE(eventually([&] { return openDescriptors() <= before; })) << openDescriptors() << before;
}

}  // namespace
}  // namespace accessory::test
