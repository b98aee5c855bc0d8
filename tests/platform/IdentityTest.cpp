// Who calls: the kernel's word for it, during a call and outside of one.
#include <binder/IPCThreadState.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

pid_t callingPid() { return IPCThreadState::self()->getCallingPid(); }

TEST(CallingIdentity, IsTheCallersDuringACall) {
    const ServiceProcess service;
    Call call(service.object(), kCaller);
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(getpid(), call.reply.readInt32());
    EXPECT_EQ(static_cast<int32_t>(getuid()), call.reply.readInt32());
    EXPECT_EQ(service.pid(), call.reply.readInt32());
}

TEST(CallingIdentity, IsTheCallersInAOnewayCall) {
    const ServiceProcess service;
    Call note(service.object(), kRecord);
    note << 0 << 1;
    ASSERT_EQ(NO_ERROR, note.send());
    const auto noted = [&](Call& call) { return call.run() == NO_ERROR && call.reply.readInt64() != 0; };
    EXPECT_TRUE(eventually([&] {
        Call notes(service.object(), kRecorded);
        return noted(notes) && notes.reply.readInt32() == getpid();
    }));
}

TEST(CallingIdentity, IsTheCallersInACallback) {
    const ServiceProcess service;
    pid_t caller = 0;
    uid_t user = 0;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        caller = callingPid();
        user = IPCThreadState::self()->getCallingUid();
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, mine);
    EXPECT_EQ(service.pid(), caller);
    EXPECT_EQ(getuid(), user);
}

TEST(CallingIdentity, IsOnesOwnOutsideACall) {
    EXPECT_EQ(getpid(), callingPid());
    EXPECT_EQ(getuid(), IPCThreadState::self()->getCallingUid());
    std::thread([] { EXPECT_EQ(getpid(), callingPid()); }).join();
}

TEST(CallingIdentity, IsOnesOwnAgainAfterACallback) {
    const ServiceProcess service;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        EXPECT_EQ(service.pid(), callingPid());
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, mine);
    EXPECT_EQ(getpid(), callingPid());
}

TEST(CallingIdentity, IsRestoredAfterANestedCall) {
    const ServiceProcess service;
    const ServiceProcess other;
    Call call(service.object(), kCallerAround);
    call << other.object();
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(getpid(), call.reply.readInt32());
    EXPECT_EQ(getpid(), call.reply.readInt32());
}

TEST(CallingIdentity, IsTheNearestCallersInANestedCall) {
    const ServiceProcess service;
    const ServiceProcess other;
    ask(service.object(), kKeep, other.object());
    Call call(service.object(), kAskKept);
    call << kCaller;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32());
    EXPECT_EQ(service.pid(), call.reply.readInt32());
}

TEST(CallingIdentity, IsRestoredInACallbackThatMakesACallOfItsOwn) {
    const ServiceProcess service;
    const ServiceProcess other;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        EXPECT_EQ(getpid(), ask(other.object(), kCaller));
        EXPECT_EQ(service.pid(), callingPid());
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, mine);
}

TEST(CallingIdentity, CanBeClearedAndRestored) {
    const ServiceProcess service;
    Call call(service.object(), kIdentity);
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(service.pid(), call.reply.readInt32());
    EXPECT_EQ(getpid(), call.reply.readInt32());
}

TEST(CallingIdentity, ThatWasClearedHoldsOnlyForItsOwnCall) {
    const ServiceProcess service;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        IPCThreadState::self()->clearCallingIdentity();
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, mine);
    const sp<IBinder> next = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        EXPECT_EQ(service.pid(), callingPid());
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, next);
    EXPECT_EQ(getpid(), callingPid());
}

TEST(CallingIdentity, OfALocalCallIsWhatItWasBefore) {
    const ServiceProcess service;
    const sp<IBinder> local = new FunctionObject(
        [&](uint32_t, const Parcel&, Parcel* reply, uint32_t) { return reply->writeInt32(callingPid()); });
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        EXPECT_EQ(service.pid(), ask(local, kEcho));
        return NO_ERROR;
    });
    EXPECT_EQ(getpid(), ask(local, kEcho));
    ask(service.object(), kCallerAround, mine);
}

}  // namespace
}  // namespace accessory::test
