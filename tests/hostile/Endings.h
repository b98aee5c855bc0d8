// How a request may end, whatever its bytes are.
#pragma once

#include <gtest/gtest.h>

#include "tests/hostile/Subjects.h"

namespace accessory::test {

/// How a request ended.
struct Ending {
    android::status_t status = 0;
    Bytes reply;
    size_t told = 0;      ///< calls of the implementation
    bool raised = false;  ///< a logic error left the stub; the runtime logs it and answers UNKNOWN_ERROR
};

/// Hands @p subject a request.
Ending endOf(const Subject& subject, uint32_t code, const android::Parcel& request);
Ending endOf(const Subject& subject, uint32_t code, const Bytes& request);

/// Refused before the implementation, with @p status and no more than the interface's header.
testing::AssertionResult isRefused(const Subject& subject, const Ending& ending, android::status_t status);

/// Whether a request of @p operation with those bytes may end so: refused when the token is not the
/// interface's; else told and answered; or left early, with a status that an operation of the interface has,
/// or where a std::string is missing with a logic error.
testing::AssertionResult isAllowed(const Subject& subject, const tools::Operation& operation,
                                   const Bytes& request, const Ending& ending);

}  // namespace accessory::test
