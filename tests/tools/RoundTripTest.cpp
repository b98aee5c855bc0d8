// Every operation of every interface from JSON to a parcel and back, by the examples that its fields give.
#include <gtest/gtest.h>

#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

/// What a receiver makes of the example of @p operation. Only one field arrives as another value than it was
/// sent: a HID report, whose length is taken for the component and whose first bytes for the length.
Json::Value received(const tools::Operation& operation) {
    Json::Value arguments = exampleArguments(operation);
    if (operation.name == "deviceHIDReport") {
        arguments["report"] = Json::Value(Json::objectValue);
        arguments["report"]["component"] = 8;
        arguments["report"]["hex"] = "a1a2a3a4";
    }
    return arguments;
}

TEST(RoundTrip, GivesBackTheExampleOfEveryOperation) {
    unsigned operations = 0;
    for (const auto& [interface, operation] : allOperations()) {
        SCOPED_TRACE(interface->name + "." + operation->name);
        android::Parcel request;
        operation->encode(exampleArguments(*operation), &request);
        EXPECT_EQ(reread(operation->decodeRequest(request)), reread(received(*operation)));
        EXPECT_EQ(request.dataAvail(), operation->name == "CallStateUpdate" ? 4U : 0U);
        ++operations;
    }
    EXPECT_EQ(operations, 4U + 87U + 45U + 11U + 2U);
}

/// A command line has nothing but texts.
TEST(RoundTrip, TakesTheTextOfAValueForTheValue) {
    const auto& manager = [](const char* name) -> const tools::Operation& {
        return operationOf("IAppleiAP2Manager", name);
    };
    EXPECT_EQ(encoded(manager("launchAPP"), R"({"accId":"0x10","appId":"a","method":"-2"})"),
              encoded(manager("launchAPP"), R"({"accId":16,"appId":"a","method":-2})"));
    EXPECT_EQ(encoded(manager("playMediaLibItems"),
                      R"({"accId":"1","libraryId":"l","itemIds":"1,0xffffffffffffffff","value":"0"})"),
              encoded(manager("playMediaLibItems"),
                      R"({"accId":1,"libraryId":"l","itemIds":[1,18446744073709551615],"value":0})"));
    EXPECT_EQ(encoded(manager("startPowerUpdate"), R"({"accId":"1","powerMask":"powerMode|bit31"})"),
              encoded(manager("startPowerUpdate"), R"({"accId":1,"powerMask":["powerMode","bit31"]})"));
    EXPECT_EQ(encoded(manager("CarPlayAvailableDigitalCarKeys"), R"({"accId":"1","keys":"a,,b"})"),
              encoded(manager("CarPlayAvailableDigitalCarKeys"), R"({"accId":1,"keys":["a","","b"]})"));
    EXPECT_EQ(
        encoded(manager("BTComponentInformation"), R"({"accId":1,"infos":"0102030405060708"})"),
        encoded(manager("BTComponentInformation"), R"({"accId":1,"infos":[{"hex":"0102030405060708"}]})"));
}

}  // namespace
}  // namespace accessory::test
