#include "tests/AppleiAP2/manager/registry/QuietService.h"

namespace accessory::test {

// Here, so that the mock's 85 operations are compiled once.
QuietService::QuietService() = default;
QuietService::~QuietService() = default;

int QuietService::addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) {
    broadcasters.push_back(notifier);
    return addStatus;
}

int QuietService::dump(const android::Vector<android::String16>& args, android::String8& result) {
    ++dumps;
    dumpArgs = args;
    result.append("quiet\n");
    return dumpStatus;
}

}  // namespace accessory::test
