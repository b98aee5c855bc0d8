#include "bench/support/Payload.h"

#include <cstdio>

namespace accessory::bench {
namespace {

constexpr char kChecksum = 'f';
constexpr char kCheap = 'c';
constexpr size_t kDigits = 7;
constexpr uint32_t kPrime = 16777619;

/// FNV-1a.
uint32_t checksum(const char* bytes, size_t size) {
    uint32_t sum = 2166136261;
    for (size_t i = 0; i < size; ++i)
        sum = (sum ^ static_cast<unsigned char>(bytes[i])) * kPrime;
    return sum;
}

}  // namespace

Payload::Payload(size_t size) : mText(size, '.') {
    char head[kDigits + 2];
    std::snprintf(head, sizeof(head), "%c%07zx", kCheap, size);
    mText.replace(0, kDigits + 1, head);
    for (size_t i = kDigits + 1; i < size; ++i)
        mText[i] = static_cast<char>('a' + i % 23);
}

void Payload::askForChecksum() { mText.front() = kChecksum; }

void Payload::stamp() {
    mText.front() = kCheap;
    mText.back() = mText.back() == 'z' ? 'a' : static_cast<char>(mText.back() + 1);
}

uint32_t Payload::expected() const { return answerTo(data(), size()); }

// A loop rather than sscanf(), which would measure the length of the whole text first.
size_t claimedSize(const char* bytes) {
    size_t size = 0;
    for (size_t i = 1; i <= kDigits; ++i) {
        const char digit = bytes[i];
        if (digit >= '0' && digit <= '9') {
            size = size * 16 + static_cast<size_t>(digit - '0');
        } else if (digit >= 'a' && digit <= 'f') {
            size = size * 16 + static_cast<size_t>(digit - 'a') + 10;
        } else {
            return 0;
        }
    }
    return size;
}

uint32_t answerTo(const char* bytes, size_t size) {
    if (size < kSmallestPayload || claimedSize(bytes) != size) return 0;
    // The sign bit stays free: some of the answers travel as a status.
    constexpr uint32_t kPositive = 0x7fffffff;
    if (bytes[0] == kChecksum) return checksum(bytes, size) & kPositive;
    const auto last = static_cast<unsigned char>(bytes[size - 1]);
    return (static_cast<uint32_t>(size) * 256 + last) & kPositive;
}

}  // namespace accessory::bench
