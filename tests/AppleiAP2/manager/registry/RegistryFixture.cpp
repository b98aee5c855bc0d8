#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

#include <cstdio>

namespace accessory::test {

std::string entryOf(const android::sp<IAppleiAP2ManagerNotifier>& notifier, int pid) {
    char address[32];
    std::snprintf(address, sizeof(address), "%p", static_cast<void*>(notifier.get()));
    return "notifier[" + std::string(address) + "] pid[" + std::to_string(pid) + "] \n";
}

}  // namespace accessory::test
