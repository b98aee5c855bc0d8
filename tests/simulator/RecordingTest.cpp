// What 'accessoryctl watch --json' shows of each ready-made scenario, compared with the files in golden/.
//
// The watcher registers first. Then a client starts the transport up; everything else it asks for from its
// attach callback, while the simulation stands still, so that every run is the same. A deliberate change is
// recorded with ACCESSORY_RECORD=1, see docs/TESTING.md.
#include <accessory/IAppleUSBAudioManager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cinttypes>
#include <cstdlib>
#include <fstream>

#include "simulator/Values.h"
#include "tests/simulator/Everything.h"
#include "tests/simulator/SimulatorProcess.h"
#include "tests/tools/Program.h"
#include "tools/rows/Values.h"

namespace accessory::simulator::test {
namespace {

using accessory::test::Program;
using accessory::test::Words;

/// A longer line stands in the file as a digest: pages of a library.
constexpr size_t kLongestLine = 4096;

template <typename Interface>
android::sp<Interface> find() {
    return Interface::asInterface(android::defaultServiceManager()->getService(Interface::descriptor));
}

/// The 64-bit FNV-1a hash of the text, in hexadecimal.
std::string digestOf(const std::string& text) {
    uint64_t hash = 0xcbf29ce484222325u;
    for (const char byte : text)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3u;
    char digits[17];
    snprintf(digits, sizeof(digits), "%016" PRIx64, hash);
    return digits;
}

/// An event without its time of day, which nobody can know.
std::string recorded(Json::Value event) {
    event.removeMember("time");
    std::string line = tools::compactJson(event);
    if (line.size() <= kLongestLine) return line;
    event.removeMember("arguments");
    event["length"] = static_cast<Json::UInt64>(line.size());
    event["digest"] = digestOf(line);
    return tools::compactJson(event);
}

/// The head unit: one transport to begin with, the rest as soon as a device is there.
class Client {
  public:
    explicit Client(AppleiAP2TransportMode first) : mFirst(first) {
        android::ProcessState::self()->startThreadPool();
        EXPECT_EQ(mManager->setNotifier(mNotifier), kDone);
        EXPECT_EQ(mManager->startup(mFirst), kDone);
    }

  private:
    void greet(unsigned int accId) {
        if (!mGreeted) startTheRest();
        mGreeted = true;
        askForEverything(*mManager, accId);
        mManager->startUSBDeviceModeAudio(accId);  // not every device has it
    }

    void startTheRest() {
        EXPECT_EQ(mAudio->startup(), kDone);
        for (const auto mode :
             {kTransportUSBHost, kTransportUSBDevice, kTransportBluetooth, kTransportWiFi}) {
            if (mode == mFirst) continue;
            EXPECT_EQ(mManager->startup(mode), kDone);
        }
    }

    const AppleiAP2TransportMode mFirst;
    const android::sp<IAppleiAP2Manager> mManager = find<IAppleiAP2Manager>();
    const android::sp<IAppleUSBAudioManager> mAudio = find<IAppleUSBAudioManager>();
    const android::sp<IAppleiAP2ManagerNotifier> mNotifier =
        new BnAppleiAP2ManagerNotifier(new OnAttach([this](unsigned int accId) { greet(accId); }));
    bool mGreeted = false;
};

struct Recorded {
    const char* scenario;
    AppleiAP2TransportMode transport;  ///< of a device that is present in the beginning
};

/// All events from the first startup() to the end of the timeline.
Words record(const Recorded& which) {
    SimulatorProcess simulator({which.scenario, "--speed", "0", "--exit"});
    EXPECT_TRUE(simulator.ready()) << simulator.output();
    Program watch({"watch", "--json"});
    EXPECT_EQ(watch.expectObject()["type"], "watching");
    const Client client(which.transport);
    Words events;
    for (const std::string& line : watch.remainingLines()) {
        const Json::Value object = accessory::test::parsed(line);
        EXPECT_NE(object["type"], "dropped");
        if (object["type"] == "event") events.push_back(recorded(object));
    }
    EXPECT_EQ(simulator.wait(), 0) << simulator.output();
    return events;
}

std::string fileOf(const Recorded& which) {
    return std::string(GOLDEN_FOLDER "/") + which.scenario + ".jsonl";
}

Words linesOf(const std::string& path) {
    Words lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

class Recording : public testing::TestWithParam<Recorded> {};

TEST_P(Recording, IsAsItWas) {
    const Words events = record(GetParam());
    const std::string path = fileOf(GetParam());
    if (getenv("ACCESSORY_RECORD") != nullptr) {
        std::ofstream file(path);
        for (const std::string& event : events)
            file << event << '\n';
        GTEST_SKIP() << "recorded " << events.size() << " events in " << path;
    }
    const Words expected = linesOf(path);
    for (size_t i = 0; i < std::min(events.size(), expected.size()); ++i)
        ASSERT_EQ(events[i], expected[i]) << path << ", line " << i + 1;
    EXPECT_EQ(events.size(), expected.size()) << path;
}

INSTANTIATE_TEST_SUITE_P(All, Recording,
                         testing::Values(Recorded{"commute", kTransportUSBHost},
                                         Recorded{"media-browsing", kTransportUSBHost},
                                         Recorded{"pairing-carplay", kTransportBluetooth},
                                         Recorded{"big-library", kTransportUSBHost},
                                         Recorded{"noisy-device", kTransportBluetooth}),
                         [](const auto& info) {
                             std::string name = info.param.scenario;
                             name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                             return name;
                         });

}  // namespace
}  // namespace accessory::simulator::test
