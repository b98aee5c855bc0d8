// What the positions of the call state and communications events mean here, and who asked for which.
#pragma once

#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/AppleiAP2Types.h>

#include <bitset>
#include <string>

#include "simulator/device/Profile.h"
#include "simulator/model/CallList.h"

namespace accessory::simulator {

/// Bit n - 1 stands for field n.
using CallFields = std::bitset<12>;
using CommunicationsFields = std::bitset<17>;

/// One byte per field, not 0 when it is asked for.
CallFields askedFields(const StartCallStateUpdateParam& param);
CommunicationsFields askedFields(const StartCommunicationsUpdatesParam& param);

/// Communications as clients see them, in the order of their fields.
struct CommunicationsView {
    int32_t signalStrength = 0;
    int32_t registrationStatus = 0;
    bool airplaneMode = false;
    std::string carrier;
    bool cellular = false;
    bool telephony = false;
    bool videoCalls = false;
    bool muted = false;
    bool initiateAvailable = false;
    uint8_t callCount = 0;
    int32_t newVoicemails = 0;
    bool endAndAcceptAvailable = false;
    bool holdAndAcceptAvailable = false;
    bool swapAvailable = false;
    bool mergeAvailable = false;
    bool holdAvailable = false;
    bool anyCall = false;
};

/// The fields in which two views differ.
CommunicationsFields differences(const CommunicationsView& one, const CommunicationsView& other);

/// Raise the event with the fields of @p fields.
void raise(AppleiAP2ManagerNotifierItf& clients, unsigned int id, const Call& call, const CallFields& fields);
void raise(AppleiAP2ManagerNotifierItf& clients, unsigned int id, const CommunicationsView& view,
           const CommunicationsFields& fields);

}  // namespace accessory::simulator
