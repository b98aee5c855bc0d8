// Packet: one transaction as a capture holds it. The form is told in docs/RUNTIME.md, "Tracing".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace accessory::tools {

/// A binder or descriptor in the data of a packet.
struct PacketObject {
    uint32_t offset = 0;
    uint32_t kind = 0;
    uint64_t identity = 0;

    bool isBinder() const { return kind == 1; }
    bool isNull() const { return isBinder() && identity == 0; }
};

struct Packet {
    enum Kind : uint8_t { kRequest = 1, kReply = 2, kOneway = 3 };
    enum Direction : uint8_t { kOut = 1, kIn = 2 };

    uint64_t time = 0;  ///< nanoseconds since 1970
    Kind kind = kRequest;
    Direction direction = kOut;
    uint64_t number = 0;  ///< request and reply of one process have the same
    uint32_t code = 0;
    uint32_t flags = 0;
    int32_t status = 0;
    int32_t pid = 0;
    uint32_t uid = 0;
    int32_t peerPid = 0;
    uint32_t peerUid = 0;
    int32_t tid = 0;
    uint64_t object = 0;
    std::vector<PacketObject> objects;  ///< in ascending order, within the data
    std::string descriptor;             ///< of the interface; empty when the request did not say it
    std::vector<uint8_t> data;

    /// Whether the traced process is the one that calls.
    bool isMade() const { return (direction == kOut) == (kind != kReply); }
};

/// Takes a packet's bytes apart.
/// @return why they are none; empty when they are.
std::string parsePacket(const uint8_t* bytes, size_t size, Packet* packet);

}  // namespace accessory::tools
