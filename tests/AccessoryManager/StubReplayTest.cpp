// The fuzzer's property over a fixed set of inputs: every request spelt by hand, whole, cut at every byte,
// and with every byte disturbed.
#include <gtest/gtest.h>

#include "fuzz/accessorymanager/StubProperty.h"

namespace accessory::test {
namespace {

TEST(StubReplay, AnswersEveryRequestWholeAndCutAtEveryByte) {
    for (const Bytes& input : accessoryVectors()) {
        for (size_t size = 0; size <= input.size(); ++size)
            ASSERT_TRUE(fuzz::answersAsPromised(input.data(), size))
                << testing::PrintToString(input) << " cut to " << size;
    }
}

TEST(StubReplay, AnswersEveryRequestWithAnyByteDisturbed) {
    for (Bytes input : accessoryVectors()) {
        for (size_t at = 0; at < input.size(); ++at) {
            for (const uint8_t flip : {0x01, 0x80, 0xff}) {
                input[at] ^= flip;
                ASSERT_TRUE(fuzz::answersAsPromised(input.data(), input.size()))
                    << testing::PrintToString(input) << " byte " << at << " ^ " << int{flip};
                input[at] ^= flip;
            }
        }
    }
}

}  // namespace
}  // namespace accessory::test
