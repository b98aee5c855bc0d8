// Calls that wait long: the log says for whom and since when, and when it is over.
#include <binder/BpBinder.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "tests/faults/SlowLines.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using testing::StartsWith;

/// A call that waits at the service's gate until that is opened, on a thread of its own.
class Waiting {
  public:
    explicit Waiting(const sp<IBinder>& object, uint32_t code = kWait)
        : mThread([this, object, code] { mStatus = Call(object, code).run(); }) {}
    ~Waiting() { status(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    status_t status() {
        if (mThread.joinable()) mThread.join();
        return mStatus;
    }

  private:
    status_t mStatus = NO_ERROR;
    std::thread mThread;
};

class SlowCalls : public testing::Test {
  protected:
    const LogCatcher log;
    ServiceProcess service;
};

TEST_F(SlowCalls, AreToldOfAtDoublingDistancesAndInTheEnd) {
    Waiting waiting(service.object());
    ASSERT_TRUE(isToldOf(log, service.pid(), 4));
    ask(service.object(), kOpenGate);
    EXPECT_EQ(NO_ERROR, waiting.status());
    const std::vector<SlowLine> lines = slowLines(log);
    double earliest = 0.001 * kSpanMs;
    for (size_t i = 0; i < 4; ++i, earliest *= 2)
        EXPECT_GE(lines.at(i).seconds, earliest - 0.05) << "they are rounded to tenths";
    EXPECT_EQ(NO_ERROR, lines.back().status);
    EXPECT_EQ(namedInLog(service.pid()), lines.back().process);
    EXPECT_GE(lines.back().seconds, lines.at(3).seconds);
}

TEST_F(SlowCalls, AreNotTellingWhenTheyAreAnsweredAtOnce) {
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(i, ask(service.object(), kEcho, i));
    Waiting waiting(service.object());
    EXPECT_TRUE(isToldOf(log, service.pid()));
    ask(service.object(), kOpenGate);
    waiting.status();
    for (const SlowLine& line : slowLines(log))
        EXPECT_THAT(line.call, StartsWith("call " + std::to_string(kWait) + " of "));
}

TEST_F(SlowCalls, NameAnObjectByItsNumber) {
    Waiting waiting(service.object());
    ASSERT_TRUE(isToldOf(log, service.pid()));
    ask(service.object(), kOpenGate);
    const int handle = service.object()->remoteBinder()->handle();
    EXPECT_EQ("call " + std::to_string(kWait) + " of object " + std::to_string(handle),
              slowLines(log).at(0).call);
}

TEST_F(SlowCalls, NameTheInterfaceThatTheProxyWasAskedFor) {
    EXPECT_EQ(String16("test.Service"), service.object()->getInterfaceDescriptor());
    Waiting waiting(service.object());
    ASSERT_TRUE(isToldOf(log, service.pid()));
    ask(service.object(), kOpenGate);
    EXPECT_EQ("call " + std::to_string(kWait) + " of test.Service", slowLines(log).at(0).call);
}

TEST_F(SlowCalls, NameTheInterfaceThatTheRequestBeginsWith) {
    std::thread waiting([this] {
        Call call(service.object(), kWait);
        call.request.writeInterfaceToken(String16("accessory.Thing"));
        EXPECT_EQ(NO_ERROR, call.run());
    });
    EXPECT_TRUE(isToldOf(log, service.pid()));
    ask(service.object(), kOpenGate);
    waiting.join();
    EXPECT_EQ("call " + std::to_string(kWait) + " of accessory.Thing", slowLines(log).at(0).call);
}

TEST_F(SlowCalls, AreToldOfThoughSignalsInterruptThemAllTheTime) {
    std::thread opening([this] {
        EXPECT_TRUE(isToldOf(log, service.pid(), 2));
        ask(service.object(), kOpenGate);
    });
    {
        const Alarms alarms;
        EXPECT_EQ(1, ask(service.object(), kWait));
    }
    opening.join();
}

TEST_F(SlowCalls, ToAStoppedProcessGoOnWithIt) {
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
    service.process().stop();
    Waiting waiting(service.object(), kWaiting);
    EXPECT_TRUE(isToldOf(log, service.pid(), 2));
    service.process().kill(SIGCONT);
    EXPECT_EQ(NO_ERROR, waiting.status());
    EXPECT_EQ(NO_ERROR, lastSlowLine(log).status);
}

TEST_F(SlowCalls, ToAStoppedProcessEndWithItsDeath) {
    service.process().stop();
    Waiting waiting(service.object(), kWaiting);
    EXPECT_TRUE(isToldOf(log, service.pid(), 2));
    service.kill();
    EXPECT_EQ(DEAD_OBJECT, waiting.status());
    EXPECT_EQ(DEAD_OBJECT, lastSlowLine(log).status);
    EXPECT_EQ(namedInLog(service.pid()), lastSlowLine(log).process);
}

TEST_F(SlowCalls, ThatDoNotEvenFindRoomForTheirDataAreToldOf) {
    service.process().stop();
    std::thread waiting([this] {
        Call call(service.object(), kEcho);
        call.request.setDataSize(1'000'000);
        EXPECT_EQ(NO_ERROR, call.run());
        EXPECT_EQ(1'000'000u, call.reply.dataSize());
    });
    EXPECT_TRUE(isToldOf(log, service.pid(), 2));
    service.process().kill(SIGCONT);
    waiting.join();
    EXPECT_EQ(NO_ERROR, lastSlowLine(log).status);
}

TEST_F(SlowCalls, OnTheConnectionOfACallThatCameInAreToldOf) {
    ProcessState::self()->startThreadPool();
    std::atomic<int> answer{0};
    ask(service.object(), kKeep,
        sp<IBinder>(new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
            answer = ask(service.object(), kWait);
            return NO_ERROR;
        })));
    // Sent one-way, so that the service's call to this process is none that comes back.
    Call call(service.object(), kAskKept);
    call << kEcho;
    EXPECT_EQ(NO_ERROR, call.send());
    EXPECT_TRUE(isToldOf(log, service.pid(), 2));
    ask(service.object(), kOpenGate);
    EXPECT_TRUE(eventually([&] { return answer == 1; }));
    EXPECT_TRUE(eventually([this] { return lastSlowLine(log).status == NO_ERROR; }));
    ask(service.object(), kDrop);
}

TEST_F(SlowCalls, WithinACallThatComesBackAreToldOf) {
    std::thread opening([this] {
        EXPECT_TRUE(isToldOf(log, service.pid(), 2));
        ask(service.object(), kOpenGate);
    });
    const sp<IBinder> mine = new FunctionObject([this](uint32_t, const Parcel&, Parcel* reply, uint32_t) {
        return reply->writeInt32(ask(service.object(), kWait));
    });
    ask(service.object(), kKeep, mine);
    Call call(service.object(), kAskKept);
    call << kEcho;
    EXPECT_EQ(NO_ERROR, call.run());
    opening.join();
    const std::vector<SlowLine> lines = slowLines(log);
    EXPECT_THAT(lines.at(0).call, StartsWith("call " + std::to_string(kWait) + " of "));
    ask(service.object(), kDrop);
}

TEST_F(SlowCalls, OfManyThreadsAreEachToldOf) {
    constexpr size_t kThreads = 8;
    std::vector<std::unique_ptr<Waiting>> waiting;
    for (size_t i = 0; i < kThreads; ++i)
        waiting.push_back(std::make_unique<Waiting>(service.object()));
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == static_cast<int>(kThreads); }));
    EXPECT_TRUE(isToldOf(log, service.pid(), kThreads));
    ask(service.object(), kOpenGate);
    for (const auto& each : waiting)
        EXPECT_EQ(NO_ERROR, each->status());
    size_t ends = 0;
    for (const SlowLine& line : slowLines(log))
        ends += line.status ? 1 : 0;
    EXPECT_EQ(kThreads, ends);
}

/// Waits for a service as args say: with which first span; tells how many lines that made.
CHILD_ROLE(waiterWithASpan) {
    setenv("BINDER_SLOW_CALL_MS", args.at(1).c_str(), 1);
    const LogCatcher log;
    const sp<IBinder> object = defaultServiceManager()->checkService(String16(args.at(0).c_str()));
    EXPECT_EQ(1, ask(object, kWait));
    parent.send(std::to_string(log.linesWith("Binder").size()));
    return 0;
}

TEST_F(SlowCalls, AreNotToldOfByAProcessThatWasToldNotTo) {
    ChildProcess never("waiterWithASpan", {service.name(), "0"});
    ChildProcess usual("waiterWithASpan", {service.name(), "soon"});
    Waiting waiting(service.object());
    EXPECT_TRUE(eventually([this] { return ask(service.object(), kWaiting) == 3; }));
    EXPECT_TRUE(isToldOf(log, service.pid(), 3));
    ask(service.object(), kOpenGate);
    EXPECT_EQ("0", never.expectLine());
    EXPECT_EQ("0", usual.expectLine()) << "what is no number means 5 s";
}

}  // namespace
}  // namespace accessory::test
