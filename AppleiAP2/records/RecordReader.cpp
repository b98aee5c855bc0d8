#include "AppleiAP2/records/RecordReader.h"

#include "AppleiAP2/records/ArrayMemory.h"

namespace accessory {

void RecordReader::block(void* values, uint32_t count) {
    succeeded(mOperation.at(__LINE__), mParcel.read(values, size_t{count} * sizeof(uint16_t)));
}

void* RecordReader::allocateBytes(size_t count, size_t entryBytes, size_t wireBytes, const char* text) {
    void* memory = nullptr;
    if (count <= mBudget / wireBytes) {
        mBudget -= count * wireBytes;
        memory = allocateArray(count, entryBytes);
    }
    holds(mOperation.at(__LINE__), memory != nullptr, text);
    return memory;
}

}  // namespace accessory
