// More calls at once than a service has threads: how many run, and that all are answered.
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/faults/Depot.h"
#include "tests/platform/TestService.h"
#include "tests/support/ChildProcess.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr int kCallers = 64;

/// Serves a depot with so many threads; "waiting" is answered with how many calls wait at its gate.
CHILD_ROLE(pooledDepot) {
    ProcessState::self()->setThreadPoolMaxThreadCount(std::stoul(args.at(1)));
    ProcessState::self()->startThreadPool();
    const sp<Depot> depot = new Depot;
    defaultServiceManager()->addService(String16(args.at(0).c_str()), depot);
    parent.send("ready");
    for (std::string told = parent.expectLine(); told != "bye"; told = parent.expectLine()) {
        if (told == "waiting") parent.send(std::to_string(depot->gate.waiting()));
        if (told == "open") depot->gate.open();
    }
    return 0;
}

class Pool : public testing::TestWithParam<int> {
  protected:
    Pool() {
        EXPECT_EQ("ready", process.expectLine());
        depot = defaultServiceManager()->checkService(String16(name.c_str()));
        EXPECT_NE(nullptr, depot);
    }

    int waiting() {
        process.send("waiting");
        return std::stoi(process.expectLine());
    }

    const std::string name = uniqueServiceName();
    ChildProcess process{"pooledDepot", {name, std::to_string(GetParam())}};
    sp<IBinder> depot;
};

TEST_P(Pool, AnswersSixtyFourCallersOnceItsStuckThreadsAreReleased) {
    std::atomic<int> answered{0};
    std::vector<std::thread> callers;
    for (int i = 0; i < kCallers; ++i)
        callers.emplace_back([&] { answered += Call(depot, kCrowd).run() == NO_ERROR ? 1 : 0; });
    EXPECT_TRUE(eventually([this] { return waiting() == GetParam(); }));
    for (int look = 0; look < 50; ++look)
        EXPECT_EQ(GetParam(), waiting()) << "no more threads than it was told";
    EXPECT_EQ(0, answered);
    process.send("open");
    for (std::thread& caller : callers)
        caller.join();
    EXPECT_EQ(kCallers, answered);
    EXPECT_EQ(NO_ERROR, depot->pingBinder());
}

TEST_P(Pool, EndsSixtyFourCallersWhenItDiesWithAllThreadsStuck) {
    std::atomic<int> bereaved{0};
    std::vector<std::thread> callers;
    for (int i = 0; i < kCallers; ++i)
        callers.emplace_back([&] { bereaved += Call(depot, kCrowd).run() == DEAD_OBJECT ? 1 : 0; });
    EXPECT_TRUE(eventually([this] { return waiting() == GetParam(); }));
    process.kill(SIGKILL);
    for (std::thread& caller : callers)
        caller.join();
    EXPECT_EQ(kCallers, bereaved);
}

INSTANTIATE_TEST_SUITE_P(Threads, Pool, testing::Values(1, 2, 15), testing::PrintToStringParamName());

}  // namespace
}  // namespace accessory::test
