// Requests about music, power and Wi-Fi, through the program.
#include "tests/simulator/SimulatorClient.h"

namespace accessory::simulator::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

android::sp<MediaLibUpdateInfo> infoFor(const char* libraryId, int32_t dataMask, int32_t itemMask,
                                        int32_t playlistMask, int32_t pageSize) {
    const android::sp<MediaLibUpdateInfo> info = new MediaLibUpdateInfo();
    info->mFirstText = libraryId;
    info->mValues[0] = dataMask;
    info->mValues[1] = itemMask;
    info->mValues[2] = playlistMask;
    info->mValues[3] = pageSize;
    return info;
}

TEST_F(QuietSimulator, TellsOfItsLibraryAndStreamsIt) {
    attach();
    EXPECT_EQ(manager.startMediaLibInformation(kPhone), kDone);
    EXPECT_TRUE(client.hears("mediaLibInfoUpdate(5, \"Quiet songs\", \"LIB\", 0)"));
    EXPECT_EQ(manager.stopMediaLibInformation(kPhone), kDone);
    EXPECT_EQ(manager.stopMediaLibInformation(kPhone), kWrongState);
    android::sp<MediaLibUpdateInfo> info = infoFor(nullptr, 0x8c, 0x2, 0x2, 3);
    EXPECT_EQ(manager.startMediaLibUpdates(kPhone, info), kDone);
    EXPECT_TRUE(client.hears(
        AllOf(StartsWith("mediaLibUpdateDataReady(5, {0x84"), HasSubstr("\"One\""), HasSubstr("\"Three\""))));
    EXPECT_TRUE(client.hears(AllOf(StartsWith("mediaLibUpdateDataReady(5, {0x88"), HasSubstr("\"List\""))));
    EXPECT_EQ(manager.stopMediaLibUpdates(kPhone, "LIB"), kDone);
    EXPECT_EQ(manager.stopMediaLibUpdates(kPhone, "LIB"), kWrongState);
    EXPECT_EQ(manager.stopMediaLibUpdates(kPhone, "other"), kNotFound);
}

TEST_F(QuietSimulator, RefusesAnUnknownLibraryAndALargePage) {
    attach();
    android::sp<MediaLibUpdateInfo> info = infoFor("other", 0, 0, 0, 0);
    EXPECT_EQ(manager.startMediaLibUpdates(kPhone, info), kNotFound);
    info = infoFor("LIB", 0, 0, 0, 501);
    EXPECT_EQ(manager.startMediaLibUpdates(kPhone, info), kBadArgument);
}

class PlayingSimulator : public QuietSimulator {
  protected:
    PlayingSimulator() {
        attach();
        android::sp<iAP2ItemAttributeMask> attributes = new iAP2ItemAttributeMask();
        attributes->mask = iAP2ItemAttributeMask::kTitle;
        android::sp<iAP2MediaPlaybackMask> playback = new iAP2MediaPlaybackMask();
        playback->mask = iAP2MediaPlaybackMask::kStats;
        EXPECT_EQ(manager.startNowPlayingUpdate(kPhone, attributes, playback), kDone);
        EXPECT_TRUE(client.hears("nowPlayingUpdate(5, {0x0}, {0x1})"));
    }

    /// Waits for a now-playing event with that title and, when it says so, that status.
    testing::AssertionResult hearsTitle(const char* title) {
        return client.hears(AllOf(StartsWith("nowPlayingUpdate(5, {0x2"), HasSubstr(title)));
    }
};

TEST_F(PlayingSimulator, ObeysRemoteEvents) {
    EXPECT_EQ(manager.dispatchMediaPlaybackRemoteEvent(kPhone, 1, 0), kWrongState);
    EXPECT_EQ(manager.dispatchMediaPlaybackRemoteEvent(kPhone, 0, 0), kDone);
    EXPECT_TRUE(client.hears("nowPlayingUpdate(5, {0x2 1:\"One\"}, {0x1 0:1})"));
    EXPECT_EQ(manager.dispatchMediaPlaybackRemoteEvent(kPhone, 3, 0), kDone);
    EXPECT_TRUE(hearsTitle("Two"));
    EXPECT_EQ(manager.dispatchMediaPlaybackRemoteEvent(kPhone, 4, 0), kDone);
    EXPECT_TRUE(hearsTitle("One"));
    EXPECT_EQ(manager.dispatchMediaPlaybackRemoteEvent(kPhone, 2, 0), kDone);
    EXPECT_TRUE(client.hears("nowPlayingUpdate(5, {0x0}, {0x1 0:2})"));
    EXPECT_EQ(manager.dispatchMediaPlaybackRemoteEvent(kPhone, 5, 0), kBadArgument);
    EXPECT_EQ(manager.stopNowPlayingUpdate(kPhone), kDone);
    EXPECT_EQ(manager.stopNowPlayingUpdate(kPhone), kWrongState);
}

TEST_F(PlayingSimulator, PlaysItemsCollectionsAndEverything) {
    unsigned long long items[] = {13, 11};
    EXPECT_EQ(manager.playMediaLibItems(kPhone, "LIB", items, 2, 0), kDone);
    EXPECT_TRUE(hearsTitle("Three"));
    EXPECT_EQ(manager.playMediaLibItems(kPhone, "LIB", items, 0, 0), kBadArgument);
    EXPECT_EQ(manager.playMediaLibItems(kPhone, "other", items, 2, 0), kNotFound);
    EXPECT_EQ(manager.playMediaLibCollection(kPhone, "LIB", 21, kCollectionPlaylist, 1), kDone);
    EXPECT_TRUE(hearsTitle("Two"));
    EXPECT_EQ(manager.playMediaLibCollection(kPhone, "LIB", 22, kCollectionPlaylist, 0), kNotFound);
    EXPECT_EQ(manager.playMediaLibCollection(kPhone, "LIB", 21, static_cast<MediaLibCollectionType>(5), 0),
              kBadArgument);
    EXPECT_EQ(manager.playMediaLibSpecial(kPhone, "LIB", 0), kDone);
    EXPECT_TRUE(hearsTitle("One"));
    EXPECT_EQ(manager.playMediaLibSpecial(kPhone, "LIB", 2), kBadArgument);
    EXPECT_EQ(manager.playMediaLibSpecial(kPhone, "other", 0), kNotFound);
}

TEST_F(PlayingSimulator, ContinuesTheCurrentSelectionAndSeeks) {
    EXPECT_EQ(manager.playMediaLibCurrentSelection(kPhone, "other"), kNotFound);
    EXPECT_EQ(manager.playMediaLibCurrentSelection(kPhone, "LIB"), kDone);
    EXPECT_TRUE(hearsTitle("One"));
    EXPECT_EQ(manager.setNowPlayingInfo(kPhone, 1, 2), kDone);
    EXPECT_TRUE(hearsTitle("Three"));
    EXPECT_EQ(manager.setNowPlayingInfo(kPhone, 0, 599'000), kDone);
    EXPECT_EQ(manager.setNowPlayingInfo(kPhone, 0, 600'001), kWrongState);
    EXPECT_TRUE(client.hears(HasSubstr("\"One\"}, {0x1})"))) << "the queue ends, and the player stops";
}

TEST_F(QuietSimulator, TellsOfPower) {
    attach();
    android::sp<iAP2PowerUpdateMask> mask = new iAP2PowerUpdateMask();
    mask->mask = iAP2PowerUpdateMask::kCurrentFromAccessory | iAP2PowerUpdateMask::kChargeState;
    EXPECT_EQ(manager.startPowerUpdate(kPhone, mask), kDone);
    EXPECT_TRUE(client.hears("powerUpdate(5, {0x11 0:500 4:1})"));
    EXPECT_EQ(manager.powerSourceUpdate(kPhone, 900, false), kDone);
    EXPECT_TRUE(client.hears("powerUpdate(5, {0x11 0:900})"));
    EXPECT_EQ(manager.stopPowerUpdate(kPhone), kDone);
    EXPECT_EQ(manager.stopPowerUpdate(kPhone), kWrongState);
}

TEST_F(QuietSimulator, ExchangesWiFi) {
    attach();
    EXPECT_EQ(manager.requestWiFiInformation(kPhone), kDone);
    EXPECT_TRUE(client.hears("WiFiInformation(5, 0, \"net\", \"pass\")"));
    EXPECT_EQ(manager.accessoryWiFiConfigInforamtion(kPhone, "car", "secret", kWiFiWPA, 11), kDone);
    EXPECT_THAT(client.dump(), HasSubstr("set: wifi = \"car, channel 11\""));
}

}  // namespace
}  // namespace accessory::simulator::test
