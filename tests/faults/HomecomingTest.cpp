// Objects that another process brings back to their own, and a bringer that dies on the way.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr uint32_t kLink = 1;
constexpr uint32_t kCalls = 2;
constexpr uint32_t kOneway = 3;
constexpr RawId kBringer{0x7777, 0x8888};
constexpr size_t kObjectBytes = 24;

/// The bringer of an object of a service.
class Homecoming : public testing::Test {
  protected:
    /// Lets the service make an object. @return its token.
    RawId take() {
        RawPeer calls(address, {kRawProtocol, kCalls, kBringer});
        RawHeader make;
        make.code = kMake;
        make.target = address.token;
        calls.send(bytesOf(make));
        const std::string reply = calls.receive(sizeof(RawHeader) + kObjectBytes + sizeof(RawRecord));
        EXPECT_EQ(sizeof(RawHeader) + kObjectBytes + sizeof(RawRecord), reply.size());
        RawRecord record;
        std::memcpy(&record, reply.data() + sizeof(RawHeader) + kObjectBytes, sizeof(record));
        return record.token;
    }

    /// Says in front that the object comes home.
    void announce(RawPeer& link, const RawId& token) {
        link.send(bytesOf(RawLinkMessage{3, 1, token, address.owner}));
    }

    testing::AssertionResult lives(int objects) {
        return eventually([&] { return ask(owner.object(), kMade) == objects; });
    }

    const ServiceProcess owner;
    const RawAddress address = RawAddress::of(owner.name());
};

TEST_F(Homecoming, OfAnObjectThatWasOnlyAnnouncedEndsWithItsBringer) {
    {
        RawPeer link(address, {kRawProtocol, kLink, kBringer});
        const RawId token = take();
        EXPECT_TRUE(lives(1));
        announce(link, token);
    }
    EXPECT_TRUE(lives(0));
}

TEST_F(Homecoming, OfAnObjectThatWasSentDoesNotEndWithItsBringer) {
    {
        RawPeer link(address, {kRawProtocol, kLink, kBringer});
        const RawId token = take();
        RawHeader keep;
        keep.kind = 2;
        keep.code = kKeep;
        keep.flags = IBinder::FLAG_ONEWAY;
        keep.target = address.token;
        keep.dataSize = kObjectBytes;
        keep.objectCount = 1;
        RawPeer oneway(address, {kRawProtocol, kOneway, kBringer});
        announce(link, token);
        oneway.send(bytesOf(keep) + std::string(kObjectBytes, '\0') +
                    bytesOf(RawRecord{0, 1, address.owner, token}));
    }
    EXPECT_TRUE(eventually([this] { return askForObject(owner.object(), kKept) != nullptr; }));
    EXPECT_EQ(1, ask(owner.object(), kMade));
    ask(owner.object(), kDrop);
    EXPECT_TRUE(lives(0));
}

}  // namespace
}  // namespace accessory::test
