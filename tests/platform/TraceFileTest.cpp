// The bytes of a capture, spelt by hand.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "socket/Frame.h"
#include "trace/Blocks.h"
#include "trace/InterfaceName.h"
#include "trace/Recorder.h"
#include "trace/Trace.h"

namespace accessory::test {
namespace {

using namespace android::runtime;         // NOLINT(google-build-using-namespace): the tests' vocabulary
using namespace android::runtime::trace;  // NOLINT(google-build-using-namespace)

/// Little endian, as on the machines this runs on.
std::string bytes(uint64_t value, size_t size) {
    std::string text;
    for (size_t i = 0; i < size; ++i)
        text += static_cast<char>(value >> (8 * i));
    return text;
}
std::string u16(uint64_t value) { return bytes(value, 2); }
std::string u32(uint64_t value) { return bytes(value, 4); }
std::string u64(uint64_t value) { return bytes(value, 8); }

constexpr char kNul = '\0';

TEST(TraceFile, BeginsWithASectionAndAnInterfaceOfItsLinkType) {
    const std::string section = u32(0x0a0d0d0a) + u32(52) + u32(0x1a2b3c4d) + u16(1) + u16(0) +
                                u64(0xffffffffffffffff) +                           //
                                u16(1) + u16(5) + "hello" + std::string(3, kNul) +  // comment
                                u16(4) + u16(4) + "prog" +                          // application
                                u16(0) + u16(0) + u32(52);
    const std::string interface = u32(1) + u32(44) + u16(147) + u16(0) + u32(0) + u16(2) + u16(6) + "binder" +
                                  std::string(2, kNul) +                             // name
                                  u16(9) + u16(1) + "\x09" + std::string(3, kNul) +  // nanoseconds
                                  u16(0) + u16(0) + u32(44);
    EXPECT_EQ(fileBeginning("prog", "hello"), section + interface);
}

TEST(TraceFile, HasNoCommentWithoutANote) {
    EXPECT_EQ(fileBeginning("prog", "").substr(24, 4), u16(4) + u16(4));
}

TEST(TraceFile, TellsHowManyPacketsFoundNoRoom) {
    EXPECT_EQ(statistics(0x0000000a0000000b, 7, 3),
              u32(5) + u32(52) + u32(0) + u32(0xa) + u32(0xb) +  //
                  u16(4) + u16(8) + u64(7) +                     // received
                  u16(5) + u16(8) + u64(3) +                     // dropped
                  u16(0) + u16(0) + u32(52));
}

std::string token(const std::string& name) {
    std::string text = u32(0) + u32(0xffffffff) + u32(name.size());
    for (const char c : name)
        text += std::string(1, c) + kNul;
    return text + std::string(2, kNul);
}

std::string nameIn(const std::string& request) {
    InterfaceName name;
    name.find(reinterpret_cast<const uint8_t*>(request.data()), request.size());
    return std::string(name.text(), name.size());
}

TEST(TraceFile, FindsTheInterfaceInTheRequest) {
    EXPECT_EQ(nameIn(token("com.example.IThing")), "com.example.IThing");
    EXPECT_EQ(nameIn(token("com.example.IThing") + "arguments"), "com.example.IThing");
    EXPECT_EQ(nameIn(token(std::string(127, 'x'))), std::string(127, 'x'));
}

TEST(TraceFile, FindsNoInterfaceInWhatIsNoToken) {
    EXPECT_EQ(nameIn(""), "");
    EXPECT_EQ(nameIn(token("a").substr(0, 15)), "");
    EXPECT_EQ(nameIn(token("with space")), "");
    EXPECT_EQ(nameIn(token("\x80")), "");
    EXPECT_EQ(nameIn(token(std::string(128, 'x'))), "");
    EXPECT_EQ(nameIn(u32(0) + u32(0) + u32(0xffffffff)), "");
    EXPECT_EQ(nameIn(u32(0) + u32(0) + u32(0x7fffffff) + std::string(100, 'x')), "");
}

TEST(TraceFile, TellsObjectsApartWithoutGivingTheirTokensAway) {
    Token token;
    EXPECT_EQ(identityOf(token), 0U);
    token.low = 5;
    EXPECT_EQ(identityOf(token), 5U);
    token.high = 1;
    EXPECT_EQ(identityOf(token), 0x9e3779b97f4a7c15 ^ 5);
}

/// A recorder into a file that has no name, and what is in that.
class TraceRecorder : public testing::Test {
  protected:
    explicit TraceRecorder(size_t capacity = 4096)
        : recorder(RuntimeFd(dup(fileno(mFile.get()))), capacity) {}

    std::string content() const {
        std::string text(65536, kNul);
        const ssize_t got = pread(fileno(mFile.get()), text.data(), text.size(), 0);
        text.resize(static_cast<size_t>(got));
        return text;
    }

  private:
    const std::unique_ptr<FILE, int (*)(FILE*)> mFile{tmpfile(), &fclose};

  protected:
    Recorder recorder;
};

class SmallTraceRecorder : public TraceRecorder {
  protected:
    SmallTraceRecorder() : TraceRecorder(128) {}
};

PacketHeader reply() {
    PacketHeader header;
    header.kind = PacketKind::kReply;
    header.direction = Direction::kIn;
    header.number = 9;
    header.code = 13;
    header.flags = 0x10;
    header.status = -5;
    header.peerPid = 42;
    header.peerUid = 43;
    header.object = 0x1122334455667788;
    header.objectCount = 1;
    header.dataSize = 26;
    return header;
}

TEST_F(TraceRecorder, WritesAPacketAsItsFormIsTold) {
    const std::string request = token("ab.IC");
    InterfaceName name;
    name.find(reinterpret_cast<const uint8_t*>(request.data()), request.size());
    ObjectRecord record;
    record.token.low = 77;
    const std::string data = std::string(24, kNul) + "yz";
    recorder.record(0x0000000100000002, {reply(), name, data.data(), &record});
    recorder.flush();
    const std::string packet = std::string("\x01\x02\x02", 3) + kNul +        // version, reply, in
                               u32(96) + u64(9) + u32(13) + u32(0x10) +       // header, number, code, flags
                               u32(0xfffffffb) + u32(1) + u32(5) + u32(26) +  // status, objects, name, data
                               u32(static_cast<uint32_t>(getpid())) + u32(geteuid()) + u32(42) + u32(43) +
                               u32(static_cast<uint32_t>(gettid())) + u32(0) + u64(0x1122334455667788) +
                               u32(0) + u32(1) + u64(77) +  // object: offset, binder, identity
                               "ab.IC" + std::string(3, kNul) + data;
    ASSERT_EQ(packet.size(), 122U);
    EXPECT_EQ(content(), u32(6) + u32(168) + u32(0) + u32(1) + u32(2) + u32(122) + u32(122) + packet +
                             std::string(2, kNul) +                        // a whole word
                             u16(2) + u16(4) + u32(1) + u16(0) + u16(0) +  // flags: came in
                             u32(168));
}

TEST_F(SmallTraceRecorder, CountsWhatFindsNoRoomAndSaysSo) {
    InterfaceName name;
    name.clear();
    PacketHeader header;
    for (int i = 0; i < 4; ++i)
        recorder.record(1, {header, name});
    recorder.flush();
    const std::string all = content();
    ASSERT_EQ(all.size(), 116U + 52U);  // one packet, and the counts
    EXPECT_EQ(all.substr(116, 8), u32(5) + u32(52));
    EXPECT_EQ(all.substr(136, 24), u16(4) + u16(8) + u64(1) + u16(5) + u16(8) + u64(3));
    recorder.flush();
    EXPECT_EQ(content().size(), all.size());
    recorder.record(1, {header, name});
    recorder.finish();
    EXPECT_EQ(content().size(), 2 * all.size());
}

}  // namespace
}  // namespace accessory::test
