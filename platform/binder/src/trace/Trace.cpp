#include "Trace.h"

#include "../socket/Connection.h"
#include "Recorder.h"

namespace android::runtime::trace {

std::atomic<Recorder*> gRecorder{nullptr};

/// Of the 128 random bits of a token 64 stay unknown.
uint64_t identityOf(const Token& token) {
    constexpr uint64_t kOdd = 0x9e3779b97f4a7c15;
    return token ? token.high * kOdd ^ token.low : 0;
}

Content::Content(const Frame& received)
    : data(received.body.bytes()), records(received.body.bytes() + received.header.dataSize) {}

void Exchange::begin(Direction request, const Credentials& peer) {
    PacketHeader& header = mState.emplace().header;
    header.direction = request;
    header.number = mRecorder->nextNumber();
    header.peerPid = peer.pid;
    header.peerUid = peer.uid;
}

void Exchange::recordRequest(const FrameHeader& header, const Content& content) {
    PacketHeader& packet = mState->header;
    packet.code = header.code;
    packet.flags = header.flags;
    packet.object = identityOf(header.target);
    mState->name.find(static_cast<const uint8_t*>(content.data), header.dataSize);
    mState->requested = true;
    record(header, content);
}

void Exchange::recordReply(const FrameHeader& header, const Content& content) {
    PacketHeader& packet = mState->header;
    if (packet.kind == PacketKind::kRequest) {
        packet.kind = PacketKind::kReply;
        packet.direction = packet.direction == Direction::kOut ? Direction::kIn : Direction::kOut;
    }
    packet.status = static_cast<int32_t>(header.code);
    mState->replied = true;
    record(header, content);
}

void Exchange::recordIncoming(const Frame& frame) {
    const Content content(frame);
    frame.header.kind == FrameKind::kReply ? recordReply(frame.header, content)
                                           : recordRequest(frame.header, content);
}

/// A call that could not even be sent is shown without its data.
void Exchange::recordFailure(const FrameHeader& call, status_t status) {
    if (!mState->requested) recordRequest(call, {});
    FrameHeader reply;
    reply.code = static_cast<uint32_t>(status);
    recordReply(reply, {});
}

void Exchange::record(const FrameHeader& header, const Content& content) {
    PacketHeader packet = mState->header;
    packet.dataSize = header.dataSize;
    packet.objectCount = header.objectCount;
    mRecorder->record(Recorder::now(), {packet, mState->name, content.data, content.records});
}

void recordOneway(Recorder* recorder, Direction direction, const Credentials& peer, const FrameHeader& header,
                  const Content& content) {
    InterfaceName name;
    name.find(static_cast<const uint8_t*>(content.data), header.dataSize);
    PacketHeader packet;
    packet.kind = PacketKind::kOneway;
    packet.direction = direction;
    packet.number = recorder->nextNumber();
    packet.code = header.code;
    packet.flags = header.flags;
    packet.objectCount = header.objectCount;
    packet.dataSize = header.dataSize;
    packet.peerPid = peer.pid;
    packet.peerUid = peer.uid;
    packet.object = identityOf(header.target);
    recorder->record(Recorder::now(), {packet, name, content.data, content.records});
}

}  // namespace android::runtime::trace
