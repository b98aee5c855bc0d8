#include "tests/simulator/Script.h"

#include <accessory/IAppleiAP2Manager.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <future>

#include "simulator/scenario/ScenarioReader.h"
#include "simulator/service/ReportedEvents.h"
#include "simulator/service/iAP2Service.h"
#include "tests/support/Eventually.h"

namespace accessory::simulator::test {

namespace {

using Broadcaster = android::sp<AppleiAP2ManagerNotifierItf>;

class BroadcasterTaker : public iAP2Service {
  public:
    using iAP2Service::iAP2Service;
    int addNotifier(const Broadcaster& notifier) override {
        broadcaster = notifier;
        return 0;
    }
    Broadcaster broadcaster;
};

/// A broadcaster without clients, made once: what is made for a stub stays.
const Broadcaster& quietBroadcaster() {
    static const auto* const stub = [] {
        auto* const report = new Report(false, false);
        auto* const world = new World(Scenario(), Playing(), *report);
        const android::sp<BroadcasterTaker> taker =
            new BroadcasterTaker(*world, *report, *new FaultInjector({}));
        static const auto* const kept = new android::sp<BnAppleiAP2Manager>(new BnAppleiAP2Manager(taker));
        EXPECT_NE(*kept, nullptr);
        return new Broadcaster(taker->broadcaster);
    }();
    return *stub;
}

std::string timed(milliseconds time, const std::string& line) {
    char seconds[32];
    snprintf(seconds, sizeof(seconds), "%g ", static_cast<double>(time.count()) / 1000);
    return seconds + line;
}

}  // namespace

Script::Script(const std::string& deviceFields) {
    const std::string text = R"({"name": "script", "devices": [{"name": "Phone")" +
                             (deviceFields.empty() ? "" : ", " + deviceFields) + "}]}";
    const std::vector<std::string> problems = readScenario("script", text, &mScenario);
    EXPECT_TRUE(problems.empty()) << testing::PrintToString(problems);
}

Script& Script::at(double seconds, std::function<void(Device&)> action) {
    Step step;
    step.at = milliseconds(static_cast<int64_t>(seconds * 1000));
    step.device = 1;
    step.needsAttached = false;
    step.run = std::move(action);
    mScenario.timeline.push_back(std::move(step));
    return *this;
}

std::vector<std::string> Script::play(double seconds) {
    mScenario.duration = milliseconds(static_cast<int64_t>(seconds * 1000));
    Report report(false, false);
    Playing playing;
    playing.speed = 0;
    World world(mScenario, playing, report);
    std::vector<std::string> lines;
    world.setClients(new ReportedEvents(quietBroadcaster(), true, [&](const std::string& line) {
        lines.push_back(timed(world.now(), line));
    }));
    std::promise<void> ended;
    world.setOnEnd([&] { ended.set_value(); });
    {
        const std::lock_guard lock(world.lock());
        EXPECT_EQ(world.startup(kTransportUSBHost), kDone);
    }
    world.start();
    EXPECT_EQ(ended.get_future().wait_for(accessory::test::kPatience), std::future_status::ready);
    world.stop();
    world.describe(&mDescription);
    return lines;
}

std::vector<std::string> about(const std::string& word, const std::vector<std::string>& lines) {
    std::vector<std::string> chosen;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(chosen),
                 [&](const std::string& line) { return line.find(word) != std::string::npos; });
    return chosen;
}

}  // namespace accessory::simulator::test
