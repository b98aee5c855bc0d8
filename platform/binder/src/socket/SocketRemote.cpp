#include "SocketRemote.h"

#include <atomic>

#include "../OutOfMemory.h"
#include "Call.h"
#include "Peer.h"

namespace android::runtime {

namespace {

std::atomic<int32_t> gLastHandle{0};

}  // namespace

SocketRemote::SocketRemote(std::shared_ptr<Peer> peer, const Token& token)
    : mPeer(std::move(peer)), mToken(token), mHandle(++gLastHandle) {}

SocketRemote::~SocketRemote() { mPeer->forget(*this); }

status_t SocketRemote::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    return unlessExhausted([&] {
        return (flags & IBinder::FLAG_ONEWAY) != 0 ? callOneway(*mPeer, mToken, code, data, flags)
                                                   : call(*mPeer, mToken, code, data, reply, flags);
    });
}

}  // namespace android::runtime
