// What a capture holds of one transaction: the header that stands in front of the parcel's bytes in every
// packet.
//
// Numbers are in the byte order of the machine, as the parcel's own are. A packet is
//
//     PacketHeader, PacketObject for each object in the data, the interface's name, zeros up to a whole cell,
//     the data of the parcel; pictures of objects in them are blank
//
// and kPacketVersion changes whenever that does. docs/RUNTIME.md tells the same to those who read captures.
#pragma once

#include <cstdint>
#include <type_traits>

namespace android::runtime::trace {

constexpr uint8_t kPacketVersion = 1;

enum class PacketKind : uint8_t { kRequest = 1, kReply = 2, kOneway = 3 };

enum class Direction : uint8_t { kOut = 1, kIn = 2 };

struct PacketHeader {
    uint8_t version = kPacketVersion;
    PacketKind kind = PacketKind::kRequest;
    Direction direction = Direction::kOut;
    uint8_t reserved = 0;
    uint32_t headerSize = 0;  ///< bytes in front of the data
    uint64_t number = 0;      ///< of the transaction, in this process; request and reply have the same
    uint32_t code = 0;        ///< of the request, in its reply as well
    uint32_t flags = 0;
    int32_t status = 0;  ///< of a reply
    uint32_t objectCount = 0;
    uint32_t nameSize = 0;  ///< bytes of the interface's name; 0 when the request does not say it
    uint32_t dataSize = 0;
    int32_t pid = 0;
    uint32_t uid = 0;
    int32_t peerPid = 0;
    uint32_t peerUid = 0;
    int32_t tid = 0;  ///< the thread of this process
    uint32_t reserved2 = 0;
    uint64_t object = 0;  ///< that is called; the same number in every process
};
static_assert(sizeof(PacketHeader) == 72 && std::is_trivially_copyable_v<PacketHeader>);

/// An object in the data.
struct PacketObject {
    uint32_t offset = 0;    ///< of its 24 bytes in the data
    uint32_t kind = 0;      ///< 1: binder, 2: descriptor
    uint64_t identity = 0;  ///< of a binder, as PacketHeader::object; 0 for null and for descriptors
};
static_assert(sizeof(PacketObject) == 16 && std::is_trivially_copyable_v<PacketObject>);

}  // namespace android::runtime::trace
