// Ten thousand signals a second on every thread that calls, none of which lets an interrupted system call go
// on by itself: no call fails.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <ctime>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

#ifndef sigev_notify_thread_id
#define sigev_notify_thread_id _sigev_un._tid
#endif

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

thread_local volatile sig_atomic_t tSignals = 0;

/// Interrupts the calling thread for as long as it lives.
class Storm {
  public:
    Storm() {
        struct sigaction action {};
        action.sa_handler = [](int) { tSignals = tSignals + 1; };
        sigaction(SIGRTMIN, &action, nullptr);
        sigevent event{};
        event.sigev_notify = SIGEV_THREAD_ID;
        event.sigev_signo = SIGRTMIN;
        event.sigev_notify_thread_id = static_cast<pid_t>(syscall(SYS_gettid));
        EXPECT_EQ(0, timer_create(CLOCK_MONOTONIC, &event, &mTimer));
        constexpr long kNanoseconds = 100'000;
        const itimerspec often{{0, kNanoseconds}, {0, kNanoseconds}};
        EXPECT_EQ(0, timer_settime(mTimer, 0, &often, nullptr));
    }
    ~Storm() { timer_delete(mTimer); }
    Storm(const Storm&) = delete;
    Storm& operator=(const Storm&) = delete;

  private:
    timer_t mTimer{};
};

void callInEveryWay(const sp<IBinder>& service) {
    ASSERT_EQ(5, ask(service, kEcho, 5));
    for (const size_t size : {size_t{3000}, size_t{20'000}, size_t{512} * 1024}) {
        Call large(service, kEcho);
        large.request.setDataSize(size);
        ASSERT_EQ(NO_ERROR, large.run());
        ASSERT_EQ(size, large.reply.dataSize());
    }
    Call objects(service, kEcho);
    objects << sp<IBinder>(new BBinder) << service;
    objects.request.writeFileDescriptor(STDIN_FILENO);
    ASSERT_EQ(NO_ERROR, objects.run());
    ASSERT_NE(nullptr, objects.reply.readStrongBinder());
    ASSERT_EQ(service, objects.reply.readStrongBinder());
    ASSERT_LE(0, objects.reply.readFileDescriptor());
    ASSERT_EQ(NO_ERROR, Call(service, kDrop).send());
}

TEST(SignalStorm, FailsNoCallOfAnySizeOrKind) {
    const ServiceProcess service;
    std::vector<std::thread> callers;
    for (int i = 0; i < 3; ++i) {
        callers.emplace_back([&] {
            const Storm storm;
            constexpr int kEnough = 5000;
            while (tSignals < kEnough && !testing::Test::HasFailure())
                callInEveryWay(service.object());
        });
    }
    for (std::thread& caller : callers)
        caller.join();
}

}  // namespace
}  // namespace accessory::test
