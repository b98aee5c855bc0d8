// The blocks of a pcapng file.
#pragma once

#include <cstdint>
#include <string>

namespace android::runtime::trace {

/// Link type of the packets: the first of those that are free for anybody's use.
constexpr uint16_t kLinkType = 147;

/// Ends a packet block: which way the packet went, and the block's size once more.
struct PacketEnd {
    uint16_t flagsCode = 2;
    uint16_t flagsSize = 4;
    uint32_t flags = 0;  ///< 1: came in, 2: went out
    uint32_t endOfOptions = 0;
    uint32_t blockSize = 0;
};
static_assert(sizeof(PacketEnd) == 16);

/// Begins a packet block; the packet follows, filled up to whole words, then PacketEnd.
struct PacketBegin {
    uint32_t blockType = 6;
    uint32_t blockSize = 0;
    uint32_t interface = 0;
    uint32_t timeHigh = 0;
    uint32_t timeLow = 0;
    uint32_t capturedSize = 0;
    uint32_t originalSize = 0;

    /// @param time in nanoseconds since 1970.
    PacketBegin(uint64_t time, uint32_t packetSize);
};
static_assert(sizeof(PacketBegin) == 28);

/// Section header and interface description: with them a file begins.
/// @param program whose calls these are. @param note a comment; none when empty.
std::string fileBeginning(const std::string& program, const std::string& note);

/// Interface statistics: how many packets were written up to @p time, and for how many there was no room.
std::string statistics(uint64_t time, uint64_t written, uint64_t dropped);

}  // namespace android::runtime::trace
