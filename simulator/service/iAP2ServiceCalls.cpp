// iAP2Service: calls and communications.
#include "simulator/service/iAP2Service.h"

namespace accessory::simulator {

int iAP2Service::StartCallStateUpdates(unsigned int accId, const StartCallStateUpdateParam& param) {
    return onDevice(
        "StartCallStateUpdates", accId,
        [&](Device& device) { return device.phone.startCallStates(askedFields(param)); },
        Bytes{&param, sizeof(param)});
}

int iAP2Service::StopCallStateUpdates(unsigned int accId) {
    return onDevice("StopCallStateUpdates", accId,
                    [](Device& device) { return device.phone.stopCallStates(); });
}

int iAP2Service::StartCommunicationsUpdates(unsigned int accId,
                                            const StartCommunicationsUpdatesParam* param) {
    const auto start = [&](Device& device) -> int {
        return param != nullptr ? device.phone.startCommunications(askedFields(*param)) : kBadArgument;
    };
    return onDevice("StartCommunicationsUpdates", accId, start, Bytes{param, sizeof(*param)});
}

int iAP2Service::StopCommunicationsUpdates(unsigned int accId) {
    return onDevice("StopCommunicationsUpdates", accId,
                    [](Device& device) { return device.phone.stopCommunications(); });
}

int iAP2Service::AcceptCall(unsigned int accId, int action, const char* callUuid) {
    return onDevice(
        "AcceptCall", accId, [&](Device& device) { return device.phone.accept(action, callUuid); }, action,
        callUuid);
}

int iAP2Service::EndCall(unsigned int accId, int action, const char* callUuid) {
    return onDevice(
        "EndCall", accId, [&](Device& device) { return device.phone.end(action, callUuid); }, action,
        callUuid);
}

int iAP2Service::InitiateCall(unsigned int accId, InitiateCallParam* param) {
    const auto initiate = [&](Device& device) -> int {
        if (param == nullptr) return kBadArgument;
        return device.phone.initiate(param->type, param->destinationId, param->service, param->addressBookId);
    };
    return onDevice("InitiateCall", accId, initiate, param != nullptr ? show(*param) : "null");
}

int iAP2Service::SwapCalls(unsigned int accId) {
    return onDevice("SwapCalls", accId, [](Device& device) { return device.phone.swap(); });
}

int iAP2Service::MergeCalls(unsigned int accId) {
    return onDevice("MergeCalls", accId, [](Device& device) { return device.phone.merge(); });
}

int iAP2Service::HoldStatusUpdate(unsigned int accId, bool held, const char* callUuid) {
    return onDevice(
        "HoldStatusUpdate", accId, [&](Device& device) { return device.phone.hold(held, callUuid); }, held,
        callUuid);
}

int iAP2Service::MuteStatusUpdate(unsigned int accId, bool muted) {
    return onDevice(
        "MuteStatusUpdate", accId, [&](Device& device) { return device.phone.mute(muted); }, muted);
}

int iAP2Service::SendDTMF(unsigned int accId, int tone, const char* callUuid) {
    return onDevice(
        "SendDTMF", accId, [&](Device& device) { return device.phone.tone(tone, callUuid); }, tone, callUuid);
}

}  // namespace accessory::simulator
