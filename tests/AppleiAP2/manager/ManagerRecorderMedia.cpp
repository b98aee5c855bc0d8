// What ManagerRecorder notes of media, power, audio and Wi-Fi.
#include "tests/AppleiAP2/manager/ManagerArguments.h"
#include "tests/AppleiAP2/manager/ManagerRecorder.h"

namespace accessory::test {

int ManagerRecorder::startMediaLibInformation(unsigned int accId) {
    return note("startMediaLibInformation", {show(accId)});
}

int ManagerRecorder::stopMediaLibInformation(unsigned int accId) {
    return note("stopMediaLibInformation", {show(accId)});
}

int ManagerRecorder::startMediaLibUpdates(unsigned int accId, const char* first,
                                          android::sp<MediaLibDataMask>& dataMask,
                                          android::sp<MediaItemMask>& itemMask,
                                          android::sp<MediaPlaylistMask>& playlistMask, const char* last) {
    return note("startMediaLibUpdates", {show(accId), show(first), show(dataMask->mask), show(itemMask->mask),
                                         show(playlistMask->mask), show(last)});
}

int ManagerRecorder::startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) {
    return note("startMediaLibUpdates", {show(accId), show(info)});
}

int ManagerRecorder::stopMediaLibUpdates(unsigned int accId, const char* libraryId) {
    return note("stopMediaLibUpdates", {show(accId), show(libraryId)});
}

int ManagerRecorder::playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) {
    return note("playMediaLibCurrentSelection", {show(accId), show(libraryId)});
}

int ManagerRecorder::playMediaLibItems(unsigned int accId, const char* libraryId, unsigned long long* itemIds,
                                       int count, int value) {
    return note("playMediaLibItems", {show(accId), show(libraryId), show(View{itemIds, sizeOf(count, 8)}),
                                      show(count), show(value)});
}

int ManagerRecorder::playMediaLibCollection(unsigned int accId, const char* libraryId,
                                            unsigned long long collectionId, MediaLibCollectionType type,
                                            int value) {
    return note("playMediaLibCollection",
                {show(accId), show(libraryId), show(collectionId), show(type), show(value)});
}

int ManagerRecorder::playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) {
    return note("playMediaLibSpecial", {show(accId), show(libraryId), show(value)});
}

int ManagerRecorder::startNowPlayingUpdate(unsigned int accId,
                                           android::sp<iAP2ItemAttributeMask>& attributeMask,
                                           android::sp<iAP2MediaPlaybackMask>& playbackMask) {
    return note("startNowPlayingUpdate", {show(accId), show(attributeMask->mask), show(playbackMask->mask)});
}

int ManagerRecorder::stopNowPlayingUpdate(unsigned int accId) {
    return note("stopNowPlayingUpdate", {show(accId)});
}

int ManagerRecorder::setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) {
    return note("setNowPlayingInfo", {show(accId), show(value1), show(value2)});
}

int ManagerRecorder::startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) {
    return note("startPowerUpdate", {show(accId), show(powerMask->mask)});
}

int ManagerRecorder::stopPowerUpdate(unsigned int accId) { return note("stopPowerUpdate", {show(accId)}); }

int ManagerRecorder::powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) {
    return note("powerSourceUpdate", {show(accId), show(value), show(flag)});
}

int ManagerRecorder::startUSBDeviceModeAudio(unsigned int accId) {
    return note("startUSBDeviceModeAudio", {show(accId)});
}

int ManagerRecorder::stopUSBDeviceModeAudio(unsigned int accId) {
    return note("stopUSBDeviceModeAudio", {show(accId)});
}

int ManagerRecorder::requestWiFiInformation(unsigned int accId) {
    return note("requestWiFiInformation", {show(accId)});
}

int ManagerRecorder::accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid,
                                                    const char* passphrase, WiFiSecurityType securityType,
                                                    unsigned char channel) {
    return note("accessoryWiFiConfigInforamtion",
                {show(accId), show(ssid), show(passphrase), show(securityType), show(channel)});
}

}  // namespace accessory::test
