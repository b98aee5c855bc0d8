// Wrong command lines: each names what is wrong, what was expected, and a command line that is right.
#include <accessory/Version.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
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

TEST(Usage, NamesTheFieldOfAWrongArgument) {
    expectRefused({{"call", "launchAPP", "x", "a", "1"},
                   "accId expects a number from 0 to 4294967295, got 'x'.",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=a method=1"});
    expectRefused({{"call", "launchAPP", "4294967296", "a", "1"},
                   "accId expects a number from 0 to 4294967295, got '4294967296'.",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=a method=1"});
    expectRefused({{"call", "launchAPP", "7", "a"},
                   "method expects a number from -2147483648 to 2147483647, got nothing.",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=7 appId=a method=3"});
    expectRefused({{"call", "launchAPP", "7", "a", "0", "b"},
                   "launchAPP expects 3 arguments, got one more, 'b'.",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=7 appId=a method=0"});
    expectRefused({{"call", "launchAPP", "acId=7", "a", "0"},
                   "launchAPP expects only accId, appId, method, got 'acId'; did you mean 'accId'?",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=7 appId=a method=0"});
    expectRefused({{"call", "MuteStatusUpdate", "7", "maybe"},
                   "muted expects true or false, got 'maybe'.",
                   "accessoryctl call IAppleiAP2Manager.MuteStatusUpdate accId=7 muted=true"});
}

TEST(Usage, KeepsOnlyTheArgumentsThatAreRight) {
    expectRefused({{"call", "launchAPP", "x", "a map", "y"},
                   "accId expects a number from 0 to 4294967295, got 'x'.",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=1 'appId=a map' method=3"});
}

TEST(Usage, RefusesAnArgumentThatIsGivenTwice) {
    expectRefused({{"call", "launchAPP", "accId=1", "accId=2", "a", "0"},
                   "accId expects one value, got a second one, '2'.",
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=a method=0"});
    expectRefused({{"call", "AcceptCall", "1", "2", "callUuid=null", "callUuid=b"},
                   "callUuid expects one value, got a second one, 'b'.",
                   "accessoryctl call IAppleiAP2Manager.AcceptCall accId=1 action=2 callUuid=null"});
}

TEST(Usage, RefusesNullForATextThatMustBeThere) {
    expectRefused({{"call", "setName", "null"},
                   "name expects a text, got null.",
                   "accessoryctl call IAppleiAP2Manager.setName name=some-name"});
}

TEST(Usage, NamesTheMemberOfAWrongStructure) {
    const std::string right =
        "accessoryctl call IAppleiAP2Manager.InitiateCall accId=1 param.type=1 param.service=3";
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
                   "powerMask expects names of bits joined by '|', 'all', or a number, got 'chargelevel'; "
                   "did you mean 'chargeLevel'?",
                   "accessoryctl call IAppleiAP2Manager.startPowerUpdate accId=1 powerMask=chargeLevel"});
    expectRefused(
        {{"call", "startPowerUpdate", "7", "temperature"},
         "powerMask expects names of bits joined by '|', 'all', or a number, got 'temperature'; its "
         "bits are currentFromAccessory, chargeIsPresent, powerMode, externalChargeConnected, "
         "chargeState, chargeLevel.",
         "accessoryctl call IAppleiAP2Manager.startPowerUpdate accId=7 "
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
              R"("try":"accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=a method=1",)"
              R"("type":"error"})"
              "\n");
}

TEST(Usage, NamesUnknownInterfacesAndOperations) {
    expectRefused({{"call", "IManager.start"},
                   "there is no interface 'IManager'; there are IAccessoryManager, IAppleiAP2Manager, "
                   "IAppleiAP2ManagerNotifier, IAppleUSBAudioManager, IAppleUSBAudioManagerNotifier.",
                   "accessoryctl describe"});
    expectRefused({{"call", "launchAP", "7", "a map", "0"},
                   "there is no operation or interface 'launchAP'; did you mean 'launchAPP'?",
                   "accessoryctl call launchAPP 7 'a map' 0"});
    expectRefused({{"describe", "lauchAPP"},
                   "there is no operation or interface 'lauchAPP'; did you mean 'launchAPP'?",
                   "accessoryctl describe launchAPP"});
    expectRefused({{"call", "IAppleiAP2Manager.launchAP", "7"},
                   "IAppleiAP2Manager has no operation 'launchAP'; did you mean 'launchAPP'?",
                   "accessoryctl call IAppleiAP2Manager.launchAPP 7"});
    expectRefused({{"call", "clearNotifier"},
                   "'clearNotifier' is an operation of several interfaces: IAppleiAP2Manager.clearNotifier, "
                   "IAppleUSBAudioManager.clearNotifier.",
                   "accessoryctl call IAppleiAP2Manager.clearNotifier"});
    expectRefused({{"call", "startup", "x"},
                   "mode expects a number from -2147483648 to 2147483647, got 'x'.",
                   "accessoryctl call IAppleiAP2Manager.startup mode=1"});
    expectRefused({{"call", "IAccessoryManager"},
                   "'IAccessoryManager' names no operation.",
                   "accessoryctl describe IAccessoryManager"});
    expectRefused({{"call", "IAppleiAP2ManagerNotifier.attach", "1"},
                   "IAppleiAP2ManagerNotifier is what clients implement; nothing serves it.",
                   "accessoryctl watch attach"});
    expectRefused({{"call", "IAppleiAP2Manager.setNotifier", "me"},
                   "notifier expects null; 'accessoryctl watch' registers a notifier of its own, got 'me'.",
                   "accessoryctl watch"});
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
    expectRefused({{"watch", "--where", "foo=1"},
                   "none of the events has a field 'foo'.",
                   "accessoryctl describe IAppleiAP2ManagerNotifier"});
    expectRefused({{"watch", "attach", "--where", "accId=x"},
                   "accId expects a number from 0 to 4294967295, got 'x'.",
                   "accessoryctl watch attach --where accId=1"});
    expectRefused({{"watch", "powerUpdate", "--where", "power.chargeLevel=abc"},
                   "power.chargeLevel expects a number from -2147483648 to 2147483647, got 'abc'.",
                   "accessoryctl watch powerUpdate --where power.chargeLevel=6"});
}

TEST(Usage, NamesUnknownVerbsAndOptions) {
    EXPECT_EQ(run({}).status, 2);
    const std::string verbs =
        "there are call, watch, decode, timeline, list, describe, dump, wait, doctor, completion";
    expectRefused({{"bogus"}, "there is no verb 'bogus'; " + verbs + ".", "accessoryctl --help"});
    expectRefused({{"lst", "--json=false"},
                   "there is no verb 'lst'; " + verbs + "; did you mean 'list'?",
                   "accessoryctl list --json=false"});
    expectRefused({{"--timeout", "3", "cal", "launchAPP", "1", "a map"},
                   "there is no verb 'cal'; " + verbs + "; did you mean 'call'?",
                   "accessoryctl call launchAPP 1 'a map'"});
    EXPECT_EQ(run({"call"}).status, 2);
    EXPECT_EQ(run({"list", "--bogus"}).status, 2);

    EXPECT_EQ(run({"completion", "fish"}).status, 2);
    expectRefused(
        {{"call", "getVersion", "--jsn"}, "there is no option '--jsn'.", "accessoryctl call --help"});
    EXPECT_EQ(run({"list", "--bogus"}).err.find("Type: accessoryctl list --help\n") != std::string::npos,
              true);
}

TEST(Usage, KeepsTheLogOfTheLibraryToItselfUnlessAsked) {
    // Nobody but this user may write where processes meet, so the runtime logs an error.
    const std::string folder = testing::TempDir() + "accessoryctl-open-to-all";
    mkdir(folder.c_str(), 0777);
    chmod(folder.c_str(), 0777);
    const std::string former = getenv("BINDER_RUNTIME_DIR");
    setenv("BINDER_RUNTIME_DIR", folder.c_str(), 1);
    const std::string quiet = run({"call", "getVersion"}).err;
    setenv("ACCESSORY_LOG", "error", 1);
    const std::string asked = run({"call", "getVersion"}).err;
    unsetenv("ACCESSORY_LOG");
    setenv("BINDER_RUNTIME_DIR", former.c_str(), 1);
    rmdir(folder.c_str());
    EXPECT_EQ(quiet.rfind("accessoryctl: no service can be found in", 0), 0U) << quiet;
    EXPECT_NE(asked.find("cannot be trusted"), std::string::npos) << asked;
}

TEST(Usage, SaysWhatTimesAndCountsAre) {
    for (const char* wrong : {"abc", "0", "-1", "1s", "nan", ""}) {
        const std::string got = std::string("got '") + wrong + "'.";
        expectRefused({{"list", "--timeout", wrong},
                       "--timeout expects a number of seconds above 0, " + got,
                       "accessoryctl --help"});
        expectRefused({{"watch", "--for", wrong},
                       "--for expects a number of seconds above 0, " + got,
                       "accessoryctl --help"});
        expectRefused({{"watch", "--count", wrong},
                       "--count expects a whole number from 1 to 999999999, " + got,
                       "accessoryctl watch --help"});
    }
}

TEST(Usage, TakesCommonOptionsInFrontOfTheVerbToo) {
    EXPECT_EQ(run({"--json", "--timeout", "0.2", "wait", "no.such.service"}).out,
              R"({"exit":4,"message":"the service no.such.service did not appear in time",)"
              R"("schema":"accessoryctl/1","try":"accessoryctl list","type":"error"})"
              "\n");
}

TEST(Usage, HelpsWhoeverTypesTheWord) {
    const Ran all = run({"help"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(all.out, run({"--help"}).out);
    EXPECT_EQ(run({"help", "watch"}).out, run({"watch", "--help"}).out);
    EXPECT_EQ(run({"help", "wach"}).status, 2);
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
                   "accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=a method=3"});
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
