// Threads that end while they serve: by a stub that ends them, or cancelled while they wait.
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <thread>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

enum EndingCall : uint32_t { kEndThread = 1, kCount, kCounted };

/// Publishes, under the name args[0], an object with a single thread to serve it.
CHILD_ROLE(endThreads) {
    std::atomic<int32_t> count{0};
    const sp<IBinder> object = new FunctionObject([&](uint32_t code, const Parcel&, Parcel* reply, uint32_t) {
        if (code == kEndThread) pthread_exit(nullptr);
        if (code == kCount) ++count;
        return reply->writeInt32(count);
    });
    ProcessState::self()->setThreadPoolMaxThreadCount(1);
    ProcessState::self()->startThreadPool();
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(args.at(0).c_str()), object));
    parent.send("serving");
    parent.awaitHangUp();
    return 0;
}

class EndedThread : public testing::Test {
  protected:
    EndedThread() { EXPECT_EQ("serving", mProcess.expectLine()); }

    static RawHello helloFor(uint16_t kind) {
        RawHello hello;
        hello.kind = kind == 1 ? 2 : 3;
        return hello;
    }

    std::string callOf(uint32_t code, uint16_t kind) const {
        RawHeader header;
        header.kind = kind;
        header.code = code;
        header.flags = kind == 1 ? 0 : 1;
        header.target = address().token;
        return bytesOf(header);
    }

    /// How often kCount has run; -1 without an answer.
    int32_t counted() const {
        RawPeer peer(address(), helloFor(1));
        peer.send(callOf(kCounted, 1));
        const std::string reply = peer.receive(44);
        int32_t count = -1;
        if (reply.size() == 44) reply.copy(reinterpret_cast<char*>(&count), sizeof(count), 40);
        return count;
    }

    RawAddress address() const { return RawAddress::of(mName); }

  private:
    const std::string mName = uniqueServiceName();
    ChildProcess mProcess{"endThreads", {mName}};
};

TEST_F(EndedThread, CostsItsCallerTheConnectionAndIsReplaced) {
    RawPeer peer(address(), helloFor(1));
    peer.send(callOf(kEndThread, 1));
    EXPECT_TRUE(peer.isHungUpOn());
    EXPECT_EQ(0, counted());
}

TEST_F(EndedThread, LeavesNoOnewayCallBehindUnserved) {
    RawPeer peer(address(), helloFor(2));
    peer.send(callOf(kEndThread, 2) + callOf(kCount, 2) + callOf(kCount, 2));
    EXPECT_TRUE(eventually([&] { return counted() == 2; }));
}

/// Publishes a test service under the name args[0], with threads from the pool after one that joined it was
/// cancelled.
CHILD_ROLE(cancelJoined) {
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(args.at(0).c_str()), makeTestService()));
    std::thread joined([] { IPCThreadState::self()->joinThreadPool(); });
    pthread_cancel(joined.native_handle());
    joined.join();
    ProcessState::self()->startThreadPool();
    parent.send("serving");
    parent.awaitHangUp();
    return 0;
}

TEST(CancelledThread, DoesNotCountAsOneThatWaitsForCalls) {
    const std::string name = uniqueServiceName();
    ChildProcess process("cancelJoined", {name});
    ASSERT_EQ("serving", process.expectLine());
    const sp<IBinder> object = defaultServiceManager()->checkService(String16(name.c_str()));
    ASSERT_NE(nullptr, object);
    std::thread waiter([&] { EXPECT_EQ(1, ask(object, kWait)) << "nobody opened the gate in time"; });
    EXPECT_TRUE(eventually([&] { return ask(object, kWaiting) == 1; }));
    ask(object, kOpenGate);
    waiter.join();
    process.kill();
}

}  // namespace
}  // namespace accessory::test
