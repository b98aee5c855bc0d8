// What the manager's proxy makes of replies that hold more than a status.
#include <algorithm>
#include <array>
#include <iterator>
#include <thread>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"
#include "tests/support/AtOnce.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::Each;

using Replies = ManagerProxyFixture;

constexpr unsigned int kUntouched = 0xcafe;

std::array<unsigned int, 14> untouchedRoom() {
    std::array<unsigned int, 14> room{};
    room.fill(kUntouched);
    return room;
}

/// Words 1, 2, ... @p last.
Bytes wordsUpTo(int last) {
    Bytes bytes;
    for (int word = 1; word <= last; ++word)
        bytes = parcel({bytes, i32(word)});
    return bytes;
}

TEST_F(Replies, FillInAccessoryIdentifiersAndTheirCount) {
    remote->answer = replied(6, parcel({i32(3), i32(11), i32(-2), i32(13)}));
    auto room = untouchedRoom();
    unsigned int count = 99;
    EXPECT_EQ(proxy->getAccessoryIds(room.data(), &count), 6);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(room[0], 11u);
    EXPECT_EQ(room[1], 0xfffffffeu);
    EXPECT_EQ(room[2], 13u);
    EXPECT_THAT(std::vector<unsigned int>(room.begin() + 3, room.end()), Each(kUntouched));
}

TEST_F(Replies, FillInTenAccessoryIdentifiersAtMost) {
    remote->answer = replied(6, parcel({i32(10), wordsUpTo(10)}));
    auto room = untouchedRoom();
    unsigned int count = 99;
    EXPECT_EQ(proxy->getAccessoryIds(room.data(), &count), 6);
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(room[9], 10u);
    for (const int64_t tooMany : {int64_t{11}, int64_t{14}, int64_t{INT32_MAX}, int64_t{-1}}) {
        room = untouchedRoom();
        remote->answer = replied(6, parcel({i32(tooMany), wordsUpTo(14)}));
        proxy->getAccessoryIds(room.data(), &count);
        EXPECT_EQ(count, 10u) << tooMany;
        EXPECT_EQ(room[9], 10u) << tooMany;
        EXPECT_THAT(std::vector<unsigned int>(room.begin() + 10, room.end()), Each(kUntouched)) << tooMany;
    }
}

TEST_F(Replies, HaveTheirResultBehindSurplusAccessoryIdentifiers) {
    auto room = untouchedRoom();
    unsigned int count = 99;
    remote->answer = replied(6, parcel({i32(14), wordsUpTo(14)}));
    EXPECT_EQ(proxy->getAccessoryIds(room.data(), &count), 6);
    EXPECT_EQ(count, 10u);
}

TEST_F(Replies, EndWhereAccessoryIdentifiersAreCutWithinAWord) {
    auto room = untouchedRoom();
    unsigned int count = 99;
    remote->answer = parcel({i32(0), i32(-1), wordsUpTo(12), Bytes{0x01, 0x02}});
    EXPECT_TRUE(endsAtOnce([&] { EXPECT_EQ(proxy->getAccessoryIds(room.data(), &count), 0); }));
    EXPECT_EQ(count, 10u);
}

TEST(ManagerProxyIds, EndAtOnceAtAnObjectWhateverTheCountSays) {
    const sp<IAppleiAP2Manager> proxy = new BpAppleiAP2Manager(new ObjectAmongIds);
    auto room = untouchedRoom();
    unsigned int count = 99;
    EXPECT_TRUE(endsAtOnce([&] { EXPECT_EQ(proxy->getAccessoryIds(room.data(), &count), 0); }));
    EXPECT_EQ(count, 10u);
    EXPECT_EQ(room[9], 10u);
    EXPECT_EQ(room[10], kUntouched);
}

TEST_F(Replies, WithoutAccessoriesSetTheCountToZero) {
    for (const Bytes& answer : {replied(6, i32(0)), Bytes{}}) {
        remote->answer = answer;
        auto room = untouchedRoom();
        unsigned int count = 99;
        EXPECT_EQ(proxy->getAccessoryIds(room.data(), &count), answer.empty() ? 0 : 6);
        EXPECT_EQ(count, 0u);
        EXPECT_THAT(room, Each(kUntouched));
    }
}

class AppIdentifiers : public ManagerProxyFixture {
  protected:
    int get() { return proxy->getAPPIds(7, room.data(), &count); }

    const std::array<const char*, 12> before{"r0", "r1", "r2", "r3", "r4", "r5",
                                             "r6", "r7", "r8", "r9", "ra", "rb"};
    std::array<const char*, 12> room = before;
    unsigned int count = 99;
};

TEST_F(AppIdentifiers, AreCountedAndLoggedWithTheCallersEntriesAndNotStored) {
    remote->answer = replied(6, parcel({i32(3), cstr("app.one"), cstr(""), cstr("app.three")}));
    EXPECT_EQ(get(), 6);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(room, before);
    EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_DEBUG, "getAPPIds get appIds r0"},
                                       {ANDROID_LOG_DEBUG, "getAPPIds get appIds r1"},
                                       {ANDROID_LOG_DEBUG, "getAPPIds get appIds r2"}}));
}

TEST_F(AppIdentifiers, AreNotLoggedWhenTheReplyLacksThem) {
    remote->answer = parcel({i32(0), i32(3), cstr("app.one")});
    EXPECT_EQ(get(), 0);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(room, before);
    EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_DEBUG, "getAPPIds get appIds r0"}}));
}

TEST_F(AppIdentifiers, AreTenAtMost) {
    Bytes texts;
    for (int i = 0; i < 12; ++i)
        texts = parcel({texts, cstr("app")});
    for (const int64_t tooMany : {int64_t{11}, int64_t{12}, int64_t{INT32_MAX}, int64_t{-1}}) {
        log.clear();
        remote->answer = replied(6, parcel({i32(tooMany), texts}));
        get();
        EXPECT_EQ(count, 10u) << tooMany;
        EXPECT_EQ(room, before);
        EXPECT_EQ(log.lines().size(), 10u) << tooMany;
        EXPECT_THAT(log.lines().back(), Logged(ANDROID_LOG_DEBUG, kTag, "getAPPIds get appIds r9"));
    }
}

TEST_F(AppIdentifiers, BeyondTenAreReadSoThatTheResultIsFoundBehindThem) {
    Bytes texts;
    for (int i = 0; i < 12; ++i)
        texts = parcel({texts, cstr("app")});
    remote->answer = replied(6, parcel({i32(12), texts}));
    EXPECT_EQ(get(), 6);
    EXPECT_EQ(count, 10u);
}

TEST_F(AppIdentifiers, EndAtAStringThatDoesNot) {
    Bytes texts;
    for (int i = 0; i < 10; ++i)
        texts = parcel({texts, cstr("app")});
    remote->answer = parcel({i32(0), i32(-1), texts, Bytes{'e', 'n', 'd', 'l'}});
    EXPECT_TRUE(endsAtOnce([this] { get(); }));
    EXPECT_EQ(count, 10u);
}

TEST_F(AppIdentifiers, AreLoggedAsNullWhereTheCallerHasNone) {
    remote->answer = replied(6, parcel({i32(1), cstr("app.one")}));
    room[0] = nullptr;
    EXPECT_EQ(get(), 6);
    EXPECT_EQ(proxy->getAPPIds(7, nullptr, &count), 6);
    EXPECT_THAT(log.lines(), areLines({{ANDROID_LOG_DEBUG, "getAPPIds get appIds (null)"},
                                       {ANDROID_LOG_DEBUG, "getAPPIds get appIds (null)"}}));
}

TEST_F(AppIdentifiers, AreNoneOfADeadService) {
    remote->status = android::DEAD_OBJECT;
    EXPECT_EQ(get(), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(room, before);
}

TEST_F(Replies, FillInASession) {
    remote->answer = replied(6, parcel({i32(-5), i32(0x01020304)}));
    int first = 1;
    int second = 1;
    EXPECT_EQ(proxy->getEASessionId(7, 0, &first, &second), 6);
    EXPECT_EQ(first, -5);
    EXPECT_EQ(second, 0x01020304);
    remote->answer = {};
    EXPECT_EQ(proxy->getEASessionId(7, 0, &first, &second), 0);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 0);
}

Bytes textReply(const char* text) { return parcel({i32(0), cstr(text)}); }

TEST_F(Replies, GiveAString) {
    remote->answer = textReply("yes");
    EXPECT_STREQ(proxy->getSupportFeature(7, "f"), "yes");
    remote->answer = textReply("1.2");
    EXPECT_STREQ(proxy->getVersion(), "1.2");
    remote->answer = textReply("");
    EXPECT_STREQ(proxy->getSupportFeature(7, "f"), "");
    EXPECT_STREQ(proxy->getVersion(), "");
}

TEST_F(Replies, GiveNullWithoutAWholeString) {
    for (const Bytes& answer : {i32(0), Bytes{}, parcel({i32(0), Bytes{'a', 'b', 'c', 'd'}})}) {
        remote->answer = answer;
        EXPECT_EQ(proxy->getSupportFeature(7, "f"), nullptr);
        EXPECT_EQ(proxy->getVersion(), nullptr);
    }
}

TEST_F(Replies, KeepAStringUntilTheThreadsNextCallOfTheSameOperation) {
    remote->answer = textReply("a feature that outlives its reply");
    const char* feature = proxy->getSupportFeature(7, "f");
    remote->answer = textReply("a version that outlives its reply");
    const char* version = proxy->getVersion();
    remote->answer = replied(0);
    proxy->start(7);
    std::thread([this] {
        remote->answer = textReply("another thread's feature, and a longer one than the first");
        EXPECT_STREQ(proxy->getSupportFeature(7, "f"),
                     "another thread's feature, and a longer one than the first");
        remote->answer = textReply("another thread's version, and a longer one than the first");
        EXPECT_STREQ(proxy->getVersion(), "another thread's version, and a longer one than the first");
    }).join();
    EXPECT_STREQ(feature, "a feature that outlives its reply");
    EXPECT_STREQ(version, "a version that outlives its reply");
}

TEST(ManagerProxyStrings, OutliveTheProxy) {
    const sp<FakeRemote> remote = new FakeRemote;
    sp<IAppleiAP2Manager> proxy = new BpAppleiAP2Manager(remote);
    remote->answer = textReply("a feature that outlives its proxy");
    const char* feature = proxy->getSupportFeature(7, "f");
    proxy.clear();
    EXPECT_STREQ(feature, "a feature that outlives its proxy");
}

}  // namespace
}  // namespace accessory::test
