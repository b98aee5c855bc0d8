// What the tests of the stub share: an implementation that tells what it was asked, and requests made by
// hand.
#pragma once

#include <accessory/IAccessoryManager.h>
#include <gmock/gmock.h>

#include <iosfwd>

#include "tests/AccessoryManager/Bytes.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {

class MockAccessories : public AccessoryManagerImplItf {
  public:
    MOCK_METHOD(int32_t, getDeviceCount, (), (override));
    MOCK_METHOD(int32_t, getFeature, (unsigned int), (override));
    MOCK_METHOD(android::String8, getPath, (unsigned int), (override));
    MOCK_METHOD(int32_t, getAccessoryId, (const android::String8&), (override));
    MOCK_METHOD(int, dump, (const android::Vector<android::String16>&, android::String8&), (override));
};

/// A stub whose dispatch a test may call, as the runtime does.
class OpenStub : public BnAccessoryManager {
  public:
    using BnAccessoryManager::BnAccessoryManager;
    using BnAccessoryManager::onTransact;
};

/// How a request ended.
struct Answer {
    android::status_t status;
    Bytes reply;
};
bool operator==(const Answer& left, const Answer& right);
void PrintTo(const Answer& answer, std::ostream* out);

/// Hands @p stub a request of those bytes, with flags 0.
Answer ask(OpenStub& stub, uint32_t code, const Bytes& request);

/// The line that every request leaves, from this process itself.
testing::Matcher<const LogLine&> calling(uint32_t code);

/// The implementation fails the test when it is called without an expectation.
class StubFixture : public testing::Test {
  protected:
    const android::sp<testing::StrictMock<MockAccessories>> accessories{
        new testing::StrictMock<MockAccessories>};
    const android::sp<OpenStub> stub{new OpenStub(accessories)};
    LogCatcher log;
};

inline constexpr char kTag[] = "IAccessoryManager";

}  // namespace accessory::test
