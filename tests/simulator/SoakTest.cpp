// The simulator and three clients at full speed for a while: every event that was raised has arrived
// everywhere, every request that was made has been served, and the simulator does not grow.
//
// It lasts ACCESSORY_SOAK_SECONDS, 4 unless set.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <iostream>

#include "tests/simulator/Samples.h"
#include "tests/simulator/SimulatorProcess.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Sanitized.h"

namespace accessory::simulator::test {
namespace {

using accessory::test::ChildProcess;
using std::chrono::steady_clock;

constexpr double kFlat = 0.15;

/// Sanitizers keep what was freed, and have threads of their own.
using accessory::test::kSanitized;

std::chrono::seconds duration() {
    const char* const seconds = getenv("ACCESSORY_SOAK_SECONDS");
    return std::chrono::seconds(seconds != nullptr ? atoi(seconds) : 4);
}

uint64_t answerOf(ChildProcess& client, const std::string& order) {
    client.send(order);
    return std::strtoull(client.expectLine().c_str(), nullptr, 10);
}

class Soak : public testing::Test {
  protected:
    Soak() {
        EXPECT_TRUE(simulator.ready()) << simulator.output();
        for (const char* part : {"leads", "follows", "follows"}) {
            clients.emplace_back("soakClient", accessory::test::RoleArguments{part});
            EXPECT_EQ(clients.back().expectLine(), "registered");
        }
    }

    /// Whenever new events have arrived, until the time is over; without the first quarter of it.
    std::vector<Sample> samplesWhileItRuns() {
        const auto begin = steady_clock::now();
        std::vector<Sample> samples;
        while (steady_clock::now() - begin < duration() && !HasFailure()) {
            for (ChildProcess& client : clients)
                answerOf(client, "more");
            simulator.listen();
            const Sample sample = sampleOf(simulator.pid());
            if (steady_clock::now() - begin > duration() / 4) samples.push_back(sample);
        }
        return samples;
    }

    /// The sum over all clients.
    uint64_t requestsMade() {
        uint64_t sum = 0;
        for (ChildProcess& client : clients)
            sum += answerOf(client, "requests");
        return sum;
    }

    SimulatorProcess simulator{{"commute", "--speed", "0", "--loop"}};
    std::deque<ChildProcess> clients;
};

void print(const char* what, const Range& range) { std::cout << "  " << what << ": " << range << '\n'; }

void expectFlat(const std::vector<Sample>& samples) {
    ASSERT_GT(samples.size(), 10u);
    const Range memory = rangeOf(samples, &Sample::memory);
    const Range threads = rangeOf(samples, &Sample::threads);
    const Range descriptors = rangeOf(samples, &Sample::descriptors);
    print("KiB of resident memory", memory);
    print("threads", threads);
    print("descriptors", descriptors);
    if (kSanitized) return;
    EXPECT_TRUE(memory.isFlat(kFlat));
    EXPECT_TRUE(threads.isFlat(kFlat));
    EXPECT_TRUE(descriptors.isFlat(kFlat));
}

TEST_F(Soak, LosesNothingAndDoesNotGrow) {
    for (auto client = clients.rbegin(); client != clients.rend(); ++client)
        answerOf(*client, "begin");
    const std::vector<Sample> samples = samplesWhileItRuns();
    const uint64_t requests = requestsMade();
    simulator.signal(SIGTERM);
    ASSERT_EQ(simulator.wait(), 0);
    unsigned long long served = 0;
    unsigned long long raised = 0;
    const std::string& output = simulator.output();
    ASSERT_NE(output.find("Served "), std::string::npos) << output;
    ASSERT_EQ(sscanf(output.c_str() + output.find("Served "), "Served %llu requests and raised %llu events.",
                     &served, &raised),
              2);
    std::cout << duration().count() << " s: " << raised << " events raised, " << served
              << " requests served, 3 clients\n";
    EXPECT_EQ(requests, served);
    EXPECT_GT(raised, 1000u);
    for (ChildProcess& client : clients) {
        EXPECT_EQ(answerOf(client, "events"), raised);
        client.send("end");
        EXPECT_TRUE(testing::ExitedWithCode(0)(client.wait()));
    }
    expectFlat(samples);
}

}  // namespace
}  // namespace accessory::simulator::test
