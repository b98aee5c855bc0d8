// list, wait and dump: finding services, and what they say about themselves.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

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

/// A runtime folder that is another user's.
class AnothersFolder {
  public:
    AnothersFolder() : mPath(testing::TempDir() + "accessoryctl-another-XXXXXX") {
        EXPECT_NE(mkdtemp(mPath.data()), nullptr);
        EXPECT_EQ(chown(mPath.c_str(), 4242, 4242), 0);
        setenv("BINDER_RUNTIME_DIR", mPath.c_str(), 1);
    }
    ~AnothersFolder() {
        setenv("BINDER_RUNTIME_DIR", mFormer.c_str(), 1);
        rmdir(mPath.c_str());
    }
    AnothersFolder(const AnothersFolder&) = delete;
    AnothersFolder& operator=(const AnothersFolder&) = delete;

    const std::string& path() const { return mPath; }

  private:
    const std::string mFormer = getenv("BINDER_RUNTIME_DIR");
    std::string mPath;
};

TEST(RuntimeFolder, ThatIsAnotherUsersIsNotTakenForAnEmptyOne) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a folder away";
    const AnothersFolder folder;
    for (const Words& words : {Words{"list"}, Words{"call", "getVersion"}, Words{"watch"},
                               Words{"wait", "IAccessoryManager"}, Words{"dump", "IAccessoryManager"}}) {
        const Ran ran = run(words);
        EXPECT_EQ(ran.status, 1) << words[0];
        EXPECT_EQ(ran.out, "") << words[0];
        EXPECT_NE(ran.err.find("accessoryctl: no service can be found in " + folder.path() +
                               " (BINDER_RUNTIME_DIR): it belongs to user 4242.\n"
                               "Type: export BINDER_RUNTIME_DIR=$(mktemp -d)\n"),
                  std::string::npos)
            << ran.err;
    }
}

TEST(List, ShowsWhichServicesAreDead) {
    { Services services; }
    const std::string table = run({"list"}).out;
    EXPECT_NE(table.find("accessory.AccessoryManager      -    no\n"), std::string::npos) << table;
    EXPECT_NE(
        table.find("\nno: its process has ended; the next one that offers the service takes its place\n"),
        std::string::npos)
        << table;
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
