// What must hold for any code and any bytes that the stubs of the USB audio family are given.
#pragma once

#include <binder/Parcel.h>

#include "tests/AppleUSBAudio/AudioParts.h"
#include "tests/AppleUSBAudio/Vectors.h"

namespace accessory::fuzz {

/// A request out of a fuzzer's bytes: a code, then what follows the token, or with test::kWhole all of it.
class AudioInput {
  public:
    AudioInput(const uint8_t* data, size_t size, std::u16string_view name,
               const android::String16& descriptor)
        : mDescriptor(descriptor) {
        for (size_t i = 0; i < 4 && size >= 4; ++i)
            mCode |= static_cast<uint32_t>(data[i]) << (8 * i);
        if (size >= 4) mBytes.assign(data + 4, data + size);
        if ((mCode & test::kWhole) == 0) mBytes = test::parcel({test::token(name), mBytes});
        mCode &= ~test::kWhole;
    }

    uint32_t code() const { return mCode; }

    void putInto(android::Parcel* parcel) const {
        parcel->setData(mBytes.data(), mBytes.size());
        parcel->setDataPosition(0);
    }

    /// Whether the bytes begin with the token.
    bool fits() const {
        android::Parcel parcel;
        putInto(&parcel);
        return parcel.enforceInterface(mDescriptor);
    }

  private:
    const android::String16 mDescriptor;
    uint32_t mCode = 0;
    test::Bytes mBytes;
};

/// One stub for all inputs: it stays in any case. Ten identifiers are reported, and more are claimed.
struct AudioManagerUnderTest {
    android::sp<test::AudioService> service{new test::AudioService};
    android::sp<android::IBinder> stub{test::keptStub(service)};

    static AudioManagerUnderTest& instance() {
        static AudioManagerUnderTest& only = *new AudioManagerUnderTest;
        only.service->setIds({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 0xffffffff);
        return only;
    }
};

/// How long the manager's answer to a request of an operation is.
inline size_t answerLength(uint32_t code) { return code == 5 ? 4 + 4 + 40 + 4 : 4 + 4; }

/// Hands the manager's stub one input. @return whether it ended as the interface promises.
inline bool managerAnswersAsPromised(const uint8_t* data, size_t size) {
    const AudioInput input(data, size, test::kAudioName, IAppleUSBAudioManager::descriptor);
    AudioManagerUnderTest& tested = AudioManagerUnderTest::instance();
    tested.service->told();
    android::Parcel request;
    android::Parcel reply;
    input.putInto(&request);
    const android::status_t status = tested.stub->transact(input.code(), request, &reply, 0);
    const bool told = !tested.service->told().empty();
    if (reply.readInt32() != 0) return false;
    // A dump asks the implementation, whoever wants it.
    if (input.code() == android::IBinder::DUMP_TRANSACTION) return true;
    if (input.code() < 1 || input.code() > 11) return !told;
    if (!input.fits()) return status == -1 && reply.dataSize() == 4 && !told;
    return status == 0 && reply.dataSize() == answerLength(input.code()) && told == (input.code() > 2);
}

/// Hands the notifier's stub one input. @return whether it ended as the interface promises.
inline bool notifierAnswersAsPromised(const uint8_t* data, size_t size) {
    const AudioInput input(data, size, test::kAudioNotifierName, IAppleUSBAudioManagerNotifier::descriptor);
    const android::sp<test::AudioListener> listener = new test::AudioListener;
    const android::sp<android::IBinder> stub = new BnAppleUSBAudioManagerNotifier(listener);
    android::Parcel request;
    android::Parcel reply;
    input.putInto(&request);
    const android::status_t status = stub->transact(input.code(), request, &reply, 0);
    const bool told = !listener->told().empty();
    if (input.code() != 1 && input.code() != 2) return !told;
    if (!input.fits()) return status == -1 && reply.dataSize() == 0 && !told;
    return status == 0 && reply.dataSize() == 4 && told;
}

}  // namespace accessory::fuzz
