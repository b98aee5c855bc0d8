// Transaction: one call of a remote object as it passed by, request and reply in bytes.
#pragma once

#include <utils/Errors.h>

#include <cstdint>
#include <iosfwd>
#include <vector>

namespace android {
class Parcel;
}

namespace accessory::testkit {

/// @name Contents
/// @{

/// A parcel's content, byte by byte or in cells of four.
using Bytes = std::vector<uint8_t>;
using Words = std::vector<uint32_t>;

/// @}

/// All bytes of @p parcel, wherever it stands. A binder in it shows as its picture: addresses of this
/// process.
Bytes bytesOf(const android::Parcel& parcel);

/// The cells that @p bytes are made of, in the byte order of this machine; a last one that is cut is filled
/// up with zeros.
Words wordsOf(const Bytes& bytes);

/// The bytes of @p words, for answers made by hand.
Bytes bytesOf(const Words& words);

/// One call of a remote object.
struct Transaction {
    uint32_t code = 0;                             ///< of the operation
    uint32_t flags = 0;                            ///< 0, or IBinder::FLAG_ONEWAY
    Bytes request;                                 ///< the interface's token first
    Bytes reply;                                   ///< empty when the call failed
    android::status_t status = android::NO_ERROR;  ///< what transact() returned
};

/// How GoogleTest shows a call: code, flags and status, and the words as hexadecimal numbers.
void PrintTo(const Transaction& transaction, std::ostream* out);

}  // namespace accessory::testkit
