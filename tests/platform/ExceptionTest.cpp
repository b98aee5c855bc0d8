// Exceptions that leave a stub: they stay in their process and cost only the call.
#include <android/log.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

TEST(StubException, IsAnsweredWithUnknownErrorAndTheServiceGoesOn) {
    const ServiceProcess service(1);
    for (const int kind : {0, 1}) {
        Call call(service.object(), kThrow);
        call << kind;
        call.reply.writeInt32(1);
        EXPECT_EQ(UNKNOWN_ERROR, call.run());
        EXPECT_EQ(0u, call.reply.dataSize());
        EXPECT_EQ(5, ask(service.object(), kEcho, 5));
    }
}

TEST(StubException, IsAnsweredWithUnknownErrorOnAThreadThatJoined) {
    const ServiceProcess service(0);
    Call call(service.object(), kThrow);
    call << 0;
    EXPECT_EQ(UNKNOWN_ERROR, call.run());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

class CallbackException : public testing::Test {
  protected:
    class Named : public FunctionObject {
      public:
        using FunctionObject::FunctionObject;
        const String16& getInterfaceDescriptor() const override {
            static const auto* const descriptor = new String16("test.Thrower");
            return *descriptor;
        }
    };

    /// Lets the service call @p body back with code 1. @return what the service got.
    status_t callBack(const FunctionObject::Body& body) {
        const sp<IBinder> mine = new Named(body);
        Call call(mService.object(), kCallerAround);
        call << mine;
        return call.run();
    }

    const ServiceProcess mService;
    const LogCatcher mLog;
};

TEST_F(CallbackException, IsLoggedWithTheInterfaceTheCodeAndItsText) {
    EXPECT_EQ(UNKNOWN_ERROR, callBack([](uint32_t, const Parcel&, Parcel*, uint32_t) -> status_t {
                  throw std::runtime_error("on purpose");
              }));
    EXPECT_TRUE(mLog.arrives(Logged(ANDROID_LOG_ERROR, "Binder",
                                    "an exception left the stub of test.Thrower in call 1: on purpose")));
}

TEST_F(CallbackException, ThatIsNotAStandardOneIsLoggedToo) {
    EXPECT_EQ(UNKNOWN_ERROR,
              callBack([](uint32_t, const Parcel&, Parcel*, uint32_t) -> status_t { throw 1; }));
    EXPECT_TRUE(
        mLog.arrives(Logged(ANDROID_LOG_ERROR, "Binder",
                            "an exception left the stub of test.Thrower in call 1: not a std::exception")));
}

TEST_F(CallbackException, LeavesTheWaitingCallIntact) {
    EXPECT_EQ(UNKNOWN_ERROR, callBack([&](uint32_t, const Parcel&, Parcel*, uint32_t) -> status_t {
                  EXPECT_EQ(3, ask(mService.object(), kEcho, 3));
                  throw std::runtime_error("on purpose");
              }));
    EXPECT_EQ(4, ask(mService.object(), kEcho, 4));
}

TEST(LocalException, ReachesTheCallerInTheSameProcess) {
    const sp<IBinder> object = new FunctionObject([](uint32_t, const Parcel&, Parcel*, uint32_t) -> status_t {
        throw std::runtime_error("on purpose");
    });
    EXPECT_THROW(Call(object, kEcho).run(), std::runtime_error);
}

}  // namespace
}  // namespace accessory::test
