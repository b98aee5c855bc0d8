// A fuzz target for the reader of one record, ACCESSORY_FUZZ_RECORD.
#include <android/log.h>

#include <cstdlib>

#include "fuzz/records/RecordProperty.h"

// In liblog's place: the readers log what they refuse, which is most of what a fuzzer makes up.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

namespace {

using Record = accessory::ACCESSORY_FUZZ_RECORD;

constexpr int32_t kManyEntries = 1000;

/// How long a group list a library update announces.
int32_t announcedEntries(const uint8_t* data, size_t size) {
    using Mask = accessory::MediaLibDataMask;
    android::Parcel parcel;
    parcel.setData(data, size);
    parcel.setDataPosition(0);
    const auto mask = static_cast<uint32_t>(parcel.readInt32());
    if ((mask & Mask::kId) != 0) parcel.readCString();
    if ((mask & Mask::kRevision) != 0) parcel.readCString();
    return parcel.readInt32();
}

/// Whether the input would spend the fuzzer's time on empty items that no byte of it describes.
bool isWasteful(const uint8_t* data, size_t size) {
    return std::is_same_v<Record, accessory::IiAP2MediaLibData> &&
           announcedEntries(data, size) > kManyEntries;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (isWasteful(data, size)) return 0;
    if (!accessory::fuzz::readsToAFixedPoint<Record>(data, size)) std::abort();
    return 0;
}
