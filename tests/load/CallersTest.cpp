// Many threads in several processes that call one service without a pause: all are served, none starves.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <iostream>
#include <numeric>
#include <sstream>

#include "tests/load/Load.h"
#include "tests/load/ProcessWatch.h"
#include "tests/platform/TestService.h"

namespace accessory::load {
namespace {

using namespace accessory::test;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using simulator::test::Sample;
using std::chrono::steady_clock;

constexpr size_t kProcesses = 8;
constexpr size_t kThreadsOfEach = 8;

/// The pool's, and those of the runtime, of the program and of a sanitizer.
constexpr size_t kMostThreads = 15 + 4;

/// A connection for each thread, a link for each process.
constexpr size_t kDescriptorsOfAll = (kThreadsOfEach + 1) * kProcesses;

/// What Caller.cpp tells of one thread.
struct Fortune {
    uint64_t calls = 0;
    uint64_t failures = 0;
    uint64_t longestWait = 0;  ///< in ms
};

bool fewer(const Fortune& left, const Fortune& right) { return left.calls < right.calls; }
bool shorter(const Fortune& left, const Fortune& right) { return left.longestWait < right.longestWait; }

class LoadCallers : public testing::Test {
  protected:
    LoadCallers() {
        for (size_t i = 0; i < kProcesses; ++i) {
            callers.emplace_back("caller", RoleArguments{service.name(), std::to_string(kThreadsOfEach),
                                                         std::to_string(loadTime().count())});
        }
        for (ChildProcess& caller : callers)
            EXPECT_EQ(caller.expectLine(), "ready");
    }

    /// Without their beginning, and without their end, of which each has its own idea.
    void sampleWhileTheyCall() {
        const auto begin = steady_clock::now();
        while (steady_clock::now() - begin < loadTime() * 3 / 4) {
            rest(std::chrono::milliseconds(20));
            if (steady_clock::now() - begin > loadTime() / 4) watch.sample();
        }
    }

    std::vector<Fortune> fortunes() {
        std::vector<Fortune> all(kProcesses * kThreadsOfEach);
        auto next = all.begin();
        for (ChildProcess& caller : callers) {
            for (size_t thread = 0; thread < kThreadsOfEach; ++thread, ++next)
                std::istringstream(caller.expectLine(patienceFor(loadTime()))) >> next->calls >>
                    next->failures >> next->longestWait;
        }
        return all;
    }

    /// With this process's own link and connection, which the ping has seen through the door.
    size_t descriptorsAtRest() const {
        EXPECT_EQ(service.object()->pingBinder(), android::NO_ERROR);
        return simulator::test::sampleOf(service.pid()).descriptors;
    }

    const ServiceProcess service;
    ProcessWatch watch{service.pid()};
    const size_t before = descriptorsAtRest();
    std::deque<ChildProcess> callers;
};

void print(const std::vector<Fortune>& all, uint64_t calls) {
    const uint64_t mean = calls / all.size();
    const uint64_t least = std::min_element(all.begin(), all.end(), fewer)->calls;
    const uint64_t most = std::max_element(all.begin(), all.end(), fewer)->calls;
    std::cout << loadTime().count() << " s: " << calls << " calls of " << all.size() << " threads, " << mean
              << " each; the least " << 100 * least / mean << " %, the most " << 100 * most / mean
              << " % of that; the longest wait "
              << std::max_element(all.begin(), all.end(), shorter)->longestWait << " ms\n";
}

TEST_F(LoadCallers, AreAllServedAndNoneStarves) {
    for (ChildProcess& caller : callers)
        caller.send("begin");
    sampleWhileTheyCall();
    const std::vector<Fortune> all = fortunes();
    uint64_t calls = 0;
    for (const Fortune& each : all) {
        calls += each.calls;
        EXPECT_EQ(each.failures, 0u);
        EXPECT_GT(each.calls, 0u);
        EXPECT_LT(each.longestWait, static_cast<uint64_t>(kPatience.count()));
    }
    ASSERT_GE(calls, all.size());
    print(all, calls);
    watch.expectSteadyMemory();
    EXPECT_LE(watch.most(&Sample::descriptors), before + kDescriptorsOfAll);
    EXPECT_LE(watch.most(&Sample::threads), kMostThreads);
    callers.clear();
    EXPECT_TRUE(eventually([this] { return watch.sample().descriptors == before; }));
}

}  // namespace
}  // namespace accessory::load
