// watch: events as lines, what is filtered, and how it ends.
#include <gtest/gtest.h>

#include "tests/tools/Program.h"
#include "tests/tools/Services.h"

namespace accessory::test {
namespace {

constexpr char kManager[] = "accessory.AppleiAP2Manager";
constexpr char kAudio[] = "accessory.AppleUSBAudioManager";

/// The line without its time of day, which nobody can know.
Json::Value timeless(Json::Value line) {
    EXPECT_EQ(line["time"].asString().size(), sizeof("2026-01-31T12:00:00.000Z") - 1) << line;
    line.removeMember("time");
    return line;
}

/// A watcher that has registered.
struct Watching : Program {
    explicit Watching(const Words& more) : Program(with(more)) {
        first = expectObject();
        EXPECT_EQ(first["type"], "watching") << first;
    }

    static Words with(const Words& more) {
        Words words = {"watch", "--json"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    Json::Value first;
};

TEST(Watch, PrintsEveryEventDecoded) {
    Services services;
    Watching watching({"--count", "2"});
    EXPECT_EQ(watching.first["services"],
              parsed(R"(["accessory.AppleiAP2Manager","accessory.AppleUSBAudioManager"])"));
    services.ask("attach 4294967");
    EXPECT_EQ(timeless(watching.expectObject()),
              parsed(R"({"arguments":{"accId":4294967},"code":2,"event":"attach",
                         "interface":"IAppleiAP2ManagerNotifier","schema":"accessoryctl/1","type":"event"})"));
    services.ask("audio 9");
    EXPECT_EQ(timeless(watching.expectObject()),
              parsed(R"({"arguments":{"accessoryId":9},"code":1,"event":"attach",
                         "interface":"IAppleUSBAudioManagerNotifier","schema":"accessoryctl/1","type":"event"})"));
    EXPECT_EQ(watching.wait(), 0);
}

TEST(Watch, ShowsOfARecordWhatIsPresent) {
    Services services;
    Watching watching({"powerUpdate", "--count", "1"});
    services.ask("power 80");
    EXPECT_EQ(watching.expectObject()["arguments"],
              parsed(R"({"accId":7,"power":{"powerMode":2,"chargeLevel":80}})"));
}

TEST(Watch, PrintsTextForPeople) {
    Services services;
    Program watching({"watch", "powerUpdate", "--count", "1"});
    EXPECT_EQ(watching.expectLine(), "watching accessory.AppleiAP2Manager");
    services.ask("power 80");
    const std::string line = watching.expectLine();
    EXPECT_EQ(line.substr(line.find(' ')),
              " IAppleiAP2ManagerNotifier.powerUpdate accId=7 power={powerMode=2, chargeLevel=80}");
}

TEST(Watch, PrintsOnlyTheEventsThatWereNamed) {
    Services services;
    Watching watching({"detach", "--count", "1"});
    services.ask("attach 1");
    services.ask("detach 2");
    EXPECT_EQ(watching.expectObject()["event"], "detach");
    EXPECT_EQ(watching.wait(), 0);
}

TEST(Watch, RegistersWithNobodyButTheServiceOfTheNamedEvents) {
    Services services;
    EXPECT_EQ(Watching({"powerUpdate"}).first["services"], parsed(R"(["accessory.AppleiAP2Manager"])"));
    EXPECT_EQ(Watching({"IAppleUSBAudioManagerNotifier.attach"}).first["services"],
              parsed(R"(["accessory.AppleUSBAudioManager"])"));
    EXPECT_EQ(Watching({"attach"}).first["services"].size(), 2U);
}

TEST(Watch, PrintsOnlyEventsForWhichEveryConditionHolds) {
    Services services;
    Watching watching({"--where", "accId=7", "--where", "power.chargeLevel=0x50", "--count", "1"});
    services.ask("attach 7");
    services.ask("power 79");
    services.ask("power 80");
    EXPECT_EQ(watching.expectObject()["arguments"]["power"]["chargeLevel"], 80);
    EXPECT_EQ(watching.wait(), 0);
}

TEST(Watch, ReportsAnEventThatNoReceiverCanTake) {
    Services services;
    Watching watching({"--count", "1"});
    services.ask("garbled " + std::to_string(watching.pid()));
    const Json::Value line = watching.expectObject();
    EXPECT_EQ(line["event"], "OOBBTPLinkKeyInfo");
    EXPECT_EQ(line["error"], "a receiver ends its process: 2147483647 bytes announced");
    EXPECT_FALSE(line.isMember("arguments"));
}

TEST(Watch, EndsAfterTheTimeAndTellsWhetherAnythingMatched) {
    Services services;
    EXPECT_EQ(run({"watch", "--for", "0.1"}).status, 1);
    EXPECT_EQ(run({"watch", "--for", "0.1", "--count", "1"}).status, 4);
    Watching watching({"--for", "1"});
    services.ask("attach 1");
    EXPECT_EQ(watching.wait(), 0);
}

TEST(Watch, TakesItsNotifierBackOnASignal) {
    Services services;
    for (const int signal : {SIGINT, SIGTERM}) {
        Watching watching({});
        EXPECT_NE(run({"dump", kManager, "notifier"}).out.find("notifier size[1]"), std::string::npos);
        EXPECT_NE(run({"dump", kAudio, "notifier"}).out.find("notifier size[1]"), std::string::npos);
        watching.signal(signal);
        EXPECT_EQ(watching.wait(), 0);
        EXPECT_NE(run({"dump", kManager, "notifier"}).out.find("notifier size[0]"), std::string::npos);
        EXPECT_NE(run({"dump", kAudio, "notifier"}).out.find("notifier size[0]"), std::string::npos);
    }
}

TEST(Watch, SaysThatTheServiceDiedAndEnds) {
    Services services;
    Watching watching({"powerUpdate"});
    services.process.kill();
    services.process.wait();
    EXPECT_EQ(watching.expectObject(),
              parsed(R"({"schema":"accessoryctl/1","service":"accessory.AppleiAP2Manager","type":"died"})"));
    EXPECT_EQ(watching.wait(), 5);
}

TEST(Watch, WaitsForTheServiceAgainWhenTold) {
    auto services = std::make_unique<Services>();
    Watching watching({"powerUpdate", "--reconnect", "--count", "1"});
    services.reset();
    EXPECT_EQ(watching.expectObject()["type"], "died");
    services = std::make_unique<Services>();
    EXPECT_EQ(watching.expectObject()["type"], "watching");
    services->ask("power 3");
    EXPECT_EQ(watching.expectObject()["event"], "powerUpdate");
    EXPECT_EQ(watching.wait(), 0);
}

TEST(Watch, WaitsForAServiceThatIsNotThereYetWhenTold) {
    Program watching({"watch", "powerUpdate", "--reconnect", "--json", "--count", "1"});
    Services services;
    EXPECT_EQ(watching.expectObject()["type"], "watching");
    services.ask("power 3");
    EXPECT_EQ(watching.expectObject()["event"], "powerUpdate");
}

TEST(Watch, SaysWhatItWaitsFor) {
    Program watching({"watch", "attach", "--reconnect"});
    EXPECT_EQ(watching.expectLine(), "waiting for accessory.AppleiAP2Manager accessory.AppleUSBAudioManager");
}

TEST(Watch, NamesTheServiceThatIsNotThere) {
    const Ran ran = run({"watch", "powerUpdate"});
    EXPECT_EQ(ran.status, 3);
    EXPECT_EQ(ran.err,
              "accessoryctl: the service accessory.AppleiAP2Manager is not there.\n"
              "Type: accessoryctl wait accessory.AppleiAP2Manager\n");
}

TEST(Watch, DropsLinesForASlowReaderInsteadOfBlockingTheService) {
    Services services;
    Watching watching({"deviceInfoUpdate"});
    EXPECT_EQ(services.ask("flood 4000"), "done");  // while nobody reads
    watching.signal(SIGTERM);
    unsigned events = 0;
    unsigned dropped = 0;
    for (const std::string& line : watching.remainingLines()) {
        const Json::Value object = parsed(line);
        if (object["type"] == "event") ++events;
        if (object["type"] == "dropped") dropped += object["count"].asUInt();
    }
    EXPECT_GT(dropped, 0U);
    EXPECT_EQ(events + dropped, 4000U);
    EXPECT_EQ(watching.wait(), 0);
}

}  // namespace
}  // namespace accessory::test
