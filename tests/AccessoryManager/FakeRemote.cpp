#include "tests/AccessoryManager/FakeRemote.h"

#include <binder/Binder.h>
#include <binder/Parcel.h>

namespace accessory::test {

using android::INVALID_OPERATION;
using android::status_t;

status_t FakeRemote::transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                              uint32_t flags) {
    requests.push_back({code, flags, bytesOf(data), reply != nullptr});
    if (reply != nullptr) fill(reply, answer);
    return status;
}

status_t ObjectAmongIds::transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                  uint32_t flags) {
    const status_t sent = FakeRemote::transact(code, data, nullptr, flags);
    reply->writeInt32(0);
    reply->writeInt32(-1);
    for (int32_t id = 1; id <= 10; ++id)
        reply->writeInt32(id);
    reply->writeStrongBinder(new android::BBinder);
    reply->setDataPosition(0);
    return sent;
}

status_t FakeRemote::dump(int /*fd*/, const android::Vector<android::String16>& /*args*/) {
    return INVALID_OPERATION;
}

status_t FakeRemote::linkToDeath(const android::sp<DeathRecipient>& /*recipient*/, void* /*cookie*/,
                                 uint32_t /*flags*/) {
    return INVALID_OPERATION;
}

status_t FakeRemote::unlinkToDeath(const android::wp<DeathRecipient>& /*recipient*/, void* /*cookie*/,
                                   uint32_t /*flags*/, android::wp<DeathRecipient>* /*outRecipient*/) {
    return INVALID_OPERATION;
}

void FakeRemote::attachObject(const void* /*id*/, void* /*object*/, void* /*cookie*/,
                              object_cleanup_func /*func*/) {}

void* FakeRemote::findObject(const void* /*id*/) const { return nullptr; }

void FakeRemote::detachObject(const void* /*id*/) {}

}  // namespace accessory::test
