// The one programming error that the stub asserts: a thread without a state.
#include <binder/IPCThreadState.h>
#include <sys/wait.h>

#include <csignal>

#include "tests/AccessoryManager/StubFixture.h"

namespace accessory::test {
namespace {

using testing::KilledBySignal;

constexpr char kReport[] =
    "AccessoryManager/IAccessoryManager\\.cpp:[0-9]+: .*accessory::BnAccessoryManager::onTransact"
    "\\(uint32_t, const android::Parcel ?&, android::Parcel ?\\*, uint32_t\\): Assertion `self' failed\\.";

void askWithoutAThreadState(uint32_t code, const Bytes& request) {
    const android::sp<BnAccessoryManager> stub = new BnAccessoryManager(nullptr);
    android::IPCThreadState::shutdown();
    ask(*stub, code, request);
}

TEST(StubAssertionDeathTest, EndsTheProcessWhenTheThreadHasNoState) {
    EXPECT_EXIT(askWithoutAThreadState(1, token()), KilledBySignal(SIGABRT), kReport);
}

TEST(StubAssertionDeathTest, EndsTheProcessForAnUnknownCodeAndAWrongTokenToo) {
    EXPECT_EXIT(askWithoutAThreadState(5, token()), KilledBySignal(SIGABRT), kReport);
    EXPECT_EXIT(askWithoutAThreadState(1, {}), KilledBySignal(SIGABRT), kReport);
}

}  // namespace
}  // namespace accessory::test
