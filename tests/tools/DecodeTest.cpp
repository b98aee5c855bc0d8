// decode and timeline: captures spelt by hand, and those of real processes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/Eventually.h"
#include "tests/tools/CaptureBytes.h"
#include "tests/tools/Program.h"
#include "tests/tools/Services.h"
#include "tests/tools/TraceFolder.h"
#include "tools/capture/Decode.h"

namespace accessory::test {
namespace {

using testing::HasSubstr;

constexpr uint64_t kTime = 1'700'000'000'123'456'789;  // 2023-11-14T22:13:20.123456789Z

PacketBytes failedReply() {
    PacketBytes packet = launchReply();
    packet.status = -32;  // DEAD_OBJECT
    packet.data = "";
    return packet;
}

std::string exchange(const std::string& comment = {}) {
    return captureBeginning(comment) + packetBlock(kTime, launch()) +
           packetBlock(kTime + 2'500, launchReply());
}

TEST(Decode, PrintsPacketsInTheirOrder) {
    const TemporaryFile file(exchange() + packetBlock(kTime + 3'000, failedReply()));
    const Ran ran = run({"decode", file.path()});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, "");
    EXPECT_EQ(ran.out,
              "22:13:20.123456789Z 100 -> 200 call #1 IAppleiAP2Manager.launchAPP accId=7 "
              "appId=\"com.example.maps\" method=2\n"
              "22:13:20.123459289Z 100 <- 200 reply #1 IAppleiAP2Manager.launchAPP result=-5\n"
              "22:13:20.123459789Z 100 <- 200 reply #1 IAppleiAP2Manager.launchAPP DEAD_OBJECT\n");
}

TEST(Decode, PrintsObjectsForPrograms) {
    const TemporaryFile file(exchange("accessory tables " + tools::tablesDigest()));
    const auto objects = run({"decode", file.path(), "--json"}).objects();
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["type"], "capture");
    EXPECT_EQ(objects[0]["program"], "prog");
    EXPECT_EQ(objects[0]["tables"], objects[0]["ownTables"]);
    EXPECT_EQ(objects[0]["packets"], 2);
    EXPECT_EQ(objects[0]["dropped"], 0);
    EXPECT_EQ(objects[1], parsed(R"({"arguments":{"accId":7,"appId":"com.example.maps","method":2},"code":13,
                         "descriptor":"accessory.AppleiAP2Manager","direction":"out","flags":0,"kind":"call",
                         "name":"IAppleiAP2Manager.launchAPP","number":1,"object":"0000000000000abc",
                         "peerPid":200,"peerUid":1001,"pid":100,"schema":"accessoryctl/1","size":96,"tid":101,
                         "time":"2023-11-14T22:13:20.123456789Z","type":"transaction","uid":1000})"));
    EXPECT_EQ(objects[2]["reply"]["result"], -5);
    EXPECT_EQ(objects[2]["status"], "NO_ERROR");
}

TEST(Decode, SaysWhenTheTablesAreNotItsOwnAndGoesOn) {
    const TemporaryFile file(exchange("accessory tables 0123456789abcdef"));
    const Ran ran = run({"decode", file.path()});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err,
              file.path() +
                  ": the tables of transactions of its writer (0123456789abcdef) are not those of this "
                  "program (" +
                  tools::tablesDigest() + "); fields may be wrong.\n");
    EXPECT_THAT(ran.out, HasSubstr("launchAPP accId=7"));
}

TEST(Decode, PrintsWhatIsInFrontOfDamage) {
    const std::string whole = exchange();
    const TemporaryFile file(whole.substr(0, whole.size() - 3));
    const Ran ran = run({"decode", file.path()});
    EXPECT_EQ(ran.status, 1);
    EXPECT_THAT(ran.out, HasSubstr("launchAPP accId=7"));
    const size_t begin = captureBeginning().size() + packetBlock(kTime, launch()).size();
    EXPECT_EQ(ran.err, "accessoryctl: " + file.path() + ", byte " + std::to_string(begin) +
                           ": the file ends in the middle of a block.\n");
    const auto objects = run({"decode", file.path(), "--json"}).objects();
    EXPECT_EQ(objects.back()["type"], "error");
    EXPECT_EQ(objects.back()["offset"].asUInt(), begin);
}

TEST(Decode, RefusesWhatIsNoCapture) {
    const TemporaryFile file("no capture, but long enough to be taken for one");
    const Ran ran = run({"decode", file.path()});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "accessoryctl: " + file.path() + ", byte 0: this is no pcapng file.\n");
    EXPECT_EQ(run({"decode", "/no/such.pcapng"}).err,
              "accessoryctl: /no/such.pcapng: No such file or directory.\n");
    EXPECT_EQ(run({"decode", "/no/such/file"}).status, 1);
    EXPECT_EQ(run({"decode"}).status, 2);
    EXPECT_EQ(run({"timeline", file.path()}).status, 1);
}

TEST(Timeline, HasASliceForEveryCall) {
    const TemporaryFile file(exchange());
    const Json::Value document = parsed(run({"timeline", file.path()}).out);
    const Json::Value& events = document["traceEvents"];
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0], parsed(R"({"args":{"name":"prog"},"name":"process_name","ph":"M","pid":100})"));
    EXPECT_EQ(events[1],
              parsed(R"({"args":{"arguments":{"accId":7,"appId":"com.example.maps","method":2},"number":1,
                                 "peer":200,"reply":{"result":-5},"status":0},
                         "cat":"call","dur":2.5,"name":"IAppleiAP2Manager.launchAPP","ph":"X","pid":100,
                         "tid":101,"ts":0.0})"));
}

PacketBytes onTheOtherSide(PacketBytes packet) {
    packet.direction = packet.direction == 1 ? 2 : 1;
    packet.number = 71;
    std::swap(packet.pid, packet.peerPid);
    packet.tid = 201;
    return packet;
}

TEST(Timeline, LeadsFromTheCallerToTheCallee) {
    const TemporaryFile caller(exchange());
    const TemporaryFile callee(captureBeginning() + packetBlock(kTime + 500, onTheOtherSide(launch())) +
                               packetBlock(kTime + 1'500, onTheOtherSide(launchReply())));
    const TemporaryFile output;
    EXPECT_EQ(run({"timeline", caller.path(), callee.path(), "-o", output.path()}).out, "");
    std::ifstream file(output.path());
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const Json::Value document = parsed(text);
    const Json::Value& events = document["traceEvents"];
    ASSERT_EQ(events.size(), 6U);
    EXPECT_EQ(events[3]["cat"], "serve");
    EXPECT_EQ(events[3]["dur"], 1.0);
    EXPECT_EQ(events[4], parsed(R"({"cat":"transaction","id":1,"name":"transaction","ph":"s","pid":100,
                                    "tid":101,"ts":0.0})"));
    EXPECT_EQ(events[5], parsed(R"({"bp":"e","cat":"transaction","id":1,"name":"transaction","ph":"f",
                                    "pid":200,"tid":201,"ts":0.5})"));
}

/// Waits until decode prints @p count lines that hold @p text.
testing::AssertionResult shows(const std::string& capture, const std::string& text, size_t count) {
    return eventually([&] {
        const std::string out = run({"decode", capture}).out;
        size_t found = 0;
        for (size_t at = out.find(text); at != std::string::npos; at = out.find(text, at + 1))
            ++found;
        return found == count;
    });
}

TEST(Decode, ShowsWhatRealProcessesSaidToEachOther) {
    const TraceFolder folder;
    Services services;
    ASSERT_EQ(run({"call", "launchAPP", "7", "com.example.maps", "2"}).status, 0);
    unsetenv("BINDER_TRACE");
    const std::string service = folder.captureOf(services.process.pid());
    EXPECT_TRUE(shows(service, "IAppleiAP2Manager.launchAPP accId=7 appId=\"com.example.maps\" method=2", 1));
    EXPECT_TRUE(shows(service, "IAppleiAP2Manager.launchAPP result=", 1));
    const auto captures = folder.captures();
    ASSERT_EQ(captures.size(), 2U);
    Words words = {"timeline"};
    words.insert(words.end(), captures.begin(), captures.end());
    EXPECT_THAT(run(words).out, HasSubstr(R"("ph":"f")"));
    for (const Json::Value& object : run({"decode", captures[0], captures[1], "--json"}).objects()) {
        const bool isCapture = object["type"] == "capture";
        EXPECT_TRUE(!isCapture || object["tables"] == tools::tablesDigest()) << object;
    }
}

}  // namespace
}  // namespace accessory::test
