#include "simulator/device/PhoneFields.h"

#include <cstring>

namespace accessory::simulator {

namespace {

template <typename Fields, typename Param>
Fields fieldsOf(const Param& param) {
    uint8_t bytes[sizeof(Param)];
    memcpy(bytes, &param, sizeof(bytes));
    Fields fields;
    for (size_t i = 0; i < fields.size(); ++i)
        fields[i] = bytes[i] != 0;
    return fields;
}

}  // namespace

CallFields askedFields(const StartCallStateUpdateParam& param) { return fieldsOf<CallFields>(param); }

CommunicationsFields askedFields(const StartCommunicationsUpdatesParam& param) {
    return fieldsOf<CommunicationsFields>(param);
}

CommunicationsFields differences(const CommunicationsView& one, const CommunicationsView& other) {
    CommunicationsFields fields;
    size_t index = 0;
    const auto compare = [&](auto CommunicationsView::*field) {
        fields[index++] = one.*field != other.*field;
    };
    compare(&CommunicationsView::signalStrength);
    compare(&CommunicationsView::registrationStatus);
    compare(&CommunicationsView::airplaneMode);
    compare(&CommunicationsView::carrier);
    compare(&CommunicationsView::cellular);
    compare(&CommunicationsView::telephony);
    compare(&CommunicationsView::videoCalls);
    compare(&CommunicationsView::muted);
    compare(&CommunicationsView::initiateAvailable);
    compare(&CommunicationsView::callCount);
    compare(&CommunicationsView::newVoicemails);
    compare(&CommunicationsView::endAndAcceptAvailable);
    compare(&CommunicationsView::holdAndAcceptAvailable);
    compare(&CommunicationsView::swapAvailable);
    compare(&CommunicationsView::mergeAvailable);
    compare(&CommunicationsView::holdAvailable);
    compare(&CommunicationsView::anyCall);
    return fields;
}

void raise(AppleiAP2ManagerNotifierItf& clients, unsigned int id, const Call& call,
           const CallFields& fields) {
    const auto state = static_cast<int32_t>(call.state);
    const auto direction = static_cast<int32_t>(call.direction);
    const auto reason = static_cast<int32_t>(call.reason);
    const int64_t startTime = call.startTime;
    CallStateUpdateParam param;
    if (fields[0]) param.field1 = call.remoteId.c_str();
    if (fields[1]) param.field2 = call.name.c_str();
    if (fields[2]) param.field3 = &state;
    if (fields[3]) param.field4 = &direction;
    if (fields[4]) param.field5 = call.uuid.c_str();
    if (fields[5]) param.field6 = call.addressBookId.c_str();
    if (fields[6]) param.field7 = call.label.c_str();
    if (fields[7]) param.field8 = &call.service;
    if (fields[8]) param.field9 = &call.conference;
    if (fields[9]) param.field10 = call.conference ? "conference" : "";
    if (fields[10]) param.field11 = &reason;
    if (fields[11]) param.field12 = &startTime;
    clients.CallStateUpdate(id, param);
}

void raise(AppleiAP2ManagerNotifierItf& clients, unsigned int id, const CommunicationsView& view,
           const CommunicationsFields& fields) {
    CommunicationsUpdateParam param;
    if (fields[0]) param.field1 = &view.signalStrength;
    if (fields[1]) param.field2 = &view.registrationStatus;
    if (fields[2]) param.field3 = &view.airplaneMode;
    if (fields[3]) param.field4 = view.carrier.c_str();
    if (fields[4]) param.field5 = &view.cellular;
    if (fields[5]) param.field6 = &view.telephony;
    if (fields[6]) param.field7 = &view.videoCalls;
    if (fields[7]) param.field8 = &view.muted;
    if (fields[8]) param.field9 = &view.initiateAvailable;
    if (fields[9]) param.field10 = &view.callCount;
    if (fields[10]) param.field11 = &view.newVoicemails;
    if (fields[11]) param.field12 = &view.endAndAcceptAvailable;
    if (fields[12]) param.field13 = &view.holdAndAcceptAvailable;
    if (fields[13]) param.field14 = &view.swapAvailable;
    if (fields[14]) param.field15 = &view.mergeAvailable;
    if (fields[15]) param.field16 = &view.holdAvailable;
    if (fields[16]) param.field17 = &view.anyCall;
    clients.CommunicationsUpdate(id, &param);
}

}  // namespace accessory::simulator
