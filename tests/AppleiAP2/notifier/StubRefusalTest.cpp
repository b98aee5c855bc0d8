// What never reaches the implementation: unknown codes, wrong tokens, records that cannot be made; and
// requests that end anywhere.
#include <binder/Parcel.h>

#include "tests/AppleiAP2/notifier/StubFixture.h"

namespace accessory::test {
namespace {

using testing::IsEmpty;

using StubRefusal = StubFixture;

constexpr uint32_t kUnknownCodes[] = {0, 28, 47, 48, 91, 0x7fffffff, 0x80000001, 0xffffffff};

TEST_F(StubRefusal, LeavesUnknownCodesToTheBaseClassWithAnEmptyReply) {
    for (const uint32_t code : kUnknownCodes) {
        EXPECT_EQ(toldOf(code, i32(7)), "") << code;
        EXPECT_EQ(last, refused(android::UNKNOWN_TRANSACTION)) << code;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(StubRefusal, DoesNotLookAtTheTokenOfAnUnknownCode) {
    for (const uint32_t code : kUnknownCodes)
        EXPECT_EQ(ask(*stub, code, {}), refused(android::UNKNOWN_TRANSACTION)) << code;
}

TEST_F(StubRefusal, TellsTheInterfacesNameThroughTheBaseClass) {
    EXPECT_EQ(ask(*stub, android::IBinder::INTERFACE_TRANSACTION, {}),
              (Answer{0, string16(u"accessory.AppleiAP2ManagerNotifier")}));
}

TEST_F(StubRefusal, RefusesEveryOperationUnderAnotherInterfacesName) {
    for (const Event& event : allEvents()) {
        for (const char16_t* name :
             {u"accessory.AppleiAP2Manager", u"accessory.AppleiAP2ManagerNotifie",
              u"accessory.AppleiAP2ManagerNotifier2", u"", u"accessory.AccessoryManager"})
            EXPECT_EQ(ask(*stub, event.code, parcel({token(name), event.arguments})), refused(-1))
                << testing::PrintToString(event);
    }
    EXPECT_THAT(recorder->takeTold(), IsEmpty());
}

TEST_F(StubRefusal, RefusesEveryOperationWhoseTokenIsCut) {
    const size_t whole = request({}).size();
    for (const Event& event : allEvents()) {
        for (size_t length = 0; length < whole; ++length)
            ASSERT_EQ(ask(*stub, event.code, cut(request({}), length)), refused(-1))
                << testing::PrintToString(event) << " cut to " << length;
    }
    EXPECT_THAT(recorder->takeTold(), IsEmpty());
}

/// What a cut request may get without a call of the implementation: where it is cut, a number is read from
/// what should have been a string, and no request can hold that much.
Answer sparing(uint32_t code) {
    if (code >= 33 && code <= 35) return refused(-22);
    return code == 37 || code == 43 ? refused(0) : answered(3);
}

TEST_F(StubRefusal, AnswersEveryOperationWhoseArgumentsAreCutAnywhere) {
    recorder->answer = 3;
    for (const Event& event : allEvents()) {
        const Bytes all = request(event.arguments);
        for (size_t length = request({}).size(); length < all.size(); ++length) {
            const Answer answer = ask(*stub, event.code, cut(all, length));
            const size_t calls = recorder->takeTold().size();
            ASSERT_LE(calls, 1u) << testing::PrintToString(event) << " cut to " << length;
            ASSERT_EQ(answer, calls == 1 ? answered(3) : sparing(event.code))
                << testing::PrintToString(event) << " cut to " << length;
            ASSERT_TRUE(calls == 1 || !(sparing(event.code) == answered(3))) << testing::PrintToString(event);
        }
    }
}

TEST_F(StubRefusal, TellsTheArgumentsThatArrivedWholeWhenTheRestIsCut) {
    EXPECT_EQ(toldOf(1, {7, 0, 0}), "notify(0, 0)");
    EXPECT_EQ(toldOf(1, parcel({i32(7), {1, 2, 3}})), "notify(7, 0)");
    EXPECT_EQ(toldOf(8, parcel({i32(7), i64(5), i32(6)})), "deviceTimeUpdate(7, 5, 6, 0)");
    EXPECT_EQ(toldOf(8, parcel({i32(7), {1, 0, 0, 0, 0, 0, 0}})), "deviceTimeUpdate(7, 0, 1, 0)");
    EXPECT_EQ(toldOf(13, parcel({i32(7), cstr("Music")})), "mediaLibInfoUpdate(7, \"Music\", null, 0)");
    EXPECT_EQ(toldOf(18, parcel({i32(7), i32(2), cstr("net")})), "WiFiInformation(7, 2, \"net\", null)");
    EXPECT_EQ(toldOf(4, parcel({i32(7), {'a', 'b', 'c', 'd'}})), "deviceInfoUpdate(7, null)");
}

TEST_F(StubRefusal, RefusesGuidanceWhoseRecordCannotBeMade) {
    const Bytes tooMany = parcel({i32(7), i32(1), i32(0x7fffffff)});
    for (const uint32_t code : {33u, 34u, 35u}) {
        log.clear();
        EXPECT_EQ(toldOf(code, tooMany), "") << code;
        EXPECT_EQ(last, refused(-22)) << code;
        std::vector<LogLine> errors;
        for (const LogLine& line : log.lines())
            if (line.priority != ANDROID_LOG_DEBUG) errors.push_back(line);
        ASSERT_EQ(errors.size(), 2u) << code;
        EXPECT_THAT(errors[0], testing::Field(&LogLine::text, testing::HasSubstr("[FromParcel][")));
        EXPECT_THAT(errors[1], LoggedCheck(kTag, "onTransact", "info.get()"));
    }
}

TEST_F(StubRefusal, LeavesTheStubUsable) {
    ask(*stub, 33, request(parcel({i32(7), i32(1), i32(-1)})));
    ask(*stub, 1, {});
    ask(*stub, 28, request({}));
    EXPECT_EQ(toldOf(2, i32(7)), "attach(7)");
}

}  // namespace
}  // namespace accessory::test
