#include "tests/simulator/Everything.h"

#include <accessory/MediaLibraryRecords.h>
#include <accessory/NowPlayingRecords.h>
#include <accessory/PowerRecords.h>
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>

#include "simulator/Values.h"

namespace accessory::simulator::test {

namespace {

/// Every byte of what asks for one field a byte.
template <typename Fields>
Fields allOf() {
    Fields fields;
    memset(static_cast<void*>(&fields), 1, sizeof(fields));
    return fields;
}

template <typename Mask>
android::sp<Mask> everyBit() {
    const android::sp<Mask> mask = new Mask;
    mask->mask = ~0u;
    return mask;
}

}  // namespace

int askForEverything(IAppleiAP2Manager& manager, unsigned int accId) {
    android::sp<MediaLibUpdateInfo> library = new MediaLibUpdateInfo;
    android::sp<iAP2ItemAttributeMask> item = everyBit<iAP2ItemAttributeMask>();
    android::sp<iAP2MediaPlaybackMask> playback = everyBit<iAP2MediaPlaybackMask>();
    android::sp<iAP2PowerUpdateMask> power = everyBit<iAP2PowerUpdateMask>();
    const auto communications = allOf<StartCommunicationsUpdatesParam>();
    int display = 1;
    unsigned int component = 1;
    const int statuses[] = {manager.start(accId),
                            manager.startMediaLibInformation(accId),
                            manager.startMediaLibUpdates(accId, library),
                            manager.startNowPlayingUpdate(accId, item, playback),
                            manager.startPowerUpdate(accId, power),
                            manager.StartCallStateUpdates(accId, allOf<StartCallStateUpdateParam>()),
                            manager.StartCommunicationsUpdates(accId, &communications),
                            manager.StartRouteGuidanceUpdate(accId, &display, 1, 0),
                            manager.StartAppDiscoveryUpdates(accId, 0, 0, 0, 0, 0),
                            manager.StartDestinationInformation(accId, 0),
                            manager.StartAssistiveTouchInformation(accId),
                            manager.StartBTConnectionUpdate(accId, &component, 1)};
    for (const int status : statuses)
        EXPECT_EQ(status, kDone);
    return std::size(statuses);
}

}  // namespace accessory::simulator::test
