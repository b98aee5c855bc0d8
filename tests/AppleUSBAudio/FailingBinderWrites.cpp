// The dynamic linker finds the program's definition before the library's. It carries the mangled name because
// the class is the platform's.
#include "tests/AppleUSBAudio/FailingBinderWrites.h"

#include <binder/IBinder.h>
#include <binder/Parcel.h>
#include <dlfcn.h>

#include <atomic>

namespace {

std::atomic<bool> failing{false};

}  // namespace

#define WRITE_BINDER "_ZN7android6Parcel17writeStrongBinderERKNS_2spINS_7IBinderEEE"

android::status_t writeBinder(android::Parcel* parcel,
                              const android::sp<android::IBinder>* binder) __asm__(WRITE_BINDER)
    __attribute__((visibility("default"), used));

android::status_t writeBinder(android::Parcel* parcel, const android::sp<android::IBinder>* binder) {
    if (failing) return android::NO_MEMORY;
    using Function = android::status_t (*)(android::Parcel*, const android::sp<android::IBinder>*);
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, WRITE_BINDER))(parcel, binder);
}

namespace accessory::test {

FailingBinderWrites::FailingBinderWrites() { failing = true; }

FailingBinderWrites::~FailingBinderWrites() { failing = false; }

}  // namespace accessory::test
