// list, wait and dump: finding services, and what they say about themselves.
#include <gtest/gtest.h>

#include "tests/tools/Program.h"
#include "tests/tools/Services.h"

namespace accessory::test {
namespace {

TEST(List, ShowsEveryServiceWithItsProcess) {
    Services services;
    const std::string pid = std::to_string(services.process.pid());
    const std::string pad(std::max<size_t>(pid.size(), 3) - pid.size() + 2, ' ');
    const std::string headPad(std::max<size_t>(pid.size(), 3) - 3 + 2, ' ');
    EXPECT_EQ(run({"list"}).out, "SERVICE                         PID" + headPad + "ALIVE\n" +
                                     "accessory.AccessoryManager      " + pid + pad + "yes\n" +
                                     "accessory.AppleUSBAudioManager  " + pid + pad + "yes\n" +
                                     "accessory.AppleiAP2Manager      " + pid + pad + "yes\n");
    const auto objects = run({"list", "--json"}).objects();
    ASSERT_EQ(objects.size(), 3U);
    Json::Value expected = parsed(R"({"alive":true,"interface":"IAccessoryManager","schema":"accessoryctl/1",
                                      "name":"accessory.AccessoryManager","type":"service"})");
    expected["pid"] = services.process.pid();
    EXPECT_EQ(objects[0], expected);
}

TEST(List, ShowsWhichServicesAreDead) {
    { Services services; }
    const auto objects = run({"list", "--json"}).objects();
    ASSERT_EQ(objects.size(), 3U);
    for (const Json::Value& object : objects) {
        EXPECT_EQ(object["alive"], false);
        EXPECT_TRUE(object["pid"].isNull());
    }
}

TEST(Wait, EndsWhenTheServiceAppears) {
    Program waiting({"wait", "AppleiAP2Manager", "--timeout", "10"});
    Services services;
    EXPECT_EQ(waiting.expectLine(), "accessory.AppleiAP2Manager is there");
    EXPECT_EQ(waiting.wait(), 0);
    EXPECT_EQ(run({"wait", "accessory.AccessoryManager", "--json"}).out,
              R"({"schema":"accessoryctl/1","service":"accessory.AccessoryManager","type":"present"})"
              "\n");
}

TEST(Wait, EndsWhenTheTimeIsOver) {
    const Ran ran = run({"wait", "no.such.service", "--timeout", "0.2"});
    EXPECT_EQ(ran.status, 4);
    EXPECT_EQ(ran.err,
              "accessoryctl: the service no.such.service did not appear in time.\n"
              "Type: accessoryctl list\n");
}

TEST(Wait, RefusesANameThatNoServiceCanHave) {
    EXPECT_EQ(run({"wait", "a/b"}).status, 2);
    EXPECT_EQ(run({"wait", ""}).status, 2);
    EXPECT_EQ(run({"wait", std::string(128, 'x')}).status, 2);
}

TEST(Dump, PrintsWhatTheServiceSays) {
    Services services;
    EXPECT_EQ(run({"dump", "IAppleiAP2Manager"}).out, "-[accessory.AppleiAP2Manager]-\nall is well\n");
    EXPECT_EQ(run({"dump", "iappleiap2manager", "notifier"}).out,
              "-[accessory.AppleiAP2Manager]-\nnotifier size[0]\n");
    EXPECT_EQ(run({"dump", "AppleiAP2Manager", "--json"}).objects().at(0),
              parsed(R"({"schema":"accessoryctl/1","service":"accessory.AppleiAP2Manager",
                         "text":"-[accessory.AppleiAP2Manager]-\nall is well\n","type":"dump"})"));
}

TEST(Dump, NamesTheServiceThatIsNotThere) {
    const Ran ran = run({"dump", "no.such.service"});
    EXPECT_EQ(ran.status, 3);
    EXPECT_EQ(ran.err,
              "accessoryctl: the service no.such.service is not there.\n"
              "Type: accessoryctl wait no.such.service\n");
}

TEST(Dump, LeavesAServiceThatIsStopped) {
    Services services;
    services.process.kill(SIGSTOP);
    EXPECT_EQ(run({"dump", "IAppleiAP2Manager", "--timeout", "0.2"}).status, 4);
    services.process.kill(SIGCONT);
}

}  // namespace
}  // namespace accessory::test
