// References to a peer's objects, and the peer's to those of this process.
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "Limits.h"
#include "Node.h"
#include "Peer.h"
#include "SocketRemote.h"

namespace android::runtime {

sp<IBinder> Peer::receive(const Token& token) {
    seekLink();
    sp<BpBinder> binder;
    bool dead = false;
    if (hasTooManyProxies(token)) return nullptr;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        Proxy& proxy = mProxies[token];
        binder = proxy.binder.promote();
        if (binder == nullptr) {
            auto remote = std::make_unique<SocketRemote>(shared_from_this(), token);
            proxy.remote = remote.get();
            binder = new BpBinder(std::move(remote));
            proxy.binder = binder;
        }
        ++proxy.remote->received;
        dead = mDead;
    }
    if (dead) binder->sendObituary();
    return binder;
}

/// Of which @p token would be one more; the reference that came with it is given back then.
bool Peer::hasTooManyProxies(const Token& token) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mProxies.size() < kMostObjects || mProxies.count(token) > 0) return false;
    }
    mNode.refusals.tell(credentials(), "it hands out too many objects");
    tell({LinkMessageKind::kRelease, 1, token, {}});
    return true;
}

sp<IBinder> Peer::acquire(const Token& token) {
    if (mNode.peers.isDying(mId) || !ensureLinked(true) || isHungUp()) return nullptr;
    tell({LinkMessageKind::kAcquire, 1, token, {}});
    return receive(token);
}

std::string Peer::nameOf(const Token& token) {
    sp<BpBinder> binder;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto proxy = mProxies.find(token);
        if (proxy != mProxies.end()) binder = proxy->second.binder.promote();
    }
    if (binder == nullptr) return "an object";
    const String16 descriptor = binder->knownDescriptor();
    if (descriptor.size() > 0) return String8(descriptor).string();
    return "object " + std::to_string(binder->handle());
}

void Peer::forget(const SocketRemote& remote) {
    // A forked child has nothing to give back, and mLock may be held for ever by a thread it does not have.
    if (RuntimeFd::isForkedChild()) return;
    uint32_t count = 0;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        const auto proxy = mProxies.find(remote.token());
        // A newer proxy may have taken the place while this one was dying.
        if (proxy != mProxies.end() && proxy->second.remote == &remote) mProxies.erase(proxy);
        count = remote.received;
    }
    tell({LinkMessageKind::kRelease, count, remote.token(), {}});
}

status_t Peer::lend(const sp<BBinder>& object, Token* token) {
    *token = {};
    if (!ensureLinked(false)) return NO_ERROR;
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return NO_ERROR;
    *token = mNode.exports.lend(object, mId);
    if (*token) return NO_ERROR;
    mNode.refusals.tell(mCredentials, "it holds too many objects");
    return FAILED_TRANSACTION;
}

void Peer::takeBack(const Token& token) {
    sp<BBinder> unheld = mNode.exports.adjust(token, mId, -1);
    if (unheld != nullptr) mNode.letGo({std::move(unheld)});
}

void Peer::tellPassingOn(const Token& token, const PeerId& beneficiary) {
    tell({LinkMessageKind::kTransfer, 1, token, beneficiary});
}

void Peer::tellNotPassedOn(const Token& token, const PeerId& beneficiary) {
    tell({LinkMessageKind::kRevoke, 1, token, beneficiary});
}

}  // namespace android::runtime
