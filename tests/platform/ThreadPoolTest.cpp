// The threads that serve calls: how many, and what happens when there are more calls than threads.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// Threads that call kWait until the gate is opened; a one-way call opens it without a pool thread to spare.
class Waiters {
  public:
    Waiters(const ServiceProcess& service, int count) : mService(service) {
        for (int i = 0; i < count; ++i)
            mThreads.emplace_back([this] { mPassed += ask(mService.object(), kWait); });
    }

    ~Waiters() { join(); }

    Waiters(const Waiters&) = delete;
    Waiters& operator=(const Waiters&) = delete;

    int join() {
        for (std::thread& thread : mThreads)
            thread.join();
        mThreads.clear();
        return mPassed;
    }

  private:
    const ServiceProcess& mService;
    std::atomic<int> mPassed{0};
    std::vector<std::thread> mThreads;
};

/// How many threads of that name prefix a process has.
int threadsOf(pid_t pid, const std::string& prefix) {
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/" + std::to_string(pid) + "/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm") >> std::ws, name);
        count += name.compare(0, prefix.size(), prefix) == 0 ? 1 : 0;
    }
    return count;
}

int poolThreadsOf(const ServiceProcess& service) { return threadsOf(service.pid(), "binder:"); }

TEST(ThreadPool, StartsWithOneThread) {
    const ServiceProcess service;
    EXPECT_TRUE(eventually([&] { return poolThreadsOf(service) == 1; }));
}

TEST(ThreadPool, ServesFourteenWaitingCallsAndStillAnswers) {
    const ServiceProcess service;
    Waiters waiters(service, 14);
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 14; }));
    ask(service.object(), kOpenGate);
    EXPECT_EQ(14, waiters.join());
}

TEST(ThreadPool, HasFifteenThreadsAtMostUnlessTold) {
    ServiceProcess service;
    std::vector<std::thread> threads;
    for (int i = 0; i < 20; ++i)
        threads.emplace_back([&] { Call(service.object(), kWait).run(); });
    EXPECT_TRUE(eventually([&] { return poolThreadsOf(service) == 15; }));
    service.kill();
    for (std::thread& thread : threads)
        thread.join();
}

TEST(ThreadPool, HasNoMoreThreadsThanItWasTold) {
    ServiceProcess service(3);
    std::vector<std::thread> threads;
    for (int i = 0; i < 10; ++i)
        threads.emplace_back([&] { Call(service.object(), kWait).run(); });
    EXPECT_TRUE(eventually([&] { return poolThreadsOf(service) == 3; }));
    service.kill();
    for (std::thread& thread : threads)
        thread.join();
}

TEST(ThreadPool, FinishesMoreSimultaneousCallsThanItHasThreads) {
    for (const int poolThreads : {1, 2, 15}) {
        const ServiceProcess service(poolThreads);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 40; ++thread) {
            threads.emplace_back([&service, thread] {
                for (int number = 0; number < 25; ++number)
                    EXPECT_EQ(thread * 100 + number, ask(service.object(), kEcho, thread * 100 + number));
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
}

TEST(ThreadPool, FinishesCallsThatHadToWaitForAThread) {
    const ServiceProcess service(2);
    Waiters waiter(service, 1);
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    std::vector<std::thread> threads;
    for (int i = 0; i < 10; ++i)
        threads.emplace_back([&service, i] { EXPECT_EQ(i, ask(service.object(), kEcho, i)); });
    for (std::thread& thread : threads)
        thread.join();
    ask(service.object(), kOpenGate);
    EXPECT_EQ(1, waiter.join());
}

TEST(ThreadPool, LetsAThreadThatJoinedServeAlone) {
    const ServiceProcess service(0);
    EXPECT_EQ(7, ask(service.object(), kEcho, 7));
    EXPECT_EQ(0, poolThreadsOf(service));
}

TEST(ThreadPool, IsNotNeededToReceiveAnswers) {
    const ServiceProcess service;
    EXPECT_EQ(7, ask(service.object(), kEcho, 7));
    EXPECT_EQ(0, threadsOf(getpid(), "binder:"));
}

}  // namespace
}  // namespace accessory::test
