// Who may talk to a service: its own user and root; others only when its owner has opened the runtime folder
// to their group. Other users need root to be played; without it these tests are skipped.
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/platform/RawPeer.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using testing::ExitedWithCode;

constexpr uid_t kStranger = 54321;
constexpr gid_t kGroup = 43210;
const String16 kAccessTest("access.test");

/// Turns this process into one of another user, for good.
void become(uid_t user, gid_t group) {
    ASSERT_EQ(0, setgroups(0, nullptr));
    ASSERT_EQ(0, setgid(group));
    ASSERT_EQ(0, setuid(user));
    // Which the change of user took away, and the leak sanitizer needs.
    ASSERT_EQ(0, prctl(PR_SET_DUMPABLE, 1));
}

/// How many bytes a knock at the socket args[0] is answered with before the door is shut; args[1] says how
/// often to knock.
CHILD_ROLE(strangerKnocks) {
    become(kStranger, kStranger);
    size_t told = 0;
    for (int i = std::stoi(args.at(1)); i > 0; --i) {
        const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_un address{AF_UNIX, {}};
        args.at(0).copy(address.sun_path, sizeof(address.sun_path) - 1);
        if (connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) return 2;
        RawHello hello;
        send(fd, &hello, sizeof(hello), MSG_NOSIGNAL);
        char answer[64];
        const ssize_t got = recv(fd, answer, sizeof(answer), 0);
        told += got > 0 ? static_cast<size_t>(got) : 0;
        close(fd);
    }
    parent.send(std::to_string(told));
    return 0;
}

/// Uses the service of the folder args[0], args[1] naming the group, as a member of it, also to be called
/// back.
CHILD_ROLE(memberCalls) {
    setenv("BINDER_RUNTIME_DIR", args.at(0).c_str(), 1);
    setenv("BINDER_RUNTIME_GROUP", args.at(1).c_str(), 1);
    become(kStranger, kGroup);
    const sp<IBinder> service = defaultServiceManager()->checkService(kAccessTest);
    if (service == nullptr) return 2;
    uid_t caller = kStranger;
    const sp<IBinder> own = new FunctionObject([&caller](uint32_t, const Parcel&, Parcel* reply, uint32_t) {
        caller = IPCThreadState::self()->getCallingUid();
        return reply->writeInt32(7);
    });
    Call call(service, 1);
    call << own;
    if (call.run() != NO_ERROR) return 3;
    EXPECT_EQ(static_cast<int32_t>(kStranger), call.reply.readInt32());
    EXPECT_EQ(7, call.reply.readInt32());
    EXPECT_EQ(0u, caller);
    return 0;
}

/// Answers with the caller's user and what the caller's object says.
CHILD_ROLE(serveGroup) {
    setenv("BINDER_RUNTIME_DIR", args.at(0).c_str(), 1);
    setenv("BINDER_RUNTIME_GROUP", args.at(1).c_str(), 1);
    const sp<IBinder> service = new FunctionObject([](uint32_t, const Parcel& data, Parcel* reply, uint32_t) {
        reply->writeInt32(static_cast<int32_t>(IPCThreadState::self()->getCallingUid()));
        const sp<IBinder> object = data.readStrongBinder();
        return reply->writeInt32(object != nullptr ? ask(object, 1) : -1);
    });
    EXPECT_EQ(NO_ERROR, defaultServiceManager()->addService(kAccessTest, service));
    ProcessState::self()->startThreadPool();
    parent.send("serving");
    parent.awaitHangUp();
    return 0;
}

class Strangers : public testing::Test {
  protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "only root can play another user";
        std::filesystem::create_directory(mBase);
        openTheWay();
    }
    ~Strangers() override { std::filesystem::remove_all(mBase); }

    /// Others may pass through the folders above, as they may through /tmp or /run.
    void openTheWay() const {
        chmod(mBase.parent_path().c_str(), 0711);
        chmod(mBase.c_str(), 0711);
    }

    const std::filesystem::path mBase =
        std::filesystem::path(std::getenv("BINDER_RUNTIME_DIR")) / uniqueServiceName();
};

TEST_F(Strangers, CannotEvenReachTheSocket) {
    const ServiceProcess service;
    ChildProcess stranger("strangerKnocks", {RawAddress::of(service.name()).socket, "1"});
    EXPECT_PRED1(ExitedWithCode(2), stranger.wait());
}

TEST_F(Strangers, AreRefusedAndLearnNothing) {
    LogCatcher log;
    const std::string name = uniqueServiceName();
    ASSERT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(name.c_str()), new BBinder));
    const std::string socket = RawAddress::of(name).socket;
    ASSERT_EQ(0, chmod(socket.c_str(), 0666));
    ChildProcess stranger("strangerKnocks", {socket, "1"});
    EXPECT_EQ("0", stranger.expectLine());
    const std::string who = "process " + std::to_string(stranger.pid()) + " of user 54321 is refused";
    EXPECT_TRUE(eventually([&] {
        const auto lines = log.linesWith("Binder");
        return std::any_of(lines.begin(), lines.end(),
                           [&](const LogLine& line) { return line.text.find(who) == 0; });
    }));
    chmod(socket.c_str(), 0600);
}

TEST_F(Strangers, CannotFillTheLog) {
    LogCatcher log;
    const std::string name = uniqueServiceName();
    ASSERT_EQ(NO_ERROR, defaultServiceManager()->addService(String16(name.c_str()), new BBinder));
    const std::string socket = RawAddress::of(name).socket;
    ASSERT_EQ(0, chmod(socket.c_str(), 0666));
    ChildProcess stranger("strangerKnocks", {socket, "500"});
    EXPECT_EQ("0", stranger.expectLine());
    chmod(socket.c_str(), 0600);
    const auto lines = log.linesWith("Binder");
    const auto refusals = std::count_if(lines.begin(), lines.end(), [](const LogLine& line) {
        return line.text.find("is refused") != std::string::npos;
    });
    EXPECT_LE(refusals, 12) << "one a second";
}

/// Listens at the socket args[0], which root has let it have, and says how many bytes a caller sends it.
CHILD_ROLE(strangerListens) {
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{AF_UNIX, {}};
    args.at(0).copy(address.sun_path, sizeof(address.sun_path) - 1);
    EXPECT_EQ(0, bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address)));
    become(kStranger, kStranger);
    EXPECT_EQ(0, listen(listener, 8));
    parent.send("listening");
    const int caller = accept(listener, nullptr, nullptr);
    char said[64];
    parent.send(std::to_string(recv(caller, said, sizeof(said), 0)));
    parent.awaitHangUp();
    return 0;
}

TEST_F(Strangers, WhoListenInTheFolderAreNotTalkedTo) {
    const std::filesystem::path folder = mBase.parent_path();
    const std::string owner(32, '7');
    const std::string name = uniqueServiceName();
    ChildProcess stranger("strangerListens", {(folder / owner).string()});
    ASSERT_EQ("listening", stranger.expectLine());
    std::ofstream(folder / ("service-" + name)) << owner << ' ' << std::string(32, '8') << '\n';
    EXPECT_EQ(nullptr, defaultServiceManager()->checkService(String16(name.c_str())));
    EXPECT_EQ("0", stranger.expectLine());
    std::filesystem::remove(folder / ("service-" + name));
    std::filesystem::remove(folder / owner);
}

TEST_F(Strangers, OfTheGroupThatTheFolderIsOpenToAreServedAndCalledBack) {
    const std::string folder = mBase / "shared";
    const std::string group = std::to_string(kGroup);
    ChildProcess service("serveGroup", {folder, group});
    ASSERT_EQ("serving", service.expectLine());
    EXPECT_EQ(03770u, static_cast<unsigned>(std::filesystem::status(folder).permissions()));
    for (int round = 0; round < 2; ++round) {
        ChildProcess member("memberCalls", {folder, group});
        EXPECT_PRED1(ExitedWithCode(0), member.wait());
    }
    service.hangUp();
    EXPECT_PRED1(ExitedWithCode(0), service.wait());
}

TEST_F(Strangers, OfAnotherGroupCannotReachAFolderThatIsOpenToOne) {
    const std::string folder = mBase / "shared";
    ChildProcess service("serveGroup", {folder, std::to_string(kGroup + 1)});
    ASSERT_EQ("serving", service.expectLine());
    ChildProcess member("memberCalls", {folder, std::to_string(kGroup + 1)});
    EXPECT_PRED1(ExitedWithCode(2), member.wait());
}

}  // namespace
}  // namespace accessory::test
