// A flood of one-way calls to an object that is stuck: what waits is bounded, the rest is refused in plain
// words, and nothing that was accepted is lost.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "tests/load/ProcessWatch.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tests/support/LogCatcher.h"
#include "tests/support/Sanitized.h"

namespace accessory::load {
namespace {

using namespace accessory::test;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using android::FAILED_TRANSACTION;
using android::NO_ERROR;

constexpr int kBurst = 100'000;
/// What may wait, with the memory that its administration takes.
constexpr size_t kMostKiB = size_t{16} * 1024;

class LoadOneway : public testing::Test {
  protected:
    LoadOneway() {
        EXPECT_EQ(NO_ERROR, Call(service.object(), kWait).send());
        EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; })) << "it is not stuck";
    }

    /// @param bytes of the call; at least two words.
    android::status_t send(size_t bytes) {
        Call call(service.object(), kRecord);
        call << 1 << accepted;
        call.request.setDataSize(bytes);
        const android::status_t status = call.send();
        if (status == NO_ERROR) ++accepted;
        return status;
    }

    /// @return how many were refused, every one with FAILED_TRANSACTION, all after those that were accepted.
    int burst(int calls, size_t bytes) {
        int refused = 0;
        for (int i = 0; i < calls && !HasFailure(); ++i) {
            const android::status_t status = send(bytes);
            refused += status == NO_ERROR ? 0 : 1;
            EXPECT_EQ(status, refused == 0 ? NO_ERROR : FAILED_TRANSACTION);
        }
        return refused;
    }

    /// A call that brings so many descriptors.
    android::status_t sendDescriptors(int count) {
        Call call(service.object(), kRecord);
        call << 1 << accepted;
        for (int i = 0; i < count; ++i)
            call.request.writeFileDescriptor(STDOUT_FILENO);
        const android::status_t status = call.send();
        if (status == NO_ERROR) ++accepted;
        return status;
    }

    /// Whether the calls 0, 1, 2 ... and no others have run.
    bool allHaveRunInOrder() {
        Call call(service.object(), kRecorded);
        if (call.run() != NO_ERROR || call.reply.readInt32() != 0) return false;
        if (call.reply.readInt32() != accepted) return false;
        for (int32_t number = 0; number < accepted; ++number) {
            if (call.reply.readInt32() != 1 || call.reply.readInt32() != number) return false;
        }
        return true;
    }

    size_t linesLogged() const { return log.linesWith("Binder").size(); }

    LogCatcher log;
    const ServiceProcess service;
    ProcessWatch receiver{service.pid()};
    ProcessWatch sender{getpid()};
    int32_t accepted = 0;
};

TEST_F(LoadOneway, BurstAtAStuckObjectIsBoundedRefusedInOneLineAndArrivesInOrder) {
    const size_t receiverBefore = receiver.sample().memory;
    const size_t senderBefore = sender.sample().memory;
    const int refused = burst(kBurst, 8);
    const size_t receiverGrew = receiver.sample().memory - receiverBefore;
    const size_t senderGrew = sender.sample().memory - senderBefore;
    std::cout << kBurst << " calls: " << accepted << " accepted, " << refused
              << " refused; the receiver grew by " << receiverGrew << " KiB, the sender by " << senderGrew
              << " KiB\n";
    EXPECT_EQ(accepted + refused, kBurst);
    EXPECT_GT(refused, 0);
    EXPECT_EQ(linesLogged(), 1u);
    if (!kSanitized) {
        EXPECT_LT(receiverGrew, kMostKiB);
        EXPECT_LT(senderGrew, kMostKiB);
    }
    ask(service.object(), kOpenGate);
    EXPECT_TRUE(eventually([&] { return allHaveRunInOrder(); })) << accepted;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(send(8), NO_ERROR) << "new ones are taken in";
    EXPECT_TRUE(eventually([&] { return allHaveRunInOrder(); })) << accepted;
}

// The socket takes only the beginning of such a call when the receiver has stopped reading.
TEST_F(LoadOneway, LargeCallToAStuckObjectDoesNotHoldItsSenderForEver) {
    const int refused = burst(30, size_t{1000} * 1000);
    EXPECT_GT(accepted, 2);
    EXPECT_LT(accepted, 12);
    EXPECT_EQ(accepted + refused, 30);
    EXPECT_EQ(linesLogged(), 1u);
    ask(service.object(), kOpenGate);
    EXPECT_TRUE(eventually([&] { return allHaveRunInOrder(); })) << "what was accepted arrives unasked";
    EXPECT_EQ(send(8), NO_ERROR);
    EXPECT_TRUE(eventually([&] { return allHaveRunInOrder(); }));
}

// A process whose descriptors all lie in calls that wait could not even let its other callers in.
TEST_F(LoadOneway, DescriptorsThatWaitAreBoundedAsWell) {
    const int32_t before = ask(service.object(), kDescriptors);
    android::status_t status = NO_ERROR;
    while (status == NO_ERROR && accepted < 1000)
        status = sendDescriptors(50);
    EXPECT_EQ(status, FAILED_TRANSACTION);
    EXPECT_LT(ask(service.object(), kDescriptors), before + 600);
    ask(service.object(), kOpenGate);
    EXPECT_TRUE(eventually([&] { return allHaveRunInOrder(); }));
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kDescriptors) == before; }));
}

}  // namespace
}  // namespace accessory::load
