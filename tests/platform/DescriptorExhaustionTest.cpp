// Processes that have no descriptors left: calls wait or fail, and all is well again once there are some.
#include <binder/IServiceManager.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

sp<IBinder> find(const std::string& name) {
    return defaultServiceManager()->checkService(String16(name.c_str()));
}

class WithoutDescriptors : public testing::Test {
  protected:
    void SetUp() override {
#ifdef SANITIZER_USES_DESCRIPTORS
        GTEST_SKIP() << "the sanitizer cannot do without descriptors";
#endif
    }
};

using ServiceWithoutDescriptors = WithoutDescriptors;
using ClientWithoutDescriptors = WithoutDescriptors;
using OwnerWithoutDescriptors = WithoutDescriptors;

void expectSuccess(ChildProcess* child) { EXPECT_PRED1(testing::ExitedWithCode(0), child->wait()); }

// Everything happens inside one call, on whose connection the calls of this thread go.
TEST_F(ServiceWithoutDescriptors, LetsNewCallersWaitAndServesTheOthers) {
    const ServiceProcess service;
    std::atomic<int> served{0};
    std::vector<std::thread> callers;
    const sp<IBinder> duringTheCall = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        ask(service.object(), kLeaveFree, 0);
        for (int i = 0; i < 5; ++i)
            callers.emplace_back([&service, &served, i] { served += ask(service.object(), kEcho, i + 1); });
        for (int i = 0; i < 100; ++i)
            EXPECT_EQ(i, ask(service.object(), kEcho, i));
        EXPECT_EQ(0, served);
        ask(service.object(), kLeaveFree, -1);
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, duringTheCall);
    for (std::thread& caller : callers)
        caller.join();
    EXPECT_EQ(1 + 2 + 3 + 4 + 5, served);
}

TEST_F(ServiceWithoutDescriptors, LosesReceivedOnesButNotTheCall) {
    const ServiceProcess service;
    const auto readAll = [&] {
        Call call(service.object(), kReadAll);
        call.request.writeFileDescriptor(STDIN_FILENO);
        return call.run();
    };
    ask(service.object(), kLeaveFree, 0);
    EXPECT_EQ(BAD_TYPE, readAll());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
    ask(service.object(), kLeaveFree, -1);
    EXPECT_EQ(NO_ERROR, readAll());
}

TEST_F(ServiceWithoutDescriptors, LosesSomeOfManyAndLeaksNone) {
    const ServiceProcess service;
    const int before = ask(service.object(), kDescriptors);
    for (const int left : {0, 1, 3, 5}) {
        Call call(service.object(), kRecorded);
        for (int i = 0; i < 5; ++i)
            call.request.writeFileDescriptor(STDIN_FILENO);
        ask(service.object(), kLeaveFree, left);
        EXPECT_EQ(NO_ERROR, call.run());
        ask(service.object(), kLeaveFree, -1);
        EXPECT_EQ(before, ask(service.object(), kDescriptors));
    }
}

CHILD_ROLE(callWithoutDescriptors) {
    const sp<IBinder> service = find(args.at(0));
    leaveDescriptors(0);
    EXPECT_EQ(FAILED_TRANSACTION, service->pingBinder());
    EXPECT_EQ(FAILED_TRANSACTION, Call(service, kEcho).send());
    EXPECT_TRUE(service->isBinderAlive());
    leaveDescriptors(-1);
    EXPECT_EQ(NO_ERROR, service->pingBinder());
    EXPECT_EQ(NO_ERROR, Call(service, kEcho).send());
    return 0;
}

TEST_F(ClientWithoutDescriptors, FailsNewConnectionsAndRecovers) {
    const ServiceProcess service;
    ChildProcess client("callWithoutDescriptors", {service.name()});
    expectSuccess(&client);
}

CHILD_ROLE(askForTheDescriptorWithoutDescriptors) {
    const sp<IBinder> service = find(args.at(0));
    leaveDescriptors(0);
    const String16& none = service->getInterfaceDescriptor();
    EXPECT_EQ(String16(), none);
    leaveDescriptors(-1);
    EXPECT_EQ(String16("test.Service"), service->getInterfaceDescriptor());
    EXPECT_EQ(String16(), none) << "another thread may be reading it";
    return 0;
}

TEST_F(ClientWithoutDescriptors, IsNotGivenAnInterfaceNameThatChangesLater) {
    const ServiceProcess service;
    ChildProcess client("askForTheDescriptorWithoutDescriptors", {service.name()});
    expectSuccess(&client);
}

CHILD_ROLE(lookUpWithoutDescriptors) {
    const sp<IBinder> service = find(args.at(0));
    leaveDescriptors(0);
    EXPECT_EQ(nullptr, find(args.at(1)));
    EXPECT_NE(NO_ERROR, defaultServiceManager()->addService(String16("new"), new BBinder));
    EXPECT_NE(NO_ERROR, defaultServiceManager()->addService(String16(args.at(1).c_str()), new BBinder));
    leaveDescriptors(-1);
    EXPECT_NE(nullptr, find(args.at(1)));
    EXPECT_EQ(ALREADY_EXISTS, defaultServiceManager()->addService(String16(args.at(1).c_str()), new BBinder));
    return 0;
}

TEST_F(ClientWithoutDescriptors, FindsAndPublishesNothingAndRecovers) {
    const ServiceProcess known;
    const ServiceProcess unknown;
    ChildProcess client("lookUpWithoutDescriptors", {known.name(), unknown.name()});
    expectSuccess(&client);
}

CHILD_ROLE(receiveWithoutDescriptors) {
    const sp<IBinder> middle = find(args.at(0));
    EXPECT_EQ(NO_ERROR, middle->pingBinder());
    leaveDescriptors(0);
    const sp<IBinder> received = askForObject(middle, kKept);
    EXPECT_NE(nullptr, received);
    leaveDescriptors(-1);
    EXPECT_EQ(getpid(), ask(received, kCaller));
    const sp<Recipient> recipient = new Recipient;
    EXPECT_EQ(NO_ERROR, received->linkToDeath(recipient));
    parent.send("linked");
    EXPECT_TRUE(recipient->isTold());
    return 0;
}

TEST_F(ClientWithoutDescriptors, IsToldOfTheDeathOfWhatItReceivedThen) {
    ServiceProcess owner;
    const ServiceProcess middle;
    ask(middle.object(), kKeep, askForObject(owner.object(), kMake));
    ChildProcess client("receiveWithoutDescriptors", {middle.name()});
    EXPECT_EQ("linked", client.expectLine());
    owner.kill();
    expectSuccess(&client);
}

CHILD_ROLE(dropWithoutDescriptors) {
    const sp<IBinder> middle = find(args.at(0));
    EXPECT_EQ(NO_ERROR, middle->pingBinder());
    leaveDescriptors(0);
    sp<IBinder> received = askForObject(middle, kKept);
    ask(middle, kDrop);
    leaveDescriptors(-1);
    EXPECT_EQ(getpid(), ask(received, kCaller));
    received = nullptr;
    parent.send("dropped");
    parent.awaitHangUp();
    return 0;
}

TEST_F(ClientWithoutDescriptors, ReleasesWhatItReceivedThen) {
    const ServiceProcess owner;
    const ServiceProcess middle;
    ask(middle.object(), kKeep, askForObject(owner.object(), kMake));
    ChildProcess client("dropWithoutDescriptors", {middle.name()});
    EXPECT_EQ("dropped", client.expectLine());
    EXPECT_TRUE(eventually([&] { return ask(owner.object(), kMade) == 0; }));
}

CHILD_ROLE(passOnWithoutDescriptors) {
    const sp<IBinder> owner = find(args.at(0));
    const sp<IBinder> other = find(args.at(1));
    EXPECT_EQ(NO_ERROR, other->pingBinder());
    ask(owner, kLeaveFree, 0);
    ask(other, kKeep, askForObject(owner, kMake));
    EXPECT_EQ(NO_ERROR, owner->pingBinder());
    ask(owner, kLeaveFree, -1);
    return 0;
}

TEST_F(OwnerWithoutDescriptors, KeepsWhatWasPassedOnMeanwhile) {
    const ServiceProcess owner;
    const ServiceProcess other;
    ChildProcess client("passOnWithoutDescriptors", {owner.name(), other.name()});
    expectSuccess(&client);
    Call call(other.object(), kAskKept);
    call << kCaller;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(other.pid(), call.reply.readInt32());
}

/// Another one dies behind him, so that it shows when the owner has heard of both.
TEST_F(OwnerWithoutDescriptors, KeepsWhatOneWhoDiedAtItsDoorHadPassedOn) {
    const ServiceProcess owner;
    ServiceProcess middle;
    ServiceProcess last;
    sp<IBinder> made = askForObject(owner.object(), kMake);
    sp<IBinder> other = askForObject(owner.object(), kMake);
    ask(owner.object(), kLeaveFree, 0);
    ask(middle.object(), kKeep, made);
    ask(last.object(), kKeep, other);
    made = nullptr;
    other = nullptr;
    made = askForObject(middle.object(), kKept);
    middle.kill();
    last.kill();
    EXPECT_EQ(2, ask(owner.object(), kMade));
    ask(owner.object(), kLeaveFree, -1);
    EXPECT_TRUE(eventually([&] { return ask(owner.object(), kMade) != 2; }));
    EXPECT_EQ(getpid(), ask(made, kCaller));
    EXPECT_EQ(1, ask(owner.object(), kMade));
}

}  // namespace
}  // namespace accessory::test
