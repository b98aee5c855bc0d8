// What the tests of the manager's stub and proxy share: a stub over a ManagerRecorder, a proxy over a
// FakeRemote, and requests made by hand.
#pragma once

#include <accessory/testing/Kept.h>
#include <gmock/gmock.h>

#include <iosfwd>
#include <string>
#include <vector>

#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AppleiAP2/manager/Example.h"
#include "tests/AppleiAP2/manager/ManagerRecorder.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {

using testkit::kept;

/// How a request ended.
struct Answer {
    android::status_t status;
    Bytes reply;
};
bool operator==(const Answer& left, const Answer& right);
void PrintTo(const Answer& answer, std::ostream* out);

/// Nothing but the header was answered.
inline Answer stopped(android::status_t status) { return {status, i32(0)}; }
/// The implementation answered @p result.
inline Answer answered(int32_t result, const Bytes& values = {}) { return {0, replied(result, values)}; }

/// Hands @p stub a request of those bytes, with flags 0.
Answer ask(BnAppleiAP2Manager& stub, uint32_t code, const Bytes& bytes);

/// A line under kTag, as a pattern for Logged().
struct ExpectedLine {
    int priority;
    std::string pattern;
};
using ExpectedLines = std::vector<ExpectedLine>;

/// The line of a step in @p function whose status is not 0.
ExpectedLine failedStep(const std::string& function);
/// The line of a condition in onTransact() that does not hold.
ExpectedLine failedCheck(const std::string& condition);

/// Matches exactly these lines, in order.
testing::Matcher<const std::vector<LogLine>&> areLines(const ExpectedLines& lines);

/// What the stub logs of an example, from its request to its reply.
ExpectedLines stubLinesOf(const Example& example);

class ManagerStubFixture : public testing::Test {
  protected:
    ManagerStubFixture() { log.clear(); }

    /// What the implementation is told when a request with those arguments arrives; "" when it is not called.
    std::string toldOf(uint32_t code, const Bytes& arguments);

    const android::sp<ManagerRecorder> recorder{new ManagerRecorder};
    const android::sp<BnAppleiAP2Manager> stub{kept(new BnAppleiAP2Manager(recorder))};
    LogCatcher log;
    Answer last{};  ///< of toldOf()
};

class ManagerProxyFixture : public testing::Test {
  protected:
    ManagerProxyFixture() { log.clear(); }

    const android::sp<FakeRemote> remote{new FakeRemote};
    const android::sp<IAppleiAP2Manager> proxy{new BpAppleiAP2Manager(remote)};
    LogCatcher log;
};

}  // namespace accessory::test
