// What must hold for any code and any bytes that the notifier's stub is given.
#pragma once

#include <binder/Parcel.h>

#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/AppleiAP2/notifier/Vectors.h"

namespace accessory::fuzz {

/// A request out of a fuzzer's bytes: a code, then what follows the token, or with test::kWhole all of it.
class StubInput {
  public:
    StubInput(const uint8_t* data, size_t size) {
        android::Parcel parcel;
        if (size >= 4) {
            parcel.setData(data, 4);
            parcel.setDataPosition(0);
            mCode = static_cast<uint32_t>(parcel.readInt32());
            mBytes.assign(data + 4, data + size);
        }
        if ((mCode & test::kWhole) == 0) mBytes = test::request(mBytes);
        mCode &= ~test::kWhole;
    }

    uint32_t code() const { return mCode; }

    void putInto(android::Parcel* parcel) const {
        parcel->setData(mBytes.data(), mBytes.size());
        parcel->setDataPosition(0);
    }

    /// Whether the bytes begin with the token.
    bool isForTheNotifier() const {
        android::Parcel parcel;
        putInto(&parcel);
        return parcel.enforceInterface(IAppleiAP2ManagerNotifier::descriptor);
    }

    /// Whether the stub rightly ends the process: a link key or an address that no request can hold.
    bool isFatal() const {
        if (mCode != 30) return false;
        android::Parcel parcel;
        putInto(&parcel);
        if (!parcel.enforceInterface(IAppleiAP2ManagerNotifier::descriptor)) return false;
        parcel.readInt32();
        const bool keyIsTooLong = isTooLong(parcel);
        return keyIsTooLong || isTooLong(parcel);
    }

    /// Whether most of the time would go into entries that no byte describes.
    bool isWasteful() const {
        constexpr int32_t kMany = 1000;
        android::Parcel parcel;
        putInto(&parcel);
        parcel.enforceInterface(IAppleiAP2ManagerNotifier::descriptor);
        parcel.readInt32();
        if (mCode == 14) return groupEntries(parcel) > kMany;
        return mCode == 36 && applications(parcel) > kMany;
    }

  private:
    static bool isTooLong(const android::Parcel& parcel) {
        constexpr uint32_t kMostOfARequest = 1'000'000;
        const auto length = static_cast<uint32_t>(parcel.readInt32());
        if (length <= kMostOfARequest) parcel.readInplace(length);
        return length > kMostOfARequest;
    }

    /// How many entries a library update announces.
    static int32_t groupEntries(const android::Parcel& parcel) {
        const int32_t mask = parcel.readInt32();
        if ((mask & MediaLibDataMask::kId) != 0) parcel.readCString();
        if ((mask & MediaLibDataMask::kRevision) != 0) parcel.readCString();
        return parcel.readInt32();
    }

    /// How many elements the first list announces.
    static int32_t applications(const android::Parcel& parcel) {
        parcel.readInt32();
        const auto count = static_cast<uint16_t>(parcel.readInt32());
        return parcel.readInt32() != 0 ? count : 0;
    }

    uint32_t mCode = 0;
    test::Bytes mBytes;
};

/// How the stub may end a request of an operation: told and answered, or refused without a reply.
inline bool isAnswer(uint32_t code, android::status_t status, size_t replied, size_t told) {
    const bool isDone = status == 0 && replied == 4 && told == 1;
    const bool isRefused = replied == 0 && told == 0;
    if (code == 37 || code == 43) return isDone || (isRefused && status == 0);
    if (code >= 33 && code <= 35) return isDone || (isRefused && status == -22);
    return isDone;
}

/// Hands the stub one input. @return whether it ended as the interface promises.
inline bool answersAsPromised(const uint8_t* data, size_t size) {
    const StubInput input(data, size);
    if (input.isFatal()) return true;
    const android::sp<test::Recorder> recorder = new test::Recorder;
    const android::sp<android::IBinder> stub = new BnAppleiAP2ManagerNotifier(recorder);
    android::Parcel request;
    android::Parcel reply;
    input.putInto(&request);
    const android::status_t status = stub->transact(input.code(), request, &reply, 0);
    const size_t told = recorder->takeTold().size();
    const bool isOperation = input.code() >= 1 && input.code() <= 46 && input.code() != 28;
    if (!isOperation) return told == 0;
    if (!input.isForTheNotifier()) return status == -1 && reply.dataSize() == 0 && told == 0;
    return isAnswer(input.code(), status, reply.dataSize(), told);
}

}  // namespace accessory::fuzz
