// Requests that no operation is called for: unknown codes, and tokens that are wrong or cut.
#include <gtest/gtest.h>

#include <set>

#include "tests/hostile/Endings.h"
#include "tests/hostile/Turned.h"

namespace accessory::test {
namespace {

class RefusedEverywhere : public testing::TestWithParam<std::string> {
  protected:
    /// 0, every gap, the first code above the last, and the highest that there are.
    std::set<uint32_t> unknownCodes() const {
        std::set<uint32_t> codes = {0x7fffffff, 0x80000000, 0xffffffff};
        for (uint32_t code = 0; code <= subject.firstFreeCode(); ++code)
            if (tools::servedOperation(subject.interface, code) == nullptr) codes.insert(code);
        return codes;
    }

    void expectRefusedTokens(const Bytes& token) {
        for (const auto& operation : subject.interface.operations) {
            const Bytes request = parcel({token, i32(7), i32(1)});
            EXPECT_TRUE(
                isRefused(subject, endOf(subject, operation->code, request), android::PERMISSION_DENIED))
                << operation->name;
        }
    }

    const Subject subject = subjectOf(GetParam());
};

TEST_P(RefusedEverywhere, ForAnUnknownCode) {
    EXPECT_GE(unknownCodes().size(), 5u);
    for (const uint32_t code : unknownCodes()) {
        for (const Turned& turned : withMoreBehind(tokenOf(subject.interface)))
            EXPECT_TRUE(isRefused(subject, endOf(subject, code, turned.bytes), android::UNKNOWN_TRANSACTION))
                << code << ' ' << turned.how;
    }
}

TEST_P(RefusedEverywhere, ForTheTokenOfAnotherInterface) {
    for (const tools::Interface* other : tools::allInterfaces())
        if (other != &subject.interface) expectRefusedTokens(tokenOf(*other));
    const std::string& own = subject.interface.descriptor;
    for (const std::string& name : {own.substr(1), own.substr(0, own.size() - 1), own + "X", std::string()})
        expectRefusedTokens(token(std::u16string(name.begin(), name.end())));
}

TEST_P(RefusedEverywhere, ForATokenThatIsCutAnywhere) {
    const Bytes whole = tokenOf(subject.interface);
    for (const Turned& turned : cutAtEveryByte(whole)) {
        for (const auto& operation : subject.interface.operations)
            EXPECT_TRUE(isRefused(subject, endOf(subject, operation->code, turned.bytes), -1)) << turned.how;
    }
}

TEST_P(RefusedEverywhere, ForATokenWithoutAnEnd) {
    Bytes open = tokenOf(subject.interface);
    for (const Bytes& length : {i32(-1), i32(0x7fffffff), i32(INT32_MIN), i32(0x40000000)}) {
        std::copy(length.begin(), length.end(), open.begin() + 8);
        expectRefusedTokens(open);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RefusedEverywhere, testing::ValuesIn(interfaceNames()),
                         [](const auto& interface) { return interface.param; });

}  // namespace
}  // namespace accessory::test
