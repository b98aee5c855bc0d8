// Field masks and the record that asks for a media library's updates.
#pragma once

#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>

#include <tuple>

#include "common/Kinds.h"

namespace accessory::wire::iap2_manager {

/// A mask object, as the bit set in it. A null one cannot be written: that is reported, and no bit travels.
template <typename MaskClass>
struct Mask {
    static constexpr const char* kKind = "mask as i32";
    using Arguments = std::tuple<android::sp<MaskClass>&>;

    const char* name = nullptr;

    static void write(Writer& out, const android::sp<MaskClass>& mask) {
        if (mask == nullptr) out.step(android::BAD_VALUE);
        out.i32(mask != nullptr ? static_cast<int32_t>(mask->mask) : 0);
    }

    struct Slot {
        android::sp<MaskClass> mask;

        GiveUp read(Reader& in) {
            mask = new MaskClass();
            mask->mask = static_cast<uint32_t>(in.i32());
            return kGoOn;
        }
        Arguments arguments() { return {mask}; }
    };
};

/// A MediaLibUpdateInfo: its strings, the text "-1" for a null one, and its numbers. The receiver makes null
/// of that text, whoever sent it; a string that is missing is null as well.
struct LibraryUpdateInfo {
    static constexpr const char* kKind = "media library update info";
    using Arguments = std::tuple<android::sp<MediaLibUpdateInfo>&>;

    const char* name = nullptr;

    static void write(Writer& out, const android::sp<MediaLibUpdateInfo>& info);

    struct Slot {
        android::sp<MediaLibUpdateInfo> info;

        GiveUp read(Reader& in);
        Arguments arguments() { return {info}; }
    };
};

template <typename MaskClass>
constexpr Mask<MaskClass> mask(const char* name) {
    return {name};
}
constexpr LibraryUpdateInfo mediaLibUpdateInfo(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_manager
