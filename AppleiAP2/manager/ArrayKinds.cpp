#include "AppleiAP2/manager/ArrayKinds.h"

#include <android/log.h>

namespace accessory::wire::iap2_manager {

GiveUp DisplayIds::Slot::read(Reader& in) {
    // Read before memory is asked for: none is, when there are no identifiers.
    const int announced = in.i32();
    count = announced;
    if (announced == 0) return kGoOn;
    if (!holds(in.site(), elements.allocate(static_cast<size_t>(announced)), "buf"))
        return android::BAD_VALUE;
    readElements(in);
    return kGoOn;
}

GiveUp MediaItemIds::Slot::read(Reader& in) {
    if (!allocate(in)) {
        __android_log_print(ANDROID_LOG_ERROR, kiAP2ManagerUnit.tag, "malloc failed for mediaItemIdArray!");
        return android::NO_ERROR;
    }
    readElements(in);
    return kGoOn;
}

void HidAttributes::write(Writer& out, const HIDReportAttributes* attributes) {
    static constexpr HIDReportAttributes kNone;
    if (attributes == nullptr) out.step(android::BAD_VALUE);
    const HIDReportAttributes& written = attributes != nullptr ? *attributes : kNone;
    out.i32(written.componentId);
    out.i32(written.vendorId);
    out.i32(written.productId);
    out.i32(written.countryCode);
    out.i32(static_cast<int32_t>(written.reportDescriptorLen));
    out.raw(written.reportDescriptor, written.reportDescriptorLen);
}

GiveUp HidAttributes::Slot::read(Reader& in) {
    attributes.componentId = static_cast<uint16_t>(in.i32());
    attributes.vendorId = static_cast<uint16_t>(in.i32());
    attributes.productId = static_cast<uint16_t>(in.i32());
    attributes.countryCode = static_cast<uint8_t>(in.i32());
    attributes.reportDescriptorLen = static_cast<uint32_t>(in.i32());
    if (!holds(in.site(), descriptor.allocate(attributes.reportDescriptorLen),
               "attributes.reportDescriptor")) {
        return android::BAD_VALUE;
    }
    in.raw(descriptor.get(), attributes.reportDescriptorLen);
    attributes.reportDescriptor = descriptor.get();
    return kGoOn;
}

}  // namespace accessory::wire::iap2_manager
