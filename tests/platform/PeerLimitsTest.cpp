// How much one process may have of another's, each limit at its edge.
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "tests/platform/OwnService.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

constexpr int32_t kMostObjects = 16384;

class PeerLimit : public OwnService {
  protected:
    using Peers = std::vector<std::unique_ptr<RawPeer>>;

    /// So many connections that begin with @p opening.
    Peers peersThatSay(const std::string& opening, size_t count, const std::vector<int>& fds = {}) const {
        Peers peers;
        while (peers.size() < count) {
            peers.push_back(std::make_unique<RawPeer>(address()));
            if (opening.empty()) continue;
            peers.back()->send(opening.substr(0, 24));
            if (opening.size() > 24) peers.back()->send(opening.substr(24), fds);
        }
        return peers;
    }

    /// All of @p peers and one more are one too many: one is refused because of @p why, and nobody else
    /// suffers. Usually it is the last; but what a thread has taken in counts only when it is done with it.
    void expectNoMoreThan(const Peers& peers, const std::string& opening, const std::string& why,
                          const std::vector<int>& fds = {}) {
        for (const auto& peer : peers)
            EXPECT_TRUE(peer->isTakenIn());
        Peers more;
        EXPECT_TRUE(leadsTo(why, [&] { more.push_back(std::move(peersThatSay(opening, 1, fds).front())); }));
        EXPECT_TRUE(eventually([&] { return quiet(peers) + quiet(more) == peers.size(); }));
    }

    static size_t quiet(const Peers& peers) {
        return static_cast<size_t>(
            std::count_if(peers.begin(), peers.end(), [](const auto& peer) { return peer->isQuiet(); }));
    }
};

TEST_F(PeerLimit, OfLinksIs128) {
    const std::string opening = bytesOf(helloFor(kLink));
    Peers links = peersThatSay(opening, 128);
    expectNoMoreThan(links, opening, "it has too many links");
    EXPECT_TRUE(serves());
    links.clear();
    EXPECT_TRUE(eventually([&] {
        RawPeer link(address(), helloFor(kLink));
        return serves() && link.isQuiet();
    }));
}

TEST_F(PeerLimit, OfConnectionsThatSayNothingIs64) {
    const std::string opening = bytesOf(RawHello()).substr(0, 23);
    Peers silent = peersThatSay(opening, 63);
    for (const auto& peer : silent)
        EXPECT_TRUE(peer->isTakenIn());
    EXPECT_TRUE(serves()) << "with one to spare";
    silent.clear();
    EXPECT_TRUE(leadsTo("it leaves too many connections without a word",
                        [&] { silent = peersThatSay(opening, 65); }));
}

/// Opens as many connections to the socket args[0] as one process may leave without a word.
CHILD_ROLE(keepSilent) {
    const RawAddress address{args.at(0), {}, {}};
    std::vector<std::unique_ptr<RawPeer>> peers;
    for (int i = 0; i < 60; ++i) {
        peers.push_back(std::make_unique<RawPeer>(address));
        peers.back()->send("?");
        if (!peers.back()->isTakenIn()) return 2;
    }
    parent.send("silent");
    parent.awaitHangUp();
    return 0;
}

TEST_F(PeerLimit, OfSilentConnectionsOfManyProcessesCostsTheOldestOnly) {
    std::vector<std::unique_ptr<ChildProcess>> children;
    for (int i = 0; i < 9; ++i)
        children.push_back(std::make_unique<ChildProcess>("keepSilent", RoleArguments{address().socket}));
    for (const auto& child : children)
        EXPECT_EQ("silent", child->expectLine());
    for (int i = 0; i < 20; ++i)
        EXPECT_TRUE(serves());
}

TEST_F(PeerLimit, OfUnfinishedCallsIs64MiB) {
    const std::string opening = bytesOf(RawHello()) + bytesOf(callHeader(1040384)) + "x";
    expectNoMoreThan(peersThatSay(opening, 64), opening, "it leaves too much half sent or half read");
    EXPECT_TRUE(serves());
}

TEST_F(PeerLimit, OfDescriptorsInUnfinishedCallsIs512) {
    RawHeader header = callHeader(253 * 24);
    header.objectCount = 253;
    header.descriptorCount = 253;
    const std::string opening = bytesOf(RawHello()) + bytesOf(header) + "x";
    const std::vector<int> fds(253, STDIN_FILENO);
    expectNoMoreThan(peersThatSay(opening, 2, fds), opening, "it leaves too much half sent or half read",
                     fds);
    EXPECT_TRUE(serves());
}

TEST_F(PeerLimit, OfAnswersThatNobodyReadsIs64MiB) {
    const std::string opening =
        bytesOf(RawHello()) + bytesOf(callHeader(1040384)) + std::string(1040384, 'x');
    Peers peers;
    EXPECT_TRUE(leadsTo("it leaves too much half sent or half read", [&] {
        if (peers.size() > 128) peers.pop_back();
        peers.push_back(std::move(peersThatSay(opening, 1).front()));
        EXPECT_TRUE(peers.back()->isTakenIn());
    }));
    EXPECT_LT(64u, peers.size()) << "what a socket takes is not counted";
    EXPECT_TRUE(serves());
}

/// One of the peer's own objects for each record.
std::string callWithObjects(RawHeader header, uint32_t count) {
    header.objectCount = count;
    header.dataSize = 24 * count;
    std::string bytes = bytesOf(header) + std::string(header.dataSize, '\0');
    for (uint32_t i = 0; i < count; ++i)
        bytes += bytesOf(RawRecord{24 * i, 1, RawHello().sender, {1, uint64_t{i} + 1}});
    return bytes;
}

class ProxyLimit : public PeerLimit {
  protected:
    /// Whether a call with so many objects comes back whole.
    bool areEchoed(uint32_t count) {
        RawPeer peer(address(), RawHello());
        peer.send(callWithObjects(callHeader(), count));
        const size_t whole = 40 + size_t{count} * 64;
        return peer.receive(whole).size() == whole;
    }
};

TEST_F(ProxyLimit, Is16384ObjectsOfOnePeer) {
    RawPeer link(address(), helloFor(kLink));
    EXPECT_TRUE(areEchoed(kMostObjects));
    EXPECT_FALSE(hasRefused("it hands out too many objects"));
    EXPECT_TRUE(leadsTo("it hands out too many objects", [&] {
        RawPeer peer(address(), RawHello());
        peer.send(callWithObjects(callHeader(), kMostObjects + 1));
        const size_t most = 40 + size_t{kMostObjects} * 64;
        EXPECT_EQ(most, peer.receive(most).size()) << "the other objects go on";
    }));
}

TEST_F(ProxyLimit, OfMessagesThatWaitForAPeerWhoDoesNotReadItsLinkIs4MiB) {
    RawPeer link(address(), helloFor(kLink));
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(areEchoed(kMostObjects));
    EXPECT_FALSE(hasRefused("it does not read its link")) << "2.5 MiB";
    EXPECT_TRUE(leadsTo("it does not read its link", [&] { EXPECT_TRUE(areEchoed(kMostObjects)); }));
    while (!link.receive(size_t{1} << 20).empty()) {
    }
    EXPECT_TRUE(link.isHungUpOn());
}

/// Publishes, under the name args[0], what answers with as many new objects as its code says.
CHILD_ROLE(makeMany) {
    const sp<IBinder> maker = new FunctionObject([](uint32_t count, const Parcel&, Parcel* reply, uint32_t) {
        for (uint32_t i = 0; i < count; ++i)
            reply->writeStrongBinder(new BBinder);
        return NO_ERROR;
    });
    ProcessState::self()->startThreadPool();
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(args.at(0).c_str()), maker));
    parent.send("making");
    parent.awaitHangUp();
    return 0;
}

TEST(ObjectLimit, IsWhatOneProcessMayHoldAndFreesAgain) {
    const std::string name = uniqueServiceName();
    ChildProcess maker("makeMany", {name});
    ASSERT_EQ("making", maker.expectLine());
    const sp<IBinder> object = defaultServiceManager()->checkService(String16(name.c_str()));
    ASSERT_NE(nullptr, object);
    auto held = std::make_unique<Call>(object, kMostObjects - 1);
    EXPECT_EQ(NO_ERROR, held->run()) << "the service itself is one";
    EXPECT_EQ(FAILED_TRANSACTION, Call(object, 1).run());
    EXPECT_EQ(NO_ERROR, object->pingBinder()) << "all else goes on";
    held.reset();
    EXPECT_TRUE(eventually([&] { return Call(object, 1).run() == NO_ERROR; }));
}

class UnreachedLimit : public PeerLimit {
  protected:
    void SetUp() override {
#ifdef SANITIZER_USES_DESCRIPTORS
        GTEST_SKIP() << "the sanitizer cannot do without descriptors";
#endif
    }
};

TEST_F(UnreachedLimit, Is4096ProcessesThatHoldObjectsAndCannotBeReached) {
    RawPeer link(address(), helloFor(kLink));
    EXPECT_TRUE(serves());
    ASSERT_TRUE(leaveDescriptors(0));
    const auto passOn = [&](uint64_t from, uint64_t count) {
        for (uint64_t i = from; i < from + count; ++i)
            link.send(bytesOf(RawLinkMessage{3, 1, address().token, {i, 9}}));
        EXPECT_TRUE(link.isTakenIn());
    };
    passOn(1, 4096);
    const char* const why = "it passes objects on to too many that cannot be reached";
    EXPECT_FALSE(hasRefused(why));
    EXPECT_TRUE(leadsTo(why, [&] { passOn(10'000, 1); }));
    leaveDescriptors(-1);
    EXPECT_TRUE(link.isQuiet());
}

}  // namespace
}  // namespace accessory::test
