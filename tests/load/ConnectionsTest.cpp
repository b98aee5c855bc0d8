// Thousands of connections a second, most of them from processes never seen before and gone at once.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <iostream>

#include "tests/load/Load.h"
#include "tests/load/ProcessWatch.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::load {
namespace {

using namespace accessory::test;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using simulator::test::Sample;
using std::chrono::steady_clock;

constexpr int kKnockers = 4;
/// One for the link, one for the call.
constexpr uint64_t kConnectionsOfAVisit = 2;
/// Visits under way and visits that are over, but not yet for the service.
constexpr size_t kMostAtOnce = 600;

/// A client as there always is one: some calls a second, all of them answered.
class Neighbour {
  public:
    explicit Neighbour(const ServiceProcess& service) : mService(service) {}

    void call() {
        const auto begin = steady_clock::now();
        ++mCalls;
        EXPECT_EQ(ask(mService.object(), kEcho, mCalls), mCalls);
        mSlowest = std::max(mSlowest, steady_clock::now() - begin);
    }

    void tell() const {
        std::cout << "  a client beside them: " << mCalls << " calls, the slowest "
                  << std::chrono::duration<double, std::milli>(mSlowest).count() << " ms\n";
    }

  private:
    const ServiceProcess& mService;
    int mCalls = 0;
    steady_clock::duration mSlowest{0};
};

class LoadConnections : public testing::Test {
  protected:
    void knockFor(std::chrono::seconds time) {
        for (int i = 0; i < kKnockers; ++i)
            knockers.emplace_back("knocker", RoleArguments{service.name(), std::to_string(time.count())});
    }

    /// Calls and samples while they knock; the first quarter warms up.
    void stayFor(std::chrono::seconds time) {
        const auto begin = steady_clock::now();
        bool warm = false;
        while (steady_clock::now() - begin < time && !HasFailure()) {
            neighbour.call();
            watch.sample();
            if (!warm && steady_clock::now() - begin > time / 4) {
                warm = true;
                watch.forget();
            }
            rest(std::chrono::milliseconds(5));
        }
    }

    uint64_t nextFigures() {
        uint64_t sum = 0;
        for (ChildProcess& knocker : knockers)
            sum += std::stoull(knocker.expectLine());
        return sum;
    }

    const ServiceProcess service;
    Neighbour neighbour{service};
    ProcessWatch watch{service.pid()};
    std::deque<ChildProcess> knockers;
};

TEST_F(LoadConnections, ComeAndGoWithoutARefusalAndLeaveNothingBehind) {
    neighbour.call();
    const Sample before = watch.sample();
    knockFor(loadTime());
    stayFor(loadTime());
    const uint64_t served = nextFigures();
    const uint64_t connections = kConnectionsOfAVisit * served;
    std::cout << loadTime().count() << " s: " << connections << " connections, "
              << connections / static_cast<uint64_t>(loadTime().count()) << " a second\n";
    neighbour.tell();
    watch.expectSteadyMemory();
    EXPECT_GT(served, 100u);
    EXPECT_EQ(nextFigures(), 0u) << "visits were refused";
    EXPECT_TRUE(eventually([&] { return watch.sample().descriptors == before.descriptors; }))
        << before.descriptors << " before, " << watch.sample().descriptors << " after";
    EXPECT_LT(watch.most(&Sample::descriptors), before.descriptors + kMostAtOnce)
        << "ends of links waited behind the callers at the door";
    EXPECT_LE(watch.most(&Sample::threads), 15u + before.threads);
    expectSleep({service.pid()});
}

}  // namespace
}  // namespace accessory::load
