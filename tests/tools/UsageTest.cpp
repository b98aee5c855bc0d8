// Wrong command lines: each names what is wrong, what was expected, and a command line that is right.
#include <accessory/Version.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/tools/Program.h"
#include "tools/capture/Decode.h"

namespace accessory::test {
namespace {

struct Wrong {
    Words words;
    std::string message;
    std::string right;
};

void expectRefused(const Wrong& wrong) {
    const Ran ran = run(wrong.words);
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "accessoryctl: " + wrong.message + "\nType: " + wrong.right + "\n");
}

constexpr char kLaunch[] = "accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=some-appId method=3";

TEST(Usage, NamesTheFieldOfAWrongArgument) {
    expectRefused({{"call", "launchAPP", "x", "a", "1"},
                   "accId expects a number from 0 to 4294967295, got 'x'.",
                   kLaunch});
    expectRefused({{"call", "launchAPP", "4294967296", "a", "1"},
                   "accId expects a number from 0 to 4294967295, got '4294967296'.",
                   kLaunch});
    expectRefused({{"call", "launchAPP", "1", "a"},
                   "method expects a number from -2147483648 to 2147483647, got nothing.",
                   kLaunch});
    expectRefused({{"call", "launchAPP", "1", "a", "1", "b"},
                   "launchAPP expects 3 arguments, got one more, 'b'.",
                   kLaunch});
    expectRefused({{"call", "launchAPP", "acId=1", "a", "1"},
                   "launchAPP expects only accId, appId, method, got 'acId'; did you mean 'accId'?",
                   kLaunch});
    expectRefused({{"call", "MuteStatusUpdate", "1", "maybe"},
                   "muted expects true or false, got 'maybe'.",
                   "accessoryctl call IAppleiAP2Manager.MuteStatusUpdate accId=1 muted=true"});
}

TEST(Usage, NamesTheMemberOfAWrongStructure) {
    const std::string right =
        "accessoryctl call IAppleiAP2Manager.InitiateCall accId=1 param.type=1 "
        "param.destinationId=some-destinationId param.service=3 param.addressBookId=some-addressBookId";
    expectRefused({{"call", "InitiateCall", "1", "param.type=x"},
                   "param.type expects a number from -2147483648 to 2147483647, got 'x'.",
                   right});
    expectRefused(
        {{"call", "InitiateCall", "1", "param.tipe=1"},
         "param expects only type, destinationId, service, addressBookId, got 'tipe'; did you mean 'type'?",
         right});
    expectRefused({{"call", "InitiateCall", "1", "{"},
                   "param expects a structure of type, destinationId, service, addressBookId, got '{'.",
                   right});
    expectRefused({{"call", "InitiateCall", "1", "param={}", "param.type=1"},
                   "param expects either its members or a whole value, got both.",
                   right});
}

TEST(Usage, NamesWrongBytesListsAndMasks) {
    const std::string address = "accessoryctl call IAppleiAP2Manager.setBluetoothAddr addr=a0a1a2a3a4";
    expectRefused({{"call", "setBluetoothAddr", "0a1"},
                   "addr expects bytes as hex digits (0a1b) or @file, got '0a1'.",
                   address});
    expectRefused(
        {{"call", "setBluetoothAddr", "@/no/such"},
         "addr expects bytes as hex digits (0a1b) or @file, got the file '/no/such', which cannot be read.",
         address});
    expectRefused({{"call", "startPowerUpdate", "1", "chargelevel"},
                   "powerMask expects names of bits joined by '|', 'all', or a number, got 'chargelevel'.",
                   "accessoryctl call IAppleiAP2Manager.startPowerUpdate accId=1 "
                   "'powerMask=currentFromAccessory|chargeIsPresent'"});
    expectRefused({{"call", "StopRouteGuidanceUpdate", "1", "1,x"},
                   "ids expects a number from -2147483648 to 2147483647, got 'x'.",
                   "accessoryctl call IAppleiAP2Manager.StopRouteGuidanceUpdate accId=1 ids=2,3"});
}

TEST(Usage, GivesTheErrorToProgramsInItsParts) {
    const Ran ran = run({"call", "launchAPP", "x", "a", "1", "--json"});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(ran.out,
              R"({"exit":2,"expects":"a number from 0 to 4294967295","field":"accId","got":"'x'",)"
              R"("message":"accId expects a number from 0 to 4294967295, got 'x'","schema":"accessoryctl/1",)"
              R"("try":"accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=some-appId method=3",)"
              R"("type":"error"})"
              "\n");
}

TEST(Usage, NamesUnknownInterfacesAndOperations) {
    expectRefused({{"call", "IManager.start"},
                   "there is no interface 'IManager'; there are IAccessoryManager, IAppleiAP2Manager, "
                   "IAppleiAP2ManagerNotifier, IAppleUSBAudioManager, IAppleUSBAudioManagerNotifier.",
                   "accessoryctl describe"});
    expectRefused({{"call", "startup"},
                   "'startup' is an operation of several interfaces: IAppleiAP2Manager.startup, "
                   "IAppleUSBAudioManager.startup.",
                   "accessoryctl describe IAppleiAP2Manager.startup"});
    expectRefused({{"call", "IAccessoryManager"},
                   "'IAccessoryManager' names no operation.",
                   "accessoryctl describe IAccessoryManager"});
    expectRefused({{"call", "IAppleiAP2ManagerNotifier.attach", "1"},
                   "IAppleiAP2ManagerNotifier is what clients implement; nothing serves it.",
                   "accessoryctl watch attach"});
    expectRefused({{"call", "IAppleiAP2Manager.setNotifier", "me"},
                   "notifier expects null; 'accessoryctl watch' registers a notifier of its own, got 'me'.",
                   "accessoryctl call IAppleiAP2Manager.setNotifier notifier=null"});
}

TEST(Usage, NamesUnknownEventsAndConditions) {
    expectRefused({{"watch", "atach"},
                   "there is no event 'atach'; did you mean 'attach'?",
                   "accessoryctl watch attach"});
    expectRefused({{"watch", "attach", "--where", "accId"},
                   "--where expects field=value, got 'accId'.",
                   "accessoryctl watch attach --where accId=1"});
    expectRefused({{"watch", "powerUpdate", "--where", "power.level=1"},
                   "none of the events has a field 'power.level'.",
                   "accessoryctl describe IAppleiAP2ManagerNotifier.powerUpdate"});
}

TEST(Usage, NamesUnknownVerbsAndOptions) {
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"bogus"}).status, 2);
    EXPECT_EQ(run({"call"}).status, 2);
    EXPECT_EQ(run({"list", "--bogus"}).status, 2);
    EXPECT_EQ(run({"list", "--timeout", "-1"}).status, 2);
    EXPECT_EQ(run({"completion", "fish"}).status, 2);
    expectRefused(
        {{"call", "getVersion", "--jsn"}, "there is no option '--jsn'.", "accessoryctl call --help"});
    EXPECT_EQ(run({"list", "--bogus"}).err.find("Type: accessoryctl list --help\n") != std::string::npos,
              true);
}

TEST(Usage, TellsItsVersionAndItsExitStatuses) {
    EXPECT_EQ(run({"--version"}).out,
              "accessoryctl " ACCESSORY_VERSION "\ntables " + tools::tablesDigest() + "\n");
    const Ran help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("3 the service is not there"), std::string::npos);
}

TEST(Usage, TakesWhatFollowsTwoDashesForValues) {
    expectRefused({{"call", "launchAPP", "1", "a", "--", "--json"},
                   "method expects a number from -2147483648 to 2147483647, got '--json'.",
                   kLaunch});
}

/// The manual names every verb and every option that the help has.
TEST(Usage, IsInTheManual) {
    std::ifstream file(MAN_PAGE);
    const std::string page{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_NE(page.find("\"accessory " ACCESSORY_VERSION "\""), std::string::npos);
    for (const std::string verb :
         {"list", "describe", "call", "watch", "decode", "timeline", "dump", "wait", "doctor", "completion"})
        EXPECT_NE(page.find("\n.SS " + verb), std::string::npos) << verb;
    for (const std::string option :
         {"json", "timeout", "where", "count", "for", "reconnect", "output", "version", "help"})
        EXPECT_NE(page.find("\\-\\-" + option), std::string::npos) << option;
}

}  // namespace
}  // namespace accessory::test
