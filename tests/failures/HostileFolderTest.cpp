// A runtime folder that is full, vanishes, or holds what does not belong there: a clear answer in bounded
// time, and all is well again afterwards.
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <thread>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using std::chrono::steady_clock;
using std::filesystem::path;
using testing::ExitedWithCode;

/// Longer than the runtime waits for anything here, with the load of a busy machine in mind.
constexpr std::chrono::seconds kBound{25};

String16 text(const std::string& plain) { return String16(plain.c_str()); }
sp<IServiceManager> manager() { return defaultServiceManager(); }

path folder() { return std::getenv("BINDER_RUNTIME_DIR"); }

bool isListed(const std::string& name) {
    const Vector<String16> names = manager()->listServices();
    return std::find(names.begin(), names.end(), text(name)) != names.end();
}

CHILD_ROLE(findAndCall) {
    const sp<IBinder> service = manager()->checkService(text(args.at(0)));
    return service != nullptr && service->pingBinder() == NO_ERROR ? 0 : 1;
}

void expectFoundByOthers(const std::string& name) {
    ChildProcess client("findAndCall", {name});
    EXPECT_PRED1(ExitedWithCode(0), client.wait());
}

/// A process with a folder of its own, which it makes anew.
void useOwnFolder(const RoleArguments& args) {
    setenv("BINDER_RUNTIME_DIR", args.at(0).c_str(), 1);
    std::filesystem::create_directory(folder());
    chmod(folder().c_str(), S_IRWXU);
}

CHILD_ROLE(loseTheFolder) {
    useOwnFolder(args);
    ProcessState::self()->startThreadPool();
    EXPECT_EQ(NO_ERROR, manager()->addService(text("before"), new BBinder));
    std::filesystem::remove_all(folder());
    EXPECT_EQ(nullptr, manager()->checkService(text("before")));
    EXPECT_EQ(NO_ERROR, manager()->addService(text("after"), new BBinder));
    expectFoundByOthers("after");
    std::filesystem::remove_all(folder());
    std::ofstream(folder()) << "a file in its place";
    EXPECT_EQ(NO_INIT, manager()->addService(text("never"), new BBinder));
    std::filesystem::remove(folder());
    EXPECT_EQ(NO_ERROR, manager()->addService(text("again"), new BBinder));
    expectFoundByOthers("again");
    return 0;
}

/// Runs a role with a path inside the test's runtime folder.
void expectSuccessOf(const std::string& role) {
    const path own = folder() / uniqueServiceName();
    ChildProcess process(role, {own.string()});
    EXPECT_PRED1(ExitedWithCode(0), process.wait(2 * kBound));
    std::filesystem::remove_all(own);
}

TEST(VanishedFolder, IsMadeAgainAndItsServicesAreFoundInIt) { expectSuccessOf("loseTheFolder"); }

CHILD_ROLE(loseTrust) {
    useOwnFolder(args);
    EXPECT_EQ(NO_ERROR, manager()->addService(text("before"), new BBinder));
    chmod(folder().c_str(), 0777);
    EXPECT_EQ(NO_INIT, manager()->addService(text("never"), new BBinder));
    EXPECT_EQ(nullptr, manager()->getService(text("before")));
    EXPECT_FALSE(isListed("before"));
    chmod(folder().c_str(), S_IRWXU);
    EXPECT_NE(nullptr, manager()->checkService(text("before")));
    return 0;
}

TEST(Folder, ThatOthersMayWriteToLaterIsUsedNoMore) { expectSuccessOf("loseTrust"); }

CHILD_ROLE(loseOwnership) {
    constexpr uid_t kSomebodyElse = 54321;
    useOwnFolder(args);
    EXPECT_EQ(NO_ERROR, manager()->addService(text("before"), new BBinder));
    EXPECT_EQ(0, chown(folder().c_str(), kSomebodyElse, static_cast<gid_t>(-1)));
    EXPECT_EQ(NO_INIT, manager()->addService(text("never"), new BBinder));
    EXPECT_EQ(nullptr, manager()->checkService(text("before")));
    EXPECT_FALSE(isListed("before"));
    EXPECT_EQ(0, chown(folder().c_str(), geteuid(), static_cast<gid_t>(-1)));
    EXPECT_NE(nullptr, manager()->checkService(text("before")));
    return 0;
}

TEST(Folder, ThatAnotherUserOwnsLaterIsUsedNoMore) {
    if (geteuid() != 0) GTEST_SKIP() << "only root gives a folder away";
    expectSuccessOf("loseOwnership");
}

CHILD_ROLE(fillTheFolder) {
    setenv("BINDER_RUNTIME_DIR", args.at(0).c_str(), 1);
    std::filesystem::create_directory(folder());
    if (mount("none", folder().c_str(), "tmpfs", 0, "nr_inodes=3,mode=0700") != 0) return 77;
    std::ofstream(folder() / "filling") << "x";
    EXPECT_EQ(-ENOSPC, manager()->addService(text("any"), new BBinder));
    EXPECT_EQ(nullptr, manager()->checkService(text("any")));
    EXPECT_EQ(0, mount("none", folder().c_str(), "tmpfs", MS_REMOUNT, "nr_inodes=100,mode=0700"));
    EXPECT_EQ(NO_ERROR, manager()->addService(text("any"), new BBinder));
    ProcessState::self()->startThreadPool();
    expectFoundByOthers("any");
    umount2(folder().c_str(), MNT_DETACH);
    return 0;
}

TEST(FullFolder, RefusesServicesUntilThereIsRoom) {
    const path own = folder() / uniqueServiceName();
    ChildProcess process("fillTheFolder", {own.string()});
    const int status = process.wait(kBound);
    umount2(own.c_str(), MNT_DETACH);
    if (testing::ExitedWithCode(77)(status)) GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_PRED1(ExitedWithCode(0), status);
}

/// What may lie in the place of a service's entry.
struct Obstacle {
    const char* name;
    void (*put)(const path& where);
    bool yields;  ///< whether a service may take its place
};

void PrintTo(const Obstacle& obstacle, std::ostream* out) { *out << obstacle.name; }

void putSocket(const path& where) {
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    where.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
    EXPECT_EQ(0, bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
    EXPECT_EQ(0, listen(fd, 0));
    // Stays open and takes nobody in until the process ends.
}

class HostileEntry : public testing::TestWithParam<Obstacle> {};

TEST_P(HostileEntry, IsNoServiceAndHoldsUpNobody) {
    const std::string name = uniqueServiceName();
    const path entry = folder() / ("service-" + name);
    GetParam().put(entry);
    const auto begin = steady_clock::now();
    EXPECT_EQ(nullptr, manager()->checkService(text(name)));
    EXPECT_FALSE(isListed(name));
    const status_t added = manager()->addService(text(name), new BBinder);
    EXPECT_EQ(GetParam().yields, added == NO_ERROR) << added;
    EXPECT_EQ(GetParam().yields, manager()->checkService(text(name)) != nullptr);
    EXPECT_LT(steady_clock::now() - begin, kBound);
    std::filesystem::remove_all(entry);
}

// NOLINTNEXTLINE(cppcoreguidelines-interfaces-global-init): takes std::ofstream::out for a variable of ours
const Obstacle kObstacles[] = {
    {"AFile", [](const path& where) { std::ofstream(where) << "nothing of the kind"; }, true},
    {"AnEmptyFile", [](const path& where) { std::ofstream{where}; }, true},
    {"AFolder", [](const path& where) { std::filesystem::create_directory(where); }, false},
    {"AFifo", [](const path& where) { EXPECT_EQ(0, mkfifo(where.c_str(), S_IRWXU)); }, true},
    {"ALink", [](const path& where) { std::filesystem::create_symlink("/dev/zero", where); }, true},
    {"ASocket", putSocket, true},
};

INSTANTIATE_TEST_SUITE_P(Each, HostileEntry, testing::ValuesIn(kObstacles),
                         [](const testing::TestParamInfo<Obstacle>& info) {
                             return std::string(info.param.name);
                         });

/// An entry that names the owner whose 32 digits are all @p digit.
void enterOwner(const std::string& name, char digit) {
    std::ofstream(folder() / ("service-" + name))
        << std::string(32, digit) << ' ' << std::string(32, '1') << '\n';
}

/// Connections that nobody takes in, until there is room for no more.
void fillQueueOf(const path& where) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    where.string().copy(address.sun_path, sizeof(address.sun_path) - 1);
    for (;;) {
        const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        if (connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) break;
    }
    EXPECT_EQ(EAGAIN, errno);
}

TEST(SilentProcess, WithAFullQueueHoldsUpNobodyForLong) {
    const std::string name = uniqueServiceName();
    const path own = folder() / std::string(32, 'a');
    putSocket(own);
    fillQueueOf(own);
    enterOwner(name, 'a');
    const auto begin = steady_clock::now();
    EXPECT_EQ(nullptr, manager()->checkService(text(name)));
    EXPECT_NE(NO_ERROR, manager()->addService(text(name), new BBinder)) << "its owner may live";
    EXPECT_LT(steady_clock::now() - begin, kBound);
    std::filesystem::remove(own);
    EXPECT_EQ(NO_ERROR, manager()->addService(text(name), new BBinder));
    std::filesystem::remove(folder() / ("service-" + name));
}

TEST(StoppedProcess, ThatHoldsTheFoldersLockHoldsUpNobodyForLong) {
    EXPECT_EQ(NO_ERROR, manager()->addService(text(uniqueServiceName()), new BBinder));
    const int lock = open((folder() / "lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(0, flock(lock, LOCK_EX));
    const auto begin = steady_clock::now();
    EXPECT_EQ(TIMED_OUT, manager()->addService(text(uniqueServiceName()), new BBinder));
    EXPECT_LT(steady_clock::now() - begin, kBound);
    close(lock);
    EXPECT_EQ(NO_ERROR, manager()->addService(text(uniqueServiceName()), new BBinder));
}

TEST(ProcessWhoseSocketIsGone, IsNotTakenForDead) {
    ServiceProcess service;
    ask(service.object(), kEcho, 5);
    const path entry = folder() / ("service-" + service.name());
    std::string owner;
    std::ifstream(entry) >> owner;
    ASSERT_TRUE(std::filesystem::remove(folder() / owner));
    // Its one idle connection is taken, so that another call needs a new one.
    const sp<IBinder> duringTheCall = new FunctionObject([&](uint32_t, const Parcel&, Parcel*, uint32_t) {
        status_t status = NO_ERROR;
        std::thread([&] { status = service.object()->pingBinder(); }).join();
        EXPECT_EQ(FAILED_TRANSACTION, status);
        return NO_ERROR;
    });
    ask(service.object(), kCallerAround, duringTheCall);
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
    EXPECT_TRUE(service.object()->isBinderAlive());
    service.kill();
    EXPECT_EQ(DEAD_OBJECT, service.object()->pingBinder());
}

}  // namespace
}  // namespace accessory::test
