// doctor: what it finds wrong, and what it says to type.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

#include "tests/tools/Program.h"
#include "tests/tools/Services.h"

namespace accessory::test {
namespace {

/// A runtime folder for one test alone.
class Doctor : public testing::Test {
  protected:
    Doctor() {
        std::string path = std::filesystem::temp_directory_path() / "accessoryctl-XXXXXX";
        EXPECT_NE(mkdtemp(path.data()), nullptr);
        folder = path;
        setenv("BINDER_RUNTIME_DIR", path.c_str(), 1);
    }
    ~Doctor() override {
        setenv("BINDER_RUNTIME_DIR", former.c_str(), 1);
        std::filesystem::remove_all(folder);
    }

    /// The check of that name.
    static Json::Value check(const Ran& ran, const std::string& name) {
        for (const Json::Value& object : ran.objects()) {
            if (object["name"] == name) return object;
        }
        ADD_FAILURE() << "no check " << name << " in " << ran.out;
        return {};
    }

    const std::string former = getenv("BINDER_RUNTIME_DIR");
    std::string folder;
};

/// A socket on which nobody listens any more.
void leaveSocket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    close(descriptor);
}

TEST_F(Doctor, FindsNothingWrongWithRunningServices) {
    Services services;
    const Ran ran = run({"doctor"});
    const std::string pid = std::to_string(services.process.pid());
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out.find("BAD"), std::string::npos) << ran.out;
    EXPECT_NE(ran.out.find("ok   folder: " + folder + " (BINDER_RUNTIME_DIR), mode 0700\n"),
              std::string::npos);
    EXPECT_NE(ran.out.find("ok   service accessory.AppleiAP2Manager: process " + pid + " answers\n"),
              std::string::npos);
}

TEST_F(Doctor, IsContentWithAFolderThatIsNotThereYet) {
    std::filesystem::remove(folder);
    const Ran ran = run({"doctor", "--json"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(check(ran, "folder")["finding"],
              folder + " (BINDER_RUNTIME_DIR) is not there yet; the first process makes it");
    EXPECT_EQ(check(ran, "services")["finding"], "none was started here");
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(Doctor, FindsAFolderThatOthersMayWriteTo) {
    chmod(folder.c_str(), 0777);
    const Ran ran = run({"doctor", "--json"});
    EXPECT_EQ(ran.status, 1);
    const Json::Value found = check(ran, "folder");
    EXPECT_EQ(found["ok"], false);
    EXPECT_EQ(found["finding"], folder + " (BINDER_RUNTIME_DIR) can be written by others, mode 0777");
    EXPECT_EQ(found["try"], "chmod 0700 " + folder);
}

TEST_F(Doctor, FindsThatThereIsNoFolder) {
    std::filesystem::remove(folder);
    ASSERT_EQ(symlink("/tmp", folder.c_str()), 0);
    const Ran ran = run({"doctor", "--json"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(check(ran, "folder")["finding"], folder + " (BINDER_RUNTIME_DIR) is not a folder");
}

TEST_F(Doctor, FindsAFolderOfAnotherUser) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a folder away";
    ASSERT_EQ(chown(folder.c_str(), 4242, 4242), 0);
    const Ran ran = run({"doctor", "--json"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(check(ran, "folder")["finding"], folder + " (BINDER_RUNTIME_DIR) belongs to user 4242");
}

TEST_F(Doctor, FindsThatTheFolderCannotBeMade) {
    setenv("BINDER_RUNTIME_DIR", (folder + "/not/there").c_str(), 1);
    const Ran ran = run({"doctor", "--json"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(check(ran, "folder")["finding"],
              folder + "/not/there (BINDER_RUNTIME_DIR) cannot be made: there is no " + folder + "/not");
    EXPECT_EQ(check(ran, "folder")["try"], "export BINDER_RUNTIME_DIR=$(mktemp -d)");
}

TEST_F(Doctor, FindsThatTheSessionHasNoFolder) {
    unsetenv("BINDER_RUNTIME_DIR");
    setenv("XDG_RUNTIME_DIR", (folder + "/1000").c_str(), 1);
    const Ran ran = run({"doctor", "--json"});
    unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(check(ran, "folder")["finding"],
              folder + "/1000/binder (XDG_RUNTIME_DIR) cannot be made: there is no " + folder + "/1000");
}

TEST_F(Doctor, OnlyNotesWhatProcessesThatEndedLeftBehind) {
    leaveSocket(folder + "/0123456789abcdef");
    leaveSocket(folder + "/123456789abcdef0");
    { Services services; }
    const Ran ran = run({"doctor"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out.find("BAD"), std::string::npos) << ran.out;
    EXPECT_NE(ran.out.find("note sockets: 3 left by processes that have ended\n"
                           "     Type: accessoryctl doctor --tidy\n"),
              std::string::npos)
        << ran.out;
    EXPECT_NE(
        ran.out.find("note service accessory.AppleiAP2Manager: its process has ended; the next one that "
                     "offers it takes its place\n"),
        std::string::npos)
        << ran.out;
    const Json::Value note = check(run({"doctor", "--json"}), "sockets");
    EXPECT_EQ(note["ok"], true);
    EXPECT_EQ(note["note"], true);
    EXPECT_EQ(note["try"], "accessoryctl doctor --tidy");
}

TEST_F(Doctor, TidiesWhatProcessesThatEndedLeftBehind) {
    const std::string old = folder + "/0123456789abcdef";
    const std::string fresh = folder + "/123456789abcdef0";
    leaveSocket(old);
    leaveSocket(fresh);
    const timespec minuteAgo[] = {{time(nullptr) - 60, 0}, {time(nullptr) - 60, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, old.c_str(), minuteAgo, 0), 0);
    std::ofstream(folder + "/service-of.the.dead") << "0123456789abcdef 00\n";
    const std::ofstream lock(folder + "/lock");
    Services services;
    const Ran ran = run({"doctor", "--json", "--tidy"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(check(ran, "tidying")["finding"], "2 files of ended processes removed");
    EXPECT_FALSE(std::filesystem::exists(old));
    EXPECT_FALSE(std::filesystem::exists(folder + "/service-of.the.dead"));
    EXPECT_TRUE(std::filesystem::exists(fresh)) << "its process may not have come to listening yet";
    EXPECT_EQ(check(ran, "service accessory.AppleiAP2Manager")["ok"], true);
}

TEST_F(Doctor, FindsServicesThatDoNotAnswer) {
    Services services;
    services.process.kill(SIGSTOP);
    const Ran ran = run({"doctor", "--json", "--timeout", "0.2"});
    EXPECT_EQ(ran.status, 1);
    const std::string pid = std::to_string(services.process.pid());
    EXPECT_EQ(check(ran, "service accessory.AccessoryManager")["finding"],
              "process " + pid + ": accessory.AccessoryManager did not answer within 0.2 s");
    EXPECT_EQ(check(ran, "service accessory.AccessoryManager")["try"], "kill " + pid);
    services.process.kill(SIGCONT);
}

/// A listener with more callers than it lets in at a time; nobody learns which process it is.
class CrowdedDoor {
  public:
    explicit CrowdedDoor(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
        const auto* const where = reinterpret_cast<sockaddr*>(&address);
        mOpen.push_back(socket(AF_UNIX, SOCK_STREAM, 0));
        EXPECT_EQ(bind(mOpen[0], where, sizeof(address)), 0);
        EXPECT_EQ(listen(mOpen[0], 0), 0);
        do {
            mOpen.push_back(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
        } while (connect(mOpen.back(), where, sizeof(address)) == 0);
        EXPECT_EQ(errno, EAGAIN);
    }
    ~CrowdedDoor() {
        for (const int descriptor : mOpen)
            close(descriptor);
    }
    CrowdedDoor(const CrowdedDoor&) = delete;
    CrowdedDoor& operator=(const CrowdedDoor&) = delete;

  private:
    std::vector<int> mOpen;
};

TEST_F(Doctor, TakesAServiceForAliveThatLetsNobodyIn) {
    const std::string owner = "0123456789abcdef0123456789abcdef";
    const CrowdedDoor door(folder + "/" + owner);
    std::ofstream(folder + "/service-some.service") << owner << " " << owner << "\n";
    const auto listed = run({"list", "--json"}).objects().at(0);
    EXPECT_EQ(listed["alive"], true);
    EXPECT_TRUE(listed["pid"].isNull());
    const Ran ran = run({"doctor", "--json", "--timeout", "0.2"});
    EXPECT_EQ(check(ran, "sockets")["finding"], "none is stale");
    EXPECT_FALSE(check(ran, "service some.service").isMember("try")) << ran.out;
    EXPECT_TRUE(std::filesystem::exists(folder + "/service-some.service"));
}

TEST_F(Doctor, FindsALowLimitOfDescriptors) {
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit low{100, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &low);
    const Ran ran = run({"doctor", "--json"});
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(check(ran, "descriptors"),
              parsed(R"({"finding":"100 may be open at a time","name":"descriptors","ok":false,
                         "schema":"accessoryctl/1","try":"ulimit -n 1024","type":"check"})"));
}

}  // namespace
}  // namespace accessory::test
