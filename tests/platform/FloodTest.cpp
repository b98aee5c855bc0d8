// Peers that never read, and peers that never stop: memory stays bounded, and nobody else has to wait.
#include <binder/IServiceManager.h>
#include <unistd.h>

#include <fstream>
#include <memory>

#include "tests/platform/OwnService.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr uint32_t kLargest = 1040384;

/// Resident memory of this process, in KiB.
long residentKiB() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

class Flood : public OwnService {
  protected:
    ~Flood() override {
#ifndef SANITIZER_USES_DESCRIPTORS
        EXPECT_LT(residentKiB() - mResident, 64 * 1024);
#endif
    }

    /// Says @p batch again and again on a link.
    void sayOnLink(const std::string& batch, int times) {
        RawPeer link(address(), helloFor(kLink));
        for (int i = 0; i < times; ++i)
            link.send(batch);
        EXPECT_TRUE(link.isTakenIn());
        EXPECT_TRUE(link.isQuiet()) << "nothing of this is wrong";
        EXPECT_TRUE(serves());
    }

  private:
    const long mResident = residentKiB();
};

// There are more of them than threads that serve.
TEST_F(Flood, OfAnswersThatNobodyReadsHoldsNoThread) {
    std::vector<std::unique_ptr<RawPeer>> peers;
    for (int i = 0; i < 32; ++i) {
        peers.push_back(std::make_unique<RawPeer>(address(), RawHello()));
        peers.back()->send(bytesOf(callHeader(kLargest)) + std::string(kLargest, 'x'));
    }
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(serves());
    EXPECT_EQ(std::string(kLargest, 'x'), peers.front()->receive(40 + kLargest).substr(40)) << "read at last";
    peers.front()->send(soundCall());
    EXPECT_TRUE(isAnswered(*peers.front()));
}

TEST_F(Flood, OfCallsByWhoeverDoesNotReadTheAnswersCostsTheConnection) {
    RawPeer peer(address(), RawHello());
    for (int i = 0; i < 10'000 && !hasRefused("it does not read its answers"); ++i) {
        peer.send(soundCall());
        ASSERT_TRUE(peer.isTakenIn());
    }
    EXPECT_TRUE(leadsTo("it does not read its answers", [] {}));
}

TEST_F(Flood, OfMessagesAboutWhatDoesNotExistLeavesNothing) {
    std::string batch;
    for (uint64_t i = 0; i < 1000; ++i) {
        for (const uint32_t kind : {1u, 2u, 3u, 4u})
            batch += bytesOf(RawLinkMessage{kind, 1, {i, 7}, {i, 8}});
    }
    sayOnLink(batch, 100);
}

TEST_F(Flood, OfObjectsPassedOnToNobodyLeavesNothing) {
    std::string batch;
    for (uint64_t i = 1; i <= 500; ++i) {
        for (const uint32_t kind : {3u, 4u})
            batch += bytesOf(RawLinkMessage{kind, 1, address().token, {i, 8}});
    }
    sayOnLink(batch, 10);
}

TEST_F(Flood, OfReferencesDoesNotOverflow) {
    const std::string release = bytesOf(RawLinkMessage{2, 0xffffffff, address().token, {}});
    std::string batch;
    for (int i = 0; i < 1000; ++i)
        batch += release;
    sayOnLink(batch, 20);
}

TEST_F(Flood, OfOnewayCallsIsServedAsFastAsItCan) {
    RawPeer flood(address(), helloFor(kOneway));
    RawHeader header = callHeader(1000);
    header.kind = 2;
    std::string batch;
    for (int i = 0; i < 100; ++i)
        batch += bytesOf(header) + std::string(1000, 'x');
    for (int i = 0; i < 200; ++i)
        flood.send(batch);
    EXPECT_TRUE(serves());
    EXPECT_TRUE(flood.isTakenIn());
}

TEST_F(Flood, OfConnectionsThatSayNothingIsLetGo) {
    for (int i = 0; i < 5000; ++i)
        RawPeer silent(address());
    EXPECT_TRUE(eventually([this] { return serves(); }));
}

TEST_F(Flood, OfHellosIsLetGo) {
    for (int i = 0; i < 1000; ++i) {
        for (const uint32_t kind : {kLink, kCalls, kOneway})
            RawPeer(address(), helloFor(kind)).isQuiet();
    }
}

/// Sends notes of 64 KiB to the service args[0] until they are refused.
CHILD_ROLE(floodWithNotes) {
    const sp<IBinder> service = defaultServiceManager()->checkService(String16(args.at(0).c_str()));
    status_t status = NO_ERROR;
    for (int number = 0; status == NO_ERROR && number < 1000; ++number) {
        Call call(service, kRecord);
        call << 1 << number;
        call.request.setDataSize(size_t{64} * 1024);
        status = call.send();
    }
    parent.send(std::to_string(status));
    parent.awaitHangUp();
    return 0;
}

TEST(OnewayFlood, TakesNobodyElsesRoom) {
    const ServiceProcess service;
    ASSERT_EQ(NO_ERROR, Call(service.object(), kWait).send());
    EXPECT_TRUE(eventually([&] { return ask(service.object(), kWaiting) == 1; }));
    ChildProcess flood("floodWithNotes", {service.name()});
    EXPECT_EQ(std::to_string(FAILED_TRANSACTION), flood.expectLine());
    for (int number = 0; number < 32; ++number) {
        Call call(service.object(), kRecord);
        call << 2 << number;
        call.request.setDataSize(size_t{64} * 1024);
        EXPECT_EQ(NO_ERROR, call.send()) << number;
    }
    ask(service.object(), kOpenGate);
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

}  // namespace
}  // namespace accessory::test
