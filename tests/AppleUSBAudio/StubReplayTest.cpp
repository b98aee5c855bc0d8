// The fuzzers' properties over a fixed set of inputs: every request spelt by hand, whole, cut at every byte,
// and with every byte disturbed.
#include <gtest/gtest.h>

#include "fuzz/usbaudio/StubProperty.h"

namespace accessory::test {
namespace {

using Property = bool (*)(const uint8_t*, size_t);

void expectCut(const std::vector<Bytes>& inputs, Property holds) {
    for (const Bytes& input : inputs) {
        for (size_t size = 0; size <= input.size(); ++size)
            ASSERT_TRUE(holds(input.data(), size)) << testing::PrintToString(input) << " cut to " << size;
    }
}

void expectDisturbed(const std::vector<Bytes>& inputs, Property holds) {
    for (Bytes input : inputs) {
        for (size_t at = 0; at < input.size(); ++at) {
            for (const uint8_t flip : {0x01, 0x80, 0xff}) {
                input[at] ^= flip;
                ASSERT_TRUE(holds(input.data(), input.size()))
                    << testing::PrintToString(input) << " byte " << at << " ^ " << int{flip};
                input[at] ^= flip;
            }
        }
    }
}

TEST(AudioStubReplay, AnswersEveryRequestWholeAndCutAtEveryByte) {
    expectCut(audioManagerVectors(), fuzz::managerAnswersAsPromised);
}

TEST(AudioStubReplay, AnswersEveryRequestWithAnyByteDisturbed) {
    expectDisturbed(audioManagerVectors(), fuzz::managerAnswersAsPromised);
}

TEST(AudioNotifierStubReplay, AnswersEveryEventWholeAndCutAtEveryByte) {
    expectCut(audioNotifierVectors(), fuzz::notifierAnswersAsPromised);
}

TEST(AudioNotifierStubReplay, AnswersEveryEventWithAnyByteDisturbed) {
    expectDisturbed(audioNotifierVectors(), fuzz::notifierAnswersAsPromised);
}

}  // namespace
}  // namespace accessory::test
