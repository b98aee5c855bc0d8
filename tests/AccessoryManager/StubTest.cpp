// The stub: from the bytes of a request to the call of the implementation, the reply and the log.
#include <binder/Parcel.h>

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "tests/AccessoryManager/FailingCalls.h"
#include "tests/AccessoryManager/StubFixture.h"

namespace accessory::test {
namespace {

using android::NO_ERROR;
using android::sp;
using android::String8;
using testing::_;
using testing::ElementsAre;
using testing::Return;

Answer done(const Bytes& result) { return {NO_ERROR, parcel({i32(0), result})}; }

/// A service that answers one operation in the stub itself.
class OwnFeatures : public BnAccessoryManager {
  public:
    using BnAccessoryManager::BnAccessoryManager;
    int getDeviceCount() override { return 11; }
    int getFeature(unsigned int accessoryId) override { return static_cast<int>(accessoryId) + 22; }
    String8 getPath(unsigned int accessoryId) override { return String8::format("/own/%u", accessoryId); }
    int getAccessoryId(const String8& path) override { return static_cast<int>(path.size()) + 44; }
};

/// Lets the callers through once two of them are there.
class Meeting {
  public:
    bool arrive() {
        std::unique_lock lock(mLock);
        ++mPresent;
        mComplete.notify_all();
        return mComplete.wait_for(lock, kPatience, [this] { return mPresent >= 2; });
    }

  private:
    std::mutex mLock;
    std::condition_variable mComplete;
    int mPresent = 0;
};

using Stub = StubFixture;

TEST_F(Stub, AnswersTheCount) {
    for (const int32_t count : {0, 1, -1, INT32_MIN, INT32_MAX}) {
        EXPECT_CALL(*accessories, getDeviceCount()).WillOnce(Return(count));
        EXPECT_EQ(ask(*stub, 1, token()), done(i32(count)));
    }
}

TEST_F(Stub, AnswersAFeature) {
    for (const unsigned int id : {0u, 1u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        EXPECT_CALL(*accessories, getFeature(id)).WillOnce(Return(INT32_MIN));
        EXPECT_EQ(ask(*stub, 2, parcel({token(), i32(id)})), done(i32(INT32_MIN)));
    }
}

TEST_F(Stub, AnswersAPath) {
    for (const std::string& path :
         {std::string(), std::string("abc"), std::string("abcd"), std::string("a\0b", 3)}) {
        EXPECT_CALL(*accessories, getPath(0xfffffffeu)).WillOnce(Return(string8Of(path)));
        EXPECT_EQ(ask(*stub, 3, parcel({token(), i32(0xfffffffe)})), done(string8(path)));
    }
}

TEST_F(Stub, AnswersAnIdentifier) {
    for (const std::string& path :
         {std::string(), std::string("/dev/x"), std::string("\xc3\xa4"), std::string("a\0b", 3)}) {
        EXPECT_CALL(*accessories, getAccessoryId(string8Of(path))).WillOnce(Return(-7));
        EXPECT_EQ(ask(*stub, 4, parcel({token(), string8(path)})), done(i32(-7)));
    }
}

TEST_F(Stub, ReadsTheWordsOfAShortPath) {
    EXPECT_CALL(*accessories, getAccessoryId(String8("/dev"))).WillOnce(Return(5));
    EXPECT_EQ(ask(*stub, 4, parcel({token(), i32(4), {'/', 'd', 'e', 'v'}, i32(0)})), done(i32(5)));
}

TEST_F(Stub, AnswersAnUnknownAccessoryWithWhateverPathTheImplementationGives) {
    EXPECT_CALL(*accessories, getPath(99)).WillOnce(Return(String8()));
    EXPECT_EQ(ask(*stub, 3, parcel({token(), i32(99)})), done(i32(0)));
}

TEST_F(Stub, IgnoresWhatFollowsTheArguments) {
    EXPECT_CALL(*accessories, getFeature(1)).WillOnce(Return(2));
    EXPECT_EQ(ask(*stub, 2, parcel({token(), i32(1), i32(0x55), i32(0x66)})), done(i32(2)));
}

TEST_F(Stub, AnswersThroughTransactAsTheRuntimeCallsIt) {
    EXPECT_CALL(*accessories, getDeviceCount()).WillOnce(Return(3));
    android::Parcel data;
    android::Parcel reply;
    fill(&data, token());
    EXPECT_EQ(stub->transact(1, data, &reply), NO_ERROR);
    EXPECT_EQ(bytesOf(reply), parcel({i32(0), i32(3)}));
    EXPECT_THAT(log.lines(), ElementsAre(calling(1)));
}

TEST_F(Stub, LogsEachRequestOnceAtErrorAndNothingElse) {
    EXPECT_CALL(*accessories, getDeviceCount()).WillOnce(Return(0));
    EXPECT_CALL(*accessories, getFeature(_)).WillOnce(Return(0));
    EXPECT_CALL(*accessories, getPath(_)).WillOnce(Return(String8()));
    EXPECT_CALL(*accessories, getAccessoryId(_)).WillOnce(Return(0));
    ask(*stub, 1, token());
    ask(*stub, 2, parcel({token(), i32(0)}));
    ask(*stub, 3, parcel({token(), i32(0)}));
    ask(*stub, 4, parcel({token(), string8("")}));
    EXPECT_THAT(log.lines(), ElementsAre(calling(1), calling(2), calling(3), calling(4)));
}

TEST_F(Stub, LogsTheRequestBeforeItCallsTheImplementation) {
    EXPECT_CALL(*accessories, getDeviceCount()).WillOnce([this] {
        EXPECT_THAT(log.lines(), ElementsAre(calling(1)));
        return 0;
    });
    ask(*stub, 1, token());
}

TEST_F(Stub, ReadsAMissingIdentifierAsZero) {
    EXPECT_CALL(*accessories, getFeature(0)).WillOnce(Return(8));
    EXPECT_CALL(*accessories, getPath(0)).WillOnce(Return(String8("/0")));
    EXPECT_EQ(ask(*stub, 2, token()), done(i32(8)));
    EXPECT_EQ(ask(*stub, 3, token()), done(string8("/0")));
}

TEST_F(Stub, ReadsAMissingPathAsEmpty) {
    EXPECT_CALL(*accessories, getAccessoryId(String8())).WillOnce(Return(8));
    EXPECT_EQ(ask(*stub, 4, token()), done(i32(8)));
}

TEST_F(Stub, ReadsAnIdentifierThatIsCutAnywhereAsZero) {
    const Bytes request = parcel({token(), i32(-1)});
    for (size_t length = token().size(); length < request.size(); ++length) {
        EXPECT_CALL(*accessories, getFeature(0)).WillOnce(Return(1));
        EXPECT_CALL(*accessories, getPath(0)).WillOnce(Return(String8("p")));
        EXPECT_EQ(ask(*stub, 2, cut(request, length)), done(i32(1))) << length;
        EXPECT_EQ(ask(*stub, 3, cut(request, length)), done(string8("p"))) << length;
    }
}

TEST_F(Stub, ReadsAPathThatIsCutAnywhereAsEmpty) {
    const Bytes request = parcel({token(), string8("/dev/ab")});
    for (size_t length = token().size(); length < request.size(); ++length) {
        EXPECT_CALL(*accessories, getAccessoryId(String8())).WillOnce(Return(1));
        EXPECT_EQ(ask(*stub, 4, cut(request, length)), done(i32(1))) << length;
    }
}

TEST_F(Stub, ReadsAPathWhoseLengthCannotBeAsEmpty) {
    for (const int64_t length : {int64_t{-1}, int64_t{INT32_MIN}, int64_t{INT32_MAX}, int64_t{9}}) {
        EXPECT_CALL(*accessories, getAccessoryId(String8())).WillOnce(Return(1));
        EXPECT_EQ(ask(*stub, 4, parcel({token(), i32(length), {'a', 'b', 'c', 0}})), done(i32(1))) << length;
    }
}

TEST_F(Stub, CallsItsOwnOperationsSoThatAServiceMayOverrideThem) {
    const sp<OwnFeatures> own = new OwnFeatures(accessories);
    EXPECT_EQ(ask(*own, 1, token()), done(i32(11)));
    EXPECT_EQ(ask(*own, 2, parcel({token(), i32(1)})), done(i32(23)));
    EXPECT_EQ(ask(*own, 3, parcel({token(), i32(3)})), done(string8("/own/3")));
    EXPECT_EQ(ask(*own, 4, parcel({token(), string8("ab")})), done(i32(46)));
}

TEST_F(Stub, LogsAPathThatCannotBeWrittenAndAnswersWithoutIt) {
    EXPECT_CALL(*accessories, getPath(1)).WillOnce(Return(String8("/dev/1")));
    const Bytes request = parcel({token(), i32(1)});
    const FailingCalls outOfMemory;
    EXPECT_EQ(ask(*stub, 3, request), (Answer{NO_ERROR, i32(0)}));
    EXPECT_THAT(log.lines(),
                ElementsAre(calling(3),
                            LoggedCheck(kTag, "onTransact", "!reply->writeString8(getPath(accessoryId))")));
}

TEST_F(Stub, ServesSeveralRequestsAtOnce) {
    Meeting meeting;
    EXPECT_CALL(*accessories, getFeature(_)).Times(2).WillRepeatedly([&](unsigned int id) {
        EXPECT_TRUE(meeting.arrive());
        return static_cast<int32_t>(id) * 10;
    });
    std::thread other([this] { EXPECT_EQ(ask(*stub, 2, parcel({token(), i32(1)})), done(i32(10))); });
    EXPECT_EQ(ask(*stub, 2, parcel({token(), i32(2)})), done(i32(20)));
    other.join();
}

TEST_F(Stub, HoldsTheImplementationAsLongAsItLives) {
    sp<testkit::MockAccessoryManagerImpl> implementation = new testkit::MockAccessoryManagerImpl;
    const android::wp<testkit::MockAccessoryManagerImpl> weak = implementation;
    sp<BnAccessoryManager> holder = new BnAccessoryManager(implementation);
    implementation.clear();
    EXPECT_NE(weak.promote(), nullptr);
    holder.clear();
    EXPECT_EQ(weak.promote(), nullptr);
}

TEST_F(Stub, DoesNotTraceItsLife) {
    sp<BnAccessoryManager> other = new BnAccessoryManager(accessories);
    other.clear();
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST(StubWithoutAnImplementation, IsMadeWithoutComplaint) {
    const LogCatcher log;
    const sp<BnAccessoryManager> stub = new BnAccessoryManager(nullptr);
    EXPECT_NE(stub, nullptr);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST(StubWithoutAnImplementation, AnswersEveryQueryWithZeroOrAnEmptyPathAndLogsIt) {
    const sp<BnAccessoryManager> stub = new BnAccessoryManager(nullptr);
    const auto expectLoggedAnswer = [&](uint32_t code, const Bytes& arguments) {
        const LogCatcher log;
        EXPECT_EQ(ask(*stub, code, parcel({token(), arguments})), done(i32(0))) << code;
        EXPECT_THAT(log.linesWith(kTag), ElementsAre(calling(code), testing::Field(&LogLine::priority, 6)))
            << code;
    };
    expectLoggedAnswer(1, {});
    expectLoggedAnswer(2, i32(1));
    expectLoggedAnswer(3, i32(1));
    expectLoggedAnswer(4, string8("/dev/x"));
}

}  // namespace
}  // namespace accessory::test
