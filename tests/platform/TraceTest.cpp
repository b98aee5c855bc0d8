// Traced processes: what is in the captures that they leave behind.
#include <binder/IServiceManager.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"
#include "tools/capture/Capture.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using tools::Packet;

/// A folder of its own, to which processes that are started meanwhile are traced.
class TraceFolder {
  public:
    explicit TraceFolder(const std::string& name) {
        std::string folder = testing::TempDir() + "binder-trace-XXXXXX";
        EXPECT_NE(mkdtemp(folder.data()), nullptr);
        mFolder = folder;
        setenv("BINDER_TRACE", path(name).c_str(), 1);
    }
    ~TraceFolder() {
        unsetenv("BINDER_TRACE");
        std::filesystem::remove_all(mFolder);
    }
    TraceFolder(const TraceFolder&) = delete;
    TraceFolder& operator=(const TraceFolder&) = delete;

    std::string path(const std::string& name) const { return mFolder + "/" + name; }

  private:
    std::string mFolder;
};

std::vector<Packet> packetsIn(const std::string& path) {
    std::vector<Packet> packets;
    tools::Capture capture(path);
    for (const tools::PacketPlace& place : capture.places())
        packets.push_back(capture.packetAt(place));
    return packets;
}

/// Those with that code, once there are @p count of them.
std::vector<Packet> awaitPackets(const std::string& path, uint32_t code, size_t count) {
    std::vector<Packet> found;
    EXPECT_TRUE(eventually([&] {
        found.clear();
        if (!std::filesystem::exists(path)) return false;
        for (Packet& packet : packetsIn(path))
            if (packet.code == code) found.push_back(std::move(packet));
        return found.size() >= count;
    }));
    found.resize(count);
    return found;
}

std::vector<uint8_t> words(std::initializer_list<uint8_t> low) {
    std::vector<uint8_t> bytes;
    for (const uint8_t each : low)
        bytes.insert(bytes.end(), {each, 0, 0, 0});
    return bytes;
}

TEST(Trace, HasRequestAndReplyOfEveryCall) {
    const TraceFolder folder("service.pcapng");
    const ServiceProcess service;
    Call call(service.object(), kEcho);
    call << 5 << 6;
    ASSERT_EQ(NO_ERROR, call.run());
    const auto packets = awaitPackets(folder.path("service.pcapng"), kEcho, 2);
    EXPECT_EQ(packets[0].kind, Packet::kRequest);
    EXPECT_EQ(packets[0].direction, Packet::kIn);
    EXPECT_EQ(packets[0].data, words({5, 6}));
    EXPECT_EQ(packets[0].pid, service.pid());
    EXPECT_EQ(packets[0].uid, geteuid());
    EXPECT_EQ(packets[0].peerPid, getpid());
    EXPECT_EQ(packets[0].peerUid, geteuid());
    EXPECT_EQ(packets[1].kind, Packet::kReply);
    EXPECT_EQ(packets[1].direction, Packet::kOut);
    EXPECT_EQ(packets[1].data, words({5, 6}));
    EXPECT_EQ(packets[1].number, packets[0].number);
    EXPECT_EQ(packets[1].tid, packets[0].tid);
    EXPECT_EQ(packets[1].object, packets[0].object);
    EXPECT_GE(packets[1].time, packets[0].time);
}

TEST(Trace, HasTheStatusOfAFailedCall) {
    const TraceFolder folder("service.pcapng");
    const ServiceProcess service;
    EXPECT_EQ(-77, (Call(service.object(), kAnswer) << -77).run());
    const auto packets = awaitPackets(folder.path("service.pcapng"), kAnswer, 2);
    EXPECT_EQ(packets[1].status, -77);
    EXPECT_TRUE(packets[1].data.empty());
}

TEST(Trace, HasOnewayCallsOnce) {
    const TraceFolder folder("service.pcapng");
    const ServiceProcess service;
    ASSERT_EQ(NO_ERROR, (Call(service.object(), kRecord) << 1 << 2).send());
    ask(service.object(), kEcho, 1);
    const auto packets = awaitPackets(folder.path("service.pcapng"), kRecord, 1);
    EXPECT_EQ(packets[0].kind, Packet::kOneway);
    EXPECT_EQ(packets[0].direction, Packet::kIn);
    EXPECT_EQ(packets[0].data, words({1, 2}));
}

TEST(Trace, HasBothSidesOfACallWithTheSameObjects) {
    const TraceFolder folder("%p.pcapng");
    const ServiceProcess maker;
    const ServiceProcess keeper;
    ask(keeper.object(), kRelay, maker.object(), keeper.object());
    const auto made = awaitPackets(folder.path(std::to_string(keeper.pid()) + ".pcapng"), kMake, 2);
    const auto served = awaitPackets(folder.path(std::to_string(maker.pid()) + ".pcapng"), kMake, 2);
    EXPECT_EQ(made[0].direction, Packet::kOut);
    EXPECT_EQ(made[0].peerPid, maker.pid());
    EXPECT_EQ(served[0].peerPid, keeper.pid());
    EXPECT_EQ(made[0].object, served[0].object);
    EXPECT_NE(made[0].object, 0U);
    EXPECT_LE(made[0].time, served[0].time);
    EXPECT_LE(served[1].time, made[1].time);
    ASSERT_EQ(made[1].objects.size(), 1U);
    ASSERT_EQ(served[1].objects.size(), 1U);
    EXPECT_TRUE(made[1].objects[0].isBinder());
    EXPECT_NE(made[1].objects[0].identity, 0U);
    EXPECT_EQ(made[1].objects[0].identity, served[1].objects[0].identity);
    EXPECT_EQ(made[1].data, std::vector<uint8_t>(24));
}

TEST(Trace, CarriesLargeParcelsWhole) {
    const TraceFolder folder("service.pcapng");
    const ServiceProcess service;
    const std::vector<uint8_t> large(900'000, 7);
    for (int i = 0; i < 2; ++i) {  // through the socket, then through shared memory
        Call call(service.object(), kEcho);
        call.request.write(large.data(), large.size());
        ASSERT_EQ(NO_ERROR, call.run());
        const auto packets =
            awaitPackets(folder.path("service.pcapng"), kEcho, 2 + 2 * static_cast<size_t>(i));
        EXPECT_TRUE(packets.back().data == large);
    }
}

TEST(Trace, NeverWritesOverAFile) {
    const TraceFolder folder("shared.pcapng");
    const ServiceProcess first;
    const ServiceProcess second;
    ask(first.object(), kEcho, 1);
    ask(second.object(), kEcho, 2);
    const std::string own = "shared.pcapng." + std::to_string(second.pid());
    EXPECT_EQ(awaitPackets(folder.path("shared.pcapng"), kEcho, 2)[0].data, words({1}));
    EXPECT_EQ(awaitPackets(folder.path(own), kEcho, 2)[0].data, words({2}));
}

TEST(Trace, IsNobodyElsesToRead) {
    const TraceFolder folder("service.pcapng");
    const ServiceProcess service;
    struct stat status {};
    ASSERT_EQ(0, stat(folder.path("service.pcapng").c_str(), &status));
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST(Trace, GoesOnWithoutACaptureWhereNoneCanBe) {
    const TraceFolder folder("no/such/folder.pcapng");
    const ServiceProcess service;
    EXPECT_EQ(3, ask(service.object(), kEcho, 3));
}

TEST(Trace, SurvivesTheKillOfItsProcess) {
    const TraceFolder folder("service.pcapng");
    ServiceProcess service;
    ask(service.object(), kEcho, 5);
    awaitPackets(folder.path("service.pcapng"), kEcho, 2);
    service.kill();
    const tools::Capture capture(folder.path("service.pcapng"));
    EXPECT_FALSE(capture.damage().has_value());
}

CHILD_ROLE(tracedParent) {
    ask(defaultServiceManager()->getService(String16(args[0].c_str())), kEcho, 5);
    const pid_t child = fork();
    if (child == 0) exit(0);  // as a program ends that knows nothing of the runtime
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

uint32_t blocksOfType(const std::string& path, uint32_t type) {
    tools::BlockReader reader(path);
    uint32_t count = 0;
    for (tools::Block block; reader.next(&block);)
        count += block.type == type ? 1 : 0;
    return count;
}

TEST(Trace, IsWrittenToTheEndByWhoExitsAndNotByAForkedChild) {
    const ServiceProcess service;
    const TraceFolder folder("parent.pcapng");
    ChildProcess parent("tracedParent", {service.name()});
    EXPECT_EQ(0, parent.wait());
    constexpr uint32_t kInterfaceStatistics = 5;
    EXPECT_EQ(awaitPackets(folder.path("parent.pcapng"), kEcho, 2)[0].data, words({5}));
    EXPECT_EQ(blocksOfType(folder.path("parent.pcapng"), kInterfaceStatistics), 1U);
}

}  // namespace
}  // namespace accessory::test
