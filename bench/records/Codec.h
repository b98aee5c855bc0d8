// Codec: one message in one format, and the register of the formats that are compared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace accessory::bench {

/// What is encoded and decoded.
enum class Message { kNowPlaying, kRouteGuidance, kLibrary };

/// Keeps its memory from one call to the next, in the way that its format recommends.
class Codec {
  public:
    virtual ~Codec() = default;
    /// From the values of the sample to the bytes that would be sent. @return their count.
    virtual size_t encode() = 0;
    /// From the bytes that were received to the values: reads every field of the message, also the absent
    /// ones. @return the sum of what was read, which is the same for all formats.
    virtual uint64_t decode() = 0;
};

/// A format that takes part.
struct Format {
    const char* name;
    int place;  ///< in the tables; the records come first
    std::unique_ptr<Codec> (*codec)(Message message);
};

/// Makes a format known to the program that its source is linked into; a namespace-scope constant.
struct FormatRegistration {
    explicit FormatRegistration(const Format& format);
};

/// The name of this library's own format.
inline constexpr char kRecords[] = "records";

/// Makes the objects that reading the message as records makes, and lets go of them: what no reader of
/// records can fall short of.
uint64_t makeEmptyRecords(Message message);

/// The sum of all values that were read: integers as they are, of a string its first character.
class Sum {
  public:
    Sum& operator<<(uint64_t value) {
        mTotal += value;
        return *this;
    }
    Sum& operator<<(const char* text) { return *this << firstOf(text); }
    Sum& operator<<(const std::string& text) { return *this << firstOf(text.c_str()); }

    uint64_t total() const { return mTotal; }

  private:
    static uint64_t firstOf(const char* text) {
        return text == nullptr ? 0 : static_cast<unsigned char>(text[0]);
    }

    uint64_t mTotal = 0;
};

}  // namespace accessory::bench
