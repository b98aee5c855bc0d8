// What the tests of registry, stub and broadcaster share: a stub over a QuietService, the registry that it
// made, and clients of this process.
#pragma once

#include <accessory/testing/Kept.h>
#include <unistd.h>

#include "tests/AppleiAP2/manager/registry/Expectations.h"
#include "tests/AppleiAP2/manager/registry/MortalRemote.h"
#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/AppleiAP2/notifier/Recorder.h"

namespace accessory::test {

using testkit::kept;

/// A client whose notifier is an object of this process.
struct LocalClient {
    android::sp<Recorder> told{new Recorder};
    android::sp<IAppleiAP2ManagerNotifier> notifier{new BnAppleiAP2ManagerNotifier(told)};
};

/// A client whose notifier is a proxy.
struct RemoteClient {
    android::sp<MortalRemote> remote{new MortalRemote};
    android::sp<IAppleiAP2ManagerNotifier> notifier{IAppleiAP2ManagerNotifier::asInterface(remote)};
};

class RegistryFixture : public testing::Test {
  protected:
    const android::sp<QuietService> service{new QuietService};
    const android::sp<BnAppleiAP2Manager> stub{kept(new BnAppleiAP2Manager(service))};
    const android::sp<AppleiAP2ManagerNotifierItf> broadcaster{service->broadcasters.at(0)};
    const android::sp<AppleiAP2ManagerNotifier> registry{
        dynamic_cast<AppleiAP2ManagerNotifier*>(broadcaster.get())};
    const int own = getpid();
    LogCatcher log;

    /// What was logged under the manager's tag since the last time.
    std::vector<LogLine> logged() {
        std::vector<LogLine> lines = log.linesWith(kManagerTag);
        log.clear();
        return lines;
    }

    /// The registry's listing.
    std::string listing() {
        android::String8 text;
        EXPECT_EQ(registry->dump({}, text), 0);
        return text.string();
    }
};

/// The line of a listing that names a client.
std::string entryOf(const android::sp<IAppleiAP2ManagerNotifier>& notifier, int pid);

}  // namespace accessory::test
