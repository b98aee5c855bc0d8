#include "AppleiAP2/notifier/CarPlayKinds.h"

#include <android/log.h>

namespace accessory::wire::iap2_notifier {

void CarKeys::write(Writer& out, const std::vector<std::string>& keys) {
    out.i32(static_cast<int32_t>(keys.size()));
    for (const std::string& key : keys)
        out.cstr(key.c_str());
}

/// Where one string is missing, all that follow are: there is no use in asking for them, whatever the count
/// says.
GiveUp CarKeys::Slot::read(Reader& in) {
    const int32_t count = in.i32();
    for (int32_t i = 0; i < count; ++i) {
        const char* const key = in.cstr();
        if (key == nullptr) break;
        __android_log_print(ANDROID_LOG_DEBUG, kiAP2NotifierUnit.tag, "keyIdentifier : %s", key);
        keys.emplace_back(key);
    }
    return kGoOn;
}

}  // namespace accessory::wire::iap2_notifier
