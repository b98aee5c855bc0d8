// Requests with nothing where something is needed, made within the process: a status, never a crash.
#include <gtest/gtest.h>

#include "simulator/scenario/ScenarioReader.h"
#include "simulator/service/OtherServices.h"
#include "simulator/service/iAP2Service.h"

namespace accessory::simulator::test {
namespace {

Scenario oneDevice() {
    Scenario scenario;
    EXPECT_TRUE(readScenario("test", R"({"name": "x", "devices": [{"name": "P"}]})", &scenario).empty());
    return scenario;
}

/// The services behind no stub, with the device of the id 1 attached.
class NullArguments : public testing::Test {
  protected:
    NullArguments() {
        const std::lock_guard lock(world.lock());
        EXPECT_EQ(world.startup(kTransportUSBHost), kDone);
    }

    Report report{false, false};
    FaultInjector faults{{}};
    World world{oneDevice(), Playing(), report};
    const android::sp<iAP2Service> service = new iAP2Service(world, report, faults);
    const android::sp<USBAudioService> audio = new USBAudioService(world, report);
};

TEST_F(NullArguments, AreRefusedByTheAccessory) {
    unsigned int count = 0;
    EXPECT_EQ(service->setName(nullptr), kBadArgument);
    EXPECT_EQ(service->setSerialNumber(nullptr), kBadArgument);
    EXPECT_EQ(service->setDisplayName(nullptr), kBadArgument);
    EXPECT_EQ(service->setBluetoothAddr(nullptr, 6), kBadArgument);
    EXPECT_EQ(service->setConfigPath(kTransportUSBHost, nullptr), kBadArgument);
    EXPECT_EQ(service->getAccessoryIds(nullptr, &count), kBadArgument);
    EXPECT_EQ(service->getSupportFeature(1, nullptr), nullptr);
    EXPECT_EQ(service->getAPPIds(1, nullptr, nullptr), kBadArgument);
    EXPECT_EQ(service->launchAPP(1, nullptr, kLaunchSilently), kBadArgument);
    EXPECT_EQ(audio->getIds(nullptr, &count), kBadArgument);
}

TEST_F(NullArguments, AreRefusedByControlsAndPlaces) {
    EXPECT_EQ(service->startHID(1, nullptr), kBadArgument);
    EXPECT_EQ(service->accHIDReport(1, nullptr, 5), kBadArgument);
    EXPECT_EQ(service->accHIDReport(1, nullptr, -5), kBadArgument);
    EXPECT_EQ(service->updateLocation(1, nullptr, 5), kBadArgument);
    EXPECT_EQ(service->DestinationInformationStatus(1, nullptr, 0), kBadArgument);
}

TEST_F(NullArguments, AreRefusedByMusicAndPower) {
    android::sp<MediaLibDataMask> dataMask;
    android::sp<MediaItemMask> itemMask;
    android::sp<MediaPlaylistMask> playlistMask;
    android::sp<MediaLibUpdateInfo> info;
    android::sp<iAP2ItemAttributeMask> attributeMask;
    android::sp<iAP2MediaPlaybackMask> playbackMask;
    android::sp<iAP2PowerUpdateMask> powerMask;
    EXPECT_EQ(service->startMediaLibUpdates(1, nullptr, dataMask, itemMask, playlistMask, nullptr),
              kBadArgument);
    EXPECT_EQ(service->startMediaLibUpdates(1, info), kBadArgument);
    EXPECT_EQ(service->playMediaLibItems(1, nullptr, nullptr, 3, 0), kBadArgument);
    EXPECT_EQ(service->startNowPlayingUpdate(1, attributeMask, playbackMask), kBadArgument);
    EXPECT_EQ(service->startPowerUpdate(1, powerMask), kBadArgument);
    EXPECT_EQ(service->accessoryWiFiConfigInforamtion(1, nullptr, nullptr, kWiFiOpen, 1), kBadArgument);
}

TEST_F(NullArguments, AreRefusedByConnectionsAndCalls) {
    int number = 0;
    EXPECT_EQ(service->getEASessionId(1, 0, &number, nullptr), kBadArgument);
    EXPECT_EQ(service->BTComponentInformation(1, nullptr, 2), kBadArgument);
    EXPECT_EQ(service->StartBTConnectionUpdate(1, nullptr, 2), kBadArgument);
    EXPECT_EQ(service->StartRouteGuidanceUpdate(1, nullptr, 2, 0), kBadArgument);
    EXPECT_EQ(service->StartRouteGuidanceUpdate(1, nullptr, -1, 0), kBadArgument);
    EXPECT_EQ(service->StopRouteGuidanceUpdate(1, nullptr, 2), kBadArgument);
    EXPECT_EQ(service->RequestAppDiscoveryAppIcons(1, nullptr), kBadArgument);
    EXPECT_EQ(service->StartCommunicationsUpdates(1, nullptr), kBadArgument);
    EXPECT_EQ(service->InitiateCall(1, nullptr), kBadArgument);
    EXPECT_EQ(service->CarPlayStartSession(1, nullptr, nullptr, 0, nullptr, nullptr, nullptr), kBadArgument);
    EXPECT_EQ(service->BluetoothPairingAccessoryInformation(1, 1, nullptr, nullptr), kWrongState);
    EXPECT_EQ(service->BluetoothPairingStatus(1, 1, 0, nullptr), kWrongState);
}

TEST_F(NullArguments, MeanWhatIsLikeliestForLibrariesAndCalls) {
    EXPECT_EQ(service->stopMediaLibUpdates(1, nullptr), kWrongState);
    EXPECT_EQ(service->playMediaLibSpecial(1, nullptr, 0), kWrongState) << "there is no track";
    EXPECT_EQ(service->AcceptCall(1, 0, nullptr), kWrongState);
    EXPECT_EQ(service->EndCall(1, 0, nullptr), kWrongState);
    EXPECT_EQ(service->SendDTMF(1, 0, nullptr), kWrongState);
}

TEST_F(NullArguments, OfTheMaskFormMeanTheDevicesOwnLibrary) {
    android::sp<MediaLibDataMask> dataMask = new MediaLibDataMask();
    android::sp<MediaItemMask> itemMask = new MediaItemMask();
    android::sp<MediaPlaylistMask> playlistMask = new MediaPlaylistMask();
    EXPECT_EQ(service->startMediaLibUpdates(1, nullptr, dataMask, itemMask, playlistMask, nullptr), kDone);
    EXPECT_EQ(service->stopMediaLibUpdates(1, nullptr), kDone);
}

}  // namespace
}  // namespace accessory::simulator::test
