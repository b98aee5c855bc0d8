// The floor: a parcel with the same bytes in IBinder::transact(). What stands before the payload was taken
// once from the library's own request and is written as one block; the service looks at the bytes where they
// lie.
#include <accessory/IAppleiAP2Manager.h>
#include <binder/Parcel.h>

#include <stdexcept>
#include <vector>

#include "bench/share/Places.h"

namespace accessory::bench {
namespace {

using android::IBinder;
using android::Parcel;
using android::sp;

class BareObject : public android::BBinder {
  public:
    explicit BareObject(size_t prefix) : mPrefix(prefix) {}

  protected:
    android::status_t onTransact(uint32_t /*code*/, const Parcel& data, Parcel* reply, uint32_t) override {
        const auto* const text = reinterpret_cast<const char*>(data.data()) + mPrefix;
        return reply->writeInt32(static_cast<int32_t>(answerTo(text, claimedSize(text))));
    }

  private:
    const size_t mPrefix;
};

/// Keeps the bytes of the last request.
class Catcher : public android::BBinder {
  public:
    std::vector<uint8_t> bytes;

  protected:
    android::status_t onTransact(uint32_t, const Parcel& data, Parcel* reply, uint32_t) override {
        bytes.assign(data.data(), data.data() + data.dataSize());
        return reply->writeInt32(0);
    }
};

/// Everything of the library's request that stands before the payload.
std::vector<uint8_t> requestPrefix() {
    const sp<Catcher> catcher = new Catcher;
    const sp<IAppleiAP2Manager> manager = new BpAppleiAP2Manager(catcher);
    const Payload payload(kSmallestPayload);
    manager->AcceptCall(kAccessory, 0, payload.data());
    const size_t end = (payload.size() + 1 + 3) / 4 * 4;
    catcher->bytes.resize(catcher->bytes.size() - end);
    return catcher->bytes;
}

sp<IBinder> makeObject() { return new BareObject(requestPrefix().size()); }

class BareCaller : public Caller {
  public:
    static constexpr char kName[] = "share.bare";

    explicit BareCaller(const sp<IBinder>& object) : mObject(object) {}

    uint32_t call(const Payload& payload) override {
        Parcel data;
        Parcel reply;
        data.write(mPrefix.data(), mPrefix.size());
        data.write(payload.data(), payload.size() + 1);
        if (mObject->transact(kAcceptCallCode, data, &reply) != android::NO_ERROR)
            throw std::runtime_error("the call failed");
        return static_cast<uint32_t>(reply.readInt32());
    }

  private:
    const sp<IBinder> mObject;
    const std::vector<uint8_t> mPrefix = requestPrefix();
};

using Bare = Places<BareCaller, makeObject>;
const ContenderRegistration kAcross({kBareAcross, 2, Bare::connectAcross, Bare::serve});
const ContenderRegistration kWithin({kBareWithin, 12, Bare::connectWithin, serveNothing});

}  // namespace
}  // namespace accessory::bench
