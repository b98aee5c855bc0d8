// Services that are hostile to their callers: answers with every bit wrong, none at all, callbacks without
// end, doors that nobody opens; and peers that pass for somebody else.
#include <binder/IServiceManager.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include "tests/platform/OwnService.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

sp<IBinder> find(const std::string& name) {
    return defaultServiceManager()->checkService(String16(name.c_str()));
}

/// The status of a first call that @p service makes what it likes of.
status_t firstCall(const RawService& service) {
    Call call(find(service.name()), kEcho);
    return call.run();
}

std::string soundReply() {
    RawHeader header;
    header.kind = 3;
    header.code = 0;
    return bytesOf(header);
}

status_t callAnsweredWithBitFlipped(size_t byte, int bit) {
    std::string reply = soundReply();
    reply[byte] = static_cast<char>(reply[byte] ^ (1 << bit));
    return firstCall(RawService(reply));
}

TEST(HostileService, LosesTheCallWithAnyBitOfTheAnswersNatureWrong) {
    for (const size_t byte : {0, 1, 2, 3, 4, 5, 6, 20, 21, 22, 23}) {
        for (int bit = 0; bit < 8; ++bit) {
            if (byte == 4 && bit == 1) continue;  // a call back, and so sound
            EXPECT_EQ(DEAD_OBJECT, callAnsweredWithBitFlipped(byte, bit)) << byte << '.' << bit;
        }
    }
    for (int bit = 0; bit < 8; ++bit)
        EXPECT_EQ(bit == 1 ? NO_ERROR : DEAD_OBJECT, callAnsweredWithBitFlipped(7, bit)) << bit;
    for (int bit = 4; bit < 8; ++bit)
        EXPECT_EQ(DEAD_OBJECT, callAnsweredWithBitFlipped(18, bit)) << "too large by bit " << bit;
}

TEST(HostileService, DecidesWhatTheStatusIsAndNothingElse) {
    for (int bit = 0; bit < 32; ++bit) {
        EXPECT_EQ(static_cast<status_t>(1u << bit),
                  callAnsweredWithBitFlipped(8 + static_cast<size_t>(bit / 8), bit % 8));
    }
    for (size_t byte = 24; byte < 40; ++byte)
        EXPECT_EQ(NO_ERROR, callAnsweredWithBitFlipped(byte, 0)) << "an answer has no target";
}

TEST(HostileService, MayAnswerByteByByte) {
    const RawService service([](int calls) {
        for (const char byte : soundReply())
            send(calls, &byte, 1, MSG_NOSIGNAL);
    });
    EXPECT_EQ(NO_ERROR, firstCall(service));
}

TEST(HostileService, HoldsUpOnlyItsCallerWithAnAnswerThatDoesNotEnd) {
    const ServiceProcess other;
    std::atomic<bool> called{false};
    auto endless = std::make_unique<RawService>([&](int calls) {
        send(calls, soundReply().data(), 39, MSG_NOSIGNAL);
        called = true;
    });
    const sp<IBinder> object = find(endless->name());
    auto status = std::async(std::launch::async, [&] { return Call(object, kEcho).run(); });
    EXPECT_TRUE(eventually([&] { return called.load(); }));
    for (int i = 1; i < 100; ++i)
        EXPECT_EQ(i, ask(other.object(), kEcho, i));
    EXPECT_EQ(std::future_status::timeout, status.wait_for(std::chrono::seconds(0)));
    endless.reset();
    EXPECT_EQ(DEAD_OBJECT, status.get());
}

/// A service that hangs up in the middle of the first call, and lives until the gate opens.
class MomentaryService {
  public:
    ~MomentaryService() { mGate.open(); }
    const std::string& name() const { return mService.name(); }

  private:
    Gate mGate;
    const RawService mService{[this](int calls) {
        shutdown(calls, SHUT_RDWR);
        mGate.pass();
    }};
};

TEST(HostileService, ThatLosesAConnectionAndLivesIsNotDead) {
    const MomentaryService service;
    const sp<IBinder> object = find(service.name());
    ASSERT_NE(nullptr, object);
    EXPECT_EQ(FAILED_TRANSACTION, Call(object, kEcho).run());
    EXPECT_TRUE(object->isBinderAlive());
    EXPECT_EQ(NO_ERROR, Call(object, kEcho).send());
}

TEST(HostileService, MayCallBackAsOftenAsItLikes) {
    const RawService service([](int calls) {
        RawHeader call;
        call.target = {1, 2};
        std::array<char, 40> answer{};
        for (int i = 0; i < 5000; ++i) {
            send(calls, &call, sizeof(call), MSG_NOSIGNAL);
            recv(calls, answer.data(), answer.size(), MSG_WAITALL);
        }
        send(calls, soundReply().data(), 40, MSG_NOSIGNAL);
    });
    EXPECT_EQ(NO_ERROR, firstCall(service));
}

TEST(HostileService, ThatReadsNoOnewayCallsIsRefusedMoreAndHoldsUpNobody) {
    const ServiceProcess other;
    const DeafService deaf(8);
    const sp<IBinder> object = find(deaf.name());
    ASSERT_NE(nullptr, object);
    Call large(object, kEcho);
    large.request.setDataSize(1'000'000);
    EXPECT_EQ(NO_ERROR, large.send()) << "begun, so taken";
    EXPECT_EQ(FAILED_TRANSACTION, Call(object, kEcho).send());
    EXPECT_EQ(FAILED_TRANSACTION, large.send());
    EXPECT_EQ(NO_ERROR, Call(other.object(), kEcho).send());
    EXPECT_EQ(7, ask(other.object(), kEcho, 7));
}

/// Stands in somebody's door until nobody else gets in.
class Crowd {
  public:
    explicit Crowd(const DeafService& service) : mAddress(RawAddress::of(service.name())) {
        for (int i = 0; i < 2; ++i)
            mPeers.push_back(std::make_unique<RawPeer>(mAddress));
    }
    const RawAddress& address() const { return mAddress; }

  private:
    const RawAddress mAddress;
    std::vector<std::unique_ptr<RawPeer>> mPeers;
};

class FullDoor : public OwnService {
  protected:
    const DeafService mDeaf{1};
    const Crowd mCrowd{mDeaf};
};

TEST_F(FullDoor, HoldsUpNobodyWhoIsSentAnObjectFromBehindIt) {
    RawHeader header = callHeader(24);
    header.objectCount = 1;
    RawPeer peer(address(), RawHello());
    peer.send(bytesOf(header) + std::string(24, '\0') +
              bytesOf(RawRecord{0, 1, mCrowd.address().owner, {1, 2}}));
    EXPECT_EQ(40u, peer.receive(40).size());
}

TEST_F(FullDoor, HoldsUpNoNoticesOfDeaths) {
    ServiceProcess mortal;
    const sp<Recipient> recipient = new Recipient;
    ASSERT_EQ(NO_ERROR, mortal.object()->linkToDeath(recipient));
    RawPeer link(address(), helloFor(kLink));
    link.send(bytesOf(RawLinkMessage{3, 1, address().token, mCrowd.address().owner}));
    EXPECT_TRUE(link.isTakenIn());
    mortal.kill();
    EXPECT_TRUE(recipient->isTold());
}

TEST_F(FullDoor, HoldsUpWhoWaitsForTheServiceBehindItNoLongerThanAMissingOne) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(nullptr, defaultServiceManager()->getService(String16(mDeaf.name().c_str())));
    EXPECT_GT(std::chrono::seconds(9), std::chrono::steady_clock::now() - start);
}

TEST_F(FullDoor, HoldsUpNobodyWhoListsServices) {
    const auto names = defaultServiceManager()->listServices();
    EXPECT_LT(0u, names.size());
}

using ObjectOnItsWay = OwnService;

TEST_F(ObjectOnItsWay, IsNotReplacedByNullWhenItsReceiverCannotBeLinkedJustNow) {
#ifdef SANITIZER_USES_DESCRIPTORS
    GTEST_SKIP() << "the sanitizer cannot do without descriptors";
#endif
    const DeafService caller(8);
    RawHello hello;
    hello.sender = RawAddress::of(caller.name()).owner;
    RawPeer peer(address(), hello);
    peer.send(soundCall());
    EXPECT_TRUE(isAnswered(peer));
    ASSERT_TRUE(leaveDescriptors(0));
    RawHeader header = callHeader(24);
    header.objectCount = 1;
    peer.send(bytesOf(header) + std::string(24, '\0') +
              bytesOf(RawRecord{0, 1, address().owner, address().token}));
    RawHeader refusal;
    refusal.kind = 3;
    refusal.code = static_cast<uint32_t>(FAILED_TRANSACTION);
    EXPECT_EQ(bytesOf(refusal), peer.receive(40));
    leaveDescriptors(-1);
}

/// How many of the connections that are waiting at a door say that they are links; the others have been ended
/// without a word.
int linksAmong(const std::vector<int>& connections) {
    int links = 0;
    for (const int fd : connections) {
        RawHello hello;
        if (recv(fd, &hello, sizeof(hello), MSG_WAITALL) == sizeof(hello) && hello.kind == kLink) ++links;
    }
    return links;
}

TEST(CrowdedService, IsGivenOneLinkHoweverManyThreadsMeetItAtOnce) {
    constexpr int kThreads = 16;
    const DeafService service(0);
    auto first = std::make_unique<RawPeer>(RawAddress::of(service.name()));
    std::atomic<int> begun{0};
    std::atomic<int> met{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            ++begun;
            met += find(service.name()) != nullptr ? 1 : 0;
        });
    }
    EXPECT_TRUE(eventually([&] { return begun == kThreads; }));
    first.reset();
    std::vector<int> connections;
    EXPECT_TRUE(eventually([&] {
        pollfd door{service.listener(), POLLIN, 0};
        if (poll(&door, 1, 0) == 0) return met == kThreads;
        connections.push_back(accept4(service.listener(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        return false;
    }));
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(1, linksAmong(connections));
    for (const int fd : connections)
        close(fd);
}

class Impostor : public OwnService {
  protected:
    RawHello helloInAnothersName(uint32_t kind) const {
        RawHello hello = helloFor(kind);
        hello.sender = mVictim.owner;
        return hello;
    }

    const ServiceProcess mService;
    const RawAddress mVictim = RawAddress::of(mService.name());
};

TEST_F(Impostor, IsRefusedUnderTheNameOfALivingProcess) {
    for (const uint32_t kind : {kLink, kCalls, kOneway})
        EXPECT_TRUE(RawPeer(address(), helloInAnothersName(kind)).isHungUpOn()) << kind;
    EXPECT_TRUE(leadsTo("it poses as another process",
                        [this] { RawPeer(address(), helloInAnothersName(kLink)).isHungUpOn(); }));
    EXPECT_EQ(0, access(mVictim.socket.c_str(), F_OK)) << "others still find the process";
    EXPECT_EQ(5, ask(mService.object(), kEcho, 5));
}

TEST_F(Impostor, HasToWaitWhileThereIsNoDescriptorToAskThatProcessWith) {
#ifdef SANITIZER_USES_DESCRIPTORS
    GTEST_SKIP() << "the sanitizer cannot do without descriptors";
#endif
    const std::string name = uniqueServiceName();
    ChildProcess stranger("makeMany", {name});
    ASSERT_EQ("making", stranger.expectLine());
    RawHello hello = helloFor(kLink);
    hello.sender = RawAddress::of(name).owner;
    ASSERT_TRUE(leaveDescriptors(2)) << "for either end of a connection";
    RawPeer impostor(address(), hello);
    EXPECT_TRUE(impostor.isTakenIn());
    EXPECT_TRUE(impostor.isQuiet());
    leaveDescriptors(-1);
    EXPECT_TRUE(impostor.isHungUpOn());
}

TEST_F(Impostor, IsRefusedThoughNobodyHasMetThatProcessYet) {
    const ServiceProcess stranger;
    ServiceProcess target;
    RawHello hello = helloFor(kLink);
    hello.sender = RawAddress::of(stranger.name()).owner;
    EXPECT_TRUE(RawPeer(RawAddress::of(target.name()), hello).isHungUpOn());
    ask(target.object(), kKeep, askForObject(stranger.object(), kMake));
    Call call(target.object(), kAskKept);
    call << kCaller;
    EXPECT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(NO_ERROR, call.reply.readInt32()) << "the two can still meet";
}

}  // namespace
}  // namespace accessory::test
