// The bytes of a benchmarked request, and the answer by which a service shows that it has received them.
//
// A payload is text, so that it can travel as a string too: one character says what to answer, seven tell the
// length, the rest is filler whose last character changes with every call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace accessory::bench {

class Payload {
  public:
    /// @param size in bytes; at least 16.
    explicit Payload(size_t size);

    const char* data() const { return mText.data(); }
    size_t size() const { return mText.size(); }

    /// Before a call whose answer shall cover every byte.
    void askForChecksum();
    /// Before every other call: makes it differ from the one before.
    void stamp();
    /// What a service that received these bytes answers.
    uint32_t expected() const;

  private:
    std::string mText;
};

constexpr size_t kSmallestPayload = 16;

/// The answer of a service: a checksum when the payload asks for one, otherwise a mixture of its length and
/// last character, so that checking costs next to nothing.
/// @param size how many bytes were received. A service that gets a string without its length passes
///             claimedSize(): the string must end there.
/// @return 0 when the bytes cannot be a payload of that size.
uint32_t answerTo(const char* bytes, size_t size);

/// The length that a payload tells about itself; 0 when it does not.
size_t claimedSize(const char* bytes);

}  // namespace accessory::bench
