// What travels on the sockets between two processes. Both ends run on one machine, so numbers are in the
// machine's own byte order.
//
// A connection begins with a Hello from the process that opened it. A call connection then carries one frame
// at a time, to and fro; a one-way connection carries frames in one direction; a link carries link messages
// in both. A frame is a header, the parcel's bytes, one record per object in them, and its descriptors; the
// bytes may lie in shared memory instead.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "../Transport.h"
#include "Identity.h"

namespace android::runtime {

constexpr uint32_t kProtocol = 0x41424633;  // changes whenever a structure below does

enum class ConnectionKind : uint32_t { kLink = 1, kCall = 2, kOneway = 3 };

struct Hello {
    uint32_t protocol = kProtocol;
    ConnectionKind kind = ConnectionKind::kLink;
    PeerId sender;
};
static_assert(sizeof(Hello) == 24 && std::is_trivially_copyable_v<Hello>);

enum class FrameKind : uint16_t { kCall = 1, kOneway = 2, kReply = 3 };

/// How large data may travel on a call connection: bits of FrameHeader::sharing. See SharedBlock.h.
enum Sharing : uint8_t {
    kOffersBlock = 1,  ///< one more descriptor, the last, is the block of the sender
    kMapsBlock = 2,    ///< the sender has mapped the block of the receiver, who may use it from now on
    kDataInBlock = 4,  ///< the data are in the sender's block, not in the stream
};

struct FrameHeader {
    uint32_t protocol = kProtocol;
    FrameKind kind = FrameKind::kCall;
    uint8_t descriptorCount = 0;
    uint8_t sharing = 0;
    uint32_t code = 0;   ///< of a call: the transaction code; of a reply: the status
    uint32_t flags = 0;  ///< of a call: the transaction's flags
    uint32_t dataSize = 0;
    uint32_t objectCount = 0;
    Token target;  ///< of a call: the object
};
static_assert(sizeof(FrameHeader) == 40 && std::is_trivially_copyable_v<FrameHeader>);

enum class ObjectKind : uint32_t { kBinder = 1, kDescriptor = 2 };

/// Says what the 24 bytes at @c offset of the data stand for. Descriptors travel beside the frame, in the
/// order of their records.
struct ObjectRecord {
    uint32_t offset = 0;
    ObjectKind kind = ObjectKind::kBinder;
    PeerId owner;
    Token token;
};
static_assert(sizeof(ObjectRecord) == 40 && std::is_trivially_copyable_v<ObjectRecord>);

enum class LinkMessageKind : uint32_t {
    kAcquire = 1,   ///< the sender takes a reference to an object of the receiver
    kRelease = 2,   ///< the sender gives @c count references back
    kTransfer = 3,  ///< the sender is about to pass an object of the receiver on to @c beneficiary
    kRevoke = 4,    ///< a kTransfer that came to nothing
};

struct LinkMessage {
    LinkMessageKind kind = LinkMessageKind::kAcquire;
    uint32_t count = 0;
    Token token;
    PeerId beneficiary;
};
static_assert(sizeof(LinkMessage) == 40 && std::is_trivially_copyable_v<LinkMessage>);

/// As many descriptors as the kernel lets travel with one message.
constexpr size_t kMaxDescriptors = 253;

/// Whether a header can be the beginning of a frame at all.
bool isPlausible(const FrameHeader& header);

/// Bytes of data and records.
inline size_t bodySize(const FrameHeader& header) {
    return header.dataSize + header.objectCount * sizeof(ObjectRecord);
}

/// Bytes that follow the header in the stream.
inline size_t streamedSize(const FrameHeader& header) {
    return bodySize(header) - ((header.sharing & kDataInBlock) != 0 ? header.dataSize : 0);
}

/// Descriptors that come with the frame.
inline size_t descriptorsOf(const FrameHeader& header) {
    return size_t{header.descriptorCount} + ((header.sharing & kOffersBlock) != 0 ? 1 : 0);
}

/// Whether the object records fit the data: in ascending order, within it, not overlapping, and as many
/// descriptors as the header says.
/// @param body bodySize() bytes; need not be aligned.
bool areRecordsSound(const FrameHeader& header, const uint8_t* body);

/// The record with the given number, out of a body whose records are sound.
ObjectRecord recordAt(const FrameHeader& header, const uint8_t* body, size_t index);

}  // namespace android::runtime
