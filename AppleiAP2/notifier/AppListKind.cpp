#include "AppleiAP2/notifier/AppListKind.h"

namespace accessory::wire::iap2_notifier {

namespace {

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

GiveUp AppList::Slot::read(Reader& in) {
    count = static_cast<uint16_t>(in.i32());
    const bool present = in.flag();
    if (!present) return kGoOn;
    elements.resize(count);
    for (AppleAppList& element : elements)
        readElement(in, &element);
    return kGoOn;
}

void AppList::Slot::readElement(Reader& in, AppleAppList* element) {
    element->value16 = static_cast<uint16_t>(in.i32());
    element->string1 = in.cstr();
    element->string2 = in.cstr();
    element->value32 = static_cast<uint32_t>(in.i32());
    const auto length = static_cast<uint32_t>(in.i32());
    element->buffer = length != 0 ? readBuffer(in, length) : nullptr;
    element->bufferLength = element->buffer != nullptr ? length : 0;
}

/// All buffers of a request together cannot be larger than a transaction; null for one that claims to be.
void* AppList::Slot::readBuffer(Reader& in, uint32_t length) {
    if (length > kMostTransactionBytes - mBufferBytes) return nullptr;
    auto buffer = std::make_unique<RequestBuffer<uint8_t>>();
    if (!buffer->allocate(length)) return nullptr;
    mBufferBytes += length;
    in.raw(buffer->get(), length);
    buffers.push_back(std::move(buffer));
    return buffers.back()->get();
}

}  // namespace accessory::wire::iap2_notifier
