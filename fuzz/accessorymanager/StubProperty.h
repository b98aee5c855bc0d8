// What must hold for any code and any bytes that the accessory manager's stub is given.
#pragma once

#include <accessory/IAccessoryManager.h>
#include <binder/Parcel.h>

#include <string>

#include "tests/AccessoryManager/Vectors.h"

namespace accessory::fuzz {

/// Counts its calls and reads all that it is given.
class CountingAccessories : public AccessoryManagerImplItf {
  public:
    int calls = 0;

    int32_t getDeviceCount() override { return ++calls; }
    int32_t getFeature(unsigned int) override { return ++calls; }
    android::String8 getPath(unsigned int) override {
        ++calls;
        return android::String8("/dev/x");
    }
    int32_t getAccessoryId(const android::String8& path) override {
        ++calls;
        return static_cast<int32_t>(std::string(path.string(), path.size()).find('x'));
    }
    int dump(const android::Vector<android::String16>&, android::String8&) override { return 0; }
};

/// How long the answer to a request of an operation is.
inline size_t answerLength(uint32_t code) { return code == 3 ? 4 + 4 + 8 : 4 + 4; }

/// Hands the stub one input: a code, then what follows the token, or with test::kWhole all of the request.
/// @return whether it ended as the interface promises.
inline bool answersAsPromised(const uint8_t* data, size_t size) {
    const test::AccessoryRequest input = test::accessoryRequest(data, size);
    const android::sp<CountingAccessories> accessories = new CountingAccessories;
    const android::sp<android::IBinder> stub = new BnAccessoryManager(accessories);
    android::Parcel token;
    android::Parcel request;
    android::Parcel reply;
    test::fill(&token, input.bytes);
    test::fill(&request, input.bytes);
    const android::status_t status = stub->transact(input.code, request, &reply, 0);
    if (reply.readInt32() != 0) return false;
    if (input.code < 1 || input.code > 4) return accessories->calls == 0;
    if (!token.enforceInterface(IAccessoryManager::descriptor))
        return status == -1 && reply.dataSize() == 4 && accessories->calls == 0;
    return status == 0 && reply.dataSize() == answerLength(input.code) && accessories->calls == 1;
}

}  // namespace accessory::fuzz
