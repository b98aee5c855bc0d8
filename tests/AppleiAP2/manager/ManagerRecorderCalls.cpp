// What ManagerRecorder notes of sessions, connections, calls and CarPlay.
#include "tests/AppleiAP2/manager/ManagerArguments.h"
#include "tests/AppleiAP2/manager/ManagerRecorder.h"

namespace accessory::test {

int ManagerRecorder::getEASessionCount(unsigned int accId) {
    return note("getEASessionCount", {show(accId)});
}

int ManagerRecorder::registerEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                              unsigned int value3) {
    return note("registerEASessionChannel", {show(accId), show(value1), show(value2), show(value3)});
}

int ManagerRecorder::unregisterEASessionChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                                unsigned int value3) {
    return note("unregisterEASessionChannel", {show(accId), show(value1), show(value2), show(value3)});
}

int ManagerRecorder::EASessionSendDataReady(unsigned int accId, unsigned int value1, unsigned int value2) {
    return note("EASessionSendDataReady", {show(accId), show(value1), show(value2)});
}

int ManagerRecorder::updateEAPStatus(unsigned int accId, unsigned int value1, unsigned int value2) {
    return note("updateEAPStatus", {show(accId), show(value1), show(value2)});
}

int ManagerRecorder::fileTransferRecvInit(unsigned int accId, unsigned int transferId,
                                          unsigned long long value) {
    return note("fileTransferRecvInit", {show(accId), show(transferId), show(value)});
}

int ManagerRecorder::fileTransferRecvStart(unsigned int accId, unsigned int transferId) {
    return note("fileTransferRecvStart", {show(accId), show(transferId)});
}

int ManagerRecorder::fileTransferRecvPause(unsigned int accId, unsigned int transferId) {
    return note("fileTransferRecvPause", {show(accId), show(transferId)});
}

int ManagerRecorder::fileTransferRecvCancel(unsigned int accId, unsigned int transferId) {
    return note("fileTransferRecvCancel", {show(accId), show(transferId)});
}

int ManagerRecorder::registerFileTransferChannel(unsigned int accId, unsigned int value1, unsigned int value2,
                                                 unsigned int value3) {
    return note("registerFileTransferChannel", {show(accId), show(value1), show(value2), show(value3)});
}

int ManagerRecorder::unregisterFileTransferChannel(unsigned int accId, unsigned int value1,
                                                   unsigned int value2, unsigned int value3) {
    return note("unregisterFileTransferChannel", {show(accId), show(value1), show(value2), show(value3)});
}

int ManagerRecorder::BTComponentInformation(unsigned int accId, BTComInfo_s* infos, unsigned int count) {
    return note("BTComponentInformation", {show(accId), show(View{infos, size_t{count} * 8}), show(count)});
}

int ManagerRecorder::StartBTConnectionUpdate(unsigned int accId, unsigned int* ids, unsigned int count) {
    return note("StartBTConnectionUpdate", {show(accId), show(View{ids, size_t{count} * 4}), show(count)});
}

int ManagerRecorder::StopBTConnectionUpdate(unsigned int accId) {
    return note("StopBTConnectionUpdate", {show(accId)});
}

int ManagerRecorder::StartRouteGuidanceUpdate(unsigned int accId, int* ids, int count, unsigned int value) {
    return note("StartRouteGuidanceUpdate", {show(accId), showIds(ids, count), show(count), show(value)});
}

int ManagerRecorder::StopRouteGuidanceUpdate(unsigned int accId, int* ids, int count) {
    return note("StopRouteGuidanceUpdate", {show(accId), showIds(ids, count), show(count)});
}

int ManagerRecorder::StartAppDiscoveryUpdates(unsigned int accId, unsigned int value1, unsigned short value2,
                                              unsigned short value3, unsigned int value4,
                                              unsigned short value5) {
    return note("StartAppDiscoveryUpdates",
                {show(accId), show(value1), show(value2), show(value3), show(value4), show(value5)});
}

int ManagerRecorder::StopAppDiscoveryUpdates(unsigned int accId) {
    return note("StopAppDiscoveryUpdates", {show(accId)});
}

int ManagerRecorder::RequestAppDiscoveryAppIcons(unsigned int accId, const char* bundleId) {
    return note("RequestAppDiscoveryAppIcons", {show(accId), show(bundleId)});
}

int ManagerRecorder::StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) {
    return note("StartCallStateUpdates", {show(accId), show(View{&param, 12})});
}

int ManagerRecorder::StopCallStateUpdates(unsigned int accId) {
    return note("StopCallStateUpdates", {show(accId)});
}

int ManagerRecorder::StartCommunicationsUpdates(unsigned int accId,
                                                const StartCommunicationsUpdatesParam* param) {
    return note("StartCommunicationsUpdates", {show(accId), show(View{param, 17})});
}

int ManagerRecorder::StopCommunicationsUpdates(unsigned int accId) {
    return note("StopCommunicationsUpdates", {show(accId)});
}

int ManagerRecorder::AcceptCall(unsigned int accId, int action, const char* callUuid) {
    return note("AcceptCall", {show(accId), show(action), show(callUuid)});
}

int ManagerRecorder::EndCall(unsigned int accId, int action, const char* callUuid) {
    return note("EndCall", {show(accId), show(action), show(callUuid)});
}

int ManagerRecorder::InitiateCall(unsigned int accId, InitiateCallParam* param) {
    return note("InitiateCall", {show(accId), show(param)});
}

int ManagerRecorder::SwapCalls(unsigned int accId) { return note("SwapCalls", {show(accId)}); }

int ManagerRecorder::MergeCalls(unsigned int accId) { return note("MergeCalls", {show(accId)}); }

int ManagerRecorder::HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) {
    return note("HoldStatusUpdate", {show(accId), show(held), show(callUuid)});
}

int ManagerRecorder::MuteStatusUpdate(unsigned int accId, bool muted) {
    return note("MuteStatusUpdate", {show(accId), show(muted)});
}

int ManagerRecorder::SendDTMF(unsigned int accId, int tone, const char* callUuid) {
    return note("SendDTMF", {show(accId), show(tone), show(callUuid)});
}

int ManagerRecorder::CarPlayStartSession(unsigned int accId, CPStartSessionWiredAttributes* wired,
                                         CPStartSessionWirelessAttributes* wireless, unsigned int value,
                                         const char* string1, const char* string2, const char* string3) {
    return note("CarPlayStartSession", {show(accId), show(wired), show(wireless), show(value), show(string1),
                                        show(string2), show(string3)});
}

int ManagerRecorder::BluetoothPairingAccessoryInformation(unsigned int accId, unsigned short value,
                                                          unsigned char (*block1)[16],
                                                          unsigned char (*block2)[16]) {
    return note("BluetoothPairingAccessoryInformation",
                {show(accId), show(value), show(View{block1, 32}), show(View{block2, 32})});
}

int ManagerRecorder::BluetoothPairingStatus(unsigned int accId, unsigned short value1, unsigned int value2,
                                            const char* text) {
    return note("BluetoothPairingStatus", {show(accId), show(value1), show(value2), show(text)});
}

int ManagerRecorder::StartDestinationInformation(unsigned int accId, unsigned int value) {
    return note("StartDestinationInformation", {show(accId), show(value)});
}

int ManagerRecorder::StopDestinationInformation(unsigned int accId) {
    return note("StopDestinationInformation", {show(accId)});
}

int ManagerRecorder::DestinationInformationStatus(unsigned int accId, const char* text, unsigned int value) {
    return note("DestinationInformationStatus", {show(accId), show(text), show(value)});
}

int ManagerRecorder::StartAssistiveTouch(unsigned int accId) {
    return note("StartAssistiveTouch", {show(accId)});
}

int ManagerRecorder::StopAssistiveTouch(unsigned int accId) {
    return note("StopAssistiveTouch", {show(accId)});
}

int ManagerRecorder::StartAssistiveTouchInformation(unsigned int accId) {
    return note("StartAssistiveTouchInformation", {show(accId)});
}

int ManagerRecorder::StopAssistiveTouchInformation(unsigned int accId) {
    return note("StopAssistiveTouchInformation", {show(accId)});
}

int ManagerRecorder::CarPlayAvailableDigitalCarKeys(unsigned int accId, std::vector<std::string>& keys) {
    return note("CarPlayAvailableDigitalCarKeys", {show(accId), show(keys)});
}

int ManagerRecorder::setProperty(AppleiAP2TransportMode mode, const std::string& key,
                                 const std::string& value) {
    return note("setProperty", {show(mode), show(key.c_str()), show(value.c_str())});
}

}  // namespace accessory::test
