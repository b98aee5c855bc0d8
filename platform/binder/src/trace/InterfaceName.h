// Which interface a request is for, as its own beginning says.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace android::runtime::trace {

/// The name in a request's interface token, in ASCII; empty for a request without one.
class InterfaceName {
  public:
    static constexpr size_t kMost = 127;

    void clear() { mSize = 0; }
    /// Takes the name out of the first bytes of a request: policy, work source, length, UTF-16 units, NUL.
    /// @param data null for a request that could not be sent.
    void find(const uint8_t* data, size_t size);

    const char* text() const { return mText; }
    size_t size() const { return mSize; }

  private:
    bool take(const uint8_t* units, size_t count);

    size_t mSize = 0;
    char mText[kMost];
};

inline void InterfaceName::find(const uint8_t* data, size_t size) {
    constexpr size_t kFront = 3 * sizeof(int32_t);
    clear();
    if (data == nullptr || size < kFront) return;
    int32_t length = 0;
    std::memcpy(&length, data + 2 * sizeof(int32_t), sizeof(length));
    if (length <= 0 || static_cast<size_t>(length) > kMost) return;
    const auto count = static_cast<size_t>(length);
    if ((count + 1) * sizeof(char16_t) > size - kFront) return;
    if (take(data + kFront, count)) mSize = count;
}

/// @return false for what is no name: anything but graphic characters and a NUL behind them.
inline bool InterfaceName::take(const uint8_t* units, size_t count) {
    for (size_t i = 0; i <= count; ++i) {
        char16_t unit = 0;
        std::memcpy(&unit, units + i * sizeof(unit), sizeof(unit));
        const bool fits = i < count ? unit > u' ' && unit < u'\x7f' : unit == 0;
        if (!fits) return false;
        if (i < count) mText[i] = static_cast<char>(unit);
    }
    return true;
}

}  // namespace android::runtime::trace
