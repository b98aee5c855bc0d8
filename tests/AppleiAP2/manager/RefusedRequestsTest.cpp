// Requests that never reach the implementation: unknown codes and wrong tokens.
#include <binder/Parcel.h>

#include "tests/AppleiAP2/manager/ManagerFixtures.h"

namespace accessory::test {
namespace {

using testing::IsEmpty;

using RefusedRequests = ManagerStubFixture;

constexpr uint32_t kUnknownCodes[] = {0, 16, 43, 44, 45, 46, 92, 93, 0x7fffffff, 0x80000003, 0xffffffff};

std::vector<uint32_t> knownCodes() {
    std::vector<uint32_t> codes;
    for (uint32_t code = 1; code <= 91; ++code)
        if (code != 16 && (code < 43 || code > 46)) codes.push_back(code);
    return codes;
}

TEST_F(RefusedRequests, KnowEightySixCodes) { EXPECT_EQ(knownCodes().size(), 86u); }

TEST_F(RefusedRequests, GoToTheBaseClassBehindTheHeaderWhenTheirCodeIsUnknown) {
    for (const uint32_t code : kUnknownCodes) {
        EXPECT_EQ(toldOf(code, i32(7)), "") << code;
        EXPECT_EQ(last, stopped(android::UNKNOWN_TRANSACTION)) << code;
    }
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(RefusedRequests, AreNotAskedForATokenWhenTheirCodeIsUnknown) {
    for (const uint32_t code : kUnknownCodes)
        EXPECT_EQ(ask(*stub, code, {}), stopped(android::UNKNOWN_TRANSACTION)) << code;
}

TEST_F(RefusedRequests, TellTheInterfacesNameThroughTheBaseClass) {
    EXPECT_EQ(ask(*stub, android::IBinder::INTERFACE_TRANSACTION, {}),
              (Answer{0, parcel({i32(0), string16(u"accessory.AppleiAP2Manager")})}));
}

TEST_F(RefusedRequests, LogTheirHeaderWhenItCannotBeWritten) {
    for (const uint32_t code : kUnknownCodes) {
        log.clear();
        android::Parcel data;
        android::Parcel reply;
        reply.setError(android::NO_MEMORY);
        EXPECT_EQ(stub->onTransact(code, data, &reply, 0), android::UNKNOWN_TRANSACTION) << code;
        EXPECT_THAT(log.lines(), areLines({failedStep("onTransact")})) << code;
    }
}

TEST_F(RefusedRequests, AreAnsweredMinusOneForATokenOfAnotherInterface) {
    for (const char16_t* name : {u"", u"accessory.AppleiAP2Manage", u"accessory.AppleiAP2ManagerX",
                                 u"accessory.AppleiAP2ManagerNotifier", u"Accessory.AppleiAP2Manager"}) {
        for (const uint32_t code : knownCodes())
            EXPECT_EQ(ask(*stub, code, parcel({token(name), i32(7), i32(0)})), stopped(-1)) << code;
    }
    EXPECT_THAT(recorder->takeTold(), IsEmpty());
    EXPECT_THAT(log.linesWith(kTag), IsEmpty());
}

TEST_F(RefusedRequests, AreAnsweredMinusOneForATokenThatIsCutAnywhere) {
    const Bytes whole = managerRequest({});
    for (size_t length = 0; length < whole.size(); ++length)
        for (const uint32_t code : knownCodes())
            EXPECT_EQ(ask(*stub, code, cut(whole, length)), stopped(-1)) << code << " cut at " << length;
    EXPECT_THAT(recorder->takeTold(), IsEmpty());
}

TEST_F(RefusedRequests, LeaveTheStubUsable) {
    ask(*stub, 3, {});
    ask(*stub, 16, {});
    EXPECT_EQ(toldOf(3, cstr("name")), "setName(\"name\")");
    EXPECT_EQ(last, answered(0));
}

}  // namespace
}  // namespace accessory::test
