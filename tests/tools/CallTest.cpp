// call: what reaches the service, what is shown of its reply, and how a failure is told.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/tools/Program.h"
#include "tests/tools/Services.h"

namespace accessory::test {
namespace {

/// Calls an operation of the iAP2 manager. @return what the service was told.
std::string toldBy(Services& services, const Words& words) {
    Words all = {"call"};
    all.insert(all.end(), words.begin(), words.end());
    const Ran ran = run(all);
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(ran.out, "result  0\n");
    return services.ask("told");
}

TEST(Call, SendsNamedValuesAndValuesInTheirOrder) {
    Services services;
    const std::string told = R"(launchAPP(7, "com.example.maps", 2))";
    EXPECT_EQ(
        toldBy(services, {"IAppleiAP2Manager.launchAPP", "accId=7", "appId=com.example.maps", "method=2"}),
        told);
    EXPECT_EQ(toldBy(services, {"AppleiAP2Manager.launchapp", "7", "com.example.maps", "2"}), told);
    EXPECT_EQ(toldBy(services, {"accessory.AppleiAP2Manager.launchAPP", "method=2", "7", "com.example.maps"}),
              told);
    EXPECT_EQ(toldBy(services, {"launchAPP", "0x7", "com.example.maps", "2"}), told);
}

TEST(Call, SendsNullNegativeNumbersAndTruthValues) {
    Services services;
    EXPECT_EQ(toldBy(services, {"AcceptCall", "7", "-3", "null"}), "AcceptCall(7, -3, null)");
    EXPECT_EQ(toldBy(services, {"AcceptCall", "7", "-3"}), "AcceptCall(7, -3, null)");
    EXPECT_EQ(toldBy(services, {"AcceptCall", "7", "-3", "id"}), R"(AcceptCall(7, -3, "id"))");
    EXPECT_EQ(toldBy(services, {"MuteStatusUpdate", "7", "yes"}), "MuteStatusUpdate(7, true)");
    EXPECT_EQ(toldBy(services, {"setName", R"("null")"}), R"(setName("null"))");
    EXPECT_EQ(toldBy(services, {"AcceptCall", "7", "-3", R"("null")"}), R"(AcceptCall(7, -3, "null"))");
    EXPECT_EQ(toldBy(services, {"setName", ""}), R"(setName(""))");
}

TEST(Call, SendsBytesFromHexDigitsAndFiles) {
    Services services;
    EXPECT_EQ(toldBy(services, {"setBluetoothAddr", "0a:1b:ff"}), "setBluetoothAddr([0a 1b ff], 3)");
    const std::string path = testing::TempDir() + "accessoryctl-bytes";
    std::ofstream(path, std::ios::binary) << std::string("\x00\x01\xfe", 3);
    EXPECT_EQ(toldBy(services, {"setBluetoothAddr", "addr=@" + path}), "setBluetoothAddr([00 01 fe], 3)");
    remove(path.c_str());
}

TEST(Call, SendsListsAndMasks) {
    Services services;
    const std::string told = "StartRouteGuidanceUpdate(7, [01 00 00 00 fe ff ff ff], 2, 5)";
    EXPECT_EQ(toldBy(services, {"StartRouteGuidanceUpdate", "7", "1,-2", "5"}), told);
    EXPECT_EQ(toldBy(services, {"StartRouteGuidanceUpdate", "7", "[1, -2]", "5"}), told);
    EXPECT_EQ(toldBy(services, {"startPowerUpdate", "7", "powerMode|chargeLevel"}),
              "startPowerUpdate(7, 36)");
    EXPECT_EQ(toldBy(services, {"startPowerUpdate", "7", "all"}), "startPowerUpdate(7, 63)");
    EXPECT_EQ(toldBy(services, {"startPowerUpdate", "7", "0x80000001"}), "startPowerUpdate(7, 2147483649)");
}

TEST(Call, SendsStructuresByTheirMembersAndAsJson) {
    Services services;
    const std::string told = R"(InitiateCall(7, {2 "tel" 1 null}))";
    EXPECT_EQ(
        toldBy(services, {"InitiateCall", "7", "param.type=2", "param.destinationId=tel", "param.service=1"}),
        told);
    EXPECT_EQ(toldBy(services, {"InitiateCall", "7", R"({"type":2,"destinationId":"tel","service":1})"}),
              told);
    EXPECT_EQ(
        toldBy(services, {"InitiateCall", "7", R"(param={"type":2,"destinationId":"tel","service":1})"}),
        told);
}

TEST(Call, TellsOperationsOfOneNameApartByTheirArguments) {
    Services services;
    EXPECT_EQ(toldBy(services, {"startHID", "7"}), "startHID(7)");
    EXPECT_EQ(
        toldBy(services, {"startHID", "7", "attributes.vendorId=258", "attributes.reportDescriptor=05"}),
        "startHID(7, {0 258 0 [05] 1 0})");
    EXPECT_EQ(toldBy(services, {"startMediaLibUpdates", "7", "info.firstText=lib"}),
              R"(startMediaLibUpdates(7, {"lib" null 0 0 0 0 0}))");
    // The form with masks is only sent: the service takes the first mask for the second text.
    EXPECT_EQ(toldBy(services, {"startMediaLibUpdates", "7", "lib", "id", "0", "0", "x"}),
              "startMediaLibUpdates(7, {\"lib\" \"\x01\" 0 0 120 0 0})");
}

TEST(Call, CallsTheOneOfSeveralInterfacesThatTheArgumentsFit) {
    Services services;
    EXPECT_EQ(toldBy(services, {"startup", "2"}), "startup(2)");
}

TEST(Call, NamesAResultThatIsTheNumberOfAStatus) {
    Services services;
    EXPECT_EQ(run({"call", "getFeature", "4294967258"}).out, "result  -38 (INVALID_OPERATION)\n");
    EXPECT_EQ(run({"call", "getFeature", "4294967277"}).out, "result  -19 (NO_INIT)\n");
    EXPECT_EQ(run({"call", "getFeature", "4294966296"}).out, "result  -1000\n");
    EXPECT_EQ(run({"call", "getFeature", "4294967258", "--json"}).objects().at(0)["reply"],
              parsed(R"({"result":-38})"));
}

TEST(Call, ShowsWhatTheReplyHolds) {
    Services services;
    EXPECT_EQ(run({"call", "getEASessionId", "7", "0"}).out, "first   -5\nsecond  16909060\nresult  0\n");
    EXPECT_EQ(
        run({"call", "getVersion", "--json"}).out,
        R"({"code":75,"interface":"IAppleiAP2Manager","operation":"getVersion","reply":{"result":"1.2.3"},)"
        R"("schema":"accessoryctl/1","status":"NO_ERROR","type":"reply"})"
        "\n");
    EXPECT_EQ(run({"call", "getAPPIds", "7", "--json"}).objects().at(0)["reply"],
              parsed(R"({"appIds":["app.one","","c"],"result":0})"));
    EXPECT_EQ(run({"call", "IAppleUSBAudioManager.getIds", "--json"}).objects().at(0)["reply"],
              parsed(R"({"ids":[4,9],"result":0})"));
    EXPECT_EQ(run({"call", "getPath", "5"}).out, "result  \"/dev/5\"\n");
}

TEST(Call, CountsAResultBelowZeroAsFailed) {
    Services services;
    const Ran ran = run({"call", "getAccessoryId", "nowhere"});
    EXPECT_EQ(ran.out, "result  -1\n");
    EXPECT_EQ(ran.status, 1);
}

TEST(Call, NamesTheServiceThatIsNotThere) {
    const Ran ran = run({"call", "launchAPP", "7", "a", "2", "--json"});
    EXPECT_EQ(ran.status, 3);
    EXPECT_EQ(ran.out, R"({"exit":3,"message":"the service accessory.AppleiAP2Manager is not there",)"
                       R"("schema":"accessoryctl/1","service":"accessory.AppleiAP2Manager",)"
                       R"("try":"accessoryctl wait accessory.AppleiAP2Manager","type":"error"})"
                       "\n");
    EXPECT_EQ(ran.err, "");
}

TEST(Call, LeavesAServiceThatNeverAnswers) {
    Services services;
    const Ran ran = run({"call", "IAppleiAP2Manager.stop", "57005", "--timeout", "0.2"});
    EXPECT_EQ(ran.status, 4);
    EXPECT_EQ(ran.err, "accessoryctl: accessory.AppleiAP2Manager did not answer within 0.2 s.\n");
}

TEST(Call, TellsThatTheServiceDiedByTheNameOfTheStatus) {
    Services services;
    const Ran ran = run({"call", "IAppleiAP2Manager.stop", "48879"});
    EXPECT_EQ(ran.status, 5);
    EXPECT_EQ(ran.err, "accessoryctl: accessory.AppleiAP2Manager died: DEAD_OBJECT.\n");
}

TEST(Call, TellsThatARequestIsTooLarge) {
    Services services;
    const std::string path = testing::TempDir() + "accessoryctl-large";
    std::ofstream(path, std::ios::binary) << std::string(1100000, 'x');
    const Ran ran = run({"call", "accHIDReport", "7", "@" + path, "--json"});
    remove(path.c_str());
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.objects().at(0)["status"], "FAILED_TRANSACTION");
}

}  // namespace
}  // namespace accessory::test
