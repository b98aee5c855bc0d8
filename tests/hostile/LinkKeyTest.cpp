// The one request that may end the process: a link key or an address larger than every transaction.
#include <gtest/gtest.h>

#include <csignal>

#include "common/Buffer.h"
#include "tests/hostile/Endings.h"

namespace accessory::test {
namespace {

constexpr uint32_t kOOBBTPLinkKeyInfo = 30;

class LinkKey : public testing::Test {
  protected:
    Ending pair(const Bytes& lengths) {
        return endOf(subject, kOOBBTPLinkKeyInfo, parcel({tokenOf(subject.interface), i32(7), lengths}));
    }

    const Subject subject = subjectOf("IAppleiAP2ManagerNotifier");
};

TEST_F(LinkKey, IsToldAsZerosWhenATransactionCouldHoldIt) {
    for (const int64_t length : {int64_t{5}, int64_t{4096}, static_cast<int64_t>(kMostTransactionBytes)}) {
        EXPECT_EQ(pair(i32(length)).told, 1u) << length;
        EXPECT_EQ(pair(parcel({i32(0), i32(length)})).told, 1u) << length;
    }
}

using LinkKeyDeathTest = LinkKey;

TEST_F(LinkKeyDeathTest, EndsTheProcessWhenNoTransactionCouldHoldIt) {
    constexpr char kReport[] = "malloc a buff for OOBBTP link info";
    const auto beyond = static_cast<int64_t>(kMostTransactionBytes) + 1;
    for (const int64_t length : {beyond, int64_t{0x7fffffff}, int64_t{-1}}) {
        EXPECT_EXIT(pair(i32(length)), testing::KilledBySignal(SIGABRT), kReport);
        EXPECT_EXIT(pair(parcel({i32(0), i32(length)})), testing::KilledBySignal(SIGABRT), kReport);
    }
}

}  // namespace
}  // namespace accessory::test
