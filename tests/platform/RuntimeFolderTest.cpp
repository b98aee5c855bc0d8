// Where processes meet: which folder is chosen, and what happens when it cannot be used.
#include <android/log.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using std::filesystem::perms;
using testing::ExitedWithCode;

const String16 kFolderTest("folder.test");

/// Sets the variables that are named in turn with their values, in front of the first use of the runtime.
void chooseFolder(const RoleArguments& variables) {
    unsetenv("BINDER_RUNTIME_DIR");
    for (size_t i = 0; i + 1 < variables.size(); i += 2)
        setenv(variables[i].c_str(), variables[i + 1].c_str(), 1);
}

CHILD_ROLE(useFolder) {
    chooseFolder(args);
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(kFolderTest, new BBinder));
    ProcessState::self()->startThreadPool();
    parent.send(ProcessState::self()->getDriverName().string());
    parent.awaitHangUp();
    return 0;
}

CHILD_ROLE(findInFolder) {
    chooseFolder(args);
    const sp<IBinder> found = defaultServiceManager()->checkService(kFolderTest);
    EXPECT_NE(nullptr, found);
    EXPECT_EQ(NO_ERROR, found->pingBinder());
    return 0;
}

CHILD_ROLE(failInFolder) {
    chooseFolder(args);
    const LogCatcher log;
    EXPECT_NE(NO_ERROR, defaultServiceManager()->addService(kFolderTest, new BBinder));
    EXPECT_EQ(nullptr, defaultServiceManager()->checkService(kFolderTest));
    EXPECT_EQ(0u, defaultServiceManager()->listServices().size());
    ProcessState::self()->startThreadPool();
    const auto lines = log.linesWith("Binder");
    const auto explains = [](const LogLine& line) {
        return line.priority == ANDROID_LOG_ERROR &&
               line.text.find("BINDER_RUNTIME_DIR") != std::string::npos;
    };
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), explains)) << testing::PrintToString(lines);
    return 0;
}

class RuntimeFolder : public testing::Test {
  protected:
    RuntimeFolder() { std::filesystem::create_directory(mBase); }
    ~RuntimeFolder() override { std::filesystem::remove_all(mBase); }

    /// The folder that a process chooses, and in which another one with the same variables finds its service.
    std::string chosenWith(const RoleArguments& variables) {
        ChildProcess service("useFolder", variables);
        std::string folder = service.expectLine();
        ChildProcess client("findInFolder", variables);
        EXPECT_PRED1(ExitedWithCode(0), client.wait());
        return folder;
    }

    void expectFailureWith(const RoleArguments& variables) {
        ChildProcess process("failInFolder", variables);
        EXPECT_PRED1(ExitedWithCode(0), process.wait());
        EXPECT_FALSE(std::filesystem::exists("/lock"));
        EXPECT_FALSE(std::filesystem::exists("/service-folder.test"));
    }

    const std::filesystem::path mBase =
        std::filesystem::path(std::getenv("BINDER_RUNTIME_DIR")) / uniqueServiceName();
};

TEST_F(RuntimeFolder, IsMadeForItsOwnerAlone) {
    const std::string folder = mBase / "new";
    EXPECT_EQ(folder, chosenWith({"BINDER_RUNTIME_DIR", folder}));
    EXPECT_EQ(perms::owner_all, std::filesystem::status(folder).permissions());
}

TEST_F(RuntimeFolder, MayHaveAPathLongerThanASocketAddress) {
    std::filesystem::path folder = mBase;
    for (int i = 0; i < 4; ++i) {
        folder /= std::string(60, 'x');
        std::filesystem::create_directory(folder);
    }
    chmod(folder.c_str(), S_IRWXU);
    EXPECT_EQ(folder.string(), chosenWith({"BINDER_RUNTIME_DIR", folder.string()}));
}

TEST_F(RuntimeFolder, IsInTheSessionsOwnUnlessItIsNamed) {
    EXPECT_EQ(mBase / "binder", chosenWith({"XDG_RUNTIME_DIR", mBase}));
    EXPECT_EQ(mBase / "named", chosenWith({"XDG_RUNTIME_DIR", mBase, "BINDER_RUNTIME_DIR", mBase / "named"}));
}

TEST_F(RuntimeFolder, IsInTheTemporaryFolderWhenThereIsNoSession) {
    EXPECT_EQ(mBase / ("binder-" + std::to_string(geteuid())),
              chosenWith({"XDG_RUNTIME_DIR", "", "TMPDIR", mBase}));
}

/// Says which folder this process has chosen.
CHILD_ROLE(sayFolder) {
    std::cout << ProcessState::self()->getDriverName().string() << std::endl;
    return 0;
}

// A copy of this program with another group's rights.
TEST_F(RuntimeFolder, IsNotChosenByWhoeverStartsAProgramThatHasMoreRightsThanHe) {
    if (geteuid() != 0) GTEST_SKIP() << "only root gives a program another group's rights";
    constexpr gid_t kGroup = 43210;
    const std::filesystem::path privileged = mBase / "privileged";
    std::filesystem::copy_file("/proc/self/exe", privileged);
    ASSERT_EQ(0, chown(privileged.c_str(), static_cast<uid_t>(-1), kGroup));
    ASSERT_EQ(0, chmod(privileged.c_str(), S_ISGID | 0755));
    const std::string output = mBase / "folder";
    const std::string command = "TMPDIR='" + mBase.string() + "' XDG_RUNTIME_DIR='" + mBase.string() +
                                "' exec '" + privileged.string() + "' --child=sayFolder " +
                                std::to_string(getpid()) + " > '" + output + "'";
    EXPECT_EQ(0, std::system(command.c_str()));
    std::string chosen;
    std::ifstream(output) >> chosen;
    EXPECT_EQ("/tmp/binder-0", chosen);
}

TEST_F(RuntimeFolder, ThatCannotBeMadeFailsWithoutACrash) {
    expectFailureWith({"BINDER_RUNTIME_DIR", mBase / "missing" / "folder"});
}

TEST_F(RuntimeFolder, ThatOthersMayWriteToIsNotUsed) {
    const std::filesystem::path folder = mBase / "open";
    std::filesystem::create_directory(folder);
    chmod(folder.c_str(), 0777);
    expectFailureWith({"BINDER_RUNTIME_DIR", folder});
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(RuntimeFolder, ThatIsAFileIsNotUsed) {
    std::ofstream(mBase / "file") << "x";
    expectFailureWith({"BINDER_RUNTIME_DIR", mBase / "file"});
}

TEST_F(RuntimeFolder, ThatIsALinkIsNotUsed) {
    std::filesystem::create_directory(mBase / "real");
    std::filesystem::create_directory_symlink(mBase / "real", mBase / "link");
    expectFailureWith({"BINDER_RUNTIME_DIR", mBase / "link"});
    EXPECT_TRUE(std::filesystem::is_empty(mBase / "real"));
}

}  // namespace
}  // namespace accessory::test
