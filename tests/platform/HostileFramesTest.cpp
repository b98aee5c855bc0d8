// Frames with every bit wrong, cut at every place, and with descriptors where none belong.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/platform/OwnService.h"

namespace accessory::test {
namespace {

class HostileFrames : public OwnService {
  protected:
    /// Whether @p bytes on a fresh connection cost it.
    bool areRefused(const std::string& bytes, const std::vector<int>& fds = {}, uint32_t kind = kCalls) {
        RawPeer peer(address(), helloFor(kind));
        peer.send(bytes, fds);
        return peer.isHungUpOn();
    }

    /// Whether @p bytes are answered with a frame, when @p rest comes a moment later.
    bool areAnswered(const std::string& bytes, const std::string& rest = {}) {
        RawPeer peer(address(), RawHello());
        peer.send(bytes);
        if (!rest.empty()) peer.send(rest);
        return peer.receive(40).size() == 40;
    }

    /// A call with as many records of descriptors, that announces @p announced and brings @p sent of them.
    bool isRefusedWith(uint32_t records, uint8_t announced, size_t sent) {
        RawPeer peer(address(), RawHello());
        const std::string call = callWithDescriptors(records, announced);
        peer.send(call, std::vector<int>(sent, STDIN_FILENO));
        const size_t whole = 40 + size_t{records} * 64;
        return peer.receive(whole).size() != whole;
    }

    std::string callWithDescriptors(uint32_t records, uint8_t announced) const {
        RawHeader header = callHeader(24 * records);
        header.objectCount = records;
        header.descriptorCount = announced;
        std::string bytes = bytesOf(header) + std::string(header.dataSize, '\0');
        for (uint32_t i = 0; i < records; ++i)
            bytes += bytesOf(RawRecord{24 * i, 2, {}, {}});
        return bytes;
    }
};

std::string withBitFlipped(std::string bytes, size_t byte, int bit) {
    bytes[byte] = static_cast<char>(bytes[byte] ^ (1 << bit));
    return bytes;
}

// Protocol, kind, descriptors and objects leave no choice.
TEST_F(HostileFrames, CostTheConnectionWithAnyBitOfTheirNatureWrong) {
    const std::string call = soundCall();
    for (const size_t byte : {0, 1, 2, 3, 4, 5, 6, 20, 21, 22, 23}) {
        for (int bit = 0; bit < 8; ++bit)
            EXPECT_TRUE(areRefused(withBitFlipped(call, byte, bit))) << byte << '.' << bit;
    }
    EXPECT_TRUE(leadsTo("it breaks the protocol", [&] { areRefused(withBitFlipped(call, 0, 0)); }));
}

TEST_F(HostileFrames, AreAnsweredWithAnyCodeFlagsAndTarget) {
    const std::string call = soundCall();
    for (size_t byte = 8; byte < 40; ++byte) {
        if (byte >= 16 && byte < 24) continue;
        for (int bit = 0; bit < 8; ++bit)
            EXPECT_TRUE(areAnswered(withBitFlipped(call, byte, bit))) << byte << '.' << bit;
    }
}

TEST_F(HostileFrames, MaySayOfSharingOnlyThatTheyMapABlock) {
    for (int bit = 0; bit < 8; ++bit) {
        const std::string call = withBitFlipped(soundCall(), 7, bit);
        EXPECT_TRUE(bit == 1 ? areAnswered(call) : areRefused(call)) << bit;
    }
}

TEST_F(HostileFrames, AreWaitedForAsLongAsTheySayUpToTheLargestParcel) {
    const std::string call = soundCall();
    for (int bit = 0; bit < 32; ++bit) {
        const std::string wrong = withBitFlipped(call, 16 + static_cast<size_t>(bit / 8), bit % 8);
        if (bit == 2 || bit >= 20) {
            EXPECT_TRUE(areRefused(wrong)) << bit;
        } else {
            EXPECT_TRUE(areAnswered(wrong, std::string(size_t{1} << bit, 'x'))) << bit;
        }
    }
    EXPECT_TRUE(areAnswered(bytesOf(callHeader(1040384)), std::string(1040384, 'x')));
    EXPECT_TRUE(areRefused(bytesOf(callHeader(1040385))));
}

TEST_F(HostileFrames, HaveExtremesInEveryFieldOfTheirHeader) {
    for (const uint32_t extreme : {0u, 2u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        RawHeader header = callHeader();
        header.code = extreme;
        header.flags = extreme;
        header.target = {extreme, extreme};
        EXPECT_TRUE(areAnswered(bytesOf(header))) << extreme;
        header = callHeader();
        header.protocol = extreme;
        EXPECT_TRUE(areRefused(bytesOf(header))) << extreme;
        header = callHeader(24);
        header.objectCount = extreme == 0 ? 2 : extreme;
        EXPECT_TRUE(areRefused(bytesOf(header) + std::string(64, '\0'))) << extreme;
    }
}

TEST_F(HostileFrames, OnAOnewayConnectionCostItJustSo) {
    RawHeader header = callHeader(4);
    header.kind = 2;
    const std::string oneway = bytesOf(header) + "abcd";
    for (const size_t byte : {0, 1, 2, 3, 4, 5, 6, 7, 20, 21, 22, 23}) {
        for (int bit = 0; bit < 8; ++bit)
            EXPECT_TRUE(areRefused(withBitFlipped(oneway, byte, bit), {}, kOneway)) << byte << '.' << bit;
    }
}

TEST_F(HostileFrames, BeginWithAHelloThatHasAnyBitOfProtocolOrKindWrong) {
    for (size_t byte = 0; byte < 8; ++byte) {
        for (int bit = 0; bit < 8; ++bit) {
            // One kind is a bit away from another.
            if (byte == 4 && bit == 0) continue;
            RawPeer peer(address());
            peer.send(withBitFlipped(bytesOf(RawHello()), byte, bit));
            EXPECT_TRUE(peer.isHungUpOn()) << byte << '.' << bit;
        }
    }
    EXPECT_TRUE(leadsTo("it does not speak this version of the protocol",
                        [&] { RawPeer(address(), helloFor(4)).isHungUpOn(); }));
}

TEST_F(HostileFrames, MayComeInTwoPiecesCutAnywhere) {
    const std::string sound = bytesOf(RawHello()) + soundCall();
    for (size_t cut = 1; cut < sound.size(); ++cut) {
        RawPeer peer(address());
        peer.send(sound.substr(0, cut));
        peer.send(sound.substr(cut));
        EXPECT_TRUE(isAnswered(peer)) << cut;
    }
}

TEST_F(HostileFrames, MayComeByteByByteOnAllKindsOfConnections) {
    RawHeader header = callHeader(4);
    header.kind = 2;
    const std::string oneway = bytesOf(helloFor(kOneway)) + bytesOf(header) + "abcd";
    const std::string link = bytesOf(helloFor(kLink)) + bytesOf(RawLinkMessage{1, 1, address().token, {}});
    RawPeer onewayPeer(address());
    RawPeer linkPeer(address());
    for (const char byte : oneway)
        onewayPeer.send(std::string(1, byte));
    for (const char byte : link)
        linkPeer.send(std::string(1, byte));
    EXPECT_TRUE(serves());
    onewayPeer.send(std::string(40, '\0'));
    linkPeer.send(std::string(40, '\0'));
    EXPECT_TRUE(onewayPeer.isHungUpOn()) << "only now";
    EXPECT_TRUE(linkPeer.isHungUpOn()) << "only now";
}

TEST_F(HostileFrames, LoseTheDescriptorsThatComeWithTheirHelloOrOnALink) {
    const std::vector<int> fds(253, STDIN_FILENO);
    RawPeer calls(address());
    calls.send(bytesOf(RawHello()), fds);
    calls.send(soundCall());
    EXPECT_TRUE(isAnswered(calls));
    RawPeer link(address());
    link.send(bytesOf(helloFor(kLink)), fds);
    link.send(bytesOf(RawLinkMessage{1, 1, address().token, {}}), fds);
    EXPECT_TRUE(serves());
}

TEST_F(HostileFrames, CostTheConnectionWithDescriptorsThatNobodyAnnounced) {
    for (const size_t count : {size_t{1}, size_t{252}, size_t{253}})
        EXPECT_TRUE(areRefused(soundCall(), std::vector<int>(count, STDIN_FILENO))) << count;
}

TEST_F(HostileFrames, CostTheConnectionWithDescriptorsBeyondTheMostInPieces) {
    const std::vector<int> fds(253, STDIN_FILENO);
    RawPeer peer(address(), RawHello());
    const std::string call = callWithDescriptors(253, 253);
    peer.send(call.substr(0, 1), fds);
    peer.send(call.substr(1, 1), {STDIN_FILENO});
    EXPECT_TRUE(peer.isHungUpOn());
    EXPECT_TRUE(leadsTo("it breaks the protocol", [&] { areRefused("x" + soundCall()); }));
}

TEST_F(HostileFrames, MayBringTheirDescriptorsWithAnyByte) {
    const std::string call = callWithDescriptors(1, 1);
    for (size_t cut = 1; cut < call.size(); ++cut) {
        RawPeer peer(address(), RawHello());
        peer.send(call.substr(0, cut));
        peer.send(call.substr(cut), {STDIN_FILENO});
        EXPECT_EQ(104u, peer.receive(104).size()) << cut;
    }
}

TEST_F(HostileFrames, AreServedOnlyWhenRecordsAnnouncementAndDescriptorsAgree) {
    for (const uint32_t records : {0u, 1u, 253u, 254u}) {
        for (const uint32_t announced : {0u, 1u, 253u, 254u}) {
            for (const uint32_t sent : {0u, 1u, 253u}) {
                const bool agree = records == announced && announced == sent;
                EXPECT_EQ(!agree, isRefusedWith(records, static_cast<uint8_t>(announced), sent))
                    << records << ' ' << announced << ' ' << sent;
            }
        }
    }
}

TEST_F(HostileFrames, EndTheirLinkWithAMessageThatMakesNoSense) {
    for (const uint32_t kind : {0u, 5u, 0x80000001u, 0xffffffffu}) {
        RawPeer link(address(), helloFor(kLink));
        link.send(bytesOf(RawLinkMessage{kind, 1, address().token, {}}));
        EXPECT_TRUE(link.isHungUpOn()) << kind;
    }
}

TEST_F(HostileFrames, MayClaimAnyNumberOfReferencesOnALink) {
    const RawId last{~uint64_t{0}, ~uint64_t{0}};
    for (const uint32_t kind : {1u, 2u, 3u, 4u}) {
        RawPeer link(address(), helloFor(kLink));
        for (const uint32_t count : {0u, 1u, 0x7fffffffu, 0xffffffffu}) {
            for (const RawId& id : {RawId(), RawId{0, 1}, last, address().token, address().owner})
                link.send(bytesOf(RawLinkMessage{kind, count, id, id}) +
                          bytesOf(RawLinkMessage{kind, count, address().token, id}));
        }
        EXPECT_TRUE(serves()) << kind;
    }
}

}  // namespace
}  // namespace accessory::test
