#include "tests/AppleiAP2/manager/registry/Messages.h"

#include <algorithm>
#include <stdexcept>

namespace accessory::test {
namespace {

Message sizeLogged(const char* operation, const char* failure) { return {operation, failure, true}; }
Message plain(const char* operation) { return {operation, operation}; }
Message plain(const char* operation, const char* failure) { return {operation, failure}; }
Message lastResult(const char* operation) { return {operation, operation, false, true}; }
Message untraced(const char* operation) { return {operation, operation, false, false, false}; }

}  // namespace

const std::vector<Message>& messages() {
    static const std::vector<Message>& all = *new std::vector<Message>{
        sizeLogged("notify", "notiy"),
        sizeLogged("attach", "attach"),
        sizeLogged("detach", "detach"),
        sizeLogged("deviceInfoUpdate", "device info update"),
        sizeLogged("deviceLanguageUpdate", "device language update"),
        sizeLogged("deviceTimeUpdate", "deviceTimeUpdate"),
        sizeLogged("deviceUUIDUpdate", "deviceUUIDUpdate"),
        sizeLogged("wirelessCPStateUpdate", "wirelessCPStateUpdate"),
        sizeLogged("DeviceTransportIdentifierNotification", "DeviceTransportIdentifierNotification"),
        plain("deviceHIDReport"),
        plain("hidComponentUpdate"),
        plain("startLocation"),
        plain("stopLocation"),
        plain("mediaLibInfoUpdate"),
        untraced("mediaLibUpdateDataReady"),
        plain("nowPlayingUpdate"),
        plain("powerUpdate"),
        plain("USBDeviceModeAudioInfo"),
        plain("WiFiInformation"),
        plain("requestAccWiFiConfigInfo"),
        plain("EASessionStart"),
        plain("EASessionStop"),
        plain("EASessionRecvDataReady"),
        plain("fileTransferSetup"),
        plain("fileTransferStart"),
        plain("fileTransferPause"),
        plain("fileTransferCancel"),
        plain("fileTransferRecvFinish"),
        plain("startOOBBTP"),
        plain("OOBBTPLinkKeyInfo"),
        plain("stopOOBBTP"),
        plain("BTConnectionUpdate"),
        plain("RouteGuidanceUpdates", "BTConnectionUpdate"),
        plain("RouteGuidanceManeuverUpdates"),
        plain("LaneGuidanceInformation", "laneGuidanceInformation"),
        plain("AppDiscoveryUpdate"),
        plain("AppDiscoveryAppIcon"),
        plain("CallStateUpdate"),
        plain("CommunicationsUpdate"),
        plain("CarPlayAvailability"),
        lastResult("StartBluetoothPairing"),
        lastResult("StopBluetoothPairing"),
        lastResult("DestinationInformation"),
        lastResult("AssistiveTouchInformation"),
        lastResult("CarPlayMatchedDigitalCarKeys"),
    };
    return all;
}

const Message& messageOf(const std::string& operation) {
    const auto found = std::find_if(messages().begin(), messages().end(),
                                    [&](const Message& message) { return message.operation == operation; });
    if (found == messages().end()) throw std::out_of_range("no message of " + operation);
    return *found;
}

Line failed(const Message& message, size_t index, int result) {
    return error("notify the " + std::to_string(index) + ' ' + message.failure +
                 " error ,ret:" + std::to_string(result));
}

Lines roundOf(const Message& message, size_t size, const Lines& failures) {
    Lines lines;
    if (message.traces) lines.push_back(in(kNotifierUnit, message.operation));
    if (message.logsSize)
        lines.push_back(debugLine(message.operation + (" mNotifiers size " + std::to_string(size))));
    lines.insert(lines.end(), failures.begin(), failures.end());
    if (message.traces) lines.push_back(out(kNotifierUnit, message.operation));
    return lines;
}

}  // namespace accessory::test
