#include "tests/failures/EachFailure.h"

#include <cstdio>
#include <cstdlib>

namespace accessory::test {

namespace {

constexpr int kMostSteps = 2000;

CHILD_ROLE(travel) {
    const Journey& journey = journeyNamed(args.at(0));
    const std::string& service = args.at(1);
    journey.prepare(service);
    const auto what = static_cast<Failing>(std::stoi(args.at(2)));
    const int n = std::stoi(args.at(3));
    const int error = std::stoi(args.at(4));
    parent.send("ready");
    parent.expectLine();
    armFailure(what, n, error);
    const Outcome first = journey.run(service);
    parent.send(disarmFailure() ? "happened" : "did not happen");
    EXPECT_NE(Outcome::kWrong, first);
    parent.expectLine();
    EXPECT_EQ(Outcome::kArrived, journey.run(service)) << "the next one";
    return 0;
}

}  // namespace

void EachFailure::atTheClient() { runAll(At::kClient); }
void EachFailure::atTheService() { runAll(At::kService); }

void EachFailure::runAll(At where) {
    int n = 1;
    while (n < kMostSteps && happens(where, n) && !testing::Test::HasFailure())
        ++n;
    EXPECT_LT(n, kMostSteps);
    EXPECT_TRUE(mService.isWell());
    testing::Test::RecordProperty("failures", n - 1);
    if (std::getenv("ACCESSORY_TEST_LOG") != nullptr) std::printf("%d failures\n", n - 1);
}

/// What the client prepares is done before either end is armed.
bool EachFailure::happens(At where, int n) {
    SCOPED_TRACE("failure " + std::to_string(n));
    const int ofClient = where == At::kClient ? n : 0;
    ChildProcess client("travel", {mJourney.name, mService.name(), std::to_string(static_cast<int>(mWhat)),
                                   std::to_string(ofClient), std::to_string(mError)});
    EXPECT_EQ("ready", client.expectLine());
    if (where == At::kService) mService.arm(mWhat, n, mError);
    client.send("go");
    bool happened = client.expectLine() == "happened";
    if (where == At::kService) happened = mService.disarm();
    client.send("the next one");
    EXPECT_PRED1(testing::ExitedWithCode(0), client.wait());
    return happened;
}

}  // namespace accessory::test
