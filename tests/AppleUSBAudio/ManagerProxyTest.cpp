// The manager's proxy: the bytes of each request, what it makes of replies, and its lines.
#include <algorithm>

#include "tests/AppleUSBAudio/AudioFixture.h"
#include "tests/AppleUSBAudio/FailingBinderWrites.h"
#include "tests/support/AtOnce.h"

namespace accessory::test {
namespace {

using android::sp;

constexpr char kHeaderCheck[] = "!reply.readExceptionCode()";

/// A call of the proxy and what it is to send behind the token.
struct Request {
    const char* operation;
    uint32_t code;
    Bytes arguments;
    int (*call)(IAppleUSBAudioManager&);
};

/// All but those with objects in the request or data in the reply.
std::vector<Request> plainRequests() {
    return {
        {"clearNotifier", 2, {}, [](IAppleUSBAudioManager& to) { return to.clearNotifier(); }},
        {"startup", 3, {}, [](IAppleUSBAudioManager& to) { return to.startup(); }},
        {"shutdown", 4, {}, [](IAppleUSBAudioManager& to) { return to.shutdown(); }},
        {"setSampleRate", 6, parcel({i32(44100), i32(0xfffffffe)}),
         [](IAppleUSBAudioManager& to) { return to.setSampleRate(44100, 0xfffffffe); }},
        {"setVolume", 7, parcel({i32(0x80000001), i32(9)}),
         [](IAppleUSBAudioManager& to) { return to.setVolume(0x80000001, 9); }},
        {"start", 8, i32(0xffffffff), [](IAppleUSBAudioManager& to) { return to.start(0xffffffff); }},
        {"stop", 9, i32(5), [](IAppleUSBAudioManager& to) { return to.stop(5); }},
        {"play", 10, i32(0x7fffffff), [](IAppleUSBAudioManager& to) { return to.play(0x7fffffff); }},
        {"pause", 11, i32(0), [](IAppleUSBAudioManager& to) { return to.pause(0); }},
    };
}

/// Looks into a registration as the service does.
class RegistrationReader : public FakeRemote {
  public:
    android::status_t transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                               uint32_t flags) override {
        data.setDataPosition(0);
        tokenFits = data.enforceInterface(android::String16("accessory.AppleUSBAudioManager"));
        notifier = data.readStrongBinder();
        rest = data.dataAvail();
        return FakeRemote::transact(code, data, reply, flags);
    }
    bool tokenFits = false;
    sp<android::IBinder> notifier;
    size_t rest = 99;
};

class ManagerProxy : public testing::Test {
  protected:
    ManagerProxy() { log.clear(); }

    std::vector<LogLine> logged() {
        std::vector<LogLine> lines = log.linesWith(kAudioTag);
        log.clear();
        return lines;
    }

    /// Without the traces of setNotifier() and clearNotifier().
    std::vector<LogLine> loggedWithoutTraces() {
        std::vector<LogLine> lines = logged();
        const auto isTrace = [](const LogLine& line) { return line.priority == ANDROID_LOG_DEBUG; };
        lines.erase(std::remove_if(lines.begin(), lines.end(), isTrace), lines.end());
        return lines;
    }

    const sp<RegistrationReader> remote{new RegistrationReader};
    const sp<IAppleUSBAudioManager> manager{new BpAppleUSBAudioManager(remote)};
    LogCatcher log;
};

TEST_F(ManagerProxy, SendsTheTokenAndTheArguments) {
    for (const Request& request : plainRequests()) {
        remote->requests.clear();
        request.call(*manager);
        ASSERT_EQ(remote->requests.size(), 1u) << request.operation;
        EXPECT_EQ(remote->requests[0].code, request.code) << request.operation;
        EXPECT_EQ(remote->requests[0].flags, 0u);
        EXPECT_TRUE(remote->requests[0].wantsReply);
        EXPECT_EQ(remote->requests[0].bytes, audioRequest(request.arguments)) << request.operation;
    }
}

TEST_F(ManagerProxy, SpellsTheToken) {
    const Bytes byHand = {
        0x00, 0x00, 0x00, 0x80, 0xff, 0xff, 0xff, 0xff,  // policy, work source
        0x1e, 0x00, 0x00, 0x00,                          // 30 units
        'a',  0,    'c',  0,    'c',  0,    'e',  0,    's', 0, 's', 0, 'o', 0, 'r', 0, 'y', 0, '.', 0,  //
        'A',  0,    'p',  0,    'p',  0,    'l',  0,    'e', 0,                                          //
        'U',  0,    'S',  0,    'B',  0,                                                                 //
        'A',  0,    'u',  0,    'd',  0,    'i',  0,    'o', 0,                                          //
        'M',  0,    'a',  0,    'n',  0,    'a',  0,    'g', 0, 'e', 0, 'r', 0,                          //
        0,    0,    0,    0,
    };
    manager->startup();
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].bytes, byHand);
}

TEST_F(ManagerProxy, ReturnsTheStatusBehindTheHeader) {
    for (const Request& request : plainRequests()) {
        for (const int32_t status : {0, 1, -1, -22, INT32_MIN, INT32_MAX}) {
            remote->answer = parcel({i32(0), i32(status)});
            EXPECT_EQ(request.call(*manager), status) << request.operation;
        }
    }
    EXPECT_THAT(loggedWithoutTraces(), testing::IsEmpty());
}

TEST_F(ManagerProxy, LogsAnExceptionInTheHeaderAndReadsOn) {
    remote->answer = parcel({i32(-5), string16(u"state"), i32(0), i32(77)});
    for (const Request& request : plainRequests()) {
        EXPECT_EQ(request.call(*manager), 77) << request.operation;
        EXPECT_THAT(loggedWithoutTraces(), are({check(request.operation, kHeaderCheck)}));
    }
}

TEST_F(ManagerProxy, LogsAnEmptyReplyAndGivesZero) {
    remote->status = android::DEAD_OBJECT;
    for (const Request& request : plainRequests()) {
        EXPECT_EQ(request.call(*manager), 0) << request.operation;
        EXPECT_THAT(loggedWithoutTraces(), are({check(request.operation, kHeaderCheck)}));
    }
}

TEST_F(ManagerProxy, ReadsZeroBehindAHeaderThatStandsAlone) {
    remote->answer = i32(0);
    for (const Request& request : plainRequests())
        EXPECT_EQ(request.call(*manager), 0) << request.operation;
    EXPECT_THAT(loggedWithoutTraces(), testing::IsEmpty());
}

TEST_F(ManagerProxy, DoesNotLookAtTheTransactionsStatus) {
    remote->answer = parcel({i32(0), i32(9)});
    for (const int status : {-32, -1, 5}) {
        remote->status = status;
        for (const Request& request : plainRequests())
            EXPECT_EQ(request.call(*manager), 9) << request.operation;
    }
    EXPECT_THAT(loggedWithoutTraces(), testing::IsEmpty());
}

TEST_F(ManagerProxy, SendsTheNotifierAsOneObject) {
    const LocalAudioClient client{};
    remote->answer = parcel({i32(0), i32(-3)});
    EXPECT_EQ(manager->setNotifier(client.notifier), -3);
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].code, 1u);
    EXPECT_EQ(remote->requests[0].flags, 0u);
    const Bytes& sent = remote->requests[0].bytes;
    ASSERT_EQ(sent.size(), token(kAudioName).size() + 24);
    EXPECT_EQ(cut(sent, token(kAudioName).size()), token(kAudioName));
    EXPECT_TRUE(remote->tokenFits);
    EXPECT_EQ(remote->notifier, android::IInterface::asBinder(client.notifier));
    EXPECT_EQ(remote->rest, 0u);
}

TEST_F(ManagerProxy, SendsTheBinderBehindAProxy) {
    const RemoteAudioClient client{};
    manager->setNotifier(client.notifier);
    EXPECT_EQ(remote->notifier, client.remote);
}

TEST_F(ManagerProxy, SendsANullNotifierAsANullObject) {
    remote->answer = parcel({i32(0), i32(-22)});
    EXPECT_EQ(manager->setNotifier(nullptr), -22);
    EXPECT_TRUE(remote->tokenFits);
    EXPECT_EQ(remote->notifier, nullptr);
}

TEST_F(ManagerProxy, TracesTheTwoRegistrationsAndNothingElse) {
    const LocalAudioClient client{};
    remote->answer = parcel({i32(0), i32(0)});
    log.clear();
    manager->setNotifier(client.notifier);
    EXPECT_THAT(logged(), are(traced(kAudioTag, kAudioUnit, "setNotifier")));
    manager->clearNotifier();
    EXPECT_THAT(logged(), are(traced(kAudioTag, kAudioUnit, "clearNotifier")));
    for (const Request& request : plainRequests()) {
        if (request.code == 2) continue;
        request.call(*manager);
        EXPECT_THAT(logged(), testing::IsEmpty()) << request.operation;
    }
}

TEST_F(ManagerProxy, LogsANotifierThatCannotBeWrittenAndSendsTheRequestWithoutIt) {
    const LocalAudioClient client{};
    remote->answer = parcel({i32(0), i32(4)});
    log.clear();
    {
        const FailingBinderWrites failing;
        EXPECT_EQ(manager->setNotifier(client.notifier), 4);
    }
    EXPECT_THAT(loggedWithoutTraces(),
                are({check("setNotifier", "!data.writeStrongBinder(notifier->asBinder())")}));
    EXPECT_EQ(remote->requests.at(0).bytes, token(kAudioName));
}

TEST_F(ManagerProxy, LogsAnExceptionOfARegistrationWithinTheTrace) {
    const LocalAudioClient client{};
    log.clear();
    EXPECT_EQ(manager->setNotifier(client.notifier), 0);
    const Lines trace = traced(kAudioTag, kAudioUnit, "setNotifier");
    EXPECT_THAT(logged(), are({trace[0], check("setNotifier", kHeaderCheck), trace[1]}));
}

class ProxyIds : public ManagerProxy {
  protected:
    /// Calls getIds() with room for @p room identifiers, each 0xaaaaaaaa, and then one that must not change.
    int get(size_t room = 10) {
        ids.assign(room + 6, 0xaaaaaaaa);
        count = 0xbbbbbbbb;
        return manager->getIds(ids.data(), &count);
    }

    std::vector<unsigned int> filled() const {
        std::vector<unsigned int> filled;
        for (const unsigned int id : ids) {
            if (id == 0xaaaaaaaa) break;
            filled.push_back(id);
        }
        return filled;
    }

    using Ids = std::vector<unsigned int>;
    Ids ids;
    unsigned int count = 0;
};

TEST_F(ProxyIds, SendsTheTokenAlone) {
    get();
    ASSERT_EQ(remote->requests.size(), 1u);
    EXPECT_EQ(remote->requests[0].code, 5u);
    EXPECT_EQ(remote->requests[0].bytes, audioRequest());
}

TEST_F(ProxyIds, ReadsNone) {
    remote->answer = parcel({i32(0), i32(0), i32(-7)});
    EXPECT_EQ(get(), -7);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(filled(), Ids{});
    EXPECT_THAT(logged(), testing::IsEmpty());
}

TEST_F(ProxyIds, ReadsAsManyAsTheReplySays) {
    remote->answer = parcel({i32(0), i32(3), i32(7), i32(0xffffffff), i32(0x80000000), i32(5)});
    EXPECT_EQ(get(3), 5);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(filled(), (Ids{7, 0xffffffff, 0x80000000}));
}

TEST_F(ProxyIds, ReadsTen) {
    remote->answer = parcel({i32(0), i32(10), i32(1), i32(2), i32(3), i32(4), i32(5), i32(6), i32(7), i32(8),
                             i32(9), i32(10), i32(-1)});
    EXPECT_EQ(get(), -1);
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(filled(), (Ids{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(ProxyIds, NeverTouchAnEleventhAndCutTheCount) {
    for (const uint32_t many : {11u, 12u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        remote->answer = parcel({i32(0), i32(many), i32(1), i32(2), i32(3), i32(4), i32(5), i32(6), i32(7),
                                 i32(8), i32(9), i32(10), i32(11), i32(12), i32(0)});
        get();
        EXPECT_EQ(count, 10u) << many;
        EXPECT_EQ(filled(), (Ids{1, 2, 3, 4, 5, 6, 7, 8, 9, 10})) << many;
    }
}

TEST_F(ProxyIds, LeaveTheStatusTheFinalWordOfAReplyWithMoreThanTen) {
    remote->answer = parcel({i32(0), i32(12), i32(1), i32(2), i32(3), i32(4), i32(5), i32(6), i32(7), i32(8),
                             i32(9), i32(10), i32(11), i32(12), i32(-55)});
    EXPECT_EQ(get(), -55);
}

TEST(ProxyIdsOfAnOddReply, EndAtOnceAtAnObjectWhateverTheCountSays) {
    const sp<IAppleUSBAudioManager> manager = new BpAppleUSBAudioManager(new ObjectAmongIds);
    unsigned int ids[11] = {};
    unsigned int count = 99;
    EXPECT_TRUE(endsAtOnce([&] { EXPECT_EQ(manager->getIds(ids, &count), 0); }));
    EXPECT_EQ(count, 10u);
    EXPECT_THAT(ids, testing::ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0));
}

TEST_F(ProxyIds, AreZeroWhereTheReplyIsCut) {
    remote->answer = parcel({i32(0), i32(2), i32(9)});
    EXPECT_EQ(get(), 0);
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(filled(), (Ids{9, 0}));
}

TEST_F(ProxyIds, AreNoneInAnEmptyReply) {
    EXPECT_EQ(get(), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(filled(), Ids{});
    EXPECT_THAT(logged(), are({check("getIds", kHeaderCheck)}));
}

}  // namespace
}  // namespace accessory::test
