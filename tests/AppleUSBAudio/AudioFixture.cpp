#include "tests/AppleUSBAudio/AudioFixture.h"

#include <cstdio>

namespace accessory::test {

using android::sp;

std::vector<LogLine> AudioFixture::logged() {
    std::vector<LogLine> lines = log.linesWith(kAudioTag);
    log.clear();
    return lines;
}

std::string AudioFixture::listing() {
    android::String8 text;
    EXPECT_EQ(registry->dump({}, text), 0);
    return text.string();
}

std::string entryOf(const sp<IAppleUSBAudioManagerNotifier>& notifier, int pid) {
    char address[32];
    std::snprintf(address, sizeof(address), "%p", static_cast<void*>(notifier.get()));
    return "notifier[" + std::string(address) + "] pid[" + std::to_string(pid) + "] \n";
}

}  // namespace accessory::test
