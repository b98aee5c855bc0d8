#include "bench/share/Places.h"

#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <unistd.h>

#include <stdexcept>

#include "bench/support/ManagerService.h"

namespace accessory::bench {

using android::IBinder;
using android::sp;
using android::String16;

void serveObject(const sp<IBinder>& object, const std::string& name, const Ready& ready) {
    quietLog();
    if (android::defaultServiceManager()->addService(String16(name.c_str()), object) != android::NO_ERROR)
        throw std::runtime_error("cannot publish " + name);
    android::ProcessState::self()->startThreadPool();
    ready();
    android::IPCThreadState::self()->joinThreadPool();
    _exit(0);
}

sp<IBinder> objectNamed(const std::string& name) {
    quietLog();
    const sp<IBinder> object = android::defaultServiceManager()->getService(String16(name.c_str()));
    if (object == nullptr) throw std::runtime_error("no service " + name);
    return object;
}

void serveNothing(const std::string& /*folder*/, const Ready& ready) {
    ready();
    for (;;)
        pause();
}

}  // namespace accessory::bench
