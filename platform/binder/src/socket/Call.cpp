#include "Call.h"

#include <utility>
#include <vector>

#include "../CallerScope.h"
#include "../Contained.h"
#include "../Log.h"
#include "../OutOfMemory.h"
#include "../Transport.h"
#include "../trace/Trace.h"
#include "Limits.h"
#include "Node.h"
#include "ParcelCodec.h"
#include "SlowCall.h"

namespace android::runtime {

namespace {

/// Far beyond what a sane program nests, well within a thread's stack.
constexpr size_t kDeepestNesting = 256;

/// The connections on which this thread is in the middle of a call, outermost first. On each of them the
/// other end is waiting for this thread.
thread_local std::vector<Connection*> tActive;

class Active {
  public:
    explicit Active(Connection& connection) { tActive.push_back(&connection); }
    ~Active() { tActive.pop_back(); }
    Active(const Active&) = delete;
    Active& operator=(const Active&) = delete;
};

Connection* activeConnectionTo(const Peer& peer) {
    for (auto it = tActive.rbegin(); it != tActive.rend(); ++it) {
        if ((*it)->peer().get() == &peer) return *it;
    }
    return nullptr;
}

/// What a stub throws is told to the caller as an error and goes no further.
status_t transactContained(BBinder& object, uint32_t code, const Parcel& data, Parcel* reply,
                           uint32_t flags) {
    status_t status = UNKNOWN_ERROR;
    const auto thrown = thrownBy([&] { status = object.transact(code, data, reply, flags); });
    if (!thrown) return status;
    String8 stub("an unnamed interface");
    thrownBy([&] { stub = String8(object.getInterfaceDescriptor()); });
    BINDER_LOGE("an exception left the stub of %s in call %u: %s", stub.string(), code, thrown->c_str());
    return UNKNOWN_ERROR;
}

/// @return NO_ERROR; DEAD_OBJECT when the connection is gone; else the parcel cannot be sent, and nothing of
/// it was.
status_t sendFrame(Connection& connection, FrameHeader header, const Parcel& data, trace::Exchange* traced) {
    EncodedParcel encoded(data, *connection.peer());
    if (encoded.status() != NO_ERROR) return encoded.status();
    encoded.describe(&header);
    traced->goesOut(header, {encoded.data(), encoded.records()});
    const status_t status = connection.send(header, encoded.data(), encoded.records(), encoded.fds());
    if (status == NO_ERROR) encoded.sent();
    return status;
}

FrameHeader callHeader(FrameKind kind, const Token& target, uint32_t code, uint32_t flags) {
    FrameHeader header;
    header.kind = kind;
    header.code = code;
    header.flags = flags;
    header.target = target;
    return header;
}

/// An answer that cannot be sent becomes an error; so does every other status, with an empty parcel.
bool sendReply(Connection& connection, status_t status, const Parcel& reply, trace::Exchange* traced) {
    FrameHeader header;
    header.kind = FrameKind::kReply;
    if (status == NO_ERROR) status = sendFrame(connection, header, reply, traced);
    if (status == NO_ERROR) return true;
    header.code = static_cast<uint32_t>(status);
    traced->reply(header, {});
    return connection.send(header, nullptr, {}, {}) == NO_ERROR;
}

/// What is beside a status is no answer, whatever the other end sends.
status_t takeReply(Frame* frame, Parcel* reply, Peer& sender) {
    Parcel unwanted;
    Parcel& answer = reply != nullptr ? *reply : unwanted;
    answer.freeData();
    decode(frame, &answer, sender);
    const auto status = static_cast<status_t>(frame->header.code);
    if (status != NO_ERROR) answer.freeData();
    return status;
}

/// A call that comes instead of the reply is the other end calling back.
status_t awaitReply(Connection& connection, Parcel* reply, bool* intact, trace::Exchange* traced) {
    *intact = false;
    for (;;) {
        Frame frame;
        const Received received = connection.receive(&frame, Wait::kForever);
        if (received == Received::kNothing) continue;
        if (received == Received::kFrame && frame.header.kind == FrameKind::kReply) {
            *intact = true;
            if (frame.body.bytes() == nullptr) return NO_MEMORY;
            traced->comesIn(frame);
            return takeReply(&frame, reply, *connection.peer());
        }
        if (received == Received::kFrame && frame.header.kind == FrameKind::kCall) {
            if (serveCall(connection, &frame)) continue;
            return connection.peer()->lost();
        }
        if (received == Received::kClosed) return connection.peer()->lost();
        Node::instance().refusals.tell(connection.credentials(), "it breaks the protocol");
        return DEAD_OBJECT;
    }
}

status_t callOn(Connection& connection, const FrameHeader& header, const Parcel& data, Parcel* reply,
                bool* intact) {
    const Active active(connection);
    SlowCall slow(connection, header, data);
    trace::Exchange traced(trace::Direction::kOut, connection.credentials());
    *intact = true;
    status_t status = sendFrame(connection, header, data, &traced);
    if (status == DEAD_OBJECT) {
        *intact = false;
        status = connection.peer()->lost();
    }
    if (status == NO_ERROR) status = awaitReply(connection, reply, intact, &traced);
    traced.end(header, status);
    slow.ended(status);
    return status;
}

size_t weightOf(const Frame& oneway) {
    return sizeof(OnewayCall) + oneway.body.capacity() + oneway.header.objectCount * kOnewayObjectBytes +
           oneway.header.descriptorCount * kOnewayDescriptorBytes;
}

}  // namespace

status_t call(Peer& peer, const Token& token, uint32_t code, const Parcel& data, Parcel* reply,
              uint32_t flags) {
    Node::instance();  // refuses in a forked child
    if (reply != nullptr) reply->freeData();
    const FrameHeader header = callHeader(FrameKind::kCall, token, code, flags);
    bool intact = true;
    if (Connection* const nested = activeConnectionTo(peer)) {
        return callOn(*nested, header, data, reply, &intact);
    }
    status_t status = NO_ERROR;
    std::unique_ptr<Connection> connection = peer.takeConnection(&status);
    if (connection == nullptr) return status;
    status = callOn(*connection, header, data, reply, &intact);
    if (intact) peer.giveBack(std::move(connection));
    return status;
}

status_t callOneway(Peer& peer, const Token& token, uint32_t code, const Parcel& data, uint32_t flags) {
    Node::instance();  // refuses in a forked child
    EncodedParcel encoded(data, peer);
    if (encoded.status() != NO_ERROR) return encoded.status();
    FrameHeader header = callHeader(FrameKind::kOneway, token, code, flags);
    encoded.describe(&header);
    const status_t status = peer.sendOneway(header, encoded.data(), encoded.records(), encoded.fds());
    if (status == NO_ERROR) encoded.sent();
    return status;
}

bool serveCall(Connection& connection, Frame* frame) {
    const FrameHeader header = frame->header;
    trace::Exchange traced(trace::Direction::kIn, connection.credentials());
    if (frame->body.bytes() == nullptr) return sendReply(connection, NO_MEMORY, Parcel(), &traced);
    traced.comesIn(*frame);
    Parcel data;
    decode(frame, &data, *connection.peer());
    const sp<BBinder> object = Node::instance().exports.find(header.target);
    if (object == nullptr) return sendReply(connection, DEAD_OBJECT, Parcel(), &traced);
    if (tActive.size() >= kDeepestNesting) {
        BINDER_LOGE("calls are nested more than %zu deep", kDeepestNesting);
        return sendReply(connection, FAILED_TRANSACTION, Parcel(), &traced);
    }
    Parcel reply;
    const status_t status = unlessExhausted([&] {
        const Active active(connection);
        const CallerScope caller(connection.credentials().pid, connection.credentials().uid, header.flags);
        return transactContained(*object, header.code, data, &reply, header.flags);
    });
    return sendReply(connection, status, reply, &traced);
}

void OnewayCall::take(const Connection& connection, Frame* frame) {
    object = Node::instance().exports.find(frame->header.target);
    code = frame->header.code;
    flags = frame->header.flags;
    caller = connection.credentials();
    weight = weightOf(*frame);
    trace::oneway(trace::Direction::kIn, caller, frame->header, trace::Content(*frame));
    decode(frame, &data, *connection.peer());
}

void OnewayCall::run() {
    Parcel reply;
    const CallerScope scope(caller.pid, caller.uid, flags);
    transactContained(*object, code, data, &reply, flags);
}

}  // namespace android::runtime
