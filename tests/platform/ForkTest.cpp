// Processes that fork: the child is told clearly that it cannot use the runtime, and the parent does not
// notice.
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tests/support/ChildRole.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using testing::ExitedWithCode;
using testing::KilledBySignal;

/// Runs @p body in a forked child, which then ends quickly. @return the child's status as waitpid() tells it.
int inForkedChild(const std::function<void()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);  // a child that hangs must not hang the test
        body();
        _exit(0);
    }
    int status = -1;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    return status;
}

/// A test of the death of a forked child; gtest's fast style is a fork.
class ForkedChildDeathTest : public testing::Test {
  protected:
    ForkedChildDeathTest() {
        testing::FLAGS_gtest_death_test_style = "fast";
        setenv("ACCESSORY_TEST_LOG", "1", 1);
    }
    ~ForkedChildDeathTest() override { unsetenv("ACCESSORY_TEST_LOG"); }

    const ServiceProcess mService;
    static constexpr const char* kMessage = "was forked off from one that had used Binder";
};

TEST_F(ForkedChildDeathTest, EndsWithAClearMessageWhenItCalls) {
    EXPECT_EXIT(mService.object()->pingBinder(), KilledBySignal(SIGABRT), kMessage);
    EXPECT_EXIT(Call(mService.object(), kEcho).send(), KilledBySignal(SIGABRT), kMessage);
    EXPECT_EQ(5, ask(mService.object(), kEcho, 5));
}

TEST_F(ForkedChildDeathTest, EndsWithAClearMessageWhenItLooksForServices) {
    EXPECT_EXIT(defaultServiceManager()->checkService(String16("any")), KilledBySignal(SIGABRT), kMessage);
    EXPECT_EXIT(defaultServiceManager()->listServices(), KilledBySignal(SIGABRT), kMessage);
    EXPECT_EXIT(defaultServiceManager()->addService(String16("any"), new BBinder), KilledBySignal(SIGABRT),
                kMessage);
}

TEST_F(ForkedChildDeathTest, EndsWithAClearMessageWhenItWantsToServe) {
    EXPECT_EXIT(ProcessState::self()->startThreadPool(), KilledBySignal(SIGABRT), kMessage);
    EXPECT_EXIT(IPCThreadState::self()->joinThreadPool(), KilledBySignal(SIGABRT), kMessage);
}

TEST(ForkedChild, MayEndInAnyWay) {
    const ServiceProcess service;
    EXPECT_PRED1(ExitedWithCode(0), inForkedChild([] {}));
    EXPECT_PRED1(ExitedWithCode(3), inForkedChild([] { std::exit(3); }));
    EXPECT_EQ(NO_ERROR, service.object()->pingBinder());
    const ServiceProcess next;
    EXPECT_EQ(service.object(), askForObject(next.object(), kEcho, service.object()));
}

TEST(ForkedChild, MayExecuteAnotherProgram) {
    const ServiceProcess service;
    EXPECT_PRED1(ExitedWithCode(0), inForkedChild([] { execl("/bin/true", "true", nullptr); }));
    EXPECT_EQ(0, std::system("/bin/true"));
    EXPECT_EQ(NO_ERROR, service.object()->pingBinder());
}

TEST(ForkedChild, MayDropProxiesAndParcels) {
    ServiceProcess service;
    sp<IBinder> made = askForObject(service.object(), kMake);
    Call call(service.object(), kPipes);
    call << 3;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_PRED1(ExitedWithCode(0), inForkedChild([&] {
                     made = nullptr;
                     call.reply.freeData();
                 }));
    EXPECT_EQ(getpid(), ask(made, kCaller));
    EXPECT_EQ(1, ask(service.object(), kMade));
}

TEST(ForkedChild, HasNoneOfTheRuntimesDescriptors) {
    const int before = openDescriptors();
    const ServiceProcess service;
    ask(service.object(), kEcho, 1);
    EXPECT_EQ(NO_ERROR, Call(service.object(), kEcho).send());
    constexpr int kOfTheConversation = 1;
    EXPECT_PRED1(ExitedWithCode(0), inForkedChild([&] {
                     const int inherited = openDescriptors();
                     if (inherited > before + kOfTheConversation) _exit(100 + inherited - before);
                 }));
}

/// Knocks at the door of the service of that name until it is killed.
CHILD_ROLE(visitor) {
    const RawAddress address = RawAddress::of(args.at(0));
    for (;;)
        RawPeer(address, RawHello());
}

/// How many sockets this process has open.
int openSockets() {
    int count = 0;
    constexpr int kMost = 1024;
    for (int fd = 0; fd < kMost; ++fd) {
        struct stat state {};
        if (fstat(fd, &state) == 0 && S_ISSOCK(state.st_mode)) ++count;
    }
    return count;
}

TEST(ForkedChild, HasNoneOfTheSocketsThatArriveWhileItIsForked) {
    const int before = openSockets();
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16("visited"), new BBinder));
    ProcessState::self()->startThreadPool();
    const ChildProcess visitor("visitor", {"visited"});
    constexpr int kOfTheVisitor = 1;
    constexpr int kForks = 300;
    int withMore = 0;
    for (int i = 0; i < kForks; ++i) {
        const int status = inForkedChild([&] { _exit(openSockets() > before + kOfTheVisitor ? 1 : 0); });
        withMore += ExitedWithCode(0)(status) ? 0 : 1;
    }
    EXPECT_EQ(0, withMore) << "of " << kForks;
}

TEST(ForkedChild, ThatLivesOnDoesNotDelayTheNoticeOfItsParentsDeath) {
    ServiceProcess service;
    const sp<Recipient> recipient = new Recipient;
    service.object()->linkToDeath(recipient);
    const pid_t sleeper = ask(service.object(), kForkSleeper);
    std::thread caller([&] { EXPECT_EQ(DEAD_OBJECT, Call(service.object(), kWait).run()); });
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    service.kill();
    EXPECT_TRUE(recipient->isTold());
    caller.join();
    EXPECT_EQ(0, ::kill(sleeper, SIGKILL)) << "it had to live until here";
}

TEST(ForkingParent, GoesOnWithItsCallsOnAllThreads) {
    const ServiceProcess service;
    std::atomic<bool> done{false};
    std::vector<std::thread> callers;
    for (int i = 0; i < 3; ++i) {
        callers.emplace_back([&] {
            while (!done)
                EXPECT_EQ(5, ask(service.object(), kEcho, 5));
        });
    }
    for (int i = 0; i < 30; ++i)
        EXPECT_PRED1(ExitedWithCode(0), inForkedChild([] {}));
    done = true;
    for (std::thread& caller : callers)
        caller.join();
}

CHILD_ROLE(forkBeforeTheFirstUse) {
    const int status = inForkedChild([&] {
        const sp<IBinder> service = defaultServiceManager()->checkService(String16(args.at(0).c_str()));
        _exit(service != nullptr && service->pingBinder() == NO_ERROR ? 5 : 6);
    });
    EXPECT_PRED1(ExitedWithCode(5), status);
    EXPECT_NE(nullptr, defaultServiceManager()->checkService(String16(args.at(0).c_str())));
    return 0;
}

/// Forks when it has looked at the runtime and talked to nobody yet.
CHILD_ROLE(forkBeforeTheFirstConversation) {
    const String16 name(args.at(0).c_str());
    ProcessState::self();
    int begin[2];
    EXPECT_EQ(0, pipe(begin));
    const pid_t child = fork();
    if (child == 0) {
        char byte = 0;
        static_cast<void>(read(begin[0], &byte, 1));
        std::exit(5);
    }
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(name, new BBinder));
    EXPECT_EQ(1, write(begin[1], "x", 1));
    int status = -1;
    EXPECT_EQ(child, waitpid(child, &status, 0));
    EXPECT_PRED1(ExitedWithCode(5), status);
    parent.send("published");
    parent.awaitHangUp();
    return 0;
}

TEST(ForkedChild, LeavesItsParentFoundByOthers) {
    const std::string name = uniqueServiceName();
    ChildProcess process("forkBeforeTheFirstConversation", {name});
    EXPECT_EQ("published", process.expectLine());
    EXPECT_NE(nullptr, defaultServiceManager()->checkService(String16(name.c_str())));
}

CHILD_ROLE(useAfterAFork) {
    ProcessState::self();
    EXPECT_PRED1(KilledBySignal(SIGABRT), inForkedChild([] { defaultServiceManager()->listServices(); }));
    return 0;
}

TEST(ForkedChild, HasNotItsParentsIdentity) {
    ChildProcess process("useAfterAFork");
    EXPECT_PRED1(ExitedWithCode(0), process.wait());
}

TEST(ForkedChild, MayUseTheRuntimeWhenItsParentHasNot) {
    const ServiceProcess service;
    ChildProcess child("forkBeforeTheFirstUse", {service.name()});
    EXPECT_PRED1(ExitedWithCode(0), child.wait());
}

}  // namespace
}  // namespace accessory::test
