// iAP2Service: sessions, file transfers, Bluetooth, route guidance, app discovery, CarPlay, destinations and
// assistive touch.
#include "simulator/service/iAP2Service.h"

namespace accessory::simulator {

namespace {

constexpr int kMostDisplays = 64;

/// The display components of a route guidance request; those of none when @p ids is null.
std::vector<uint16_t> displaysOf(const int* ids, int count) {
    std::vector<uint16_t> displays;
    for (int i = 0; ids != nullptr && i < count; ++i)
        displays.push_back(static_cast<uint16_t>(ids[i]));
    return displays;
}

}  // namespace

int iAP2Service::OOBBTPAccInfo(unsigned int accId, int value) {
    return onDevice(
        "OOBBTPAccInfo", accId, [](Device& device) { return device.bluetooth.accessoryInfo(); }, value);
}

int iAP2Service::OOBBTPCompletionInfo(unsigned int accId, int value) {
    return onDevice(
        "OOBBTPCompletionInfo", accId, [](Device& device) { return device.bluetooth.completionInfo(); },
        value);
}

int iAP2Service::getEASessionCount(unsigned int accId) {
    return onDevice("getEASessionCount", accId, [](Device& device) { return device.sessions.count(); });
}

int iAP2Service::getEASessionId(unsigned int accId, int index, int* first, int* second) {
    return onDevice(
        "getEASessionId", accId,
        [&](Device& device) { return device.sessions.identify(index, first, second); }, index);
}

int iAP2Service::registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                          unsigned int value3) {
    return onDevice(
        "registerEASessionChannel", accId,
        [&](Device& device) { return device.sessions.registerChannel(value1, value2, value3); }, value1,
        value2, value3);
}

int iAP2Service::unregisterEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                            unsigned int value3) {
    return onDevice(
        "unregisterEASessionChannel", accId,
        [&](Device& device) { return device.sessions.unregisterChannel(value1); }, value1, value2, value3);
}

int iAP2Service::EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) {
    return onDevice(
        "EASessionSendDataReady", accId,
        [&](Device& device) { return device.sessions.sendReady(value1, value2); }, value1, value2);
}

int iAP2Service::updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) {
    return onDevice(
        "updateEAPStatus", accId, [&](Device& device) { return device.sessions.status(value1, value2); },
        value1, value2);
}

int iAP2Service::fileTransferRecvInit(unsigned int accId, unsigned int transferId, unsigned long long value) {
    return onDevice(
        "fileTransferRecvInit", accId, [&](Device& device) { return device.transfers.prepare(transferId); },
        transferId, value);
}

int iAP2Service::fileTransferRecvStart(unsigned int accId, unsigned int transferId) {
    return onDevice(
        "fileTransferRecvStart", accId, [&](Device& device) { return device.transfers.start(transferId); },
        transferId);
}

int iAP2Service::fileTransferRecvPause(unsigned int accId, unsigned int transferId) {
    return onDevice(
        "fileTransferRecvPause", accId, [&](Device& device) { return device.transfers.pause(transferId); },
        transferId);
}

int iAP2Service::fileTransferRecvCancel(unsigned int accId, unsigned int transferId) {
    return onDevice(
        "fileTransferRecvCancel", accId, [&](Device& device) { return device.transfers.cancel(transferId); },
        transferId);
}

int iAP2Service::registerFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                             unsigned int value3) {
    return onDevice(
        "registerFileTransferChannel", accId,
        [&](Device& device) { return device.transfers.registerChannel(value1); }, value1, value2, value3);
}

int iAP2Service::unregisterFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                               unsigned int value3) {
    return onDevice(
        "unregisterFileTransferChannel", accId,
        [&](Device& device) { return device.transfers.unregisterChannel(value1); }, value1, value2, value3);
}

int iAP2Service::BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) {
    const auto store = [&](Device& device) -> int {
        return infos != nullptr || count == 0 ? device.bluetooth.components(count) : kBadArgument;
    };
    return onDevice("BTComponentInformation", accId, store, Bytes{infos, count * sizeof(BTComInfo_s)});
}

int iAP2Service::StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) {
    const auto start = [&](Device& device) -> int {
        if (ids == nullptr || count == 0) return kBadArgument;
        return device.bluetooth.startConnections(std::vector<uint32_t>(ids, ids + count));
    };
    return onDevice("StartBTConnectionUpdate", accId, start, count);
}

int iAP2Service::StopBTConnectionUpdate(unsigned int accId) {
    return onDevice("StopBTConnectionUpdate", accId,
                    [](Device& device) { return device.bluetooth.stopConnections(); });
}

int iAP2Service::StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count, unsigned int value) {
    const auto start = [&](Device& device) -> int {
        if (count < 0 || count > kMostDisplays || (count > 0 && ids == nullptr)) return kBadArgument;
        return device.navigation.start(displaysOf(ids, count), value);
    };
    return onDevice("StartRouteGuidanceUpdate", accId, start, count, value);
}

int iAP2Service::StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) {
    const auto stop = [&](Device& device) -> int {
        if (count < 0 || (count > 0 && ids == nullptr)) return kBadArgument;
        return device.navigation.stop(displaysOf(ids, count));
    };
    return onDevice("StopRouteGuidanceUpdate", accId, stop, count);
}

int iAP2Service::StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1, unsigned short value2,
                                          unsigned short value3, unsigned int value4, unsigned short value5) {
    return onDevice(
        "StartAppDiscoveryUpdates", accId,
        [&](Device& device) { return device.applications.startDiscovery(value5); }, value1, value2, value3,
        value4, value5);
}

int iAP2Service::StopAppDiscoveryUpdates(unsigned int accId) {
    return onDevice("StopAppDiscoveryUpdates", accId,
                    [](Device& device) { return device.applications.stopDiscovery(); });
}

int iAP2Service::RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) {
    return onDevice(
        "RequestAppDiscoveryAppIcons", accId,
        [&](Device& device) { return device.applications.requestIcon(bundleId); }, bundleId);
}

int iAP2Service::CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                                     CPStartSessionWirelessAttributes* wireless, unsigned int value,
                                     const char* string1, const char* string2, const char* string3) {
    return onDevice(
        "CarPlayStartSession", accId,
        [&](Device& device) { return device.carPlay.start(wired != nullptr, wireless != nullptr); },
        wired != nullptr, wireless != nullptr, value, string1, string2, string3);
}

int iAP2Service::BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                                      unsigned char (*block1)[16],
                                                      unsigned char (*block2)[16]) {
    const bool hasBlocks = block1 != nullptr && block2 != nullptr;
    return onDevice(
        "BluetoothPairingAccessoryInformation", accId,
        [&](Device& device) { return device.bluetooth.pairingInformation(value, hasBlocks); }, value,
        hasBlocks);
}

int iAP2Service::BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                                        const char* text) {
    return onDevice(
        "BluetoothPairingStatus", accId,
        [&](Device& device) { return device.bluetooth.pairingStatus(value1, value2); }, value1, value2, text);
}

int iAP2Service::StartDestinationInformation(unsigned int accId, unsigned int value) {
    return onDevice(
        "StartDestinationInformation", accId, [](Device& device) { return device.place.start(); }, value);
}

int iAP2Service::StopDestinationInformation(unsigned int accId) {
    return onDevice("StopDestinationInformation", accId, [](Device& device) { return device.place.stop(); });
}

int iAP2Service::DestinationInformationStatus(unsigned int accId, const char* text, unsigned int value) {
    return onDevice(
        "DestinationInformationStatus", accId,
        [&](Device& device) { return device.place.status(text, value); }, text, value);
}

int iAP2Service::StartAssistiveTouch(unsigned int accId) {
    return onDevice("StartAssistiveTouch", accId,
                    [](Device& device) { return device.humanInterface.startTouch(); });
}

int iAP2Service::StopAssistiveTouch(unsigned int accId) {
    return onDevice("StopAssistiveTouch", accId,
                    [](Device& device) { return device.humanInterface.stopTouch(); });
}

int iAP2Service::StartAssistiveTouchInformation(unsigned int accId) {
    return onDevice("StartAssistiveTouchInformation", accId,
                    [](Device& device) { return device.humanInterface.startTouchInformation(); });
}

int iAP2Service::StopAssistiveTouchInformation(unsigned int accId) {
    return onDevice("StopAssistiveTouchInformation", accId,
                    [](Device& device) { return device.humanInterface.stopTouchInformation(); });
}

int iAP2Service::CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) {
    return onDevice(
        "CarPlayAvailableDigitalCarKeys", accId,
        [&](Device& device) { return device.carPlay.availableKeys(keys); }, keys);
}

}  // namespace accessory::simulator
