// The unguessable numbers by which processes and objects are known to each other.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace android::runtime {

/// 128 random bits. Knowing them is the right to use what they name.
struct Secret {
    uint64_t high = 0;
    uint64_t low = 0;

    /// Fresh bits from the kernel.
    static Secret random();
    /// From 32 hexadecimal digits; all zero when @p text is anything else.
    static Secret parse(const std::string& text);
    std::string toString() const;

    bool operator==(const Secret& other) const { return high == other.high && low == other.low; }
    bool operator!=(const Secret& other) const { return !(*this == other); }
    explicit operator bool() const { return (high | low) != 0; }
};

/// Names one process from its first use of the runtime to its end.
struct PeerId : Secret {
    PeerId() = default;
    explicit PeerId(const Secret& secret) : Secret(secret) {}
};

/// Names one object that a process has handed out.
struct Token : Secret {
    Token() = default;
    explicit Token(const Secret& secret) : Secret(secret) {}
};

/// Different in every process, for another may choose its secrets so that they would meet in one place.
struct SecretHash {
    size_t operator()(const Secret& secret) const;
};

}  // namespace android::runtime
