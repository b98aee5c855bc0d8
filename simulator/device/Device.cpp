#include "simulator/device/Device.h"

#include "simulator/Text.h"

namespace accessory::simulator {

Device::Device(Stage& stage, const DeviceProfile& profile, const bool& transportRuns,
               const bool& usbAudioRuns)
    : Feature(stage, profile.id),
      mProfile(profile),
      mLibrary(profile.library),
      mTransportRuns(transportRuns),
      mPresent(profile.present),
      mClock(profile.clock),
      nowPlaying(stage, profile.id, mLibrary),
      libraryUpdates(stage, profile.id, mProfile, mLibrary),
      battery(stage, profile.id, mProfile),
      phone(stage, profile.id, mProfile),
      navigation(stage, profile.id, mProfile),
      sessions(stage, profile.id),
      transfers(stage, profile.id, mLibrary),
      applications(stage, profile.id, mProfile, nowPlaying, sessions),
      bluetooth(stage, profile.id, mProfile),
      carPlay(stage, profile.id, mProfile),
      humanInterface(stage, profile.id, mProfile, nowPlaying),
      place(stage, profile.id),
      audio(stage, profile.id, mProfile, usbAudioRuns) {}

void Device::setPresent(bool present) {
    mPresent = present;
    transportChanged();
}

void Device::transportChanged() {
    const bool attached = mPresent && mTransportRuns;
    if (attached && !mAttached) attach();
    if (!attached && mAttached) detach();
}

void Device::restart() {
    if (mAttached) detach();
    mClock = mProfile.clock;
    setPresent(mProfile.present);
}

int Device::openSession() {
    if (mSessionOpen) return kWrongState;
    mSessionOpen = true;
    tell(&Clients::notify, kSessionOpened);
    return kDone;
}

int Device::closeSession() {
    if (!mSessionOpen) return kWrongState;
    mSessionOpen = false;
    forgetRequests();
    tell(&Clients::notify, kSessionClosed);
    return kDone;
}

int Device::requestWiFi() {
    const WiFiNetwork& network = mProfile.wifi;
    tell(&Clients::WiFiInformation, network.ssid.empty() ? kWiFiUnavailable : kWiFiKnown, network.ssid,
         network.passphrase);
    return kDone;
}

int Device::playCollection(Grouping grouping, uint64_t id, int start) {
    if (start < 0) return kBadArgument;
    const TrackList tracks = mLibrary.collection(grouping, id);
    if (tracks.empty()) return kNotFound;
    if (static_cast<size_t>(start) >= tracks.size()) return kBadArgument;
    return nowPlaying.load(tracks, static_cast<size_t>(start));
}

int Device::playItems(const uint64_t* ids, int count, int start) {
    if (ids == nullptr || count <= 0 || start < 0 || start >= count) return kBadArgument;
    const TrackList tracks = mLibrary.find(std::vector<uint64_t>(ids, ids + count));
    if (tracks.size() != static_cast<size_t>(count)) return kNotFound;
    return nowPlaying.load(tracks, static_cast<size_t>(start));
}

int Device::playSpecial(int kind) {
    if (kind != 0 && kind != 1) return kBadArgument;
    return nowPlaying.load(mLibrary.tracks(), 0, static_cast<Shuffle>(kind));
}

const char* Device::supports(const std::string& feature) const {
    const auto found = mProfile.supports.find(feature);
    return found != mProfile.supports.end() ? found->second.c_str() : nullptr;
}

void Device::setClock(const ClockReading& clock) {
    mClock = clock;
    tell(&Clients::deviceTimeUpdate, clock.seconds, clock.zoneMinutes, clock.daylightMinutes);
}

void Device::askForEverything() {
    openSession();
    libraryUpdates.startInformation();
    libraryUpdates.start({});
    nowPlaying.start(~0u, ~0u);
    battery.start(~0u);
    phone.startCallStates(CallFields().set());
    phone.startCommunications(CommunicationsFields().set());
    navigation.start({1}, 0);
    applications.startDiscovery(0);
    place.start();
    humanInterface.startTouchInformation();
    bluetooth.startConnections({1});
    if (audio.endpoint() != 0) audio.startMode();
}

void Device::describe(std::string* out) {
    appendLine(out, "device %u %s: %s%s", mProfile.id, quoted(mProfile.name).c_str(),
               mAttached  ? "attached"
               : mPresent ? "waits for its transport"
                          : "away",
               mSessionOpen ? ", session open" : "");
    if (!mAttached) return;
    nowPlaying.describe(out);
    libraryUpdates.describe(out);
    battery.describe(out);
    phone.describe(out);
    navigation.describe(out);
    sessions.describe(out);
    transfers.describe(out);
    applications.describe(out);
    bluetooth.describe(out);
    carPlay.describe(out);
    humanInterface.describe(out);
    place.describe(out);
    audio.describe(out);
}

void Device::attach() {
    mAttached = true;
    tell(&Clients::attach);
    introduce();
    battery.attach();
    carPlay.attach();
}

void Device::detach() {
    resetFeatures();
    mSessionOpen = false;
    mAttached = false;
    tell(&Clients::detach);
}

void Device::forgetRequests() {
    nowPlaying.stop();
    libraryUpdates.stopInformation();
    libraryUpdates.stop(nullptr);
    battery.stop();
    phone.stopCallStates();
    phone.stopCommunications();
    navigation.stop({});
    applications.stopDiscovery();
    bluetooth.stopConnections();
    humanInterface.stopTouchInformation();
    place.stop();
}

void Device::resetFeatures() {
    nowPlaying.reset();
    libraryUpdates.reset();
    battery.reset();
    phone.reset();
    navigation.reset();
    sessions.reset();
    transfers.reset();
    applications.reset();
    bluetooth.reset();
    carPlay.reset();
    humanInterface.reset();
    place.reset();
    audio.reset();
}

void Device::introduce() {
    tell(&Clients::deviceInfoUpdate, mProfile.name);
    setLanguage(mProfile.language);
    setClock(mClock);
    tell(&Clients::deviceUUIDUpdate, mProfile.uuid);
    tell(
        [id = mId, usb = mProfile.usbIdentifier, bluetooth = mProfile.bluetoothIdentifier](Clients& clients) {
            clients.DeviceTransportIdentifierNotification(id, usb.empty() ? nullptr : usb.c_str(),
                                                          bluetooth.empty() ? nullptr : bluetooth.c_str());
        });
}

}  // namespace accessory::simulator
