#include "tests/load/ProcessWatch.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tests/support/Eventually.h"
#include "tests/support/Sanitized.h"

namespace accessory::load {

using simulator::test::Range;
using simulator::test::Sample;

namespace {

constexpr double kSteady = 0.15;

size_t switchesOf(const std::filesystem::path& thread) {
    std::ifstream file(thread / "status");
    size_t count = 0;
    for (std::string word; file >> word;) {
        if (word == "voluntary_ctxt_switches:") file >> count;
    }
    return count;
}

/// How often the threads of the processes have gone to sleep, which they do after every wake-up.
size_t wakeUps(const std::vector<pid_t>& pids) {
    size_t sum = 0;
    for (const pid_t pid : pids) {
        const std::filesystem::directory_iterator threads("/proc/" + std::to_string(pid) + "/task");
        for (const auto& thread : threads)
            sum += switchesOf(thread.path());
    }
    return sum;
}

}  // namespace

Sample ProcessWatch::sample() {
    mSamples.push_back(simulator::test::sampleOf(mPid));
    return mSamples.back();
}

void ProcessWatch::expectSteadyMemory() const {
    ASSERT_FALSE(mSamples.empty());
    const Range memory = rangeOf(mSamples, &Sample::memory);
    std::cout << "  KiB of resident memory: " << memory
              << "\n  threads: " << rangeOf(mSamples, &Sample::threads)
              << "\n  descriptors: " << rangeOf(mSamples, &Sample::descriptors) << '\n';
    EXPECT_TRUE(test::kSanitized || memory.isFlat(kSteady));
}

size_t ProcessWatch::most(size_t Sample::*figure) const { return rangeOf(mSamples, figure).most; }

void expectSleep(const std::vector<pid_t>& pids) {
    using std::chrono::steady_clock;
    size_t count = wakeUps(pids);
    auto since = steady_clock::now();
    const auto haveSlept = [&] {
        const size_t now = wakeUps(pids);
        if (now != count) since = steady_clock::now();
        count = now;
        return steady_clock::now() - since >= std::chrono::seconds(1);
    };
    if (test::kSanitized) return;
    EXPECT_TRUE(test::eventually(haveSlept, 2 * test::kPatience));
}

}  // namespace accessory::load
