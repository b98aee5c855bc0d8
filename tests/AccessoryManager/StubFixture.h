// What the tests of the stub share: an implementation that tells what it was asked, and requests made by
// hand.
#pragma once

#include <accessory/testing/MockAccessoryManager.h>

#include <iosfwd>

#include "tests/AccessoryManager/Bytes.h"
#include "tests/AccessoryManager/Spelling.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {

/// How a request ended.
struct Answer {
    android::status_t status;
    Bytes reply;
};
bool operator==(const Answer& left, const Answer& right);
void PrintTo(const Answer& answer, std::ostream* out);

/// Hands @p stub a request of those bytes, with flags 0.
Answer ask(BnAccessoryManager& stub, uint32_t code, const Bytes& request);

/// The line that every request leaves, from this process itself.
testing::Matcher<const LogLine&> calling(uint32_t code);

/// The implementation fails the test when it is called without an expectation.
class StubFixture : public testing::Test {
  protected:
    const android::sp<testing::StrictMock<testkit::MockAccessoryManagerImpl>> accessories{
        new testing::StrictMock<testkit::MockAccessoryManagerImpl>};
    const android::sp<BnAccessoryManager> stub{new BnAccessoryManager(accessories)};
    LogCatcher log;
};

}  // namespace accessory::test
