#include "AppleiAP2/records/RecordWriter.h"

namespace accessory {

void RecordWriter::block(const void* values, uint32_t count) {
    require(values != nullptr || count == 0, "data");
    check(wire::appendArray(mParcel, static_cast<const uint16_t*>(values), count));
}

void RecordWriter::require(bool condition, const char* text) const {
    if (!condition) assertionFailed(mOperation.unit, text, __LINE__, mOperation.signature);
}

}  // namespace accessory
