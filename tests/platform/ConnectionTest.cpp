// The parts of the transport that can be looked at alone: what they wait for and what memory they keep. A
// program of its own: see CountingHeap.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <array>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "Contained.h"
#include "socket/Connection.h"
#include "socket/Node.h"
#include "socket/SharedBlock.h"
#include "tests/platform/CountingHeap.h"

namespace accessory::test {
namespace {

using namespace android::runtime;  // NOLINT(google-build-using-namespace): the tests' subject

constexpr uint32_t kLargeAnswer = 1'000'000;

class TransportConnection : public testing::Test {
  protected:
    TransportConnection() {
        std::array<int, 2> ends{};
        EXPECT_EQ(0, socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()));
        connection =
            std::make_unique<Connection>(RuntimeFd(ends[0]), ConnectionKind::kCall, peer, Credentials{});
        other = RuntimeFd(ends[1]);
    }

    /// Sends an answer of which the socket takes a part.
    void answer() {
        FrameHeader header;
        header.kind = FrameKind::kReply;
        header.dataSize = kLargeAnswer;
        const std::string data(kLargeAnswer, 'x');
        EXPECT_EQ(android::NO_ERROR, connection->send(header, data.data(), {}, {}));
        EXPECT_TRUE(connection->hasUnsent());
    }

    /// Reads all that comes until nothing is left to be sent.
    void readAll() {
        std::array<char, 4096> room{};
        do {
            while (recv(other.get(), room.data(), room.size(), MSG_DONTWAIT) > 0) {
            }
        } while (!connection->flush());
    }

    const std::shared_ptr<Peer> peer = Node::instance().peers.get(PeerId{Secret::random()});
    std::unique_ptr<Connection> connection;
    RuntimeFd other;
};

// A caller who sends a byte now and then would hold the thread as long as it likes otherwise.
TEST_F(TransportConnection, WaitsBrieflyForTheFirstPieceOfAFrameOnly) {
    constexpr std::chrono::seconds kBriefly{20};
    connection->setTimeLimits(kBriefly, kBriefly);
    const FrameHeader header;
    ASSERT_EQ(1, send(other.get(), &header, 1, 0));
    const auto begin = std::chrono::steady_clock::now();
    Frame frame;
    EXPECT_EQ(Received::kNothing, connection->receive(&frame, Wait::kBriefly));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, kBriefly);
}

TEST_F(TransportConnection, CountsWhatItHoldsUntilItsAnswersAreRead) {
    answer();
    EXPECT_LE(kLargeAnswer / 2, connection->held());
    readAll();
    EXPECT_EQ(0u, connection->held());
}

TEST_F(TransportConnection, HoldsNoMemoryOnceItsAnswersAreRead) {
    answer();
    readAll();
    const ptrdiff_t before = bytesHeld();
    answer();
    EXPECT_LT(before, bytesHeld());
    readAll();
    EXPECT_EQ(before, bytesHeld());
}

// What comes back counts for whoever sent it until it is here, and would be kept alive for ever otherwise.
TEST_F(TransportConnection, GivesBackTheObjectsOfACallForWhichThereIsNoMemory) {
    Node& node = Node::instance();
    FrameHeader header;
    header.dataSize = kLargeAnswer;
    header.objectCount = 2;
    std::string call(reinterpret_cast<const char*>(&header), sizeof(header));
    call.append(kLargeAnswer, '\0');
    for (uint32_t offset : {0U, 24U}) {
        ObjectRecord record;
        record.offset = offset;
        record.owner = node.id;
        record.token = node.exports.lend(new android::BBinder, peer->homecoming());
        call.append(reinterpret_cast<const char*>(&record), sizeof(record));
    }
    EXPECT_EQ(2u, node.exports.size());
    std::thread sender([&] { send(other.get(), call.data(), call.size(), 0); });
    Frame frame;
    {
        const Exhaustion exhaustion(kLargeAnswer);
        EXPECT_EQ(Received::kFrame, connection->receive(&frame, Wait::kForever));
    }
    sender.join();
    EXPECT_EQ(nullptr, frame.body.bytes());
    EXPECT_EQ(0u, node.exports.size());
}

TEST(SharedBlock, HasItsMemoryBeforeItIsWritten) {
    const std::unique_ptr<SharedBlock> block = SharedBlock::create();
    ASSERT_NE(nullptr, block);
    struct stat file {};
    ASSERT_EQ(0, fstat(block->fd(), &file));
    EXPECT_EQ(off_t{1024 * 1024}, file.st_size);
    EXPECT_LE(blkcnt_t{2048}, file.st_blocks) << "of 512 bytes";
}

/// Has more to say than fits into a string without memory.
class Verbose : public std::exception {
  public:
    const char* what() const noexcept override { return "an explanation that goes on and on and on"; }
};

TEST(ContainedException, IsToldWithoutMemoryForItsText) {
    std::optional<std::string> thrown;
    {
        const Exhaustion exhaustion;
        EXPECT_NO_THROW(thrown = thrownBy([] { throw Verbose(); }));
    }
    EXPECT_EQ("no memory", thrown);
}

}  // namespace
}  // namespace accessory::test
