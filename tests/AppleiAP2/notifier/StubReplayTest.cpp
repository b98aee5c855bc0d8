// The fuzzer's property over a fixed set of inputs: every request spelt by hand, whole, cut at every byte,
// and with every byte disturbed.
#include <gtest/gtest.h>

#include "fuzz/notifier/StubProperty.h"

namespace accessory::test {
namespace {

bool survives(const Bytes& input, size_t size) { return fuzz::answersAsPromised(input.data(), size); }

TEST(StubReplay, AnswersEveryRequestWholeAndCutAtEveryByte) {
    for (const Bytes& input : stubVectors()) {
        for (size_t size = 0; size <= input.size(); ++size)
            ASSERT_TRUE(survives(input, size)) << testing::PrintToString(input) << " cut to " << size;
    }
}

TEST(StubReplay, AnswersEveryRequestWithAnyByteDisturbed) {
    for (Bytes input : stubVectors()) {
        for (size_t at = 0; at < input.size(); ++at) {
            for (const uint8_t flip : {0x01, 0x80, 0xff}) {
                input[at] ^= flip;
                ASSERT_TRUE(survives(input, input.size()))
                    << testing::PrintToString(input) << " byte " << at << " ^ " << int{flip};
                input[at] ^= flip;
            }
        }
    }
}

}  // namespace
}  // namespace accessory::test
