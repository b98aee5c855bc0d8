// One journey, over and over, with each of its steps failing once.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/failures/FailingService.h"
#include "tests/failures/Journeys.h"

namespace accessory::test {

/// A client process of its own for every failure; one service for all of them.
class EachFailure {
  public:
    /// @param error see armFailure().
    EachFailure(const Journey& journey, Failing what, int error)
        : mJourney(journey), mWhat(what), mError(error) {}

    void atTheClient();
    void atTheService();

  private:
    enum class At { kClient, kService };

    void runAll(At where);
    bool happens(At where, int n);

    const Journey mJourney;
    const Failing mWhat;
    const int mError;
    FailingService mService;
};

/// For INSTANTIATE_TEST_SUITE_P.
inline std::string nameOfJourney(const testing::TestParamInfo<Journey>& info) { return info.param.name; }

}  // namespace accessory::test
