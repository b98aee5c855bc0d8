// The proxy: the bytes of each request, and what it makes of each kind of reply.
#include <accessory/IAccessoryManager.h>
#include <binder/IPCThreadState.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/AccessoryManager/FailingCalls.h"
#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AccessoryManager/Spelling.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::sp;
using android::String8;
using testing::ElementsAre;
using testing::IsEmpty;

/// 4000 characters that no fill-up hides: the length is not a multiple of four less one.
const std::string kLongPath = "/sys/" + std::string(3995, 'x');

class Proxy : public testing::Test {
  protected:
    /// The only request so far.
    void expectSent(uint32_t code, const Bytes& bytes) {
        ASSERT_EQ(remote->requests.size(), 1u);
        const FakeRemote::Request request = remote->requests.front();
        remote->requests.clear();
        EXPECT_EQ(request.code, code);
        EXPECT_EQ(request.flags, 0u);
        EXPECT_TRUE(request.wantsReply);
        EXPECT_EQ(request.bytes, bytes);
    }

    const sp<FakeRemote> remote{new FakeRemote};
    const sp<IAccessoryManager> manager{new BpAccessoryManager(remote)};
    const LogCatcher log;
};

TEST_F(Proxy, BeginsARequestWithTheInterfacesName) {
    const Bytes byHand = {
        0x00, 0x00, 0x00, 0x80,                          // strict-mode policy: gather penalties
        0xff, 0xff, 0xff, 0xff,                          // no work source
        0x1a, 0x00, 0x00, 0x00,                          // 26 units
        'a',  0,    'c',  0,    'c', 0, 'e', 0, 's', 0,  // "accessory."
        's',  0,    'o',  0,    'r', 0, 'y', 0, '.', 0,  //
        'A',  0,    'c',  0,    'c', 0, 'e', 0, 's', 0,  // "Accessory"
        's',  0,    'o',  0,    'r', 0, 'y', 0,          //
        'M',  0,    'a',  0,    'n', 0, 'a', 0, 'g', 0, 'e', 0, 'r', 0,  // "Manager"
        0,    0,    0,    0,                                             // its NUL, filled up
    };
    manager->getDeviceCount();
    expectSent(1, byHand);
}

TEST_F(Proxy, SendsNothingMoreWhenItAsksForTheCount) {
    manager->getDeviceCount();
    expectSent(1, token());
}

TEST_F(Proxy, SendsTheIdentifierWhenItAsksForAFeature) {
    for (const unsigned int id : {0u, 1u, 7u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        manager->getFeature(id);
        expectSent(2, parcel({token(), i32(id)}));
    }
}

TEST_F(Proxy, SendsTheIdentifierWhenItAsksForAPath) {
    for (const unsigned int id : {0u, 1u, 7u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        manager->getPath(id);
        expectSent(3, parcel({token(), i32(id)}));
    }
}

TEST_F(Proxy, SendsThePathWhenItAsksForAnIdentifier) {
    for (const std::string& path :
         {std::string("/dev/x"), std::string("a"), std::string("ab"), std::string("abc"), std::string("abcd"),
          std::string("/dev/\xc3\xa4"), std::string("a\0b", 3), kLongPath}) {
        manager->getAccessoryId(string8Of(path));
        expectSent(4, parcel({token(), string8(path)}));
    }
}

TEST_F(Proxy, SendsTheWordsOfAShortPathAndOfAnEmptyOne) {
    manager->getAccessoryId(String8("/dev"));
    expectSent(4, parcel({token(), i32(4), {'/', 'd', 'e', 'v'}, i32(0)}));
    manager->getAccessoryId(String8());
    expectSent(4, parcel({token(), i32(0)}));
}

TEST_F(Proxy, PassesOnTheThreadsStrictModePolicy) {
    android::IPCThreadState* const thread = android::IPCThreadState::self();
    const int32_t before = thread->getStrictModePolicy();
    thread->setStrictModePolicy(0x42);
    manager->getDeviceCount();
    thread->setStrictModePolicy(before);
    expectSent(1, parcel({i32(0x80000042), i32(-1), string16(u"accessory.AccessoryManager")}));
}

TEST_F(Proxy, ReturnsTheValueBehindTheHeader) {
    for (const int32_t value : {0, 1, -1, 77, INT32_MIN, INT32_MAX}) {
        remote->answer = parcel({i32(0), i32(value)});
        EXPECT_EQ(manager->getDeviceCount(), value);
        EXPECT_EQ(manager->getFeature(1), value);
        EXPECT_EQ(manager->getAccessoryId(String8("x")), value);
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Proxy, ReturnsThePathBehindTheHeader) {
    for (const std::string& path : {std::string(), std::string("/dev/x"), std::string("\xe2\x82\xac"),
                                    std::string("a\0b", 3), kLongPath}) {
        remote->answer = parcel({i32(0), string8(path)});
        EXPECT_EQ(text(manager->getPath(1)), path);
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Proxy, IgnoresWhatFollowsTheValue) {
    remote->answer = parcel({i32(0), i32(5), i32(6)});
    EXPECT_EQ(manager->getDeviceCount(), 5);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Proxy, DoesNotLookAtTheTransactionsStatus) {
    const std::vector<android::status_t> failures = {android::DEAD_OBJECT, android::FAILED_TRANSACTION, -1,
                                                     1};
    for (const android::status_t status : failures) {
        remote->status = status;
        remote->answer = parcel({i32(0), i32(9)});
        EXPECT_EQ(manager->getDeviceCount(), 9);
        EXPECT_EQ(manager->getFeature(1), 9);
        EXPECT_EQ(manager->getAccessoryId(String8("x")), 9);
        remote->answer = parcel({i32(0), string8("/dev/9")});
        EXPECT_EQ(text(manager->getPath(1)), "/dev/9");
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Proxy, LogsAnExceptionInTheHeaderAndReadsOn) {
    const Bytes exception = parcel({i32(-5), string16(u"state"), i32(0)});  // code, message, no stack trace
    remote->answer = parcel({exception, i32(77)});
    EXPECT_EQ(manager->getDeviceCount(), 77);
    EXPECT_EQ(manager->getFeature(1), 77);
    EXPECT_EQ(manager->getAccessoryId(String8("x")), 77);
    remote->answer = parcel({exception, string8("/dev/77")});
    EXPECT_EQ(text(manager->getPath(1)), "/dev/77");
    EXPECT_THAT(log.linesWith(kTag), ElementsAre(LoggedCheck(kTag, "getDeviceCount", kHeaderCheck),
                                                 LoggedCheck(kTag, "getFeature", kHeaderCheck),
                                                 LoggedCheck(kTag, "getAccessoryId", kHeaderCheck),
                                                 LoggedCheck(kTag, "getPath", kHeaderCheck)));
}

TEST_F(Proxy, LogsAnEmptyReplyAndGivesZeroOrAnEmptyPath) {
    EXPECT_EQ(manager->getDeviceCount(), 0);
    EXPECT_EQ(manager->getFeature(1), 0);
    EXPECT_EQ(text(manager->getPath(1)), "");
    EXPECT_EQ(manager->getAccessoryId(String8("x")), 0);
    EXPECT_THAT(log.linesWith(kTag), ElementsAre(LoggedCheck(kTag, "getDeviceCount", kHeaderCheck),
                                                 LoggedCheck(kTag, "getFeature", kHeaderCheck),
                                                 LoggedCheck(kTag, "getPath", kHeaderCheck),
                                                 LoggedCheck(kTag, "getAccessoryId", kHeaderCheck)));
}

TEST_F(Proxy, ReadsZeroOrAnEmptyPathBehindAHeaderThatStandsAlone) {
    remote->answer = i32(0);
    EXPECT_EQ(manager->getDeviceCount(), 0);
    EXPECT_EQ(manager->getFeature(1), 0);
    EXPECT_EQ(text(manager->getPath(1)), "");
    EXPECT_EQ(manager->getAccessoryId(String8("x")), 0);
    EXPECT_THAT(log.linesWith(kTag), IsEmpty());
}

TEST_F(Proxy, ReadsZeroOrAnEmptyPathFromAReplyThatIsCutAnywhere) {
    const Bytes number = parcel({i32(0), i32(-1)});
    for (size_t length = 0; length < number.size(); ++length) {
        remote->answer = cut(number, length);
        EXPECT_EQ(manager->getFeature(1), 0) << length;
    }
    const Bytes path = parcel({i32(0), string8("/dev/ab")});
    for (size_t length = 0; length < path.size(); ++length) {
        remote->answer = cut(path, length);
        EXPECT_EQ(text(manager->getPath(1)), "") << length;
    }
}

TEST_F(Proxy, ReadsAnEmptyPathWhenItsLengthCannotBe) {
    for (const int64_t length : {int64_t{-1}, int64_t{INT32_MIN}, int64_t{INT32_MAX}, int64_t{9}}) {
        remote->answer = parcel({i32(0), i32(length), {'a', 'b', 'c', 0}});
        EXPECT_EQ(text(manager->getPath(1)), "") << length;
    }
}

TEST_F(Proxy, LogsAPathThatCannotBeWrittenAndSendsTheRequestWithoutIt) {
    const String8 path("/dev/x");
    remote->answer = parcel({i32(0), i32(3)});
    {
        const FailingCalls outOfMemory;
        EXPECT_EQ(manager->getAccessoryId(path), 3);
    }
    expectSent(4, token());
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck(kTag, "getAccessoryId", "!data.writeString8(path)")));
}

TEST_F(Proxy, HoldsTheRemoteObjectAsLongAsItLives) {
    android::wp<FakeRemote> weak;
    {
        sp<FakeRemote> other = new FakeRemote;
        weak = other;
        const sp<IAccessoryManager> proxy = IAccessoryManager::asInterface(other);
        other.clear();
        EXPECT_NE(weak.promote(), nullptr);
    }
    EXPECT_EQ(weak.promote(), nullptr);
}

TEST_F(Proxy, DoesNotTrace) {
    remote->answer = parcel({i32(0), i32(1)});
    const sp<IAccessoryManager> proxy = IAccessoryManager::asInterface(remote);
    proxy->getDeviceCount();
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace
}  // namespace accessory::test
