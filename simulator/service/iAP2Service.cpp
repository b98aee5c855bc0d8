// iAP2Service: the accessory itself, transports, sessions, applications, HID and location.
#include "simulator/service/iAP2Service.h"

#include "simulator/Text.h"
#include "simulator/Values.h"
#include "simulator/service/ReportedEvents.h"

namespace accessory::simulator {

namespace {

constexpr unsigned int kBluetoothAddressLength = 6;

}  // namespace

int iAP2Service::setName(const char* name) { return keep("setName", "name", name); }

int iAP2Service::setSerialNumber(const char* serialNumber) {
    return keep("setSerialNumber", "serialNumber", serialNumber);
}

int iAP2Service::setDisplayName(const char* displayName) {
    return keep("setDisplayName", "displayName", displayName);
}

int iAP2Service::setBluetoothAddr(unsigned char* addr, unsigned int len) {
    const auto store = [&]() -> int {
        if (addr == nullptr || len != kBluetoothAddressLength) return kBadArgument;
        mWorld.settings()["bluetoothAddr"] = asHex(addr, len);
        return kDone;
    };
    return serve("setBluetoothAddr", store, Bytes{addr, len});
}

int iAP2Service::startup(AppleiAP2TransportMode mode) {
    return serve(
        "startup", [&] { return mWorld.startup(mode); }, mode);
}

int iAP2Service::shutdown(AppleiAP2TransportMode mode) {
    return serve(
        "shutdown", [&] { return mWorld.shutdown(mode); }, mode);
}

int iAP2Service::setConfigPath(AppleiAP2TransportMode mode, const char* path) {
    return keep("setConfigPath", "configPath of transport " + std::to_string(mode), path);
}

int iAP2Service::getAccessoryIds(unsigned int* ids, unsigned int* count) {
    return serve("getAccessoryIds", [&]() -> int {
        if (ids == nullptr || count == nullptr) return kBadArgument;
        *count = 0;
        for (const auto& device : mWorld.devices()) {
            if (device->attached() && *count < kMostIds) ids[(*count)++] = device->profile().id;
        }
        return kDone;
    });
}

const char* iAP2Service::getSupportFeature(unsigned int accId, const char* feature) {
    const char* answer = nullptr;
    const auto look = [&](Device& device) -> int {
        if (feature == nullptr) return kBadArgument;
        answer = device.supports(feature);
        return answer != nullptr ? kDone : kNotFound;
    };
    onDevice("getSupportFeature", accId, look, feature);
    return answer;
}

int iAP2Service::start(unsigned int accId) {
    return onDevice("start", accId, [](Device& device) { return device.openSession(); });
}

int iAP2Service::stop(unsigned int accId) {
    return onDevice("stop", accId, [](Device& device) { return device.closeSession(); });
}

int iAP2Service::getAPPIds(unsigned int accId, const char** appIds, unsigned int* count) {
    return onDevice("getAPPIds", accId,
                    [&](Device& device) { return device.applications.identify(appIds, count); });
}

int iAP2Service::launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) {
    const auto launch = [&](Device& device) -> int {
        const bool known = method == kLaunchWithAlert || method == kLaunchSilently;
        return known ? device.applications.launch(appId) : kBadArgument;
    };
    return onDevice("launchAPP", accId, launch, appId, method);
}

int iAP2Service::startHID(unsigned int accId) {
    return onDevice("startHID", accId, [](Device& device) { return device.humanInterface.start(0); });
}

int iAP2Service::dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                                  unsigned int value2) {
    return onDevice(
        "dispatchMediaPlaybackRemoteEvent", accId,
        [&](Device& device) { return device.nowPlaying.remote(value1); }, value1, value2);
}

int iAP2Service::stopHID(unsigned int accId) {
    return onDevice("stopHID", accId, [](Device& device) { return device.humanInterface.stop(); });
}

int iAP2Service::startHID(unsigned int accId, HIDReportAttributes* attributes) {
    const auto start = [&](Device& device) -> int {
        return attributes != nullptr ? device.humanInterface.start(attributes->componentId) : kBadArgument;
    };
    return onDevice("startHID", accId, start,
                    attributes != nullptr
                        ? Bytes{attributes->reportDescriptor, attributes->reportDescriptorLen}
                        : Bytes{nullptr, 0});
}

int iAP2Service::accHIDReport(unsigned int accId, unsigned char* report, int len) {
    return onDevice(
        "accHIDReport", accId, [&](Device& device) { return device.humanInterface.report(report, len); },
        Bytes{report, static_cast<size_t>(std::max(len, 0))});
}

int iAP2Service::updateLocation(unsigned int accId, const unsigned char* data, int len) {
    return onDevice(
        "updateLocation", accId, [&](Device& device) { return device.place.update(data, len); },
        Bytes{data, static_cast<size_t>(std::max(len, 0))});
}

int iAP2Service::setProperty(AppleiAP2TransportMode mode, const std::string& key, const std::string& value) {
    const auto store = [&]() -> int {
        mWorld.settings()[key + " of transport " + std::to_string(mode)] = value;
        return kDone;
    };
    return serve("setProperty", store, mode, key, value);
}

const char* iAP2Service::getVersion() {
    const int status = serve("getVersion", [] { return kDone; });
    return status == kDone ? mWorld.scenario().version.c_str() : nullptr;
}

int iAP2Service::addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) {
    mWorld.setClients(new ReportedEvents(notifier, mReport.verbose(), [this](const std::string& line) {
        mReport.tell(Report::Kind::kEvent, mWorld.now(), line);
    }));
    return kDone;
}

int iAP2Service::dump(const android::Vector<android::String16>& /*args*/, android::String8& result) {
    std::string text;
    {
        const std::lock_guard lock(mWorld.lock());
        mWorld.describe(&text);
    }
    mFaults.describe(&text);
    return result.append(text.c_str());
}

int iAP2Service::keep(const char* operation, const std::string& name, const char* value) {
    const auto store = [&]() -> int {
        if (value == nullptr) return kBadArgument;
        mWorld.settings()[name] = value;
        return kDone;
    };
    return serve(operation, store, value);
}

}  // namespace accessory::simulator
