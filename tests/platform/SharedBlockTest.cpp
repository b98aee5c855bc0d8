// Large calls, whose data go through shared memory: what travels, what a hostile peer may claim, and what the
// memory costs.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <thread>
#include <vector>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr size_t kBlockBytes = size_t{1024} * 1024;
constexpr uint8_t kOffersBlock = 1;
constexpr uint8_t kMapsBlock = 2;
constexpr uint8_t kDataInBlock = 4;

/// Bytes that differ from word to word and from call to call.
std::vector<int32_t> pattern(size_t bytes, int32_t seed) {
    std::vector<int32_t> words(bytes / sizeof(int32_t));
    int32_t next = seed;
    std::generate(words.begin(), words.end(), [&next] { return next += 7; });
    return words;
}

/// Whether an echo of @p bytes brings back what was sent.
bool isEchoed(const sp<IBinder>& object, size_t bytes, int32_t seed) {
    const std::vector<int32_t> words = pattern(bytes, seed);
    Call call(object, kEcho);
    call.request.write(words.data(), bytes);
    return call.run() == NO_ERROR && call.reply.dataSize() == bytes &&
           std::equal(words.begin(), words.end(), reinterpret_cast<const int32_t*>(call.reply.data()));
}

/// How many blocks this process maps, its own and those of others.
int mappedBlocks() {
    std::ifstream maps("/proc/self/maps");
    int blocks = 0;
    for (std::string line; std::getline(maps, line);)
        blocks += line.find("memfd:binder") != std::string::npos ? 1 : 0;
    return blocks;
}

TEST(SharedBlocks, CarryCallsOfEverySizeBothWays) {
    const ServiceProcess service;
    for (int32_t round = 0; round < 3; ++round) {
        for (const size_t bytes : {4u, 16380u, 16384u, 16388u, 65536u, 524288u, 1040384u, 8u})
            EXPECT_TRUE(isEchoed(service.object(), bytes, round)) << bytes;
    }
    EXPECT_EQ(2, mappedBlocks()) << "one each way";
}

TEST(SharedBlocks, AreNotUsedForSmallCalls) {
    const ServiceProcess service;
    for (int32_t round = 0; round < 10; ++round)
        EXPECT_TRUE(isEchoed(service.object(), 4096, round));
    EXPECT_EQ(0, mappedBlocks());
}

TEST(SharedBlocks, CarryTheDataBesideObjects) {
    const ServiceProcess service;
    const sp<IBinder> object = new FunctionObject([](auto&&...) { return NO_ERROR; });
    for (int round = 0; round < 3; ++round) {
        Call call(service.object(), kEcho);
        call.request.setDataSize(50'000);
        call.request.setDataPosition(50'000);
        call << object << round;
        ASSERT_EQ(NO_ERROR, call.run());
        call.reply.setDataPosition(50'000);
        EXPECT_EQ(object, call.reply.readStrongBinder());
        EXPECT_EQ(round, call.reply.readInt32());
    }
}

TEST(SharedBlocks, CarryNestedCalls) {
    const ServiceProcess service;
    int depth = 0;
    sp<IBinder> back;
    back = new FunctionObject([&](uint32_t, const Parcel& data, Parcel* reply, uint32_t) {
        if (depth < 5) {
            ++depth;
            EXPECT_TRUE(isEchoed(service.object(), 100'000, depth));
        }
        return reply->appendFrom(&data, 0, data.dataSize());
    });
    for (int round = 0; round < 3; ++round)
        EXPECT_TRUE(isEchoed(service.object(), 200'000, round));
    ask(service.object(), kKeep, back);
    Call call(service.object(), kAskKept);
    call << int32_t{kEcho};
    EXPECT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(1, depth);
    ask(service.object(), kDrop);
}

TEST(SharedBlocks, AreOnlySoManyHoweverManyCallsThereAreAtOnce) {
    constexpr int kCallers = 40;
    const ServiceProcess service;
    std::vector<std::thread> callers;
    std::atomic<int> sound{0};
    for (int caller = 0; caller < kCallers; ++caller) {
        callers.emplace_back([&, caller] {
            for (int32_t round = 0; round < 5; ++round)
                sound += isEchoed(service.object(), 100'000, caller * 100 + round) ? 1 : 0;
        });
    }
    for (std::thread& caller : callers)
        caller.join();
    EXPECT_EQ(kCallers * 5, sound);
    EXPECT_LE(mappedBlocks(), 16 + 64);
}

TEST(SharedBlocks, AreDoneWithoutWhenDescriptorsHaveRunOut) {
    const ServiceProcess service;
    EXPECT_TRUE(isEchoed(service.object(), 8, 0));
    ASSERT_TRUE(leaveDescriptors(0));
    EXPECT_TRUE(isEchoed(service.object(), 100'000, 1));
    EXPECT_TRUE(isEchoed(service.object(), 100'000, 2));
    leaveDescriptors(-1);
    ask(service.object(), kLeaveFree, 0);
    EXPECT_TRUE(isEchoed(service.object(), 100'000, 3));
    EXPECT_TRUE(isEchoed(service.object(), 100'000, 4));
    ask(service.object(), kLeaveFree, -1);
    EXPECT_TRUE(isEchoed(service.object(), 100'000, 5));
}

/// A block of a hostile peer's own making.
class ForgedBlock {
  public:
    explicit ForgedBlock(size_t bytes = kBlockBytes, int seals = F_SEAL_SHRINK | F_SEAL_GROW)
        : mFd(memfd_create("binder", MFD_CLOEXEC | MFD_ALLOW_SEALING)) {
        EXPECT_EQ(0, ftruncate(mFd, static_cast<off_t>(bytes)));
        EXPECT_EQ(0, fcntl(mFd, F_ADD_SEALS, seals));
    }
    ~ForgedBlock() { close(mFd); }
    ForgedBlock(const ForgedBlock&) = delete;
    ForgedBlock& operator=(const ForgedBlock&) = delete;

    int fd() const { return mFd; }
    void write(const std::string& text) const {
        EXPECT_EQ(static_cast<ssize_t>(text.size()), pwrite(mFd, text.data(), text.size(), 0));
    }

  private:
    const int mFd;
};

class ForgedSharing : public testing::Test {
  protected:
    ~ForgedSharing() override { EXPECT_EQ(9, ask(mService.object(), kEcho, 9)); }

    RawHeader callHeader(uint8_t sharing, uint32_t dataSize) const {
        RawHeader header;
        header.target = mAddress.token;
        header.sharing = sharing;
        header.dataSize = dataSize;
        return header;
    }

    /// What a service says of sharing when it is offered @p block with a call of 4 bytes.
    int sharingOfReplyTo(RawPeer& peer, int block) const {
        peer.send(bytesOf(callHeader(kOffersBlock, 4)) + "abcd", {block});
        const std::string reply = peer.receive(44);
        return reply.size() == 44 ? static_cast<unsigned char>(reply[7]) : -1;
    }

    bool isRefused(uint8_t sharing, const std::vector<int>& fds = {}) const {
        RawPeer peer(mAddress, RawHello());
        peer.send(bytesOf(callHeader(sharing, 4)) + "abcd", fds);
        return peer.isHungUpOn();
    }

    const ServiceProcess mService;
    const RawAddress mAddress = RawAddress::of(mService.name());
};

TEST_F(ForgedSharing, IsNotThatOfASoundBlock) {
    RawPeer peer(mAddress, RawHello());
    const ForgedBlock block;
    EXPECT_EQ(kMapsBlock, sharingOfReplyTo(peer, block.fd()));
    block.write("in the block");
    peer.send(bytesOf(callHeader(kDataInBlock, 12)));
    EXPECT_EQ("in the block", peer.receive(52).substr(40));
}

TEST_F(ForgedSharing, OffersWhatCouldBeCutShort) {
    RawPeer peer(mAddress, RawHello());
    const ForgedBlock block(kBlockBytes, F_SEAL_GROW);
    EXPECT_EQ(0, sharingOfReplyTo(peer, block.fd()));
    peer.send(bytesOf(callHeader(kDataInBlock, 12)));
    EXPECT_TRUE(peer.isHungUpOn());
}

TEST_F(ForgedSharing, OffersABlockThatIsTooSmall) {
    for (const size_t bytes : {size_t{0}, size_t{4096}, kBlockBytes - 1}) {
        RawPeer peer(mAddress, RawHello());
        const ForgedBlock block(bytes);
        EXPECT_EQ(0, sharingOfReplyTo(peer, block.fd())) << bytes;
    }
}

TEST_F(ForgedSharing, OffersABlockOfHugePages) {
    const int block = memfd_create("binder", MFD_CLOEXEC | MFD_ALLOW_SEALING | MFD_HUGETLB);
    if (block < 0 || ftruncate(block, 2 * kBlockBytes) != 0 || fallocate(block, 0, 0, 2 * kBlockBytes) != 0) {
        close(block);
        GTEST_SKIP() << "the machine has no huge pages to spare";
    }
    EXPECT_EQ(0, fcntl(block, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW));
    RawPeer peer(mAddress, RawHello());
    EXPECT_EQ(0, sharingOfReplyTo(peer, block));
    close(block);
}

TEST_F(ForgedSharing, OffersWhatIsNoBlock) {
    int ends[2];
    ASSERT_EQ(0, pipe2(ends, O_CLOEXEC));
    const int folder = open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (const int fd : {ends[0], ends[1], folder}) {
        RawPeer peer(mAddress, RawHello());
        EXPECT_EQ(0, sharingOfReplyTo(peer, fd));
        close(fd);
    }
}

TEST_F(ForgedSharing, OffersABlockAgainAndAgain) {
    RawPeer peer(mAddress, RawHello());
    const ForgedBlock first;
    const ForgedBlock second;
    EXPECT_EQ(kMapsBlock, sharingOfReplyTo(peer, first.fd()));
    EXPECT_EQ(kMapsBlock, sharingOfReplyTo(peer, second.fd()));
    first.write("first!!!");
    second.write("second!!");
    peer.send(bytesOf(callHeader(kDataInBlock, 8)));
    EXPECT_EQ("first!!!", peer.receive(48).substr(40)) << "the first one counts";
}

TEST_F(ForgedSharing, OffersMoreBlocksThanAnyoneNeeds) {
    std::vector<std::unique_ptr<RawPeer>> peers;
    const ForgedBlock block;
    int taken = 0;
    for (int i = 0; i < 80; ++i) {
        peers.push_back(std::make_unique<RawPeer>(mAddress, RawHello()));
        taken += sharingOfReplyTo(*peers.back(), block.fd()) == kMapsBlock ? 1 : 0;
    }
    EXPECT_EQ(64, taken);
    peers.clear();
    EXPECT_TRUE(eventually([&] {
        RawPeer peer(mAddress, RawHello());
        return sharingOfReplyTo(peer, block.fd()) == kMapsBlock;
    })) << "they are let go of with their connections";
}

TEST_F(ForgedSharing, OffersNoDescriptor) { EXPECT_TRUE(isRefused(kOffersBlock)); }

TEST_F(ForgedSharing, BringsADescriptorThatNobodyAnnounced) {
    const ForgedBlock block;
    EXPECT_TRUE(isRefused(0, {block.fd()}));
    EXPECT_TRUE(isRefused(kOffersBlock, {block.fd(), block.fd()}));
}

TEST_F(ForgedSharing, RefersToABlockThatWasNeverOffered) {
    RawPeer peer(mAddress, RawHello());
    peer.send(bytesOf(callHeader(kDataInBlock, 4)));
    EXPECT_TRUE(peer.isHungUpOn());
}

TEST_F(ForgedSharing, HasBitsThatMeanNothing) {
    for (const int sharing : {8, 16, 32, 64, 128, 0xf8})
        EXPECT_TRUE(isRefused(static_cast<uint8_t>(sharing))) << sharing;
}

TEST_F(ForgedSharing, ClaimsToHaveMappedWhatWasNeverOffered) {
    RawPeer peer(mAddress, RawHello());
    peer.send(bytesOf(callHeader(kMapsBlock, 4)) + "abcd");
    EXPECT_EQ("abcd", peer.receive(44).substr(40));
}

TEST_F(ForgedSharing, ComesWithAOnewayCall) {
    RawHello oneway;
    oneway.kind = 3;
    for (const uint8_t sharing : {kMapsBlock, kDataInBlock}) {
        RawPeer peer(mAddress, oneway);
        RawHeader header = callHeader(sharing, 4);
        header.kind = 2;
        peer.send(bytesOf(header) + "abcd");
        EXPECT_TRUE(peer.isHungUpOn()) << int{sharing};
    }
}

}  // namespace
}  // namespace accessory::test
