// What the tests of the USB audio family share: a stub over a noting service, the registry that it made,
// clients of this process, and the log.
#pragma once

#include <unistd.h>

#include <string>
#include <vector>

#include "tests/AppleUSBAudio/AudioLines.h"
#include "tests/AppleUSBAudio/AudioParts.h"
#include "tests/AppleiAP2/manager/registry/MortalRemote.h"

namespace accessory::test {

/// A client whose notifier is an object of this process.
struct LocalAudioClient {
    android::sp<AudioListener> listener{new AudioListener};
    android::sp<IAppleUSBAudioManagerNotifier> notifier{new BnAppleUSBAudioManagerNotifier(listener)};
};

/// A client whose notifier is a proxy.
struct RemoteAudioClient {
    android::sp<MortalRemote> remote{new MortalRemote};
    android::sp<IAppleUSBAudioManagerNotifier> notifier{IAppleUSBAudioManagerNotifier::asInterface(remote)};
};

class AudioFixture : public testing::Test {
  protected:
    AudioFixture() { log.clear(); }

    const android::sp<AudioService> service{new AudioService};
    const android::sp<BnAppleUSBAudioManager> stub{keptStub(service)};
    const android::sp<AppleUSBAudioManagerNotifierItf> broadcaster{service->broadcasters.at(0)};
    const android::sp<AppleUSBAudioManagerNotifier> registry{
        dynamic_cast<AppleUSBAudioManagerNotifier*>(broadcaster.get())};
    const int own = getpid();
    const unsigned int user = getuid();
    LogCatcher log;

    /// What was logged under the manager's tag since the last time.
    std::vector<LogLine> logged();

    /// The registry's listing.
    std::string listing();
};

/// The line of a listing that names a client.
std::string entryOf(const android::sp<IAppleUSBAudioManagerNotifier>& notifier, int pid);

}  // namespace accessory::test
