// References to a peer's objects, and the peer's to those of this process.
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "../OutOfMemory.h"
#include "Limits.h"
#include "Node.h"
#include "Peer.h"
#include "SocketRemote.h"

namespace android::runtime {

sp<IBinder> Peer::receive(const Token& token) {
    seekLink();
    if (hasTooManyProxies(token)) return nullptr;
    sp<BpBinder> binder = knownProxy(token);
    if (binder != nullptr) return binder;
    bool dead = false;
    binder = newProxy(token, &dead);
    if (dead) tellOfDeath(binder);
    return binder;
}

/// The proxy that there is already, with one reference more; else null. One of a dead peer hears of the death
/// from whoever found it.
sp<BpBinder> Peer::knownProxy(const Token& token) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto proxy = mProxies.find(token);
    sp<BpBinder> binder = proxy != mProxies.end() ? proxy->second.binder.promote() : nullptr;
    if (binder != nullptr) ++proxy->second.remote->received;
    return binder;
}

/// Made without the lock, because a proxy that could not be made, or came second, gives up its remote end,
/// which takes the lock.
sp<BpBinder> Peer::newProxy(const Token& token, bool* dead) {
    auto remote = std::make_unique<SocketRemote>(shared_from_this(), token);
    SocketRemote* const end = remote.get();
    const sp<BpBinder> made = new BpBinder(std::move(remote));
    const std::lock_guard<std::mutex> guard(mLock);
    Proxy& proxy = mProxies[token];
    sp<BpBinder> binder = proxy.binder.promote();
    if (binder == nullptr) {
        proxy.remote = end;
        proxy.binder = made;
        binder = made;
    }
    ++proxy.remote->received;
    *dead = mDead;
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
    return patiently([&] { return receive(token); });
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
    if (count > 0) tellForSure({LinkMessageKind::kRelease, count, remote.token(), {}});
}

status_t Peer::lend(const sp<BBinder>& object, Token* token) {
    *token = {};
    if (!ensureLinked(false)) return isDead() ? NO_ERROR : FAILED_TRANSACTION;
    const std::lock_guard<std::mutex> guard(mLock);
    if (mDead) return NO_ERROR;
    *token = mNode.exports.lend(object, mId);
    if (*token) return NO_ERROR;
    mNode.refusals.tell(mCredentials, "it holds too many objects");
    return FAILED_TRANSACTION;
}

void Peer::takeBack(const Token& token) { mNode.letGo(count(token, -1)); }

/// Under the lock: what was counted after die() had dropped all would never be dropped.
sp<BBinder> Peer::count(const Token& token, int64_t change) {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDead ? nullptr : mNode.exports.adjust(token, mId, change);
}

void Peer::tellPassingOn(const Token& token, const PeerId& beneficiary) {
    tell({LinkMessageKind::kTransfer, 1, token, beneficiary});
}

void Peer::tellNotPassedOn(const Token& token, const PeerId& beneficiary) {
    tellForSure({LinkMessageKind::kRevoke, 1, token, beneficiary});
}

}  // namespace android::runtime
