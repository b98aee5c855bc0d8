// iAP2Service: media library, now playing, power, USB audio and Wi-Fi.
#include <algorithm>

#include "simulator/service/iAP2Service.h"

namespace accessory::simulator {

namespace {

std::string textOrNothing(const char* text) { return text != nullptr ? text : ""; }

/// What the strings and numbers of a MediaLibUpdateInfo mean here.
LibraryRequest requestOf(const MediaLibUpdateInfo& info) {
    LibraryRequest request;
    request.libraryId = textOrNothing(info.mFirstText);
    request.revision = textOrNothing(info.mSecondText);
    request.dataMask = static_cast<uint32_t>(info.mValues[0]);
    request.itemMask = static_cast<uint32_t>(info.mValues[1]);
    request.playlistMask = static_cast<uint32_t>(info.mValues[2]);
    request.pageSize = static_cast<uint32_t>(info.mValues[3]);
    request.pageDelay = static_cast<uint32_t>(info.mValues[4]);
    return request;
}

}  // namespace

int iAP2Service::startMediaLibInformation(unsigned int accId) {
    return onDevice("startMediaLibInformation", accId,
                    [](Device& device) { return device.libraryUpdates.startInformation(); });
}

int iAP2Service::stopMediaLibInformation(unsigned int accId) {
    return onDevice("stopMediaLibInformation", accId,
                    [](Device& device) { return device.libraryUpdates.stopInformation(); });
}

int iAP2Service::startMediaLibUpdates(unsigned int accId, const char* first,
                                      android::sp<MediaLibDataMask>& dataMask,
                                      android::sp<MediaItemMask>& itemMask,
                                      android::sp<MediaPlaylistMask>& playlistMask, const char* last) {
    const auto start = [&](Device& device) -> int {
        if (dataMask == nullptr || itemMask == nullptr || playlistMask == nullptr) return kBadArgument;
        LibraryRequest request;
        request.libraryId = textOrNothing(first);
        request.revision = textOrNothing(last);
        request.dataMask = dataMask->mask;
        request.itemMask = itemMask->mask;
        request.playlistMask = playlistMask->mask;
        return device.libraryUpdates.start(request);
    };
    return onDevice("startMediaLibUpdates", accId, start, first, last);
}

int iAP2Service::startMediaLibUpdates(unsigned int accId, android::sp<MediaLibUpdateInfo>& info) {
    const auto start = [&](Device& device) -> int {
        return info != nullptr ? device.libraryUpdates.start(requestOf(*info)) : kBadArgument;
    };
    return onDevice("startMediaLibUpdates", accId, start, info);
}

int iAP2Service::stopMediaLibUpdates(unsigned int accId, const char* libraryId) {
    return onDevice(
        "stopMediaLibUpdates", accId, [&](Device& device) { return device.libraryUpdates.stop(libraryId); },
        libraryId);
}

int iAP2Service::playMediaLibCurrentSelection(unsigned int accId, const char* libraryId) {
    const auto play = [&](Device& device) -> int {
        if (!device.libraryUpdates.isOurs(libraryId)) return kNotFound;
        return device.nowPlaying.remote(NowPlaying::kPlay);
    };
    return onDevice("playMediaLibCurrentSelection", accId, play, libraryId);
}

int iAP2Service::playMediaLibItems(unsigned int accId, const char* libraryId, unsigned long long* itemIds,
                                   int count, int value) {
    const auto play = [&](Device& device) -> int {
        if (!device.libraryUpdates.isOurs(libraryId)) return kNotFound;
        if (itemIds == nullptr || count <= 0) return kBadArgument;
        const std::vector<uint64_t> ids(itemIds, itemIds + count);
        return device.playItems(ids.data(), count, value);
    };
    return onDevice("playMediaLibItems", accId, play, libraryId, count, value);
}

int iAP2Service::playMediaLibCollection(unsigned int accId, const char* libraryId,
                                        unsigned long long collectionId, MediaLibCollectionType type,
                                        int value) {
    const auto play = [&](Device& device) -> int {
        if (!device.libraryUpdates.isOurs(libraryId)) return kNotFound;
        if (type < kCollectionPlaylist || type > kCollectionComposer) return kBadArgument;
        return device.playCollection(static_cast<Grouping>(type), collectionId, value);
    };
    return onDevice("playMediaLibCollection", accId, play, libraryId, collectionId, type, value);
}

int iAP2Service::playMediaLibSpecial(unsigned int accId, const char* libraryId, int value) {
    const auto play = [&](Device& device) -> int {
        return device.libraryUpdates.isOurs(libraryId) ? device.playSpecial(value) : kNotFound;
    };
    return onDevice("playMediaLibSpecial", accId, play, libraryId, value);
}

int iAP2Service::startNowPlayingUpdate(unsigned int accId, android::sp<iAP2ItemAttributeMask>& attributeMask,
                                       android::sp<iAP2MediaPlaybackMask>& playbackMask) {
    const auto start = [&](Device& device) -> int {
        if (attributeMask == nullptr || playbackMask == nullptr) return kBadArgument;
        return device.nowPlaying.start(attributeMask->mask, playbackMask->mask);
    };
    return onDevice("startNowPlayingUpdate", accId, start, attributeMask != nullptr ? attributeMask->mask : 0,
                    playbackMask != nullptr ? playbackMask->mask : 0);
}

int iAP2Service::stopNowPlayingUpdate(unsigned int accId) {
    return onDevice("stopNowPlayingUpdate", accId, [](Device& device) { return device.nowPlaying.stop(); });
}

int iAP2Service::setNowPlayingInfo(unsigned int accId, unsigned int value1, unsigned int value2) {
    return onDevice(
        "setNowPlayingInfo", accId, [&](Device& device) { return device.nowPlaying.set(value1, value2); },
        value1, value2);
}

int iAP2Service::startPowerUpdate(unsigned int accId, android::sp<iAP2PowerUpdateMask>& powerMask) {
    const auto start = [&](Device& device) -> int {
        return powerMask != nullptr ? device.battery.start(powerMask->mask) : kBadArgument;
    };
    return onDevice("startPowerUpdate", accId, start, powerMask != nullptr ? powerMask->mask : 0);
}

int iAP2Service::stopPowerUpdate(unsigned int accId) {
    return onDevice("stopPowerUpdate", accId, [](Device& device) { return device.battery.stop(); });
}

int iAP2Service::powerSourceUpdate(unsigned int accId, unsigned int value, bool flag) {
    return onDevice(
        "powerSourceUpdate", accId, [&](Device& device) { return device.battery.source(value, flag); }, value,
        flag);
}

int iAP2Service::startUSBDeviceModeAudio(unsigned int accId) {
    return onDevice("startUSBDeviceModeAudio", accId,
                    [](Device& device) { return device.audio.startMode(); });
}

int iAP2Service::stopUSBDeviceModeAudio(unsigned int accId) {
    return onDevice("stopUSBDeviceModeAudio", accId, [](Device& device) { return device.audio.stopMode(); });
}

int iAP2Service::requestWiFiInformation(unsigned int accId) {
    return onDevice("requestWiFiInformation", accId, [](Device& device) { return device.requestWiFi(); });
}

int iAP2Service::accessoryWiFiConfigInforamtion(unsigned int accId, const char* ssid, const char* passphrase,
                                                WiFiSecurityType securityType, unsigned char channel) {
    const auto store = [&](Device&) -> int {
        if (ssid == nullptr || passphrase == nullptr) return kBadArgument;
        mWorld.settings()["wifi"] = std::string(ssid) + ", channel " + std::to_string(channel);
        return kDone;
    };
    return onDevice("accessoryWiFiConfigInforamtion", accId, store, ssid, passphrase, securityType, channel);
}

}  // namespace accessory::simulator
