#include "AppleiAP2/manager/StringKinds.h"

#include <android/log.h>

#include <stdexcept>

namespace accessory::wire::iap2_manager {

namespace {

constexpr const char* kTag = kiAP2ManagerUnit.tag;

std::string takeString(Reader& in) {
    const char* const text = in.cstr();
    if (text == nullptr) throw std::logic_error("basic_string: construction from null is not valid");
    return text;
}

}  // namespace

GiveUp LibraryId::Slot::read(Reader& in) {
    value = in.cstr();
    __android_log_print(ANDROID_LOG_DEBUG, kTag, "%s --> Id[%s]", in.site().function,
                        value != nullptr ? value : "(null)");
    return kGoOn;
}

GiveUp BundleId::Slot::read(Reader& in) {
    value = in.cstr();
    if (value != nullptr) return kGoOn;
    __android_log_print(ANDROID_LOG_ERROR, kTag, "CPAppBundleId is NULL\n");
    in.step(android::BAD_VALUE);
    return android::NO_ERROR;
}

GiveUp StdString::Slot::read(Reader& in) {
    value = takeString(in);
    return kGoOn;
}

void CarKeyIds::write(Writer& out, const std::vector<std::string>& keys) {
    out.i32(static_cast<int32_t>(keys.size()));
    for (const std::string& key : keys)
        out.cstr(key.c_str());
}

GiveUp CarKeyIds::Slot::read(Reader& in) {
    const int32_t count = in.i32();
    if (count <= 0) {
        __android_log_print(ANDROID_LOG_WARN, kTag, "there is no keyidentifier to send!");
    }
    for (int32_t i = 0; i < count; ++i)
        keys.push_back(takeString(in));
    return kGoOn;
}

}  // namespace accessory::wire::iap2_manager
