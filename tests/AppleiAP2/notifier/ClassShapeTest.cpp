// The shape of the public classes that other binaries are compiled against: order of the virtual functions,
// bases, types of the arguments.
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

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

/// The places of all operations, in the order that is promised.
template <typename Class>
std::vector<size_t> slots() {
    return {slotOf(&Class::notify),
            slotOf(&Class::attach),
            slotOf(&Class::detach),
            slotOf(&Class::deviceInfoUpdate),
            slotOf(&Class::deviceLanguageUpdate),
            slotOf(&Class::deviceTimeUpdate),
            slotOf(&Class::deviceUUIDUpdate),
            slotOf(&Class::wirelessCPStateUpdate),
            slotOf(&Class::DeviceTransportIdentifierNotification),
            slotOf(&Class::deviceHIDReport),
            slotOf(&Class::hidComponentUpdate),
            slotOf(&Class::startLocation),
            slotOf(&Class::stopLocation),
            slotOf(&Class::mediaLibInfoUpdate),
            slotOf(&Class::mediaLibUpdateDataReady),
            slotOf(&Class::nowPlayingUpdate),
            slotOf(&Class::powerUpdate),
            slotOf(&Class::USBDeviceModeAudioInfo),
            slotOf(&Class::WiFiInformation),
            slotOf(&Class::requestAccWiFiConfigInfo),
            slotOf(&Class::EASessionStart),
            slotOf(&Class::EASessionStop),
            slotOf(&Class::EASessionRecvDataReady),
            slotOf(&Class::fileTransferSetup),
            slotOf(&Class::fileTransferStart),
            slotOf(&Class::fileTransferPause),
            slotOf(&Class::fileTransferCancel),
            slotOf(&Class::fileTransferRecvFinish),
            slotOf(&Class::startOOBBTP),
            slotOf(&Class::OOBBTPLinkKeyInfo),
            slotOf(&Class::stopOOBBTP),
            slotOf(&Class::BTConnectionUpdate),
            slotOf(&Class::RouteGuidanceUpdates),
            slotOf(&Class::RouteGuidanceManeuverUpdates),
            slotOf(&Class::LaneGuidanceInformation),
            slotOf(&Class::AppDiscoveryUpdate),
            slotOf(&Class::AppDiscoveryAppIcon),
            slotOf(&Class::CallStateUpdate),
            slotOf(&Class::CommunicationsUpdate),
            slotOf(&Class::CarPlayAvailability),
            slotOf(&Class::StartBluetoothPairing),
            slotOf(&Class::StopBluetoothPairing),
            slotOf(&Class::DestinationInformation),
            slotOf(&Class::AssistiveTouchInformation),
            slotOf(&Class::CarPlayMatchedDigitalCarKeys)};
}

template <typename Class>
void expectOneAfterTheOther() {
    const std::vector<size_t> places = slots<Class>();
    ASSERT_EQ(places.size(), 45u);
    for (size_t i = 1; i < places.size(); ++i)
        EXPECT_EQ(places[i], places[0] + i) << "operation " << i;
}

TEST(IAppleiAP2ManagerNotifierShape, HasItsOperationsInTheOrderOfTheInterface) {
    expectOneAfterTheOther<IAppleiAP2ManagerNotifier>();
    EXPECT_EQ(slotOf(&IAppleiAP2ManagerNotifier::getInterfaceDescriptor) + 1,
              slotOf(&IAppleiAP2ManagerNotifier::notify));
}

TEST(AppleiAP2ManagerNotifierImplItfShape, HasTheOperationsOfTheInterfaceInTheSameOrder) {
    expectOneAfterTheOther<AppleiAP2ManagerNotifierImplItf>();
}

template <typename Class>
constexpr bool hasTheArguments() {
    using std::is_same_v;
    return is_same_v<decltype(&Class::deviceTimeUpdate),
                     int (Class::*)(unsigned int, unsigned long long, short, signed char)> &&
           is_same_v<decltype(&Class::deviceHIDReport), int (Class::*)(unsigned int, int, void*, int)> &&
           is_same_v<decltype(&Class::mediaLibUpdateDataReady),
                     int (Class::*)(unsigned int, sp<iAP2MediaLibData>)> &&
           is_same_v<decltype(&Class::nowPlayingUpdate),
                     int (Class::*)(unsigned int, const sp<iAP2ItemAttribute>&,
                                    const sp<iAP2MediaPlayback>&)> &&
           is_same_v<decltype(&Class::CallStateUpdate),
                     int (Class::*)(unsigned int, CallStateUpdateParam&)> &&
           is_same_v<decltype(&Class::CommunicationsUpdate),
                     int (Class::*)(unsigned int, CommunicationsUpdateParam*)> &&
           is_same_v<decltype(&Class::DestinationInformation),
                     int (Class::*)(unsigned int, const DestinationInfo*)> &&
           is_same_v<decltype(&Class::CarPlayMatchedDigitalCarKeys),
                     int (Class::*)(unsigned int, std::vector<std::string>&)>;
}

TEST(IAppleiAP2ManagerNotifierShape, TakesTheSameArgumentsInInterfaceAndImplementation) {
    static_assert(hasTheArguments<IAppleiAP2ManagerNotifier>());
    static_assert(hasTheArguments<AppleiAP2ManagerNotifierImplItf>());
    static_assert(std::is_same_v<std::underlying_type_t<MediaLibType>, int32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<requestWiFiStatues>, int32_t>);
    static_assert(std::is_abstract_v<IAppleiAP2ManagerNotifier>);
    static_assert(std::is_abstract_v<AppleiAP2ManagerNotifierImplItf>);
}

TEST(BpAppleiAP2ManagerNotifierShape, HoldsTheRemoteObjectAlone) {
    static_assert(
        std::is_base_of_v<android::BpInterface<IAppleiAP2ManagerNotifier>, BpAppleiAP2ManagerNotifier>);
    static_assert(std::is_constructible_v<BpAppleiAP2ManagerNotifier, const sp<android::IBinder>&>);
    EXPECT_EQ(sizeof(BpAppleiAP2ManagerNotifier), sizeof(android::BpInterface<IAppleiAP2ManagerNotifier>));
}

/// What the stub is to consist of.
class StubFields : public android::BnInterface<IAppleiAP2ManagerNotifier> {
    sp<AppleiAP2ManagerNotifierImplItf> mImpl;
};

TEST(BnAppleiAP2ManagerNotifierShape, HoldsTheImplementationAlone) {
    static_assert(
        std::is_base_of_v<android::BnInterface<IAppleiAP2ManagerNotifier>, BnAppleiAP2ManagerNotifier>);
    EXPECT_EQ(sizeof(BnAppleiAP2ManagerNotifier), sizeof(StubFields));
}

}  // namespace
}  // namespace accessory::test
