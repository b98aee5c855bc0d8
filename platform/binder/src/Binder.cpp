#include <binder/Binder.h>
#include <binder/Parcel.h>

#include "AttachedObjects.h"

namespace android {

namespace {

const String16& unnamedDescriptor() {
    static const auto* const unnamed = new String16();
    return *unnamed;
}

/// The request form of IBinder::dump(): a descriptor, the number of arguments, the arguments. The count is
/// believed as far as reading moves on: it does not at the end, nor where something else than a string lies.
status_t dumpAsAsked(BBinder& object, const Parcel& request) {
    const int fd = request.readFileDescriptor();
    const int32_t count = request.readInt32();
    Vector<String16> args;
    for (int32_t i = 0; i < count; ++i) {
        const size_t before = request.dataPosition();
        const String16 arg = request.readString16();
        if (request.dataPosition() == before) break;
        args.add(arg);
    }
    return object.dump(fd, args);
}

}  // namespace

BBinder::BBinder() : mAttached(std::make_unique<runtime::AttachedObjects>()) {}
BBinder::~BBinder() = default;

const String16& BBinder::getInterfaceDescriptor() const { return unnamedDescriptor(); }
bool BBinder::isBinderAlive() const { return true; }
status_t BBinder::pingBinder() { return NO_ERROR; }
status_t BBinder::dump(int /*fd*/, const Vector<String16>& /*args*/) { return NO_ERROR; }
BBinder* BBinder::localBinder() { return this; }

status_t BBinder::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    Parcel unwanted;
    Parcel* const answer = reply != nullptr ? reply : &unwanted;
    data.setDataPosition(0);
    const status_t status = code == PING_TRANSACTION ? pingBinder() : onTransact(code, data, answer, flags);
    answer->setDataPosition(0);
    return status;
}

status_t BBinder::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t /*flags*/) {
    switch (code) {
        case INTERFACE_TRANSACTION:
            return reply->writeString16(getInterfaceDescriptor());
        case DUMP_TRANSACTION:
            return dumpAsAsked(*this, data);
        default:
            return UNKNOWN_TRANSACTION;
    }
}

status_t BBinder::linkToDeath(const sp<DeathRecipient>& /*recipient*/, void* /*cookie*/, uint32_t /*flags*/) {
    return INVALID_OPERATION;
}

status_t BBinder::unlinkToDeath(const wp<DeathRecipient>& /*recipient*/, void* /*cookie*/, uint32_t /*flags*/,
                                wp<DeathRecipient>* /*outRecipient*/) {
    return INVALID_OPERATION;
}

void BBinder::attachObject(const void* objectID, void* object, void* cleanupCookie,
                           object_cleanup_func func) {
    mAttached->attach(objectID, object, cleanupCookie, func);
}

void* BBinder::findObject(const void* objectID) const { return mAttached->find(objectID); }
void BBinder::detachObject(const void* objectID) { mAttached->detach(objectID); }

}  // namespace android
