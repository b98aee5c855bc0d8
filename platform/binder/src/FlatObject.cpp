#include "FlatObject.h"

#include <binder/Binder.h>
#include <binder/BpBinder.h>

namespace android::runtime {

namespace {

uint64_t addressOf(const void* object) { return reinterpret_cast<uintptr_t>(object); }

flat_binder_object flattenHandle(const BpBinder* proxy) {
    const int32_t handle = proxy != nullptr ? proxy->handle() : 0;
    return {kTypeHandle, kBinderFlags, static_cast<uint32_t>(handle), 0};
}

}  // namespace

flat_binder_object flattenBinder(const sp<IBinder>& binder) {
    if (binder == nullptr) return {kTypeBinder, kBinderFlags, 0, 0};
    BBinder* const local = binder->localBinder();
    if (local == nullptr) return flattenHandle(binder->remoteBinder());
    return {kTypeBinder, kBinderFlags, addressOf(local->getWeakRefs()), addressOf(local)};
}

flat_binder_object flattenDescriptor(int fd, bool owned) {
    return {kTypeDescriptor, kDescriptorFlags, static_cast<uint32_t>(fd), owned ? 1u : 0u};
}

}  // namespace android::runtime
