#include "simulator/service/OtherServices.h"

#include "simulator/Text.h"
#include "simulator/Values.h"
#include "simulator/service/ReportedEvents.h"

namespace accessory::simulator {

int32_t AccessoryService::getDeviceCount() {
    return serveRequest(mWorld, mReport, "getDeviceCount()", [&] {
        int32_t count = 0;
        for (const auto& device : mWorld.devices())
            count += device->attached() ? 1 : 0;
        return count;
    });
}

int32_t AccessoryService::getFeature(unsigned int accessoryId) {
    return serveRequest(mWorld, mReport, showCall("getFeature", accessoryId), [&] {
        const Device* const device = mWorld.attached(accessoryId);
        return device != nullptr ? device->profile().feature : 0;
    });
}

android::String8 AccessoryService::getPath(unsigned int accessoryId) {
    android::String8 path;
    serveRequest(mWorld, mReport, showCall("getPath", accessoryId), [&]() -> int {
        const Device* const device = mWorld.attached(accessoryId);
        if (device == nullptr) return kNoSuchAccessory;
        path = device->profile().path.c_str();
        return kDone;
    });
    return path;
}

int32_t AccessoryService::getAccessoryId(const android::String8& path) {
    return serveRequest(mWorld, mReport, showCall("getAccessoryId", path.string()), [&]() -> int {
        for (const auto& device : mWorld.devices()) {
            if (device->attached() && device->profile().path == path.string())
                return static_cast<int>(device->profile().id);
        }
        return kNotFound;
    });
}

int AccessoryService::dump(const android::Vector<android::String16>& /*args*/, android::String8& result) {
    const std::lock_guard lock(mWorld.lock());
    std::string text;
    for (const auto& device : mWorld.devices()) {
        if (device->attached())
            appendLine(&text, "accessory %u: %s, feature 0x%x, at %s", device->profile().id,
                       quoted(device->profile().name).c_str(),
                       static_cast<unsigned>(device->profile().feature), device->profile().path.c_str());
    }
    return result.append(text.c_str());
}

int USBAudioService::startup() {
    return serveRequest(mWorld, mReport, "USBAudio.startup()", [&] { return mWorld.startupUSBAudio(); });
}

int USBAudioService::shutdown() {
    return serveRequest(mWorld, mReport, "USBAudio.shutdown()", [&] { return mWorld.shutdownUSBAudio(); });
}

int USBAudioService::addNotifier(const android::sp<AppleUSBAudioManagerNotifierItf>& notifier) {
    mWorld.setUSBAudioClients(new ReportedUSBAudioEvents(notifier, [this](const std::string& line) {
        mReport.tell(Report::Kind::kEvent, mWorld.now(), line);
    }));
    return kDone;
}

int USBAudioService::getIds(unsigned int* ids, unsigned int* count) {
    return serveRequest(mWorld, mReport, "USBAudio.getIds()", [&]() -> int {
        if (ids == nullptr || count == nullptr) return kBadArgument;
        *count = 0;
        for (const auto& device : mWorld.devices()) {
            if (device->audio.present() && *count < kMostIds) ids[(*count)++] = device->audio.endpoint();
        }
        return kDone;
    });
}

int USBAudioService::start(unsigned int value) {
    return onEndpoint("USBAudio.start", value, [](DeviceAudio& audio) { return audio.start(); });
}

int USBAudioService::stop(unsigned int value) {
    return onEndpoint("USBAudio.stop", value, [](DeviceAudio& audio) { return audio.stop(); });
}

int USBAudioService::setSampleRate(unsigned int value1, unsigned int value2) {
    return onEndpoint(
        "USBAudio.setSampleRate", value1, [&](DeviceAudio& audio) { return audio.setSampleRate(value2); },
        value2);
}

int USBAudioService::setVolume(unsigned int value1, unsigned int value2) {
    return onEndpoint(
        "USBAudio.setVolume", value1, [&](DeviceAudio& audio) { return audio.setVolume(value2); }, value2);
}

int USBAudioService::play(unsigned int value) {
    return onEndpoint("USBAudio.play", value, [](DeviceAudio& audio) { return audio.play(); });
}

int USBAudioService::pause(unsigned int value) {
    return onEndpoint("USBAudio.pause", value, [](DeviceAudio& audio) { return audio.pause(); });
}

int USBAudioService::dump(const android::Vector<android::String16>& /*args*/, android::String8& result) {
    const std::lock_guard lock(mWorld.lock());
    std::string text;
    mWorld.describeUSBAudio(&text);
    return result.append(text.c_str());
}

}  // namespace accessory::simulator
