// The same request as one would write it without this library: the same values written and read in the same
// order, without its checks, its logs and its tables.
#include <accessory/IAppleiAP2Manager.h>
#include <binder/Parcel.h>

#include <stdexcept>

#include "bench/share/Places.h"

namespace accessory::bench {
namespace {

using android::IBinder;
using android::Parcel;
using android::sp;

class HandWrittenStub : public android::BBinder {
  public:
    const android::String16& getInterfaceDescriptor() const override { return IAppleiAP2Manager::descriptor; }

  protected:
    android::status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        if (code != kAcceptCallCode) return BBinder::onTransact(code, data, reply, flags);
        if (!data.checkInterface(this)) return android::PERMISSION_DENIED;
        data.readUint32();
        data.readInt32();
        const bool present = data.readInt32() != 0;
        const char* const text = present ? data.readCString() : nullptr;
        if (text == nullptr) return android::BAD_VALUE;
        return reply->writeInt32(static_cast<int32_t>(answerTo(text, claimedSize(text))));
    }
};

sp<IBinder> makeStub() { return new HandWrittenStub; }

class HandWrittenCaller : public Caller {
  public:
    static constexpr char kName[] = "share.by_hand";

    explicit HandWrittenCaller(const sp<IBinder>& object) : mObject(object) {}

    uint32_t call(const Payload& payload) override {
        Parcel data;
        Parcel reply;
        data.writeInterfaceToken(IAppleiAP2Manager::descriptor);
        data.writeUint32(kAccessory);
        data.writeInt32(0);
        data.writeInt32(1);
        data.writeCString(payload.data());
        if (mObject->transact(kAcceptCallCode, data, &reply) != android::NO_ERROR)
            throw std::runtime_error("the call failed");
        return static_cast<uint32_t>(reply.readInt32());
    }

  private:
    const sp<IBinder> mObject;
};

using ByHand = Places<HandWrittenCaller, makeStub>;
const ContenderRegistration kAcross({kByHandAcross, 1, ByHand::connectAcross, ByHand::serve});
const ContenderRegistration kWithin({kByHandWithin, 11, ByHand::connectWithin, serveNothing});

}  // namespace
}  // namespace accessory::bench
