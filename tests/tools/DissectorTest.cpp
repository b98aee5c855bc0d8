// The dissector in the program that it is for: what tshark shows of captures.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "tests/tools/CaptureBytes.h"
#include "tests/tools/Program.h"
#include "tests/tools/Services.h"
#include "tests/tools/TraceFolder.h"
#include "tools/rows/Operation.h"

namespace accessory::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr char kNotifier[] = "accessory.AppleiAP2ManagerNotifier";

/// What tshark prints about a capture, errors included.
std::string shown(const std::string& capture, const std::string& options) {
    const std::string command = "tshark -X lua_script:" DISSECTOR " -r " + capture + " " + options + " 2>&1";
    FILE* const output = popen(command.c_str(), "r");
    std::string text;
    char part[4096];
    while (const size_t got = fread(part, 1, sizeof(part), output))
        text.append(part, got);
    EXPECT_EQ(pclose(output), 0) << text;
    return text;
}

/// The values of fields, a line a packet, with bars between them.
std::vector<std::string> values(const std::string& capture, const std::vector<std::string>& fields) {
    std::string options = "-2 -T fields -E separator='|' -E occurrence=a";
    for (const std::string& field : fields)
        options += " -e accessory." + field;
    std::istringstream lines(shown(capture, options));
    std::vector<std::string> found;
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("Running as user", 0) != 0) found.push_back(line);
    return found;
}

class Dissector : public testing::Test {
  protected:
    void SetUp() override {
        if (system("command -v tshark > /dev/null") != 0) GTEST_SKIP() << "tshark is not installed";
    }
};

PacketBytes request(const std::string& descriptor, uint32_t code, const std::string& arguments,
                    uint64_t number = 1) {
    PacketBytes packet;
    packet.number = number;
    packet.code = code;
    packet.descriptor = descriptor;
    packet.data = tokenBytes(descriptor) + arguments;
    return packet;
}

PacketBytes replyTo(PacketBytes packet, const std::string& data) {
    packet.kind = 2;
    packet.direction = packet.direction == 1 ? 2 : 1;
    packet.data = data;
    return packet;
}

PacketBytes launch() {
    return request(kManager, 13, cells({7}) + cstrBytes("com.example.maps") + cells({2}));
}

PacketBytes libraryUpdate() {
    return request(kNotifier, 14,
                   cells({1, 0x43}) + cstrBytes("lib") + cstrBytes("r1") + cells({2, 0, 2}) +
                       cstrBytes("song") + cells({2, 77, 0, 1}),
                   5);
}

PacketBytes laneGuidance() {
    return request(kNotifier, 35,
                   cells({1, 0xf, 1, 3, 4, 1, 0xf, 1, 2, 2, (90 << 16) | 0xffa6, 5}) + cstrBytes("keep"), 6);
}

std::vector<PacketBytes> allPackets() {
    PacketBytes registration = request(kManager, 1, std::string(24, '\0'), 3);
    registration.binders = {static_cast<uint32_t>(registration.data.size() - 24)};
    return {launch(),
            replyTo(launch(), cells({0, -5})),
            registration,
            request(kManager, 10, "", 4),
            replyTo(request(kManager, 10, "", 4), cells({0, 2, 4, 9, 0})),
            libraryUpdate(),
            laneGuidance(),
            request(kManager, 76, cells({1, 1}) + cstrBytes("a") + cells({0, 9}) + cstrBytes("b"), 7),
            request(kNotifier, 36,
                    cells({1, 2, 1, 1, 3}) + cstrBytes("a") + cstrBytes("b") + cells({4, 3, 7, 9, 0, 0}), 8)};
}

std::string captureOf(const std::vector<PacketBytes>& packets) {
    std::string content = captureBeginning();
    for (const PacketBytes& packet : packets)
        content += packetBlock(content.size(), packet);
    return content;
}

TEST_F(Dissector, ShowsTheFieldsOfRequestAndReplyAndLinksThem) {
    const TemporaryFile file(captureOf({launch(), replyTo(launch(), cells({0, -5}))}));
    const std::string prefix = "IAppleiAP2Manager.launchAPP.";
    EXPECT_THAT(values(file.path(), {"interface", "operation", prefix + "accId", prefix + "appId",
                                     prefix + "method", prefix + "result", "request_in", "reply_in"}),
                ElementsAre("IAppleiAP2Manager|launchAPP|7|com.example.maps|2|||2",
                            "IAppleiAP2Manager|launchAPP||||-5|1|"));
    EXPECT_THAT(
        values(file.path(), {"kind", "direction", "number", "code", "pid", "peer_pid", "tid", "status"}),
        ElementsAre("1|1|1|13|100|200|101|", "2|2|1|13|100|200|101|0"));
}

TEST_F(Dissector, ShowsRecordsByTheNamesOfTheirFields) {
    const TemporaryFile file(captureOf({libraryUpdate(), laneGuidance()}));
    const std::string library = "IAppleiAP2ManagerNotifier.mediaLibUpdateDataReady.data.";
    EXPECT_EQ(values(file.path(), {library + "mask", library + "id", library + "revision",
                                   library + "groupData.count", library + "groupData.item.title",
                                   library + "groupData.deletedItem.delId", library + "mediaLibReset"})[0],
              "0x00000043|lib|r1|2|song|77|1");
    const std::string lanes = "IAppleiAP2ManagerNotifier.LaneGuidanceInformation.info.";
    EXPECT_EQ(
        values(file.path(), {lanes + "routeGuidanceDisplayComponentID", lanes + "laneInformation.laneField1",
                             lanes + "laneInformation.laneAngle", lanes + "laneInformation.laneField3",
                             lanes + "laneGuidanceDescription"})[1],
        "3|2|-90,90|5|keep");
}

TEST_F(Dissector, ShowsListsStructuresAndBinders) {
    const TemporaryFile file(captureOf(allPackets()));
    EXPECT_EQ(values(file.path(), {"IAppleiAP2Manager.setNotifier.notifier"})[2], "0000000000001234");
    EXPECT_EQ(values(file.path(), {"IAppleiAP2Manager.getAccessoryIds.ids"})[4], "4,9");
    EXPECT_EQ(values(file.path(), {"IAppleiAP2Manager.CarPlayStartSession.wired.string1",
                                   "IAppleiAP2Manager.CarPlayStartSession.value",
                                   "IAppleiAP2Manager.CarPlayStartSession.string1"})[7],
              "a|9|b");
    EXPECT_EQ(values(file.path(), {"IAppleiAP2ManagerNotifier.AppDiscoveryUpdate.list1.string2",
                                   "IAppleiAP2ManagerNotifier.AppDiscoveryUpdate.list1.buffer",
                                   "IAppleiAP2ManagerNotifier.AppDiscoveryUpdate.second"})[8],
              "b|070000|9");
}

/// An example of every request, as the kinds of the fields write it.
std::vector<PacketBytes> exampleRequests() {
    std::vector<PacketBytes> packets;
    for (const tools::Interface* interface : tools::allInterfaces()) {
        for (const auto& operation : interface->operations) {
            if (operation->onlySent) continue;
            android::Parcel parcel;
            operation->encode(tools::exampleArguments(*operation), &parcel);
            PacketBytes packet = request(interface->descriptor, operation->code, "");
            packet.data.assign(reinterpret_cast<const char*>(parcel.data()), parcel.dataSize());
            packets.push_back(packet);
        }
    }
    return packets;
}

TEST_F(Dissector, ReadsEveryRequestToItsEnd) {
    const std::vector<PacketBytes> packets = exampleRequests();
    const TemporaryFile file(captureOf(packets));
    const auto lines = values(file.path(), {"unread", "cut_short", "operation"});
    ASSERT_EQ(lines.size(), packets.size());
    for (const std::string& line : lines) {
        const bool hasLongField = line == "00000000||CallStateUpdate";  // 64 bits are sent, 32 are read
        EXPECT_TRUE(line.rfind("||", 0) == 0 || hasLongField) << line;
    }
}

TEST_F(Dissector, MarksPacketsThatAreCutShortAndNeverFails) {
    std::string content = captureBeginning();
    for (const PacketBytes& packet : allPackets()) {
        const std::string whole = packet.bytes();
        for (size_t size = 0; size < whole.size(); ++size)
            content += packetBlock(1, whole.substr(0, size));
    }
    const TemporaryFile file(content);
    const std::string text = shown(file.path(), "-O accessory");
    EXPECT_THAT(text, Not(HasSubstr("Lua Error")));
    EXPECT_THAT(text, Not(HasSubstr("Dissector bug")));
    EXPECT_THAT(text, HasSubstr("The packet is shorter than it says"));
}

TEST_F(Dissector, NeverFailsWhateverIsInAPacket) {
    std::string content = captureBeginning();
    for (const PacketBytes& packet : allPackets()) {
        const std::string whole = packet.bytes();
        for (size_t at = 0; at < whole.size(); ++at) {
            std::string wrong = whole;
            wrong[at] = static_cast<char>(wrong[at] ^ '\xff');
            content += packetBlock(1, wrong);
        }
    }
    const TemporaryFile file(content);
    const std::string text = shown(file.path(), "-O accessory");
    EXPECT_THAT(text, Not(HasSubstr("Lua Error")));
    EXPECT_THAT(text, Not(HasSubstr("Dissector bug")));
}

TEST_F(Dissector, ShowsWhatRealProcessesSaidToEachOther) {
    const TraceFolder folder;
    Services services;
    Program watcher({"watch", "powerUpdate", "--count", "1"});
    EXPECT_EQ(watcher.expectLine(), "watching accessory.AppleiAP2Manager");
    services.ask("power 62");
    EXPECT_EQ(watcher.wait(), 0);
    const std::string capture = folder.captureOf(watcher.pid());
    const std::string power = "IAppleiAP2ManagerNotifier.powerUpdate.";
    const auto lines = values(capture, {"operation", "direction", power + "accId",
                                        power + "power.chargeLevel", power + "power.powerMode"});
    EXPECT_THAT(lines, testing::Contains("powerUpdate|2|7|62|2"));
    EXPECT_THAT(lines, testing::Contains("setNotifier|1|||"));
}

}  // namespace
}  // namespace accessory::test
