// Every system call of a journey fails once, at either end, with each error that it can have: the journey
// arrives or is refused clearly, and the next one arrives. And sockets that move a few bytes at a time.
#include <gtest/gtest.h>

#include <cerrno>

#include "tests/failures/EachFailure.h"
#include "tests/failures/ShortTransfer.h"

namespace accessory::test {
namespace {

class FailedSystemCall : public testing::TestWithParam<Journey> {
  protected:
    static void failEach(void (EachFailure::*where)()) {
        for (const int error : {ENOMEM, EMFILE, ENOBUFS, EIO, EAGAIN, EINTR}) {
            SCOPED_TRACE(strerrorname_np(error));
            EachFailure failures(GetParam(), Failing::kSystemCalls, error);
            (failures.*where)();
        }
    }
};

TEST_P(FailedSystemCall, OfTheClientEndsInAClearErrorAndTheNextJourneyArrives) {
    failEach(&EachFailure::atTheClient);
}

TEST_P(FailedSystemCall, OfTheServiceEndsInAClearErrorAndTheNextJourneyArrives) {
    failEach(&EachFailure::atTheService);
}

INSTANTIATE_TEST_SUITE_P(Each, FailedSystemCall, testing::ValuesIn(journeys()), nameOfJourney);

CHILD_ROLE(travelInSmallSteps) {
    const Journey& journey = journeyNamed(args.at(0));
    shortenTransfers();
    journey.prepare(args.at(1));
    EXPECT_EQ(Outcome::kArrived, journey.run(args.at(1)));
    EXPECT_EQ(Outcome::kArrived, journey.run(args.at(1))) << "the next one";
    return 0;
}

class ShortTransfer : public testing::TestWithParam<Journey> {};

TEST_P(ShortTransfer, IsAsGoodAsAWholeOne) {
    FailingService service;
    service.shortenTransfers();
    ChildProcess client("travelInSmallSteps", {GetParam().name, service.name()});
    EXPECT_PRED1(testing::ExitedWithCode(0), client.wait(std::chrono::seconds(30)));
    EXPECT_TRUE(service.isWell());
}

INSTANTIATE_TEST_SUITE_P(Each, ShortTransfer, testing::ValuesIn(journeys()), nameOfJourney);

}  // namespace
}  // namespace accessory::test
