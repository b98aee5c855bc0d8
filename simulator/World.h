// World: the running simulation: devices, transports, time, and the clients to tell.
#pragma once

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "simulator/Report.h"
#include "simulator/device/Device.h"
#include "simulator/engine/EventLoop.h"
#include "simulator/engine/Stage.h"
#include "simulator/scenario/Scenario.h"

namespace accessory::simulator {

/// How a scenario is to be played.
struct Playing {
    double speed = 1;              ///< simulated per real second; 0: as fast as possible
    std::optional<uint32_t> seed;  ///< instead of the scenario's
    bool loop = false;             ///< begins anew at its end
    bool unattended = false;       ///< does what a client would: starts all up and asks for everything
};

/// Has one lock, which is held while requests are carried out and while timed actions run, and never while a
/// client is called: events wait in the loop's queue and are raised by its thread. So a client may make
/// requests from its callbacks.
class World : public Stage {
  public:
    /// @param report outlives the world.
    World(const Scenario& scenario, const Playing& playing, Report& report);
    ~World() override;

    /// Where events go; before start().
    void setClients(const android::sp<AppleiAP2ManagerNotifierItf>& clients);
    void setUSBAudioClients(const android::sp<AppleUSBAudioManagerNotifierItf>& clients);

    /// Lets time pass.
    void start();
    /// No event is raised any more when this returns.
    void stop() { mLoop.stop(); }

    /// Lets nothing happen after the end of the timeline, and calls @p onEnd then, on the event thread;
    /// before start().
    void setOnEnd(Action onEnd) { mOnEnd = std::move(onEnd); }

    std::mutex& lock() { return mLock; }

    // With the world locked:

    int startup(AppleiAP2TransportMode mode);
    int shutdown(AppleiAP2TransportMode mode);
    int startupUSBAudio();
    int shutdownUSBAudio();

    /// Null unless such a device is attached.
    Device* attached(unsigned int id);
    /// Null unless the endpoint is present.
    DeviceAudio* audio(unsigned int endpoint);
    const std::vector<std::unique_ptr<Device>>& devices() const { return mDevices; }
    const Scenario& scenario() const { return mScenario; }

    /// What was set with setName(), setProperty() and the like.
    std::map<std::string, std::string>& settings() { return mSettings; }

    void describe(std::string* out);
    void describeUSBAudio(std::string* out);

    milliseconds now() const override { return mLoop.now(); }
    void tell(Event event) override;
    void tellUSBAudio(USBAudioEvent event) override;
    uint64_t after(milliseconds delay, Action action) override;
    void cancel(uint64_t timer) override { mPending.erase(timer); }
    std::mt19937& random() override { return mRandom; }

  private:
    static constexpr size_t kTransports = 4;

    int switchTransport(AppleiAP2TransportMode mode, bool on);
    void begin();
    void take(const Step& step);
    void end();
    void attend();
    Device* find(uint32_t id);

    const Scenario mScenario;
    const Playing mPlaying;
    Report& mReport;
    std::mutex mLock;
    EventLoop mLoop;
    std::mt19937 mRandom;
    android::sp<AppleiAP2ManagerNotifierItf> mClients;
    android::sp<AppleUSBAudioManagerNotifierItf> mUSBAudioClients;
    Action mOnEnd;
    std::map<std::string, std::string> mSettings;
    bool mTransports[kTransports] = {};
    bool mUSBAudioRuns = false;
    bool mBegun = false;
    bool mEnded = false;
    uint64_t mTimers = 0;
    std::set<uint64_t> mPending;  ///< timers that are yet to run
    std::vector<std::unique_ptr<Device>> mDevices;
};

}  // namespace accessory::simulator
