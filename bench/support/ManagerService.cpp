#include "bench/support/ManagerService.h"

#include <android/log.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace accessory::bench {

using android::IBinder;
using android::sp;
using android::String16;

void quietLog() { __android_log_set_minimum_priority(ANDROID_LOG_ERROR); }

sp<IBinder> publishManager(const sp<AppleiAP2ManagerImplItf>& implementation, const std::string& name) {
    quietLog();
    const sp<IBinder> stub = new BnAppleiAP2Manager(implementation);
    if (android::defaultServiceManager()->addService(String16(name.c_str()), stub) != android::NO_ERROR) {
        std::fprintf(stderr, "bench: the service '%s' cannot be published\n", name.c_str());
        _exit(EXIT_FAILURE);
    }
    android::ProcessState::self()->startThreadPool();
    return stub;
}

void serveManager(const sp<AppleiAP2ManagerImplItf>& implementation, const std::string& name,
                  const std::function<void()>& ready) {
    const sp<IBinder> stub = publishManager(implementation, name);
    ready();
    android::IPCThreadState::self()->joinThreadPool();
    _exit(EXIT_SUCCESS);
}

sp<IAppleiAP2Manager> managerNamed(const std::string& name) {
    quietLog();
    const sp<IBinder> binder = android::defaultServiceManager()->getService(String16(name.c_str()));
    if (binder == nullptr) throw std::runtime_error("no service " + name);
    return android::interface_cast<IAppleiAP2Manager>(binder);
}

}  // namespace accessory::bench
