// Signals that interrupt everything, and SIGPIPE: no call fails because of them, and nobody is killed.
#include <binder/IServiceManager.h>
#include <gtest/gtest.h>

#include <csignal>
#include <thread>
#include <vector>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// Runs @p body until at least @p count signals have come meanwhile.
template <typename Body>
void untilInterrupted(int count, Body body) {
    const int before = alarmCount();
    while (alarmCount() - before < count)
        body();
}

TEST(Signals, FailNoCall) {
    const ServiceProcess service;
    const Alarms alarms;
    untilInterrupted(500, [&] { EXPECT_EQ(5, ask(service.object(), kEcho, 5)); });
}

TEST(Signals, FailNoLargeCall) {
    const ServiceProcess service;
    const Alarms alarms;
    untilInterrupted(300, [&] {
        Call call(service.object(), kEcho);
        call.request.setDataSize(1'000'000);
        ASSERT_EQ(NO_ERROR, call.run());
        ASSERT_EQ(1'000'000u, call.reply.dataSize());
    });
}

TEST(Signals, FailNoCallThatWaits) {
    const ServiceProcess service;
    const Alarms alarms;
    std::thread opener([&] {
        EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
        const int before = alarmCount();
        EXPECT_TRUE(eventually([&] { return alarmCount() - before > 100; }));
        ask(service.object(), kOpenGate);
    });
    EXPECT_EQ(1, ask(service.object(), kWait));
    opener.join();
}

TEST(Signals, FailNoOnewayFlood) {
    const ServiceProcess service(1);
    const Alarms alarms;
    untilInterrupted(200, [&] {
        Call call(service.object(), kRecorded);
        call.request.setDataSize(500'000);
        ASSERT_EQ(NO_ERROR, call.send());
    });
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

TEST(Signals, FailNoNewConnectionNorLookUp) {
    const ServiceProcess service;
    const Alarms alarms;
    untilInterrupted(100, [&] {
        std::thread([&] { EXPECT_EQ(NO_ERROR, service.object()->pingBinder()); }).join();
        EXPECT_EQ(service.object(), defaultServiceManager()->getService(String16(service.name().c_str())));
        EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16("signals"), new BBinder));
    });
}

TEST(Signals, DoNotDisturbAThreadThatJoinedThePool) {
    const ServiceProcess service(0);
    EXPECT_EQ(NO_ERROR, Call(service.object(), kAlarms).run());
    for (int i = 0; i < 2000; ++i)
        ASSERT_EQ(i, ask(service.object(), kEcho, i));
    Call large(service.object(), kEcho);
    large.request.setDataSize(1'000'000);
    for (int i = 0; i < 20; ++i)
        ASSERT_EQ(NO_ERROR, large.run());
}

TEST(Signals, FailNoCallbackNorTheThreadThatServesIt) {
    const ServiceProcess service;
    const sp<IBinder> mine = new FunctionObject(
        [&](uint32_t, const Parcel&, Parcel*, uint32_t) { return Call(service.object(), kEcho).run(); });
    const Alarms alarms;
    untilInterrupted(300, [&] { ask(service.object(), kCallerAround, mine); });
}

TEST(BrokenPipe, DoesNotKillACallerOfADeadProcess) {
    std::signal(SIGPIPE, SIG_DFL);
    for (int round = 0; round < 5; ++round) {
        ServiceProcess service;
        EXPECT_EQ(NO_ERROR, Call(service.object(), kEcho).send());
        EXPECT_EQ(NO_ERROR, service.object()->pingBinder());
        const sp<IBinder> made = askForObject(service.object(), kMake);
        service.kill();
        EXPECT_EQ(DEAD_OBJECT, service.object()->pingBinder());
        EXPECT_EQ(DEAD_OBJECT, Call(made, kEcho).send());
    }
}

TEST(BrokenPipe, DoesNotKillAServiceWhoseCallerHangsUpBeforeTheAnswer) {
    const ServiceProcess service(1);
    const RawAddress address = RawAddress::of(service.name());
    for (int round = 0; round < 20; ++round) {
        RawPeer peer(address, RawHello());
        RawHeader call;
        call.target = address.token;
        call.code = kReplyOf;
        call.dataSize = 4;
        peer.send(bytesOf(call) + bytesOf(uint32_t{1'000'000}));
    }
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

}  // namespace
}  // namespace accessory::test
