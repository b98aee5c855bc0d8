// The shape of the manager's classes that other binaries are compiled against: the order of the virtual
// functions.
#include <accessory/IAppleiAP2Manager.h>
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>
#include <vector>

namespace accessory::test {
namespace {

using android::sp;

/// The place of a virtual function in the table of its class: the Itanium ABI keeps it as a byte offset in a
/// pointer to member, plus 1 on most machines.
template <typename Member>
size_t slotOf(Member member) {
    uintptr_t place = 0;
    static_assert(sizeof(member) == 2 * sizeof(place));
    std::memcpy(&place, &member, sizeof(place));
    return (place & ~uintptr_t{1}) / sizeof(void*);
}

template <typename T>
using MaskForm = int (T::*)(unsigned int, const char*, sp<MediaLibDataMask>&, sp<MediaItemMask>&,
                            sp<MediaPlaylistMask>&, const char*);
template <typename T>
using InfoForm = int (T::*)(unsigned int, sp<MediaLibUpdateInfo>&);

using Slots = std::vector<size_t>;

/// setName() to setConfigPath().
template <typename T>
Slots beforeRegistration() {
    return {slotOf(&T::setName),          slotOf(&T::setSerialNumber), slotOf(&T::setDisplayName),
            slotOf(&T::setBluetoothAddr), slotOf(&T::startup),         slotOf(&T::shutdown),
            slotOf(&T::setConfigPath)};
}

/// getAccessoryIds() to StopAssistiveTouchInformation().
template <typename T>
Slots behindRegistration() {
    return {slotOf(&T::getAccessoryIds),
            slotOf(&T::getSupportFeature),
            slotOf(&T::start),
            slotOf(&T::stop),
            slotOf(&T::getAPPIds),
            slotOf(&T::launchAPP),
            slotOf<int (T::*)(unsigned int)>(&T::startHID),
            slotOf(&T::dispatchMediaPlaybackRemoteEvent),
            slotOf(&T::stopHID),
            slotOf<int (T::*)(unsigned int, HIDReportAttributes*)>(&T::startHID),
            slotOf(&T::accHIDReport),
            slotOf(&T::updateLocation),
            slotOf(&T::OOBBTPAccInfo),
            slotOf(&T::OOBBTPCompletionInfo),
            slotOf(&T::startMediaLibInformation),
            slotOf(&T::stopMediaLibInformation),
            slotOf<MaskForm<T>>(&T::startMediaLibUpdates),
            slotOf<InfoForm<T>>(&T::startMediaLibUpdates),
            slotOf(&T::stopMediaLibUpdates),
            slotOf(&T::playMediaLibCurrentSelection),
            slotOf(&T::playMediaLibItems),
            slotOf(&T::playMediaLibCollection),
            slotOf(&T::playMediaLibSpecial),
            slotOf(&T::startNowPlayingUpdate),
            slotOf(&T::stopNowPlayingUpdate),
            slotOf(&T::setNowPlayingInfo),
            slotOf(&T::startPowerUpdate),
            slotOf(&T::stopPowerUpdate),
            slotOf(&T::powerSourceUpdate),
            slotOf(&T::startUSBDeviceModeAudio),
            slotOf(&T::stopUSBDeviceModeAudio),
            slotOf(&T::requestWiFiInformation),
            slotOf(&T::accessoryWiFiConfigInforamtion),
            slotOf(&T::getEASessionCount),
            slotOf(&T::getEASessionId),
            slotOf(&T::registerEASessionChannel),
            slotOf(&T::unregisterEASessionChannel),
            slotOf(&T::EASessionSendDataReady),
            slotOf(&T::updateEAPStatus),
            slotOf(&T::fileTransferRecvInit),
            slotOf(&T::fileTransferRecvStart),
            slotOf(&T::fileTransferRecvPause),
            slotOf(&T::fileTransferRecvCancel),
            slotOf(&T::registerFileTransferChannel),
            slotOf(&T::unregisterFileTransferChannel),
            slotOf(&T::BTComponentInformation),
            slotOf(&T::StartBTConnectionUpdate),
            slotOf(&T::StopBTConnectionUpdate),
            slotOf(&T::StartRouteGuidanceUpdate),
            slotOf(&T::StopRouteGuidanceUpdate),
            slotOf(&T::StartAppDiscoveryUpdates),
            slotOf(&T::StopAppDiscoveryUpdates),
            slotOf(&T::RequestAppDiscoveryAppIcons),
            slotOf(&T::StartCallStateUpdates),
            slotOf(&T::StopCallStateUpdates),
            slotOf(&T::StartCommunicationsUpdates),
            slotOf(&T::StopCommunicationsUpdates),
            slotOf(&T::AcceptCall),
            slotOf(&T::EndCall),
            slotOf(&T::InitiateCall),
            slotOf(&T::SwapCalls),
            slotOf(&T::MergeCalls),
            slotOf(&T::HoldStatusUpdate),
            slotOf(&T::MuteStatusUpdate),
            slotOf(&T::SendDTMF),
            slotOf(&T::CarPlayStartSession),
            slotOf(&T::BluetoothPairingAccessoryInformation),
            slotOf(&T::BluetoothPairingStatus),
            slotOf(&T::StartDestinationInformation),
            slotOf(&T::StopDestinationInformation),
            slotOf(&T::DestinationInformationStatus),
            slotOf(&T::StartAssistiveTouch),
            slotOf(&T::StopAssistiveTouch),
            slotOf(&T::StartAssistiveTouchInformation),
            slotOf(&T::StopAssistiveTouchInformation)};
}

Slots joined(std::initializer_list<Slots> parts) {
    Slots all;
    for (const Slots& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Slots consecutive(size_t first, size_t count) {
    Slots slots(count);
    for (size_t i = 0; i < count; ++i)
        slots[i] = first + i;
    return slots;
}

TEST(IAppleiAP2Manager, HasItsOperationsInTheOrderOfTheInterface) {
    using T = IAppleiAP2Manager;
    const Slots slots = joined(
        {beforeRegistration<T>(),
         {slotOf(&T::setNotifier), slotOf(&T::clearNotifier)},
         behindRegistration<T>(),
         {slotOf(&T::setProperty), slotOf(&T::getVersion), slotOf(&T::CarPlayAvailableDigitalCarKeys)}});
    EXPECT_EQ(slots, consecutive(slotOf(&T::getInterfaceDescriptor) + 1, 87));
}

TEST(AppleiAP2ManagerImplItf, HasTheOperationsInTheirOrderButForTheLastThree) {
    using T = AppleiAP2ManagerImplItf;
    const Slots slots = joined(
        {beforeRegistration<T>(),
         {slotOf(&T::reserved1), slotOf(&T::reserved2)},
         behindRegistration<T>(),
         {slotOf(&T::CarPlayAvailableDigitalCarKeys), slotOf(&T::setProperty), slotOf(&T::getVersion)}});
    EXPECT_EQ(slots, consecutive(slots.front(), 87));
}

TEST(AppleiAP2ManagerImplItf, IsAbstract) { static_assert(std::is_abstract_v<AppleiAP2ManagerImplItf>); }

TEST(BpAppleiAP2Manager, IsAProxyMadeOfTheRemoteObjectAlone) {
    static_assert(std::is_base_of_v<android::BpInterface<IAppleiAP2Manager>, BpAppleiAP2Manager>);
    static_assert(std::is_constructible_v<BpAppleiAP2Manager, const sp<android::IBinder>&>);
    EXPECT_EQ(sizeof(BpAppleiAP2Manager), sizeof(android::BpInterface<IAppleiAP2Manager>));
}

TEST(BnAppleiAP2Manager, IsAStubMadeOfTheImplementation) {
    static_assert(std::is_base_of_v<android::BnInterface<IAppleiAP2Manager>, BnAppleiAP2Manager>);
    static_assert(std::is_constructible_v<BnAppleiAP2Manager, const sp<AppleiAP2ManagerImplItf>&>);
    static_assert(std::is_abstract_v<IAppleiAP2Manager>);
}

TEST(ArgumentRecords, HaveTheirSizesOnTheWire) {
    static_assert(sizeof(BTComInfo_s) == 8);
    static_assert(sizeof(StartCallStateUpdateParam) == 12);
    static_assert(sizeof(StartCommunicationsUpdatesParam) == 17);
}

}  // namespace
}  // namespace accessory::test
