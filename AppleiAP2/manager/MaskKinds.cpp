#include "AppleiAP2/manager/MaskKinds.h"

#include <cstring>

namespace accessory::wire::iap2_manager {

namespace {

constexpr char kNoString[] = "-1";

const char* orNoString(const char* text) { return text != nullptr ? text : kNoString; }

const char* readString(Reader& in) {
    const char* const text = in.cstr();
    return text != nullptr && strcmp(text, kNoString) != 0 ? text : nullptr;
}

}  // namespace

void LibraryUpdateInfo::write(Writer& out, const android::sp<MediaLibUpdateInfo>& info) {
    if (info == nullptr) out.step(android::BAD_VALUE);
    const android::sp<MediaLibUpdateInfo> written = info != nullptr ? info : new MediaLibUpdateInfo();
    out.cstr(orNoString(written->mFirstText));
    out.cstr(orNoString(written->mSecondText));
    for (const int32_t value : written->mValues)
        out.i32(value);
}

GiveUp LibraryUpdateInfo::Slot::read(Reader& in) {
    info = new MediaLibUpdateInfo();
    info->mFirstText = readString(in);
    info->mSecondText = readString(in);
    for (int32_t& value : info->mValues)
        value = in.i32();
    return kGoOn;
}

}  // namespace accessory::wire::iap2_manager
