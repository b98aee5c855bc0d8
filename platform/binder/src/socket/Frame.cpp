#include "Frame.h"

#include <cstring>

#include "../FlatObject.h"

namespace android::runtime {

bool isPlausible(const FrameHeader& header) {
    const bool known = header.kind == FrameKind::kCall || header.kind == FrameKind::kOneway ||
                       header.kind == FrameKind::kReply;
    return header.protocol == kProtocol && known && header.dataSize <= kMaxTransaction &&
           header.objectCount <= header.dataSize / sizeof(flat_binder_object) &&
           descriptorsOf(header) <= kMaxDescriptors && header.descriptorCount <= header.objectCount &&
           (header.sharing & ~(kOffersBlock | kMapsBlock | kDataInBlock)) == 0;
}

ObjectRecord recordAt(const FrameHeader& header, const uint8_t* body, size_t index) {
    ObjectRecord record;
    std::memcpy(&record, body + header.dataSize + index * sizeof(record), sizeof(record));
    return record;
}

bool areRecordsSound(const FrameHeader& header, const uint8_t* body) {
    size_t free = 0;  // where the next object may begin
    size_t descriptors = 0;
    for (size_t i = 0; i < header.objectCount; ++i) {
        const ObjectRecord record = recordAt(header, body, i);
        if (record.offset < free || record.offset > header.dataSize - sizeof(flat_binder_object))
            return false;
        if (record.offset % 4 != 0) return false;
        if (record.kind != ObjectKind::kBinder && record.kind != ObjectKind::kDescriptor) return false;
        free = record.offset + sizeof(flat_binder_object);
        descriptors += record.kind == ObjectKind::kDescriptor ? 1 : 0;
    }
    return descriptors == header.descriptorCount;
}

}  // namespace android::runtime
