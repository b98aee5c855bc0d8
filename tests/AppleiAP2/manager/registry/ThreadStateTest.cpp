// Registration on a thread without a state: nothing is done, and that is a success.
#include <binder/IPCThreadState.h>
#include <sys/wait.h>

#include <cstdlib>

#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::ExitedWithCode;

/// Registers and deregisters without a thread state and ends the process: 0 when both gave @p expected and
/// the registry is as it was.
[[noreturn]] void registerWithoutAThreadState() {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
    const RemoteClient client{};
    android::IPCThreadState::shutdown();
    LogCatcher log;
    const int set = stub->setNotifier(client.notifier);
    const size_t lines = log.linesWith(kManagerTag).size();
    log.clear();
    const int cleared = stub->clearNotifier();
    const bool nothingDone = client.remote->linked.empty() && client.notifier->getStrongCount() == 1;
    if (set != 0) _exit(1);
    if (cleared != 0) _exit(2);
    if (!nothingDone) _exit(3);
    if (lines != 2) _exit(4);
    if (!log.lines().empty()) _exit(5);
    _exit(0);
}

/// Clears an existing registration without a thread state: 0 when it succeeds and the registration stays.
[[noreturn]] void clearWithoutAThreadState() {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
    const RemoteClient client{};
    if (stub->setNotifier(client.notifier) != 0) _exit(1);
    android::IPCThreadState::shutdown();
    if (stub->clearNotifier() != 0) _exit(2);
    if (!client.remote->unlinked.empty()) _exit(3);
    if (client.notifier->getStrongCount() != 2) _exit(4);
    _exit(0);
}

TEST(RegistrationWithoutAThreadStateDeathTest, SucceedsAndDoesNothingButTrace) {
    EXPECT_EXIT(registerWithoutAThreadState(), ExitedWithCode(0), "");
}

TEST(RegistrationWithoutAThreadStateDeathTest, LeavesARegistrationInPlace) {
    EXPECT_EXIT(clearWithoutAThreadState(), ExitedWithCode(0), "");
}

}  // namespace
}  // namespace accessory::test
