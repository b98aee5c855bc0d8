// What must hold for any code and any bytes that the manager's stub is given.
#pragma once

#include <binder/Parcel.h>

#include <stdexcept>

#include "tests/AppleiAP2/manager/ManagerRecorder.h"
#include "tests/AppleiAP2/manager/ManagerVectors.h"

namespace accessory::fuzz {

/// A request out of a fuzzer's bytes: a code, then what follows the token, or with test::kWholeRequest all of
/// it.
class ManagerInput {
  public:
    ManagerInput(const uint8_t* data, size_t size) {
        test::Bytes bytes(data, data + size);
        bytes.resize(size < 4 ? 4 : size);
        for (int i = 3; i >= 0; --i)
            mCode = mCode << 8 | bytes[static_cast<size_t>(i)];
        bytes.erase(bytes.begin(), bytes.begin() + 4);
        const bool isWhole = (mCode & test::kWholeRequest) != 0;
        mCode &= ~test::kWholeRequest;
        mBytes = isWhole ? bytes : test::parcel({test::token(u"accessory.AppleiAP2Manager"), bytes});
    }

    uint32_t code() const { return mCode; }
    bool isOperation() const {
        return mCode >= 1 && mCode <= 91 && mCode != 16 && (mCode < 43 || mCode > 46);
    }

    void putInto(android::Parcel* parcel) const {
        parcel->setData(mBytes.data(), mBytes.size());
        parcel->setDataPosition(0);
    }

    /// Whether the bytes begin with the token.
    bool isForTheManager() const {
        android::Parcel parcel;
        putInto(&parcel);
        return parcel.enforceInterface(IAppleiAP2Manager::descriptor);
    }

  private:
    uint32_t mCode = 0;
    test::Bytes mBytes;
};

/// How a request ended.
struct Ending {
    android::status_t status;
    size_t replied;  ///< bytes of the reply, its header included
    size_t told;     ///< calls of the implementation
    bool raised;     ///< a logic error
};

/// Whether the stub left a request of @p code early, with nothing but its header, and may do so.
inline bool isLeftEarly(uint32_t code, const Ending& ending) {
    if (ending.told != 0 || ending.replied != 4) return false;
    switch (code) {
        case 24:
        case 62:
            return ending.status == 0;
        case 18:
        case 55:
        case 56:
        case 58:
        case 59:
        case 89:
        case 90:
            return ending.status == -22;
        case 77:
        case 91:
            return ending.raised;
        default:
            return false;
    }
}

/// Bytes of a whole reply to a request of @p code, as test::ManagerRecorder answers.
inline size_t sizeOfReply(uint32_t code) {
    switch (code) {
        case 10:
            return 24;  // header, count, three identifiers, status
        case 11:
            return 20;  // header, "yes, it does"
        case 12:
            return 28;  // header, count, three strings of 8, 4 and 4 bytes, status
        case 38:
            return 16;  // header, two words, status
        case 75:
            return 12;  // header, "1.2.3"
        default:
            return 8;
    }
}

/// The stub stays once it is made, so all inputs share one.
inline Ending endingOf(const ManagerInput& input) {
    static test::ManagerRecorder& recorder = *new test::ManagerRecorder;
    static const auto& stub = *new android::sp<android::IBinder>(new BnAppleiAP2Manager(&recorder));
    android::Parcel request;
    android::Parcel reply;
    input.putInto(&request);
    Ending ending{};
    try {
        ending.status = stub->transact(input.code(), request, &reply, 0);
    } catch (const std::logic_error&) {
        ending.raised = true;
    }
    ending.replied = reply.dataSize();
    ending.told = recorder.takeTold().size();
    return ending;
}

/// Hands the stub one input. @return whether it ended as the interface promises.
inline bool managerKeepsItsPromise(const uint8_t* data, size_t size) {
    const ManagerInput input(data, size);
    const Ending ending = endingOf(input);
    if (!input.isOperation()) return ending.told == 0 && !ending.raised;
    if (!input.isForTheManager()) return ending.status == -1 && ending.replied == 4 && ending.told == 0;
    const size_t told = input.code() > 2 ? 1 : 0;  // registration is the stub's own
    const bool isDone = ending.status == 0 && ending.told == told && !ending.raised &&
                        ending.replied == sizeOfReply(input.code());
    return isDone || isLeftEarly(input.code(), ending);
}

}  // namespace accessory::fuzz
