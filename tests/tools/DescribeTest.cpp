// describe: interfaces, operations and fields as the rows have them.
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/tools/Program.h"
#include "tools/capture/Decode.h"

namespace accessory::test {
namespace {

const std::string kTablesLine = "tables " + tools::tablesDigest() + "\n";

TEST(Describe, ListsTheInterfacesAndTheDigestOfTheirTables) {
    EXPECT_EQ(run({"describe"}).out,
              "INTERFACE                      DESCRIPTOR                              OPERATIONS\n"
              "IAccessoryManager              accessory.AccessoryManager              4\n"
              "IAppleiAP2Manager              accessory.AppleiAP2Manager              87\n"
              "IAppleiAP2ManagerNotifier      accessory.AppleiAP2ManagerNotifier      45\n"
              "IAppleUSBAudioManager          accessory.AppleUSBAudioManager          11\n"
              "IAppleUSBAudioManagerNotifier  accessory.AppleUSBAudioManagerNotifier  2\n" +
                  kTablesLine);
    EXPECT_EQ(run({"describe", "--json"}).objects().at(0),
              parsed(R"({"descriptor":"accessory.AccessoryManager","interface":"IAccessoryManager",
                         "notifier":false,"operations":4,"replyHasHeader":true,
                         "schema":"accessoryctl/1","type":"interface"})"));
    EXPECT_EQ(run({"describe", "--json"}).objects().back()["digest"], tools::tablesDigest());
}

TEST(Describe, ListsTheOperationsOfAnInterface) {
    EXPECT_EQ(run({"describe", "accessorymanager"}).out,
              "CODE  OPERATION\n"
              "1     getDeviceCount()\n"
              "2     getFeature(accessoryId)\n"
              "3     getPath(accessoryId)\n"
              "4     getAccessoryId(path)\n");
    EXPECT_NE(run({"describe", "IAppleiAP2Manager"})
                  .out.find("38    getEASessionId(accId, index) -> first, second\n"),
              std::string::npos);
    EXPECT_EQ(run({"describe", "IAppleiAP2ManagerNotifier", "--json"}).objects().size(), 45U);
}

TEST(Describe, ShowsTheFieldsOfAnOperationAndHowToCallIt) {
    EXPECT_EQ(run({"describe", "IAppleiAP2Manager.launchAPP"}).out,
              "IAppleiAP2Manager.launchAPP  code 13, gives a number\n"
              "  accId   i32   a number from 0 to 4294967295\n"
              "  appId   cstr  a text\n"
              "  method  i32   a number from -2147483648 to 2147483647\n"
              "  accessoryctl call IAppleiAP2Manager.launchAPP accId=1 appId=some-appId method=3\n");
    EXPECT_EQ(run({"describe", "EASessionStop"}).out,
              "IAppleiAP2ManagerNotifier.EASessionStop  code 21, gives a number, no header in the reply\n"
              "  accId      i32  a number from 0 to 4294967295\n"
              "  sessionId  i32  a number from -2147483648 to 2147483647\n"
              "  accessoryctl watch EASessionStop\n");
    EXPECT_EQ(
        run({"describe", "setProperty", "--json"}).out,
        R"({"code":77,"descriptor":"accessory.AppleiAP2Manager","fields":[)"
        R"({"example":1,"expects":"a number from -2147483648 to 2147483647","in":"request",)"
        R"("kind":"i32","name":"mode"},)"
        R"({"example":"some-key","expects":"a text","in":"request","kind":"cstr","name":"key"},)"
        R"({"example":"some-value","expects":"a text","in":"request","kind":"cstr","name":"value"}],)"
        R"("interface":"IAppleiAP2Manager","notifier":false,"onlySent":false,"operation":"setProperty",)"
        R"("replyHasHeader":true,"result":"a number","schema":"accessoryctl/1","type":"operation"})"
        "\n");
}

TEST(Describe, ShowsBothOperationsOfOneName) {
    const auto objects = run({"describe", "IAppleiAP2Manager.startMediaLibUpdates", "--json"}).objects();
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["onlySent"], false);
    EXPECT_EQ(objects[0]["fields"].size(), 2U);
    EXPECT_EQ(objects[1]["onlySent"], true);
    EXPECT_EQ(objects[1]["fields"].size(), 6U);
}

/// What the program prints on a terminal.
std::string onTerminal(const std::string& environment, const std::string& words) {
    const std::string command =
        "script -qec '" + environment + " " + ACCESSORYCTL + " " + words + "' /dev/null < /dev/null";
    FILE* const output = popen(command.c_str(), "r");
    std::string text;
    for (int c = 0; (c = fgetc(output)) != EOF;)
        text += static_cast<char>(c);
    EXPECT_EQ(pclose(output), 0) << text;
    return text;
}

TEST(Describe, IsColouredOnATerminalOnly) {
    constexpr char kBold[] = "\033[1mIAccessoryManager.getPath\033[0m  code 3";
    EXPECT_EQ(onTerminal("NO_COLOR=", "describe getPath").rfind(kBold, 0), 0U);
    EXPECT_EQ(onTerminal("NO_COLOR=1", "describe getPath").rfind("IAccessoryManager.getPath  code 3", 0), 0U);
    EXPECT_EQ(onTerminal("NO_COLOR=", "describe getPath --json").rfind('{', 0), 0U);
    EXPECT_EQ(run({"describe", "getPath"}).out.rfind("IAccessoryManager.getPath  code 3", 0), 0U);
}

TEST(Describe, NamesTheNearestOperation) {
    const Ran ran = run({"describe", "IAppleiAP2Manager.lanchAPP"});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.err,
              "accessoryctl: IAppleiAP2Manager has no operation 'lanchAPP'; did you mean 'launchAPP'?\n"
              "Type: accessoryctl describe IAppleiAP2Manager.launchAPP\n");
}

}  // namespace
}  // namespace accessory::test
