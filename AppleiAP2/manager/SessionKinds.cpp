#include "AppleiAP2/manager/SessionKinds.h"

namespace accessory::wire::iap2_manager {

void CallTarget::write(Writer& out, const InitiateCallParam* param) {
    static constexpr InitiateCallParam kNone;
    if (param == nullptr) out.step(android::BAD_VALUE);
    const InitiateCallParam& written = param != nullptr ? *param : kNone;
    out.i32(written.type);
    out.optionalCstr(written.destinationId);
    out.i32(written.service);
    out.optionalCstr(written.addressBookId);
}

GiveUp CallTarget::Slot::read(Reader& in) {
    param.type = in.i32();
    param.destinationId = in.optionalCstr();
    param.service = in.i32();
    param.addressBookId = in.optionalCstr();
    return kGoOn;
}

void WiredSession::write(Writer& out, const CPStartSessionWiredAttributes* attributes) {
    out.i32(attributes != nullptr ? 1 : 0);
    if (attributes != nullptr) out.cstr(attributes->string1);
}

GiveUp WiredSession::Slot::read(Reader& in) {
    present = in.flag();
    if (present) attributes.string1 = in.cstr();
    return kGoOn;
}

void WirelessSession::write(Writer& out, const CPStartSessionWirelessAttributes* attributes) {
    out.i32(attributes != nullptr ? 1 : 0);
    if (attributes == nullptr) return;
    out.cstr(attributes->string1);
    out.cstr(attributes->string2);
    out.i32(attributes->value8);
    out.cstr(attributes->string3);
    out.i32(static_cast<int32_t>(attributes->value32));
}

GiveUp WirelessSession::Slot::read(Reader& in) {
    present = in.flag();
    if (!present) return kGoOn;
    attributes.string1 = in.cstr();
    attributes.string2 = in.cstr();
    attributes.value8 = static_cast<uint8_t>(in.i32());
    attributes.string3 = in.cstr();
    attributes.value32 = static_cast<uint32_t>(in.i32());
    return kGoOn;
}

}  // namespace accessory::wire::iap2_manager
