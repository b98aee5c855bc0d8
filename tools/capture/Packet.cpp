#include "tools/capture/Packet.h"

#include <cstring>

namespace accessory::tools {

namespace {

constexpr uint8_t kVersion = 1;
constexpr size_t kFixedSize = 72;
constexpr size_t kObjectSize = 16;
constexpr size_t kPictureSize = 24;

/// Numbers one after the other; the caller has seen that they are there.
class Numbers {
  public:
    explicit Numbers(const uint8_t* bytes) : mNext(bytes) {}

    template <typename T>
    T next() {
        T value{};
        memcpy(&value, mNext, sizeof(value));
        mNext += sizeof(value);
        return value;
    }

  private:
    const uint8_t* mNext;
};

/// The sizes that only matter here.
struct Sizes {
    uint32_t header = 0;
    uint32_t objectCount = 0;
    uint32_t name = 0;
    uint32_t data = 0;

    bool fit(size_t size) const {
        const uint64_t front = kFixedSize + uint64_t{objectCount} * kObjectSize + name;
        return front <= header && header <= size && data == size - header;
    }
};

Sizes readFixed(const uint8_t* bytes, Packet* packet) {
    Sizes sizes;
    Numbers numbers(bytes + 1);
    packet->kind = static_cast<Packet::Kind>(numbers.next<uint8_t>());
    packet->direction = static_cast<Packet::Direction>(numbers.next<uint8_t>());
    numbers.next<uint8_t>();
    sizes.header = numbers.next<uint32_t>();
    packet->number = numbers.next<uint64_t>();
    packet->code = numbers.next<uint32_t>();
    packet->flags = numbers.next<uint32_t>();
    packet->status = numbers.next<int32_t>();
    sizes.objectCount = numbers.next<uint32_t>();
    sizes.name = numbers.next<uint32_t>();
    sizes.data = numbers.next<uint32_t>();
    packet->pid = numbers.next<int32_t>();
    packet->uid = numbers.next<uint32_t>();
    packet->peerPid = numbers.next<int32_t>();
    packet->peerUid = numbers.next<uint32_t>();
    packet->tid = numbers.next<int32_t>();
    numbers.next<uint32_t>();
    packet->object = numbers.next<uint64_t>();
    return sizes;
}

bool readObjects(const uint8_t* bytes, const Sizes& sizes, Packet* packet) {
    Numbers numbers(bytes + kFixedSize);
    uint64_t end = 0;
    for (uint32_t i = 0; i < sizes.objectCount; ++i) {
        PacketObject object;
        object.offset = numbers.next<uint32_t>();
        object.kind = numbers.next<uint32_t>();
        object.identity = numbers.next<uint64_t>();
        if (object.offset < end || object.offset % 4 != 0) return false;
        end = uint64_t{object.offset} + kPictureSize;
        packet->objects.push_back(object);
    }
    return end <= sizes.data;
}

}  // namespace

std::string parsePacket(const uint8_t* bytes, size_t size, Packet* packet) {
    if (size < kFixedSize) return "a packet of " + std::to_string(size) + " bytes";
    if (bytes[0] != kVersion) return "a packet of version " + std::to_string(bytes[0]);
    const Sizes sizes = readFixed(bytes, packet);
    const bool known = packet->kind >= Packet::kRequest && packet->kind <= Packet::kOneway &&
                       packet->direction >= Packet::kOut && packet->direction <= Packet::kIn;
    if (!known) return "a packet of an unknown kind";
    if (!sizes.fit(size)) return "a packet whose sizes do not agree";
    if (!readObjects(bytes, sizes, packet)) return "a packet whose objects are not within its data";
    const auto* const name = bytes + kFixedSize + size_t{sizes.objectCount} * kObjectSize;
    packet->descriptor.assign(name, name + sizes.name);
    packet->data.assign(bytes + sizes.header, bytes + size);
    return {};
}

}  // namespace accessory::tools
