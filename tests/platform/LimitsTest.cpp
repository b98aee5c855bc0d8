// The largest parcel that travels: 1 MiB - 8 KiB, in both directions.
#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>
#include <vector>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr int kLargest = 1040384;

/// A call with @p size bytes, which the service does not look at.
status_t sendBytes(const ServiceProcess& service, int size, uint32_t flags = 0) {
    Call call(service.object(), kRecorded);
    call.request.setDataSize(static_cast<size_t>(size));
    return call.run(flags);
}

/// A call that is answered with @p size bytes.
status_t fetchBytes(const ServiceProcess& service, int size, size_t* fetched) {
    Call call(service.object(), kReplyOf);
    call << size;
    const status_t status = call.run();
    *fetched = call.reply.dataSize();
    return status;
}

TEST(TransactionLimit, LetsALargestRequestPass) {
    const ServiceProcess service;
    EXPECT_EQ(NO_ERROR, sendBytes(service, kLargest - 1));
    EXPECT_EQ(NO_ERROR, sendBytes(service, kLargest));
}

TEST(TransactionLimit, RefusesALargerRequestAndTheConnectionLivesOn) {
    const ServiceProcess service;
    EXPECT_EQ(FAILED_TRANSACTION, sendBytes(service, kLargest + 1));
    EXPECT_EQ(FAILED_TRANSACTION, sendBytes(service, 100 * kLargest));
    EXPECT_TRUE(service.object()->isBinderAlive());
    EXPECT_EQ(NO_ERROR, sendBytes(service, kLargest));
}

TEST(TransactionLimit, HoldsForOnewayCalls) {
    const ServiceProcess service;
    EXPECT_EQ(NO_ERROR, sendBytes(service, kLargest, IBinder::FLAG_ONEWAY));
    EXPECT_EQ(FAILED_TRANSACTION, sendBytes(service, kLargest + 1, IBinder::FLAG_ONEWAY));
    EXPECT_EQ(NO_ERROR, sendBytes(service, kLargest, IBinder::FLAG_ONEWAY));
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

TEST(TransactionLimit, LetsALargestReplyPass) {
    const ServiceProcess service;
    size_t fetched = 0;
    EXPECT_EQ(NO_ERROR, fetchBytes(service, kLargest - 1, &fetched));
    EXPECT_EQ(size_t{kLargest - 1}, fetched);
    EXPECT_EQ(NO_ERROR, fetchBytes(service, kLargest, &fetched));
    EXPECT_EQ(size_t{kLargest}, fetched);
}

TEST(TransactionLimit, RefusesALargerReplyAndTheConnectionLivesOn) {
    const ServiceProcess service;
    size_t fetched = 1;
    EXPECT_EQ(FAILED_TRANSACTION, fetchBytes(service, kLargest + 1, &fetched));
    EXPECT_EQ(0u, fetched);
    EXPECT_TRUE(service.object()->isBinderAlive());
    EXPECT_EQ(NO_ERROR, fetchBytes(service, kLargest, &fetched));
}

TEST(TransactionLimit, HoldsForCallbacks) {
    const ServiceProcess service;
    int size = kLargest;
    const sp<IBinder> mine = new FunctionObject([&](uint32_t, const Parcel&, Parcel* reply, uint32_t) {
        return reply->setDataSize(static_cast<size_t>(size));
    });
    EXPECT_EQ(getpid(), ask(service.object(), kCallerAround, mine));
    Call call(service.object(), kCallerAround);
    call << mine;
    size = kLargest + 1;
    EXPECT_EQ(FAILED_TRANSACTION, call.run());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

TEST(TransactionLimit, BringsEveryByteOfALargeParcel) {
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    for (int32_t word = 0; word < kLargest / 4; ++word)
        call << word;
    ASSERT_EQ(NO_ERROR, call.run());
    ASSERT_EQ(size_t{kLargest}, call.reply.dataSize());
    for (int32_t word = 0; word < kLargest / 4; ++word)
        ASSERT_EQ(word, call.reply.readInt32());
}

TEST(TransactionLimit, LetsAnEmptyParcelPass) {
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    EXPECT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(0u, call.reply.dataSize());
}

TEST(TransactionLimit, LetsTheObjectsOfARefusedRequestGo) {
    const ServiceProcess service;
    sp<IBinder> mine = new BBinder;
    const wp<IBinder> watched = mine;
    {
        Call call(service.object(), kEcho);
        call << mine;
        call.request.setDataSize(kLargest + 1);
        EXPECT_EQ(FAILED_TRANSACTION, call.run());
    }
    mine = nullptr;
    EXPECT_TRUE(eventually([&] { return watched.promote() == nullptr; }));
}

TEST(ConnectionLimit, IsWhatOneProcessMayHaveAndFreesAgain) {
    const ServiceProcess service;
    const RawAddress address = RawAddress::of(service.name());
    std::vector<std::unique_ptr<RawPeer>> peers;
    const auto isServed = [&] {
        RawHeader header;
        header.target = address.token;
        peers.push_back(std::make_unique<RawPeer>(address, RawHello()));
        peers.back()->send(bytesOf(header));
        return peers.back()->receive(40).size() == 40;
    };
    ASSERT_EQ(9, ask(service.object(), kEcho, 9)) << "this is the first connection";
    for (int i = 1; i < 512; ++i)
        ASSERT_TRUE(isServed()) << i;
    EXPECT_FALSE(isServed());
    EXPECT_EQ(9, ask(service.object(), kEcho, 9)) << "those that there are stay";
    peers.clear();
    EXPECT_TRUE(eventually(isServed));
}

}  // namespace
}  // namespace accessory::test
