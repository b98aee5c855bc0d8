// The 24 bytes that stand for a binder or a descriptor in a parcel's data.
#pragma once

#include <binder/IBinder.h>

#include <cstdint>

/// Laid out as the kernel driver's object of the same name. The addresses and numbers in it mean nothing
/// outside the process that wrote it and are never believed when read.
struct flat_binder_object {
    uint32_t type;
    uint32_t flags;
    uint64_t handle;  ///< a weak reference's address, a proxy's number or a descriptor, by type
    uint64_t cookie;
};
static_assert(sizeof(flat_binder_object) == 24, "the wire form of an object is 24 bytes");

namespace android::runtime {

constexpr uint32_t kTypeBinder = 0x73622a85;      // 's' 'b' '*' 0x85
constexpr uint32_t kTypeHandle = 0x73682a85;      // 's' 'h' '*' 0x85
constexpr uint32_t kTypeDescriptor = 0x66642a85;  // 'f' 'd' '*' 0x85

constexpr uint32_t kAcceptsDescriptors = 0x100;
constexpr uint32_t kBinderFlags =
    0x13 | kAcceptsDescriptors;  // lowest priority 19, as the platform writes it
constexpr uint32_t kDescriptorFlags = 0x7f | kAcceptsDescriptors;

/// The picture of @p binder, which may be null.
flat_binder_object flattenBinder(const sp<IBinder>& binder);
/// The picture of @p fd; @p owned says whether the parcel closes it.
flat_binder_object flattenDescriptor(int fd, bool owned);

}  // namespace android::runtime
