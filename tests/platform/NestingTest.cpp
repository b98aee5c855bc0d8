// Calls that come back while their caller still waits.
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

// No test here starts a thread pool: this process serves calls only on threads that wait for a reply.
namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr int kDepth = 64;

/// Counts down with whoever calls it, as a test service does, and checks on which thread that happens.
sp<IBinder> countingOnThisThread() {
    const auto here = std::this_thread::get_id();
    auto self = std::make_shared<wp<IBinder>>();
    const sp<IBinder> object =
        new FunctionObject([here, self](uint32_t, const Parcel& data, Parcel* reply, uint32_t) {
            EXPECT_EQ(here, std::this_thread::get_id());
            Call below(data.readStrongBinder(), kCountDown);
            const int32_t depth = data.readInt32();
            if (depth == 0) return reply->writeInt32(0);
            below << self->promote() << depth - 1;
            const status_t status = below.run();
            return status == NO_ERROR ? reply->writeInt32(below.reply.readInt32() + 1) : status;
        });
    *self = object;
    return object;
}

TEST(Nesting, GoesSixtyFourCallsDeepOnTheOneThreadOfAClientWithoutPool) {
    const ServiceProcess service;
    EXPECT_EQ(kDepth, ask(service.object(), kCountDown, countingOnThisThread(), kDepth));
}

TEST(Nesting, NeedsOneThreadOnTheOtherSideToo) {
    const ServiceProcess service(0);
    EXPECT_EQ(kDepth, ask(service.object(), kCountDown, countingOnThisThread(), kDepth));
}

TEST(Nesting, GoesSixtyFourCallsDeepBetweenTwoOtherProcesses) {
    const ServiceProcess first;
    const ServiceProcess second(1);
    EXPECT_EQ(kDepth, ask(first.object(), kCountDown, second.object(), kDepth));
}

TEST(Nesting, RunsOnEachOfSeveralThreadsAtOnce) {
    const ServiceProcess service;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(
            [&] { EXPECT_EQ(kDepth, ask(service.object(), kCountDown, countingOnThisThread(), kDepth)); });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Nesting, ThatNeverEndsIsRefusedAndTheServiceGoesOn) {
    const ServiceProcess service;
    Call call(service.object(), kCountDown);
    call << countingOnThisThread() << 1'000'000;
    EXPECT_EQ(FAILED_TRANSACTION, call.run());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

TEST(Nesting, LetsACallbackCallAThirdProcess) {
    const ServiceProcess first;
    const ServiceProcess second;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel* reply, uint32_t) {
        return reply->writeInt32(ask(second.object(), kEcho, 9));
    });
    ask(first.object(), kKeep, mine);
    Call call(first.object(), kAskKept);
    call << kEcho;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(9, call.reply.readInt32());
}

TEST(Nesting, GivesACallInACallItsOwnReply) {
    const ServiceProcess service;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel* reply, uint32_t) {
        EXPECT_EQ(3, ask(service.object(), kEcho, 3));
        EXPECT_EQ(4, ask(service.object(), kEcho, 4));
        return reply->writeInt32(5);
    });
    ask(service.object(), kKeep, mine);
    Call call(service.object(), kAskKept);
    call << kEcho;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(5, call.reply.readInt32());
}

TEST(Callback, MayDropTheLastReferenceToTheProxyThatIsBeingCalled) {
    ServiceProcess service;
    sp<IBinder> last = service.object();
    service.letGo();
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel* reply, uint32_t) {
        last = nullptr;
        return reply->writeInt32(6);
    });
    ask(last, kKeep, mine);
    Parcel request;
    Parcel reply;
    request.writeInt32(kEcho);
    const wp<IBinder> proxy = last;
    ASSERT_EQ(NO_ERROR, last.get()->transact(kAskKept, request, &reply));
    EXPECT_EQ(NO_ERROR, reply.readInt32());
    EXPECT_EQ(6, reply.readInt32());
    EXPECT_EQ(nullptr, proxy.promote());
}

}  // namespace
}  // namespace accessory::test
