#include "AppleiAP2/notifier/AppListKind.h"

#include <cstdlib>

namespace accessory::wire::iap2_notifier {

namespace {

/// An element without strings and bytes: three words.
constexpr size_t kLeastElementBytes = 3 * sizeof(int32_t);

void writeElement(Writer& out, const AppleAppList& element) {
    out.i32(element.value16);
    out.cstr(element.string1);
    out.cstr(element.string2);
    out.i32(static_cast<int32_t>(element.value32));
    out.i32(static_cast<int32_t>(element.bufferLength));
    const bool hasBytes = element.bufferLength != 0 && element.buffer != nullptr;
    if (hasBytes) out.raw(element.buffer, element.bufferLength);
}

}  // namespace

void AppList::write(Writer& out, const AppleAppList* list, unsigned short count) {
    out.i32(count);
    out.i32(list != nullptr ? 1 : 0);
    for (size_t i = 0; list != nullptr && i < count; ++i)
        writeElement(out, list[i]);
}

AppList::Slot::~Slot() {
    for (size_t i = 0; mBuffers.get() != nullptr && i < mCount; ++i) {
        std::free(mBuffers.get()[i]);  // NOLINT(cppcoreguidelines-no-malloc)
    }
}

GiveUp AppList::Slot::read(Reader& in) {
    mCount = static_cast<uint16_t>(in.i32());
    const bool present = in.flag();
    if (!present || mCount == 0) return kGoOn;
    if (!holds(in.site(), allocate(), "list")) return android::NO_ERROR;
    for (size_t i = 0; i < mCount; ++i)
        readElement(in, i);
    return kGoOn;
}

bool AppList::Slot::allocate() {
    return mElements.allocate(mCount, kLeastElementBytes) && mBuffers.allocate(mCount, kLeastElementBytes);
}

void AppList::Slot::readElement(Reader& in, size_t index) {
    AppleAppList& element = mElements.get()[index];
    element.value16 = static_cast<uint16_t>(in.i32());
    element.string1 = in.cstr();
    element.string2 = in.cstr();
    element.value32 = static_cast<uint32_t>(in.i32());
    const auto length = static_cast<uint32_t>(in.i32());
    element.buffer = length != 0 ? readBuffer(in, length) : nullptr;
    element.bufferLength = element.buffer != nullptr ? length : 0;
    mBuffers.get()[index] = element.buffer;
}

/// All buffers of a list together cannot be larger than a transaction; for one that claims to be, as for one
/// without memory, the read fails and null is told.
void* AppList::Slot::readBuffer(Reader& in, uint32_t length) {
    const bool possible = length <= kMostTransactionBytes - mBufferBytes;
    void* const buffer = possible ? std::calloc(length, 1) : nullptr;  // NOLINT(cppcoreguidelines-no-malloc)
    if (buffer == nullptr) {
        in.step(android::NO_MEMORY);
        return nullptr;
    }
    mBufferBytes += length;
    in.raw(buffer, length);
    return buffer;
}

}  // namespace accessory::wire::iap2_notifier
