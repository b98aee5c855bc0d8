// A connection of the runtime whose other end says what a fuzzer makes up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "socket/Connection.h"

namespace android::runtime::fuzz {

/// An input: how it is sent, then the bytes.
///
///   byte 0   bit 0: a one-way connection instead of one for calls; bits 1 and 2: how many descriptors
///            go with the first piece; bit 3: the last of them is a block that may be shared
///   byte 1   bytes of a piece; 0 for all in one
class Input {
  public:
    static constexpr size_t kHead = 2;

    /// @param size at least kHead. Borrows @p data.
    Input(const uint8_t* data, size_t size) : mData(data), mSize(size) {}

    ConnectionKind kind() const {
        return (mData[0] & 1) != 0 ? ConnectionKind::kOneway : ConnectionKind::kCall;
    }
    size_t descriptors() const { return mData[0] >> 1 & 3; }
    bool sharesBlock() const { return (mData[0] & 8) != 0; }
    size_t pieceBytes() const { return mData[1] != 0 ? mData[1] : mSize; }
    const uint8_t* bytes() const { return mData + kHead; }
    size_t byteCount() const { return mSize - kHead; }

  private:
    const uint8_t* const mData;
    const size_t mSize;
};

/// Both ends of a connection: one the runtime's, the other the fuzzer's.
class Stream {
  public:
    explicit Stream(ConnectionKind kind);

    Connection& connection() { return *mConnection; }
    /// Sends a piece, and copies of @p fds beside it.
    void send(const uint8_t* bytes, size_t count, const std::vector<int>& fds);

  private:
    RuntimeFd mSender;
    std::unique_ptr<Connection> mConnection;
};

/// Descriptors to send, that stay open: as many as @p input says.
std::vector<int> descriptorsOf(const Input& input);

}  // namespace android::runtime::fuzz
