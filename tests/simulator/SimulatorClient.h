// SimulatorClient: a head unit application, in the test's process.
#pragma once

#include <accessory/IAccessoryManager.h>
#include <accessory/IAppleUSBAudioManager.h>
#include <accessory/IAppleiAP2Manager.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "simulator/Values.h"
#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/simulator/SimulatorProcess.h"

namespace accessory::simulator::test {

using accessory::test::Recorder;

/// Registered for the events of the iAP2 manager; the bundled proxies of all three managers.
class SimulatorClient {
  public:
    SimulatorClient();
    /// Takes the registration back.
    ~SimulatorClient();

    IAppleiAP2Manager& manager() { return *mManager; }
    IAppleUSBAudioManager& audio() { return *mAudio; }
    IAccessoryManager& accessories() { return *mAccessories; }
    const android::sp<Recorder>& recorder() { return mRecorder; }

    /// Waits for an event that matches, among those that no earlier call has taken away; takes what came
    /// before it, and itself, away.
    testing::AssertionResult hears(const testing::Matcher<const std::string&>& event);

    /// Every event so far that was not taken away.
    const std::vector<std::string>& heard();

    /// The manager's dump.
    std::string dump();

  private:
    const android::sp<IAppleiAP2Manager> mManager;
    const android::sp<IAppleUSBAudioManager> mAudio;
    const android::sp<IAccessoryManager> mAccessories;
    const android::sp<Recorder> mRecorder;
    const android::sp<IAppleiAP2ManagerNotifier> mNotifier;
    std::vector<std::string> mHeard;
};

/// The quiet scenario, 20 times as fast as life, and a client.
class QuietSimulator : public testing::Test {
  protected:
    QuietSimulator() { EXPECT_TRUE(process.ready()) << process.output(); }

    /// Attaches the device of the id 5.
    void attach();

    static constexpr unsigned int kPhone = 5;
    static constexpr unsigned int kNobody = 4;

    SimulatorProcess process{{QUIET_SCENARIO, "--speed", "20", "--verbose"}};
    SimulatorClient client;
    IAppleiAP2Manager& manager = client.manager();
};

}  // namespace accessory::simulator::test
