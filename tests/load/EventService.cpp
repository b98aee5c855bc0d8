// A service that raises events when told to: CHILD_ROLE(eventService), an iAP2 manager under the name that is
// its argument.
//
// "raise <first> <count>" raises attach() with so many numbers, "listed" asks how many clients are
// registered.
#include <accessory/AppleiAP2ManagerNotifier.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <sstream>

#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/load/Load.h"
#include "tests/support/ChildRole.h"

namespace accessory::load {
namespace {

using android::sp;

void raise(AppleiAP2ManagerNotifierItf& broadcaster, std::istringstream& order) {
    unsigned int number = 0;
    unsigned int count = 0;
    for (order >> number >> count; count > 0; --count)
        broadcaster.attach(number++);
}

std::string listed(AppleiAP2ManagerNotifierItf& broadcaster) {
    android::String8 text;
    dynamic_cast<AppleiAP2ManagerNotifier&>(broadcaster).dump({}, text);
    const std::string head = text.string();
    return head.substr(0, head.find('\n'));
}

CHILD_ROLE(eventService) {
    const sp<test::QuietService> service = new test::QuietService;
    const sp<android::IBinder> stub = new BnAppleiAP2Manager(service);
    const android::String16 name(args.at(0).c_str());
    if (android::defaultServiceManager()->addService(name, stub) != android::NO_ERROR) return 1;
    android::ProcessState::self()->startThreadPool();
    parent.send("ready");
    for (std::string line = parent.expectLine(kLongPatience);; line = parent.expectLine(kLongPatience)) {
        std::istringstream order(line);
        std::string what;
        order >> what;
        if (what == "raise") raise(*service->broadcasters.at(0), order);
        parent.send(what == "listed" ? listed(*service->broadcasters.at(0)) : "done");
    }
}

}  // namespace
}  // namespace accessory::load
