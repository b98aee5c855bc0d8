// What a service makes of peers that break the framing: they lose their connection, nothing else
// happens.
#include <binder/IServiceManager.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

class MalformedFrames : public testing::Test {
  protected:
    ~MalformedFrames() override {
        EXPECT_EQ(NO_ERROR, mService.object()->pingBinder());
        EXPECT_EQ(9, ask(mService.object(), kEcho, 9));
#ifndef SANITIZER_USES_DESCRIPTORS
        EXPECT_TRUE(eventually([this] { return ask(mService.object(), kDescriptors) <= mDescriptors; }));
#endif
    }

    /// The header of a call of kEcho.
    RawHeader callHeader() const {
        RawHeader header;
        header.target = mAddress.token;
        return header;
    }

    /// A call of kEcho with one record for each of @p records, and 24 bytes of data for each.
    std::string callWith(const std::vector<RawRecord>& records, uint8_t descriptorCount = 0) const {
        RawHeader header = callHeader();
        header.objectCount = static_cast<uint32_t>(records.size());
        header.descriptorCount = descriptorCount;
        header.dataSize = 24 * header.objectCount;
        std::string bytes = bytesOf(header) + std::string(header.dataSize, '\0');
        for (const RawRecord& record : records)
            bytes += bytesOf(record);
        return bytes;
    }

    /// Whether @p bytes on a fresh connection for calls cost the connection.
    bool areRefused(const std::string& bytes, const std::vector<int>& fds = {}) {
        RawPeer peer(mAddress, RawHello());
        peer.send(bytes, fds);
        return peer.isHungUpOn();
    }

    bool isRefused(const RawHello& hello) { return RawPeer(mAddress, hello).isHungUpOn(); }

    /// Whether a call with a header that @p spoil has changed, and 100 bytes after it, costs the connection.
    bool isRefused(const std::function<void(RawHeader*)>& spoil) {
        RawHeader header = callHeader();
        spoil(&header);
        return areRefused(bytesOf(header) + std::string(100, '\0'));
    }

    const ServiceProcess mService;
    const RawAddress mAddress = RawAddress::of(mService.name());
    const int mDescriptors = (ask(mService.object(), kEcho, 1), ask(mService.object(), kDescriptors));
};

TEST_F(MalformedFrames, AreNotThoseOfASoundCall) {
    RawPeer peer(mAddress, RawHello());
    RawHeader call = callHeader();
    call.dataSize = 4;
    peer.send(bytesOf(call) + bytesOf(uint32_t{0x12345678}));
    RawHeader reply;
    reply.kind = 3;
    reply.code = 0;
    reply.dataSize = 4;
    EXPECT_EQ(bytesOf(reply) + bytesOf(uint32_t{0x12345678}), peer.receive(44));
}

TEST_F(MalformedFrames, AreNotThoseThatComeByteByByte) {
    RawPeer peer(mAddress);
    RawHeader call = callHeader();
    call.dataSize = 4;
    for (const char byte : bytesOf(RawHello()) + bytesOf(call) + "abcd")
        peer.send(std::string(1, byte));
    EXPECT_EQ("abcd", peer.receive(44).substr(40));
}

TEST_F(MalformedFrames, BeginWithAWrongHello) {
    RawHello protocol;
    protocol.protocol ^= 1;
    EXPECT_TRUE(isRefused(protocol));
    for (const uint32_t kind : {0u, 4u, 0xffffffffu}) {
        RawHello hello;
        hello.kind = kind;
        EXPECT_TRUE(isRefused(hello)) << kind;
    }
    RawHello nobody;
    nobody.sender = {};
    EXPECT_TRUE(isRefused(nobody));
}

TEST_F(MalformedFrames, BeginWithAHelloInTheNameOfTheReceiver) {
    for (const uint32_t kind : {1u, 2u, 3u}) {
        RawHello hello;
        hello.kind = kind;
        hello.sender = mAddress.owner;
        EXPECT_TRUE(isRefused(hello)) << kind;
    }
    const ServiceProcess other;
    Call call(other.object(), kEcho);
    EXPECT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(mService.object(), defaultServiceManager()->checkService(String16(mService.name().c_str())));
    EXPECT_EQ(0, access(mAddress.socket.c_str(), F_OK));
}

TEST_F(MalformedFrames, HoldUpNobodyWhileTheirHelloIsIncomplete) {
    RawPeer silent(mAddress);
    RawPeer half(mAddress);
    half.send(bytesOf(RawHello()).substr(0, 12));
    RawPeer sound(mAddress, RawHello());
    sound.send(bytesOf(callHeader()));
    EXPECT_EQ(40u, sound.receive(40).size());
}

TEST_F(MalformedFrames, HaveAWrongFieldInTheirHeader) {
    EXPECT_TRUE(isRefused([](RawHeader* header) { header->protocol ^= 0x100; }));
    for (const uint16_t kind : {0, 2, 3, 4, 0xffff})
        EXPECT_TRUE(isRefused([=](RawHeader* header) { header->kind = kind; })) << kind;
    for (const uint8_t count : {1, 254, 255})
        EXPECT_TRUE(isRefused([=](RawHeader* header) { header->descriptorCount = count; })) << count;
    for (const uint32_t size : {1040385u, 0x7fffffffu, 0xffffffffu})
        EXPECT_TRUE(isRefused([=](RawHeader* header) { header->dataSize = size; })) << size;
    for (const uint32_t count : {1u, 0x10000000u, 0xffffffffu})
        EXPECT_TRUE(isRefused([=](RawHeader* header) { header->objectCount = count; })) << count;
}

TEST_F(MalformedFrames, SayMoreBeforeTheyAreAnswered) {
    EXPECT_TRUE(areRefused(bytesOf(callHeader()) + "x"));
    EXPECT_TRUE(areRefused(bytesOf(callHeader()) + bytesOf(callHeader())));
}

TEST_F(MalformedFrames, HaveRecordsThatDoNotFitTheData) {
    for (const uint32_t offset : {1u, 2u, 4u, 24u, 0x7ffffffcu, 0xfffffffcu, 0xffffffffu}) {
        RawRecord record;
        record.offset = offset;
        EXPECT_TRUE(areRefused(callWith({record}))) << offset;
    }
    RawRecord first;
    RawRecord second;
    EXPECT_TRUE(areRefused(callWith({first, second})));
    second.offset = 20;
    EXPECT_TRUE(areRefused(callWith({first, second})));
    second.offset = 24;
    EXPECT_TRUE(areRefused(callWith({second, first})));
}

TEST_F(MalformedFrames, HaveRecordsOfAnUnknownKind) {
    for (const uint32_t kind : {0u, 3u, 0xffffffffu}) {
        RawRecord record;
        record.kind = kind;
        EXPECT_TRUE(areRefused(callWith({record}))) << kind;
    }
}

TEST_F(MalformedFrames, MiscountTheirDescriptors) {
    RawRecord binder;
    RawRecord descriptor;
    descriptor.kind = 2;
    EXPECT_TRUE(areRefused(callWith({descriptor}, 0)));
    EXPECT_TRUE(areRefused(callWith({descriptor}, 1)));
    EXPECT_TRUE(areRefused(callWith({binder}, 1), {STDIN_FILENO}));
    EXPECT_TRUE(areRefused(callWith({binder}, 0), {STDIN_FILENO}));
    EXPECT_TRUE(areRefused(callWith({descriptor}, 1), {STDIN_FILENO, STDIN_FILENO}));
    EXPECT_TRUE(areRefused(callWith({descriptor}, 0), {STDIN_FILENO}));
}

TEST_F(MalformedFrames, AreNotThoseWithADescriptorOrderedRightly) {
    RawPeer peer(mAddress, RawHello());
    RawRecord descriptor;
    descriptor.kind = 2;
    peer.send(callWith({descriptor}, 1), {STDIN_FILENO});
    EXPECT_EQ(104u, peer.receive(104).size());
}

TEST_F(MalformedFrames, EndAnywhere) {
    const std::string sound = bytesOf(RawHello()) + callWith({RawRecord(), {24, 1, {}, {}}});
    for (size_t length = 0; length < sound.size(); ++length)
        RawPeer(mAddress).send(sound.substr(0, length));
}

TEST_F(MalformedFrames, CallWhatDoesNotExistAndMayGoOn) {
    RawPeer peer(mAddress, RawHello());
    RawHeader call = callHeader();
    call.target.low ^= 1;
    peer.send(bytesOf(call));
    RawHeader reply;
    reply.kind = 3;
    reply.code = static_cast<uint32_t>(DEAD_OBJECT);
    EXPECT_EQ(bytesOf(reply), peer.receive(40));
    peer.send(bytesOf(callHeader()));
    reply.code = 0;
    EXPECT_EQ(bytesOf(reply), peer.receive(40));
}

TEST_F(MalformedFrames, NameObjectsThatDoNotExist) {
    const RawId unknown{0x3333, 0x4444};
    for (const RawId& owner : {RawId(), unknown, RawHello().sender, mAddress.owner}) {
        for (const RawId& token : {RawId(), unknown}) {
            RawPeer peer(mAddress, RawHello());
            peer.send(callWith({{0, 1, owner, token}}));
            EXPECT_LE(40u, peer.receive(40).size());
        }
    }
}

TEST_F(MalformedFrames, AnswerWhatNobodyAsked) {
    RawHeader reply = callHeader();
    reply.kind = 3;
    EXPECT_TRUE(areRefused(bytesOf(reply)));
    RawHello oneway;
    oneway.kind = 3;
    for (const uint16_t kind : {1, 3}) {
        RawPeer peer(mAddress, oneway);
        RawHeader header = callHeader();
        header.kind = kind;
        peer.send(bytesOf(header));
        EXPECT_TRUE(peer.isHungUpOn()) << kind;
    }
}

class MalformedLink : public MalformedFrames {
  protected:
    /// Says @p messages on a link and closes it, and waits until the service has noticed.
    void say(const std::string& messages) {
        RawHello hello;
        hello.kind = 1;
        RawPeer(mAddress, hello).send(messages);
    }
};

TEST_F(MalformedLink, GivesBackWhatItNeverHad) {
    for (const uint32_t count : {0u, 1u, 1000u, 0x80000000u, 0xffffffffu})
        say(bytesOf(RawLinkMessage{2, count, mAddress.token, {}}));
    const sp<IBinder> made = askForObject(mService.object(), kMake);
    EXPECT_EQ(NO_ERROR, made->pingBinder());
}

TEST_F(MalformedLink, PassesOnToNobody) {
    for (const RawId& beneficiary : {RawId(), RawId{5, 6}, mAddress.owner, RawHello().sender}) {
        say(bytesOf(RawLinkMessage{3, 1, mAddress.token, beneficiary}));
        say(bytesOf(RawLinkMessage{3, 1, {5, 6}, beneficiary}));
    }
}

TEST_F(MalformedLink, TakesBackWhatItNeverPassedOn) {
    for (const RawId& beneficiary : {RawId(), RawId{5, 6}, RawHello().sender}) {
        say(bytesOf(RawLinkMessage{4, 1, mAddress.token, beneficiary}));
        say(bytesOf(RawLinkMessage{4, 1, {5, 6}, beneficiary}));
    }
}

TEST_F(MalformedLink, SaysWhatNobodyUnderstands) {
    for (const uint32_t kind : {0u, 5u, 0xffffffffu})
        say(bytesOf(RawLinkMessage{kind, 1, mAddress.token, {}}));
}

TEST_F(MalformedLink, EndsInTheMiddleOfAMessage) {
    const std::string message = bytesOf(RawLinkMessage{1, 1, mAddress.token, {}});
    for (size_t length = 0; length < message.size(); ++length)
        say(message.substr(0, length));
}

}  // namespace
}  // namespace accessory::test
