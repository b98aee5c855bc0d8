// Tracing as the transport sees it: what to say where a transaction passes. Costs one branch while it is off.
//
// A traced process writes every transaction that it takes part in to a capture; docs/RUNTIME.md, "Tracing",
// tells how to ask for it and what is in the file. Calls between objects of one process are none of the
// transport's and not recorded.
#pragma once

#include <utils/Errors.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <vector>

#include "../socket/Frame.h"
#include "../socket/Socket.h"
#include "InterfaceName.h"
#include "Packet.h"

namespace android::runtime {
struct Frame;
}

namespace android::runtime::trace {

class Recorder;

/// Null unless this process is traced; once set it stays.
extern std::atomic<Recorder*> gRecorder;

inline Recorder* recorder() { return gRecorder.load(std::memory_order_acquire); }

/// Begins to trace this process if its environment asks for that. Once, before the first transaction.
void startIfAsked();

/// Tells an object apart from others, in every process the same way; the token itself would give the reader
/// of a capture the right to call it.
uint64_t identityOf(const Token& token);

/// What travels with a frame besides its header; borrowed.
struct Content {
    const void* data = nullptr;
    const void* records = nullptr;

    Content() = default;
    Content(const void* sent, const std::vector<ObjectRecord>& sentRecords)
        : data(sent), records(sentRecords.data()) {}
    explicit Content(const Frame& received);
};

/// What an Exchange has recorded so far.
struct ExchangeState {
    PacketHeader header;
    InterfaceName name;
    bool requested = false;
    bool replied = false;
};

/// A call and its reply, on either side. Lives on the stack of the thread that makes or serves it.
class Exchange {
  public:
    /// @param request which way the request goes; the reply goes the other.
    Exchange(Direction request, const Credentials& peer) : mRecorder(recorder()) {
        if (mRecorder != nullptr) begin(request, peer);
    }

    /// @param header of the frame, complete.
    void request(const FrameHeader& header, const Content& content) {
        if (mRecorder != nullptr) recordRequest(header, content);
    }
    /// @param header of the frame that is the reply.
    void reply(const FrameHeader& header, const Content& content) {
        if (mRecorder != nullptr) recordReply(header, content);
    }
    /// Whichever @p header says that it is.
    void goesOut(const FrameHeader& header, const Content& content) {
        header.kind == FrameKind::kReply ? reply(header, content) : request(header, content);
    }
    void comesIn(const Frame& frame) {
        if (mRecorder != nullptr) recordIncoming(frame);
    }
    /// The call ended with @p status; that is its reply unless there was one.
    void end(const FrameHeader& call, status_t status) {
        if (mRecorder != nullptr && !mState->replied) recordFailure(call, status);
    }

  private:
    void begin(Direction request, const Credentials& peer);
    void recordRequest(const FrameHeader& header, const Content& content);
    void recordReply(const FrameHeader& header, const Content& content);
    void recordIncoming(const Frame& frame);
    void recordFailure(const FrameHeader& call, status_t status);
    void record(const FrameHeader& header, const Content& content);

    Recorder* const mRecorder;
    std::optional<ExchangeState> mState;  // while tracing
};

/// A one-way call, when it is sent or received.
void recordOneway(Recorder* recorder, Direction direction, const Credentials& peer, const FrameHeader& header,
                  const Content& content);

inline void oneway(Direction direction, const Credentials& peer, const FrameHeader& header,
                   const Content& content) {
    if (Recorder* const active = recorder()) recordOneway(active, direction, peer, header, content);
}

}  // namespace android::runtime::trace
