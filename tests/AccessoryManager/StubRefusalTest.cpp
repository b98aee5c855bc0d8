// Requests that never reach the implementation: unknown codes, another interface's token, the platform's own
// transactions.
#include <binder/Parcel.h>
#include <unistd.h>

#include <array>
#include <string>

#include "tests/AccessoryManager/StubFixture.h"

namespace accessory::test {
namespace {

using android::IBinder;
using android::NO_ERROR;
using android::UNKNOWN_TRANSACTION;
using testing::ElementsAre;
using testing::IsEmpty;

const Answer kRefused{-1, i32(0)};

using StubRefusal = StubFixture;

TEST_F(StubRefusal, LeavesAnUnknownCodeToTheBaseClassBehindTheLeadingZero) {
    for (const uint32_t code : {0u, 5u, 6u, 255u, 0x00ffffffu, 0x80000001u, 0xffffffffu}) {
        log.clear();
        EXPECT_EQ(ask(*stub, code, token()), (Answer{UNKNOWN_TRANSACTION, i32(0)})) << code;
        EXPECT_THAT(log.lines(), ElementsAre(calling(code)));
    }
}

TEST_F(StubRefusal, DoesNotCheckTheTokenOfAnUnknownCode) {
    EXPECT_EQ(ask(*stub, 0, {}), (Answer{UNKNOWN_TRANSACTION, i32(0)}));
    EXPECT_EQ(ask(*stub, 5, token(u"other")), (Answer{UNKNOWN_TRANSACTION, i32(0)}));
}

TEST_F(StubRefusal, AnswersTheInterfacesNameThroughTheBaseClassBehindTheLeadingZero) {
    const uint32_t code = IBinder::INTERFACE_TRANSACTION;
    EXPECT_EQ(ask(*stub, code, {}),
              (Answer{NO_ERROR, parcel({i32(0), string16(u"accessory.AccessoryManager")})}));
    EXPECT_THAT(log.lines(), ElementsAre(calling(0x5f4e5446)));
}

TEST_F(StubRefusal, LeavesAPingToTheRuntime) {
    android::Parcel data;
    android::Parcel reply;
    EXPECT_EQ(stub->transact(IBinder::PING_TRANSACTION, data, &reply), NO_ERROR);
    EXPECT_EQ(reply.dataSize(), 0u);
    EXPECT_THAT(log.linesWith(kTag), IsEmpty());
}

TEST_F(StubRefusal, DumpsThroughTheBaseClass) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    android::Parcel data;
    android::Parcel reply;
    data.writeFileDescriptor(ends[1]);
    data.writeInt32(1);
    data.writeString16(android::String16("notifier"));
    EXPECT_EQ(stub->transact(IBinder::DUMP_TRANSACTION, data, &reply), NO_ERROR);
    std::string text(64, '\0');
    text.resize(static_cast<size_t>(read(ends[0], text.data(), text.size())));
    EXPECT_EQ(text, "-[accessory.AccessoryManager]-\n");
    EXPECT_EQ(bytesOf(reply), i32(0));
    EXPECT_THAT(log.lines(), ElementsAre(calling(0x5f444d50)));
    close(ends[0]);
    close(ends[1]);
}

TEST_F(StubRefusal, AnswersMinusOneToATokenOfAnotherInterface) {
    for (const char16_t* name : {u"", u"accessory.AccessoryManage", u"accessory.AccessoryManagerX",
                                 u"accessory.AppleiAP2Manager", u"Accessory.AccessoryManager"}) {
        for (const uint32_t code : {1u, 2u, 3u, 4u}) {
            log.clear();
            EXPECT_EQ(ask(*stub, code, parcel({token(name), i32(1)})), kRefused) << code;
            EXPECT_THAT(log.linesWith(kTag), ElementsAre(calling(code)));
        }
    }
}

TEST_F(StubRefusal, AnswersMinusOneToATokenThatIsCutAnywhere) {
    // The fill-up behind the name's NUL is part of it too.
    for (size_t length = 0; length < token().size(); ++length)
        for (const uint32_t code : {1u, 2u, 3u, 4u})
            EXPECT_EQ(ask(*stub, code, cut(token(), length)), kRefused) << code << " cut at " << length;
}

TEST_F(StubRefusal, AnswersMinusOneToANameOfImpossibleLength) {
    for (const int64_t length : {int64_t{-1}, int64_t{INT32_MIN}, int64_t{INT32_MAX}, int64_t{0x40000000}})
        EXPECT_EQ(ask(*stub, 1, parcel({i32(0x80000000), i32(-1), i32(length), i32(0)})), kRefused) << length;
}

TEST_F(StubRefusal, AnswersMinusOneWhenTheTokenIsMissingBeforeTheArguments) {
    EXPECT_EQ(ask(*stub, 2, i32(7)), kRefused);
    EXPECT_EQ(ask(*stub, 4, string8("/dev/x")), kRefused);
}

TEST_F(StubRefusal, LeavesTheStubUsable) {
    EXPECT_CALL(*accessories, getDeviceCount()).WillOnce(testing::Return(2));
    ask(*stub, 1, {});
    ask(*stub, 5, {});
    EXPECT_EQ(ask(*stub, 1, token()), (Answer{NO_ERROR, parcel({i32(0), i32(2)})}));
}

}  // namespace
}  // namespace accessory::test
