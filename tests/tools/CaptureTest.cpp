// Captures as files: what is read out of them, and what is said about those that are damaged.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "tests/tools/CaptureBytes.h"
#include "tools/capture/Calls.h"
#include "tools/capture/Capture.h"
#include "tools/capture/Decode.h"

namespace accessory::test {
namespace {

using testing::HasSubstr;
using tools::Capture;
using tools::CaptureError;
using tools::Packet;

constexpr char kNotifier[] = "accessory.AppleiAP2ManagerNotifier";

PacketBytes powerUpdate() {
    PacketBytes packet;
    packet.direction = 2;
    packet.number = 2;
    packet.code = 16;
    packet.descriptor = kNotifier;
    packet.data = tokenBytes(kNotifier) + cells({1, 0x30, 1, 62});
    return packet;
}

TEST(Capture, ReadsPacketsAndWhatIsToldAboutThem) {
    const TemporaryFile file(captureBeginning("accessory tables 0123456789abcdef") +
                             packetBlock(0x100000002, launch()));
    Capture capture(file.path());
    EXPECT_EQ(capture.program(), "prog");
    EXPECT_EQ(capture.tables(), "0123456789abcdef");
    EXPECT_EQ(capture.dropped(), 0U);
    EXPECT_FALSE(capture.damage().has_value());
    ASSERT_EQ(capture.places().size(), 1U);
    const Packet packet = capture.packetAt(capture.places()[0]);
    EXPECT_EQ(packet.time, 0x100000002U);
    EXPECT_EQ(packet.kind, Packet::kRequest);
    EXPECT_EQ(packet.direction, Packet::kOut);
    EXPECT_EQ(packet.number, 1U);
    EXPECT_EQ(packet.code, 13U);
    EXPECT_EQ(packet.pid, 100);
    EXPECT_EQ(packet.uid, 1000U);
    EXPECT_EQ(packet.peerPid, 200);
    EXPECT_EQ(packet.peerUid, 1001U);
    EXPECT_EQ(packet.tid, 101);
    EXPECT_EQ(packet.object, 0xabcU);
    EXPECT_EQ(packet.descriptor, kManager);
    EXPECT_EQ(std::string(packet.data.begin(), packet.data.end()), launch().data);
}

TEST(Capture, MergesSeveralByTime) {
    const TemporaryFile one(captureBeginning() + packetBlock(10, launch()) + packetBlock(30, launchReply()));
    const TemporaryFile other(captureBeginning() + packetBlock(25, powerUpdate()) +
                              packetBlock(5, powerUpdate()));
    tools::Captures captures({one.path(), other.path()});
    std::vector<uint64_t> times;
    captures.forEach([&](const Capture& capture, const Packet& packet) {
        EXPECT_EQ(capture.path(), packet.code == 13 ? one.path() : other.path());
        times.push_back(packet.time);
    });
    EXPECT_THAT(times, testing::ElementsAre(5, 10, 25, 30));
}

/// What the reader says about such a file.
std::string complaint(const std::string& content) {
    const TemporaryFile file(content);
    try {
        const Capture capture(file.path());
        if (!capture.damage().has_value()) return {};
        const std::string text = capture.damage()->what();
        return text.substr(file.path().size());
    } catch (const CaptureError& error) {
        return std::string(error.what()).substr(file.path().size());
    }
}

TEST(Capture, SaysWhatIsWrongAndWhere) {
    const std::string begin = captureBeginning();
    const std::string packet = packetBlock(1, launch());
    const std::string at = std::to_string(begin.size());
    EXPECT_EQ(complaint(""), ", byte 0: the file is empty");
    EXPECT_EQ(complaint("Hello, this is text and nothing else."), ", byte 0: this is no pcapng file");
    EXPECT_EQ(complaint(cells({0x0a0d0d0a, 28, 0x4d3c2b1a, 1, -1, -1, 28})),
              ", byte 0: written on a machine of the other byte order");
    EXPECT_EQ(complaint(begin + packet.substr(0, packet.size() - 1)),
              ", byte " + at + ": the file ends in the middle of a block");
    EXPECT_EQ(complaint(begin + cells({6, 13, 0, 13})), ", byte " + at + ": a block of 13 bytes");
    EXPECT_EQ(complaint(begin + cells({6, 16, 0, 20})),
              ", byte " + at + ": a block ends with another size than it begins with");
    EXPECT_EQ(complaint(begin + packetBlock(1, "short")), ", byte " + at + ": a packet of 5 bytes");
    EXPECT_EQ(complaint(begin + packetBlock(1, "\x02" + launch().bytes().substr(1))),
              ", byte " + at + ": a packet of version 2");
    EXPECT_EQ(complaint(begin + packetBlock(1, launch().bytes() + "x")),
              ", byte " + at + ": a packet whose sizes do not agree");
    EXPECT_EQ(complaint(begin + packet + packet), "");
    std::string ethernet = begin;
    ethernet[ethernet.find('\x93')] = 1;
    EXPECT_THAT(complaint(ethernet),
                HasSubstr("packets of link type 1, not 147: no capture of transactions"));
}

TEST(Capture, RefusesObjectsThatAreNotWithinTheData) {
    PacketBytes packet = launch();
    packet.binders = {static_cast<uint32_t>(packet.data.size() - 20)};
    EXPECT_THAT(complaint(captureBeginning() + packetBlock(1, packet)),
                HasSubstr("a packet whose objects are not within its data"));
    packet.binders = {0, 20};
    EXPECT_NE(complaint(captureBeginning() + packetBlock(1, packet)), "");
    packet.binders = {0, 24};
    EXPECT_EQ(complaint(captureBeginning() + packetBlock(1, packet)), "");
}

/// Reads everything that can be read, as the verbs do.
void readThrough(const TemporaryFile& file) {
    try {
        tools::Captures captures({file.path()});
        tools::CallList calls;
        captures.forEach([&calls](const Capture& /*capture*/, const Packet& packet) { calls.add(packet); });
        calls.finish();
    } catch (const CaptureError& error) {
        EXPECT_STRNE(error.what(), "");
    }
}

std::string smallCapture() {
    PacketBytes registration;
    registration.code = 1;
    registration.number = 3;
    registration.descriptor = kManager;
    registration.data = tokenBytes(kManager) + std::string(24, '\0');
    registration.binders = {static_cast<uint32_t>(registration.data.size() - 24)};
    return captureBeginning("accessory tables 0123456789abcdef") + packetBlock(1, launch()) +
           packetBlock(2, launchReply()) + packetBlock(3, powerUpdate()) + packetBlock(4, registration);
}

TEST(Capture, SurvivesEveryCutOfAFile) {
    const std::string whole = smallCapture();
    const TemporaryFile file;
    for (size_t size = 0; size < whole.size(); ++size) {
        file.set(whole.substr(0, size));
        readThrough(file);
    }
}

TEST(Capture, SurvivesEveryWrongByteOfAFile) {
    const std::string whole = smallCapture();
    const TemporaryFile file;
    for (size_t at = 0; at < whole.size(); ++at) {
        for (const char change : {'\x01', '\x80', '\xff'}) {
            std::string wrong = whole;
            wrong[at] = static_cast<char>(wrong[at] ^ change);
            file.set(wrong);
            readThrough(file);
        }
    }
}

Packet parsed(const PacketBytes& packet) {
    const std::string bytes = packet.bytes();
    Packet made;
    EXPECT_EQ(tools::parsePacket(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), &made), "");
    return made;
}

TEST(DecodePacket, NamesOperationAndFields) {
    const tools::Decoded decoded = tools::decodePacket(parsed(launch()));
    EXPECT_EQ(decoded.name, "IAppleiAP2Manager.launchAPP");
    EXPECT_EQ(decoded.content["accId"].asUInt(), 7U);
    EXPECT_EQ(decoded.content["appId"], "com.example.maps");
    EXPECT_EQ(tools::decodePacket(parsed(launchReply())).content["result"], -5);
    EXPECT_EQ(tools::decodePacket(parsed(powerUpdate())).content["power"]["chargeLevel"], 62);
}

TEST(DecodePacket, NamesWhatHasNoRow) {
    PacketBytes packet;
    packet.code = 0x5f504e47;
    EXPECT_EQ(tools::decodePacket(parsed(packet)).name, "ping");
    packet.code = 7;
    EXPECT_EQ(tools::decodePacket(parsed(packet)).name, "code 7");
    packet.descriptor = "com.example.IOther";
    EXPECT_EQ(tools::decodePacket(parsed(packet)).name, "com.example.IOther code 7");
    packet.descriptor = kManager;
    EXPECT_EQ(tools::decodePacket(parsed(packet)).error.substr(0, 16), "not a request of");
}

TEST(DecodePacket, ShowsThatABinderTravelled) {
    PacketBytes packet;
    packet.code = 1;
    packet.descriptor = kManager;
    packet.data = tokenBytes(kManager) + std::string(24, '\0');
    packet.binders = {static_cast<uint32_t>(packet.data.size() - 24)};
    EXPECT_EQ(tools::decodePacket(parsed(packet)).content["notifier"], "a notifier");
}

std::vector<tools::Call> callsOf(const std::vector<std::pair<uint64_t, PacketBytes>>& packets) {
    tools::CallList list;
    for (const auto& [time, bytes] : packets) {
        Packet packet = parsed(bytes);
        packet.time = time;
        list.add(packet);
    }
    return list.finish();
}

/// The same packet as the other process sees it.
PacketBytes onTheOtherSide(PacketBytes packet, uint64_t number) {
    packet.direction = packet.direction == 1 ? 2 : 1;
    packet.number = number;
    std::swap(packet.pid, packet.peerPid);
    packet.tid = 201;
    return packet;
}

TEST(CallList, PutsRequestsAndRepliesTogether) {
    const auto calls =
        callsOf({{10, launch()}, {30, launchReply()}, {40, powerUpdate()}, {50, launchReply()}});
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].isMade);
    EXPECT_TRUE(calls[0].isEnded);
    EXPECT_EQ(calls[0].begin, 10U);
    EXPECT_EQ(calls[0].end, 30U);
    EXPECT_EQ(calls[0].reply["result"], -5);
    EXPECT_FALSE(calls[1].isMade);
    EXPECT_FALSE(calls[1].isEnded);
    EXPECT_EQ(calls[1].end, 50U);
}

TEST(CallList, FindsTheOtherSideOfACall) {
    const auto calls = callsOf({{10, launch()},
                                {12, onTheOtherSide(launch(), 71)},
                                {20, onTheOtherSide(launchReply(), 71)},
                                {30, launchReply()}});
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].other, tools::Call::kNone);
    EXPECT_EQ(calls[1].other, 0U);
}

TEST(CallList, KeepsCallsOfTheSameContentApartByTheirTime) {
    PacketBytes second = launch();
    second.number = 2;
    const auto calls = callsOf({{10, launch()},
                                {30, launchReply()},
                                {40, second},
                                {45, onTheOtherSide(launch(), 72)},
                                {46, onTheOtherSide(launchReply(), 72)}});
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_EQ(calls[2].other, 1U);
}

}  // namespace
}  // namespace accessory::test
