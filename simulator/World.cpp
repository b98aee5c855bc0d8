#include "simulator/World.h"

#include <algorithm>

#include "simulator/Text.h"

namespace accessory::simulator {

namespace {

constexpr const char* kTransportNames[] = {"USB host", "USB device", "Bluetooth", "Wi-Fi"};

}  // namespace

World::World(const Scenario& scenario, const Playing& playing, Report& report)
    : mScenario(scenario),
      mPlaying(playing),
      mReport(report),
      mLoop(playing.speed),
      mRandom(playing.seed.value_or(scenario.seed)) {
    for (const DeviceProfile& profile : mScenario.devices) {
        mDevices.push_back(
            std::make_unique<Device>(*this, profile, mTransports[profile.transport], mUSBAudioRuns));
    }
}

World::~World() { mLoop.stop(); }

void World::setClients(const android::sp<AppleiAP2ManagerNotifierItf>& clients) { mClients = clients; }

void World::setUSBAudioClients(const android::sp<AppleUSBAudioManagerNotifierItf>& clients) {
    mUSBAudioClients = clients;
}

void World::start() {
    {
        const std::lock_guard lock(mLock);
        if (mPlaying.unattended) attend();
        if (mScenario.beginsAtOnce) begin();
    }
    mLoop.start();
}

int World::startup(AppleiAP2TransportMode mode) {
    const int status = switchTransport(mode, true);
    if (status == kDone) begin();
    return status;
}

int World::shutdown(AppleiAP2TransportMode mode) { return switchTransport(mode, false); }

int World::startupUSBAudio() {
    if (mUSBAudioRuns) return kWrongState;
    mUSBAudioRuns = true;
    for (const auto& device : mDevices)
        device->audio.managerStarted();
    return kDone;
}

int World::shutdownUSBAudio() {
    if (!mUSBAudioRuns) return kWrongState;
    for (const auto& device : mDevices)
        device->audio.managerStopped();
    mUSBAudioRuns = false;
    return kDone;
}

Device* World::attached(unsigned int id) {
    Device* const device = find(id);
    return device != nullptr && device->attached() ? device : nullptr;
}

DeviceAudio* World::audio(unsigned int endpoint) {
    const auto found = std::find_if(mDevices.begin(), mDevices.end(), [&](const auto& device) {
        return device->audio.present() && device->audio.endpoint() == endpoint;
    });
    return mUSBAudioRuns && found != mDevices.end() ? &(*found)->audio : nullptr;
}

void World::describe(std::string* out) {
    appendLine(out, "scenario %s: %s, %.1f s", quoted(mScenario.name).c_str(),
               !mBegun  ? "waits for a startup"
               : mEnded ? "is over"
                        : "is under way",
               static_cast<double>(now().count()) / 1000);
    for (size_t i = 0; i < kTransports; ++i) {
        if (mTransports[i]) appendLine(out, "transport %zu (%s): started up", i, kTransportNames[i]);
    }
    for (const auto& [name, value] : mSettings)
        appendLine(out, "set: %s = %s", name.c_str(), quoted(value).c_str());
    for (const auto& device : mDevices)
        device->describe(out);
    appendLine(out, "requests served: %llu, events raised: %llu",
               static_cast<unsigned long long>(mReport.count(Report::Kind::kRequest)),
               static_cast<unsigned long long>(mReport.count(Report::Kind::kEvent)));
}

void World::describeUSBAudio(std::string* out) {
    appendLine(out, "USB audio: %s", mUSBAudioRuns ? "started up" : "shut down");
    for (const auto& device : mDevices)
        device->audio.describe(out);
}

void World::tell(Event event) {
    mLoop.post(now(), [clients = mClients, event = std::move(event)] {
        if (clients != nullptr) event(*clients);
    });
}

void World::tellUSBAudio(USBAudioEvent event) {
    mLoop.post(now(), [clients = mUSBAudioClients, event = std::move(event)] {
        if (clients != nullptr) event(*clients);
    });
}

uint64_t World::after(milliseconds delay, Action action) {
    const uint64_t timer = ++mTimers;
    mPending.insert(timer);
    mLoop.post(now() + delay, [this, timer, action = std::move(action)] {
        const std::lock_guard lock(mLock);
        if (mPending.erase(timer) != 0) action();
    });
    return timer;
}

int World::switchTransport(AppleiAP2TransportMode mode, bool on) {
    if (mode < 0 || static_cast<size_t>(mode) >= kTransports) return kBadArgument;
    if (mTransports[mode] == on) return kWrongState;
    mTransports[mode] = on;
    for (const auto& device : mDevices)
        device->transportChanged();
    return kDone;
}

void World::begin() {
    if (mBegun) return;
    mBegun = true;
    mEnded = false;
    const milliseconds length = mScenario.duration;
    mLoop.jumpUntil(now() + length);
    for (const Step& step : mScenario.timeline)
        after(step.at, [this, &step] { take(step); });
    after(length, [this] { end(); });
}

void World::take(const Step& step) {
    Device* const device = find(step.device);
    const bool missed = step.needsAttached && !device->attached();
    mReport.tell(Report::Kind::kStep, now(),
                 step.action + " of device " + std::to_string(step.device) +
                     (missed ? " left out: it is not attached" : ""));
    if (missed) return;
    const bool wasAttached = device->attached();
    step.run(*device);
    if (mPlaying.unattended && !wasAttached && device->attached()) device->askForEverything();
}

void World::end() {
    mReport.tell(Report::Kind::kStep, now(), "the end");
    mEnded = true;
    if (mPlaying.loop) {
        for (const auto& device : mDevices)
            device->restart();
        mBegun = false;
        if (mPlaying.unattended) attend();
        begin();
    }
    if (!mOnEnd) return;
    // Behind the events that are on their way, and before anything that is yet to happen.
    mLoop.post(now(), [this] {
        mLoop.finish();
        mOnEnd();
    });
}

void World::attend() {
    startupUSBAudio();
    for (const int32_t mode : {kTransportUSBHost, kTransportUSBDevice, kTransportBluetooth, kTransportWiFi})
        startup(static_cast<AppleiAP2TransportMode>(mode));
    for (const auto& device : mDevices) {
        if (device->attached()) device->askForEverything();
    }
}

Device* World::find(uint32_t id) {
    const auto found = std::find_if(mDevices.begin(), mDevices.end(),
                                    [&](const auto& device) { return device->profile().id == id; });
    return found != mDevices.end() ? found->get() : nullptr;
}

}  // namespace accessory::simulator
