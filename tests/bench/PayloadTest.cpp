#include "bench/support/Payload.h"

#include <gtest/gtest.h>

using namespace accessory::bench;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

TEST(Payload, TellsItsLengthInItsHead) {
    const Payload payload(1024);
    EXPECT_EQ("c0000400", std::string(payload.data(), 8));
    EXPECT_EQ(1024u, claimedSize(payload.data()));
    EXPECT_EQ(1024u, payload.size());
}

TEST(Payload, IsTextWithoutANulUpToItsEnd) {
    const Payload payload(4096);
    EXPECT_EQ(4096u, std::string(payload.data()).size());
}

TEST(Payload, IsAnsweredWithItsLengthAndLastCharacter) {
    const std::string text = "c0000010abcdefgh";
    EXPECT_EQ(16u * 256 + 'h', answerTo(text.data(), text.size()));
}

TEST(Payload, IsAnsweredDifferentlyAfterEveryStamp) {
    Payload payload(16);
    payload.stamp();
    const uint32_t first = payload.expected();
    payload.stamp();
    EXPECT_NE(first, payload.expected());
}

TEST(Payload, IsAnsweredWithAChecksumOfEveryByteWhenItAsksForOne) {
    // FNV-1a of the text, without its sign bit.
    const std::string text = "f0000010abcdefgh";
    uint32_t sum = 2166136261;
    for (const char character : text)
        sum = (sum ^ static_cast<unsigned char>(character)) * 16777619;
    EXPECT_EQ(sum & 0x7fffffff, answerTo(text.data(), text.size()));
    std::string damaged = text;
    damaged[10] = 'x';
    EXPECT_NE(sum & 0x7fffffff, answerTo(damaged.data(), damaged.size()));
}

TEST(Payload, IsRefusedWhenBytesAreMissing) {
    const std::string text = "c0000011abcdefgh";
    EXPECT_EQ(0u, answerTo(text.data(), text.size()));
}

TEST(Payload, IsRefusedWithoutALength) {
    const std::string text = "c00000-1abcdefgh";
    EXPECT_EQ(0u, claimedSize(text.data()));
    EXPECT_EQ(0u, answerTo(text.data(), text.size()));
}

}  // namespace
