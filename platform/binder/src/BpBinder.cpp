#include <binder/BpBinder.h>
#include <binder/Parcel.h>

#include <algorithm>

#include "AttachedObjects.h"
#include "Contained.h"
#include "Log.h"
#include "OutOfMemory.h"
#include "Transport.h"

namespace android {

BpBinder::BpBinder(std::unique_ptr<runtime::RemoteObject> remote) : mRemote(std::move(remote)) {}

BpBinder::~BpBinder() = default;

int32_t BpBinder::handle() const { return mRemote->handle(); }
bool BpBinder::isBinderAlive() const { return mAlive; }
BpBinder* BpBinder::remoteBinder() { return this; }

const String16& BpBinder::getInterfaceDescriptor() const {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mDescriptorCached) return mDescriptorCache;
    }
    Parcel request;
    Parcel reply;
    const status_t status = const_cast<BpBinder*>(this)->transact(INTERFACE_TRANSACTION, request, &reply);
    // Not the cache, to which another thread may write.
    static const auto* const none = new String16();
    if (status != NO_ERROR) return *none;
    const std::lock_guard<std::mutex> guard(mLock);
    if (!mDescriptorCached) {
        mDescriptorCache = reply.readString16();
        mDescriptorCached = true;
    }
    return mDescriptorCache;
}

String16 BpBinder::knownDescriptor() const {
    const std::lock_guard<std::mutex> guard(mLock);
    return mDescriptorCache;
}

status_t BpBinder::pingBinder() {
    Parcel request;
    Parcel reply;
    return transact(PING_TRANSACTION, request, &reply);
}

status_t BpBinder::dump(int fd, const Vector<String16>& args) {
    Parcel request;
    Parcel reply;
    const status_t status = request.writeFileDescriptor(fd);
    if (status != NO_ERROR) return status;
    request.writeInt32(static_cast<int32_t>(args.size()));
    for (const String16& arg : args)
        request.writeString16(arg);
    return transact(DUMP_TRANSACTION, request, &reply);
}

status_t BpBinder::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (!mAlive) return DEAD_OBJECT;
    // A callback that this call provokes may drop the last reference to this proxy.
    const sp<BpBinder> self(this);
    const status_t status = mRemote->transact(code, data, reply, flags);
    if (status == DEAD_OBJECT) mAlive = false;
    return status;
}

status_t BpBinder::linkToDeath(const sp<DeathRecipient>& recipient, void* cookie, uint32_t flags) {
    if (recipient == nullptr) return BAD_VALUE;
    const std::lock_guard<std::mutex> guard(mLock);
    if (mObituariesSent) return DEAD_OBJECT;
    return runtime::unlessExhausted([&] {
        mObituaries.push_back({recipient, cookie, flags});
        return NO_ERROR;
    });
}

status_t BpBinder::unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie, uint32_t flags,
                                 wp<DeathRecipient>* outRecipient) {
    const std::lock_guard<std::mutex> guard(mLock);
    if (mObituariesSent) return DEAD_OBJECT;
    const auto matches = [&](const Obituary& link) {
        const bool byCookie = recipient == nullptr && cookie != nullptr && link.cookie == cookie;
        return (link.recipient == recipient || byCookie) && link.flags == flags;
    };
    const auto found = std::find_if(mObituaries.begin(), mObituaries.end(), matches);
    if (found == mObituaries.end()) return NAME_NOT_FOUND;
    if (outRecipient != nullptr) *outRecipient = found->recipient;
    mObituaries.erase(found);
    return NO_ERROR;
}

void BpBinder::sendObituary() {
    std::vector<Obituary> links;
    {
        const std::lock_guard<std::mutex> guard(mLock);
        mAlive = false;
        if (mObituariesSent) return;
        mObituariesSent = true;
        links.swap(mObituaries);
    }
    for (const Obituary& link : links) {
        const sp<DeathRecipient> recipient = link.recipient.promote();
        if (recipient == nullptr) continue;
        // One that throws must not keep the others from being told.
        if (const auto thrown = runtime::thrownBy([&] { recipient->binderDied(this); })) {
            BINDER_LOGE("an exception left a death recipient: %s", thrown->c_str());
        }
    }
}

void BpBinder::attachObject(const void* objectID, void* object, void* cleanupCookie,
                            object_cleanup_func func) {
    {
        const std::lock_guard<std::mutex> guard(mLock);
        if (mAttached == nullptr) mAttached = std::make_unique<runtime::AttachedObjects>();
    }
    mAttached->attach(objectID, object, cleanupCookie, func);
}

/// Null as long as nothing was attached: a proxy cannot fail half made, which libutils takes badly.
runtime::AttachedObjects* BpBinder::attached() const {
    const std::lock_guard<std::mutex> guard(mLock);
    return mAttached.get();
}

void* BpBinder::findObject(const void* objectID) const {
    const runtime::AttachedObjects* const objects = attached();
    return objects != nullptr ? objects->find(objectID) : nullptr;
}

void BpBinder::detachObject(const void* objectID) {
    if (runtime::AttachedObjects* const objects = attached()) objects->detach(objectID);
}

}  // namespace android
