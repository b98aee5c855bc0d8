// What the tests of the stub share: a stub over a Recorder, and requests made by hand.
#pragma once

#include <gmock/gmock.h>

#include <iosfwd>
#include <string>
#include <vector>

#include "tests/AppleiAP2/notifier/Event.h"
#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {

/// How a request ended.
struct Answer {
    android::status_t status;
    Bytes reply;
};
bool operator==(const Answer& left, const Answer& right);
void PrintTo(const Answer& answer, std::ostream* out);

/// The request was refused with that status, without a reply.
inline Answer refused(android::status_t status) { return {status, {}}; }
/// The implementation answered @p result.
inline Answer answered(int32_t result) { return {0, i32(result)}; }

/// Hands @p stub a request of those bytes, with flags 0.
Answer ask(BnAppleiAP2ManagerNotifier& stub, uint32_t code, const Bytes& bytes);

/// Matches exactly these lines, in order.
testing::Matcher<const std::vector<LogLine>&> areLines(const ExpectedLines& lines);

class StubFixture : public testing::Test {
  protected:
    StubFixture() { log.clear(); }

    /// What the implementation is told when a request with those arguments arrives; "" when it is not called.
    std::string toldOf(uint32_t code, const Bytes& arguments);

    const android::sp<Recorder> recorder{new Recorder};
    const android::sp<BnAppleiAP2ManagerNotifier> stub{new BnAppleiAP2ManagerNotifier(recorder)};
    LogCatcher log;
    Answer last{};  ///< of toldOf()
};

}  // namespace accessory::test
