// Requests of one row of each shape against bytes that are spelt out by hand, both ways.
#include <gtest/gtest.h>

#include "tests/AppleiAP2/notifier/Wire.h"
#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

constexpr char kManager[] = "IAppleiAP2Manager";
constexpr char kNotifier[] = "IAppleiAP2ManagerNotifier";

Bytes managerRequest(const Bytes& arguments) {
    return parcel({token(u"accessory.AppleiAP2Manager"), arguments});
}
Bytes notifierRequest(const Bytes& arguments) {
    return parcel({token(u"accessory.AppleiAP2ManagerNotifier"), arguments});
}

/// That the arguments become these bytes, and the bytes these arguments.
void expectBoth(const tools::Operation& operation, const std::string& arguments, const Bytes& request) {
    SCOPED_TRACE(operation.name);
    EXPECT_EQ(encoded(operation, arguments), request);
    EXPECT_EQ(decoded(operation, request), json(arguments));
}

TEST(HandWrittenBytes, OfPlainValues) {
    expectBoth(operationOf(kManager, "launchAPP"), R"({"accId":4294967294,"appId":"com.a","method":-2})",
               managerRequest(parcel({i32(0xfffffffe), cstr("com.a"), i32(-2)})));
    expectBoth(operationOf(kNotifier, "deviceTimeUpdate"),
               R"({"accId":7,"time":9833440827789222417,"value16":-720,"value8":-128})",
               notifierRequest(parcel({i32(7), i64(0x8877665544332211), i32(-720), i32(-128)})));
    expectBoth(operationOf("IAccessoryManager", "getAccessoryId"), R"({"path":"/dev/x"})",
               parcel({token(), string8("/dev/x")}));
    expectBoth(operationOf("IAppleUSBAudioManager", "setVolume"), R"({"value1":1,"value2":4294967295})",
               parcel({token(u"accessory.AppleUSBAudioManager"), i32(1), i32(-1)}));
    expectBoth(operationOf("IAppleUSBAudioManagerNotifier", "detach"), R"({"accessoryId":9})",
               parcel({token(u"accessory.AppleUSBAudioManagerNotifier"), i32(9)}));
}

TEST(HandWrittenBytes, OfStringsThatMayBeMissing) {
    expectBoth(operationOf(kManager, "AcceptCall"), R"({"accId":7,"action":1,"callUuid":null})",
               managerRequest(parcel({i32(7), i32(1), i32(0)})));
    expectBoth(operationOf(kManager, "AcceptCall"), R"({"accId":7,"action":1,"callUuid":"id"})",
               managerRequest(parcel({i32(7), i32(1), i32(1), cstr("id")})));
}

TEST(HandWrittenBytes, OfArrays) {
    expectBoth(operationOf(kManager, "setBluetoothAddr"), R"({"addr":{"hex":"0a1bff"}})",
               managerRequest(parcel({i32(3), raw({0x0a, 0x1b, 0xff})})));
    expectBoth(operationOf(kManager, "StartRouteGuidanceUpdate"), R"({"accId":7,"ids":[],"value":5})",
               managerRequest(parcel({i32(7), i32(0), i32(5)})));
    expectBoth(operationOf(kManager, "BTComponentInformation"), R"({"accId":7,"infos":["0102030405060708"]})",
               managerRequest(parcel({i32(7), i32(1), raw({1, 2, 3, 4, 5, 6, 7, 8})})));
}

TEST(HandWrittenBytes, OfMasks) {
    expectBoth(operationOf(kManager, "startPowerUpdate"),
               R"({"accId":7,"powerMask":["powerMode","chargeLevel","bit9"]})",
               managerRequest(parcel({i32(7), i32(0x4 | 0x20 | 0x200)})));
}

TEST(HandWrittenBytes, OfStructures) {
    expectBoth(operationOf(kManager, "InitiateCall"),
               R"({"accId":7,"param":{"type":2,"destinationId":"tel","service":-1}})",
               managerRequest(parcel({i32(7), i32(2), i32(1), cstr("tel"), i32(-1), i32(0)})));
    expectBoth(
        operationOf(kManager, "CarPlayStartSession"),
        R"({"accId":7,"wired":{"string1":"w"},"wireless":null,"value":3,
                   "string1":"a","string2":"b","string3":"c"})",
        managerRequest(parcel({i32(7), i32(1), cstr("w"), i32(0), i32(3), cstr("a"), cstr("b"), cstr("c")})));
    expectBoth(operationOf(kNotifier, "CarPlayAvailability"),
               R"({"accId":7,"wired":{"available":false},"wireless":{"available":true,"text":"t"}})",
               notifierRequest(parcel({i32(7), i32(0), i32(1), cstr("t")})));
    expectBoth(operationOf(kNotifier, "fileTransferSetup"),
               R"({"accId":7,"setup":{"value1":1,"value2":2,"value3":3,"value4":4,"value5":5,
                   "buffer":{"hex":"aabb"},"value8":8}})",
               notifierRequest(parcel({i32(7), i32(1), i32(2), i32(3), i32(4), i32(5), i32(0), i32(2), i32(8),
                                       i32(2), raw({0xaa, 0xbb})})));
    expectBoth(operationOf(kNotifier, "DestinationInformation"),
               R"({"accId":7,"info":{"firstString":"a","points":["0102030405060708"],"value":9}})",
               notifierRequest(
                   parcel({i32(7), i32(0x31), cstr("a"), i32(1), raw({1, 2, 3, 4, 5, 6, 7, 8}), i32(9)})));
}

TEST(HandWrittenBytes, OfCallStatesWhoseLastHalfIsNotRead) {
    const tools::Operation& operation = operationOf(kNotifier, "CallStateUpdate");
    const Bytes request =
        notifierRequest(parcel({i32(7), i32(1), cstr("a"), i32(0), i32(1), i32(-5), i32(0), i32(0), i32(0),
                                i32(0), i32(0), i32(1), i32(1), i32(0), i32(0), i32(1), i64(6)}));
    expectBoth(operation, R"({"accId":7,"param":{"field1":"a","field3":-5,"field9":true,"field12":6}})",
               request);
}

TEST(HandWrittenBytes, OfAHidReportThatArrivesAsAnotherThanWasSent) {
    const tools::Operation& operation = operationOf(kNotifier, "deviceHIDReport");
    const Bytes request = notifierRequest(parcel({i32(7), i32(6), raw({2, 0, 0, 0, 0xa1, 0xa2})}));
    EXPECT_EQ(encoded(operation, R"({"accId":7,"report":"02000000a1a2"})"), request);
    EXPECT_EQ(decoded(operation, request), json(R"({"accId":7,"report":{"component":6,"hex":"a1a2"}})"));
}

TEST(HandWrittenBytes, OfTheFormThatIsOnlySent) {
    const auto forms = tools::findOperations(*tools::findInterface(kManager), "startMediaLibUpdates");
    ASSERT_EQ(forms.size(), 2U);
    EXPECT_TRUE(forms[1]->onlySent);
    EXPECT_EQ(
        encoded(
            *forms[1],
            R"({"accId":7,"first":"a","dataMask":["items"],"itemMask":3,"playlistMask":"all","last":"z"})"),
        managerRequest(parcel({i32(7), cstr("a"), i32(4), i32(3), i32(0x7f), cstr("z")})));
    EXPECT_EQ(tools::servedOperation(*tools::findInterface(kManager), 21), forms[0]);
}

}  // namespace
}  // namespace accessory::test
