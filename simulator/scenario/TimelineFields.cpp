// The section "timeline" of a scenario: what can happen, by the word that "do" says.
#include <algorithm>

#include "simulator/device/Device.h"
#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator {

namespace {

using Run = std::function<void(Device&)>;

/// Reads an action's fields. @param device the one that the step is about; null while describing.
using ReadAction = Run (*)(Fields& fields, const DeviceProfile* device);

struct ActionKind {
    const char* name = nullptr;
    const char* meaning = nullptr;
    ReadAction read = nullptr;
    bool needsAttached = true;
};

/// An action without fields.
template <const auto& run>
Run plain(Fields&, const DeviceProfile*) {
    return run;
}

// Presence and identity.

Run readLanguage(Fields& fields, const DeviceProfile*) {
    std::string language = "en";
    fields.requiredText("language", &language, "The new one.");
    return [language](Device& device) { device.setLanguage(language); };
}

Run readTime(Fields& fields, const DeviceProfile* device) {
    ClockReading clock = device != nullptr ? device->clock : ClockReading();
    readClock(fields, &clock);
    return [clock](Device& target) { target.setClock(clock); };
}

Run readNotify(Fields& fields, const DeviceProfile*) {
    uint32_t event = 0;
    fields.number("event", &event, "Second argument of notify().");
    return [event](Device& device) { device.announce(event); };
}

// Music.

template <NowPlaying::RemoteEvent event>
Run remote(Fields&, const DeviceProfile*) {
    return [](Device& device) { device.nowPlaying.remote(event); };
}

Run readSeek(Fields& fields, const DeviceProfile*) {
    int64_t elapsed = 0;
    fields.seconds("elapsed", &elapsed, "Seconds from the beginning of the track.");
    return [elapsed](Device& device) {
        device.nowPlaying.set(NowPlaying::kElapsedTime, static_cast<unsigned int>(elapsed));
    };
}

Run readPlayTracks(Fields& fields, const DeviceProfile* device) {
    std::vector<uint64_t> tracks;
    fields.numbers("tracks", &tracks, "Identifiers; the first one is played.");
    if (device != nullptr && (tracks.empty() || device->library.find(tracks).size() != tracks.size()))
        fields.fail("tracks", "is empty or names a track that the library lacks; expected its identifiers");
    return [tracks](Device& target) { target.playItems(tracks.data(), static_cast<int>(tracks.size()), 0); };
}

Run readLaunch(Fields& fields, const DeviceProfile* device) {
    std::string id;
    fields.requiredText("app", &id, "Bundle identifier of one of the device's applications.");
    const auto isMeant = [&](const Application& application) { return application.id == id; };
    if (device != nullptr && !id.empty() &&
        std::none_of(device->applications.begin(), device->applications.end(), isMeant))
        fields.fail("app", "is not installed; expected the id of one of the device's applications");
    return [id](Device& target) { target.applications.launch(id.c_str()); };
}

Run readAddTrack(Fields& fields, const DeviceProfile*) {
    Track track;
    fields.object(
        "track", [&](Fields& inner) { readTrack(inner, &track); }, "As in the library.");
    if (track.id == 0)
        fields.fail("track", "has no \"id\"; expected one that no other track of the library has");
    const auto shared = std::make_shared<const Track>(track);
    return [shared](Device& device) { device.libraryUpdates.addTrack(shared); };
}

template <void (LibraryUpdates::*operation)(uint64_t)>
Run readRemoval(Fields& fields, const DeviceProfile*) {
    uint64_t id = 1;
    fields.number("id", &id, "Persistent identifier.", 1, std::numeric_limits<int64_t>::max());
    return [id](Device& device) { (device.libraryUpdates.*operation)(id); };
}

// Power and network: what is not named stays as it is in the device's section.

Run readPowerStep(Fields& fields, const DeviceProfile* device) {
    PowerState power = device != nullptr ? device->power : PowerState();
    readPower(fields, &power);
    return [power](Device& target) { target.battery.set(power); };
}

Run readNetworkStep(Fields& fields, const DeviceProfile* device) {
    Network network = device != nullptr ? device->network : Network();
    readNetwork(fields, &network);
    return [network](Device& target) { target.phone.setNetwork(network); };
}

// Calls.

Run readIncomingCall(Fields& fields, const DeviceProfile*) {
    Call call;
    int64_t rings = 20'000;
    fields.requiredText("from", &call.remoteId, "Number or address of the caller.");
    fields.text("name", &call.name, "The caller's name.");
    fields.text("label", &call.label, "Which of the caller's numbers it is, e.g. mobile.");
    fields.text("uuid", &call.uuid, "Of the call; usually one is made up.");
    fields.text("addressBookId", &call.addressBookId, "The caller in the address book.");
    fields.number("service", &call.service,
                  "1 telephony, 2 audio over the network, 3 video over the network.", 1, 3);
    fields.seconds("rings", &rings, "Seconds until the caller gives up; 0: never.");
    return [call, rings](Device& device) { device.phone.ring(call, milliseconds(rings)); };
}

Run readOutgoingCall(Fields& fields, const DeviceProfile*) {
    std::string to;
    fields.requiredText("to", &to, "Number or address that is called, at the device itself.");
    return [to](Device& device) { device.phone.initiate(Phone::kToDestination, to.c_str(), 1, nullptr); };
}

constexpr auto kAnswer = [](Device& device) { device.phone.accept(Phone::kHoldAndAccept, nullptr); };
constexpr auto kHangUp = [](Device& device) { device.phone.hangUp(); };

// Navigation and places.

Run readStartRoute(Fields& fields, const DeviceProfile* device) {
    std::string name;
    fields.text("route", &name, "Name of one of the device's routes; usually the first.");
    const auto isMeant = [&](const RoutePlan& route) { return name.empty() || route.name == name; };
    if (device != nullptr && std::none_of(device->routes.begin(), device->routes.end(), isMeant))
        fields.fail("route", "is none of the device's; expected the name of one of its routes");
    return [name](Device& target) { target.navigation.startRoute(name); };
}

constexpr auto kStopRoute = [](Device& device) { device.navigation.stopRoute(); };
constexpr auto kReroute = [](Device& device) { device.navigation.reroute(); };

Run readDestination(Fields& fields, const DeviceProfile*) {
    Destination destination;
    fields.requiredText("id", &destination.identifier,
                        "First string; DestinationInformationStatus() names it.");
    fields.text("name", &destination.name, "Second string.");
    fields.text("address", &destination.address, "Third string.");
    fields.text("phone", &destination.phone, "Fourth string.");
    fields.text("category", &destination.category, "Fifth string.");
    fields.decimal("latitude", &destination.latitude, -90, 90, "Degrees.");
    fields.decimal("longitude", &destination.longitude, -180, 180, "Degrees.");
    fields.number("kind", &destination.kind, "The 32-bit value.");
    fields.list(
        "waypoints",
        [&](Fields& entry) {
            auto& [latitude, longitude] = destination.waypoints.emplace_back();
            entry.decimal("latitude", &latitude, -90, 90, "Degrees.");
            entry.decimal("longitude", &longitude, -180, 180, "Degrees.");
        },
        "The points.");
    return [destination](Device& device) { device.place.setDestination(destination); };
}

Run readStartLocation(Fields& fields, const DeviceProfile*) {
    uint32_t sentences = 1;
    int interval = 1000;
    fields.number("sentences", &sentences, "First value of startLocation().");
    fields.number("interval", &interval, "Second value of startLocation().");
    return [sentences, interval](Device& device) { device.place.startLocation(sentences, interval); };
}

constexpr auto kStopLocation = [](Device& device) { device.place.stopLocation(); };

// Sessions and files.

Run readSessionStart(Fields& fields, const DeviceProfile*) {
    int protocol = 1;
    fields.number("protocol", &protocol, "External Accessory protocol.", 1);
    return [protocol](Device& device) { device.sessions.open(protocol); };
}

Run readSessionStop(Fields& fields, const DeviceProfile*) {
    int protocol = 1;
    fields.number("protocol", &protocol, "Whose sessions end.", 1);
    return [protocol](Device& device) { device.sessions.close(protocol); };
}

Run readSessionData(Fields& fields, const DeviceProfile*) {
    int protocol = 1;
    int length = 64;
    fields.number("protocol", &protocol, "Whose sessions receive it.", 1);
    fields.number("length", &length, "Bytes.", 1);
    return [protocol, length](Device& device) { device.sessions.receive(protocol, length); };
}

Run readFileOffer(Fields& fields, const DeviceProfile*) {
    uint32_t id = 1;
    uint64_t size = 100'000;
    uint64_t rate = 65'536;
    fields.number("id", &id, "File transfer identifier.", 1);
    fields.number("size", &size, "Bytes.", 0, std::numeric_limits<int64_t>::max());
    fields.number("rate", &rate, "Bytes per second.", 1, 1'000'000'000);
    return [id, size, rate](Device& device) { device.transfers.offer(id, size, rate); };
}

// Bluetooth, CarPlay, controls.

constexpr auto kOutOfBand = [](Device& device) { device.bluetooth.beginOutOfBand(); };

Run readPairing(Fields& fields, const DeviceProfile*) {
    uint16_t id = 1;
    fields.number("id", &id, "Of the pairing.", 1);
    return [id](Device& device) { device.bluetooth.beginPairing(id); };
}

Run readConnection(Fields& fields, const DeviceProfile*) {
    uint32_t component = 1;
    uint32_t state = 1;
    fields.number("component", &component, "Of the head unit.");
    fields.number("state", &state, "0: not connected.");
    return [component, state](Device& device) { device.bluetooth.setConnection(component, state); };
}

Run readCarPlayStep(Fields& fields, const DeviceProfile* device) {
    CarPlayProfile carPlay = device != nullptr ? device->carPlay : CarPlayProfile();
    readCarPlay(fields, &carPlay);
    return [carPlay](Device& target) { target.carPlay.setAvailability(carPlay); };
}

Run readWirelessState(Fields& fields, const DeviceProfile*) {
    int state = 1;
    fields.number("state", &state, "Second argument of wirelessCPStateUpdate().");
    return [state](Device& device) { device.carPlay.setWirelessState(state); };
}

Run readTouch(Fields& fields, const DeviceProfile*) {
    bool enabled = true;
    fields.flag("enabled", &enabled, "Whether it is on from here.");
    return [enabled](Device& device) { device.humanInterface.setTouch(enabled); };
}

Run readHidReport(Fields& fields, const DeviceProfile*) {
    int component = 0;
    std::vector<uint8_t> bytes;
    fields.number("component", &component, "HID component.", 0, 0xffff);
    fields.numbers("bytes", &bytes, "The report.");
    return [component, bytes](Device& device) { device.humanInterface.sendReport(component, bytes); };
}

Run readHidComponent(Fields& fields, const DeviceProfile*) {
    uint16_t component = 0;
    bool enabled = true;
    fields.number("component", &component, "HID component.");
    fields.flag("enabled", &enabled, "Whether it is enabled from here.");
    return
        [component, enabled](Device& device) { device.humanInterface.enableComponent(component, enabled); };
}

// The rest has no fields.

constexpr auto kAttach = [](Device& device) { device.setPresent(true); };
constexpr auto kDetach = [](Device& device) { device.setPresent(false); };
constexpr auto kWiFiRequest = [](Device& device) { device.requestWiFiConfiguration(); };
constexpr auto kAudioAttach = [](Device& device) { device.audio.startMode(); };
constexpr auto kAudioDetach = [](Device& device) { device.audio.stopMode(); };

constexpr ActionKind kActions[] = {
    {"attach", "The device is plugged in, or comes into reach.", plain<kAttach>, false},
    {"detach", "The device is unplugged, or leaves.", plain<kDetach>, false},
    {"language", "The device's language changes.", readLanguage},
    {"time", "The device tells its time.", readTime},
    {"notify", "The device raises notify().", readNotify},
    {"play", "The player plays, from the library's first track when nothing is loaded.",
     remote<NowPlaying::kPlay>},
    {"pause", "The player pauses.", remote<NowPlaying::kPause>},
    {"next", "The player skips to the next track.", remote<NowPlaying::kNext>},
    {"previous", "The player goes back.", remote<NowPlaying::kPrevious>},
    {"seek", "The player moves within the track.", readSeek},
    {"play-tracks", "The player plays other tracks.", readPlayTracks},
    {"launch", "An application comes to the front.", readLaunch},
    {"add-track", "The library gets another track.", readAddTrack},
    {"remove-track", "The library loses a track.", readRemoval<&LibraryUpdates::removeTrack>},
    {"remove-playlist", "The library loses a playlist.", readRemoval<&LibraryUpdates::removePlaylist>},
    {"power", "Power or battery change.", readPowerStep},
    {"network", "The mobile network changes.", readNetworkStep},
    {"incoming-call", "Somebody calls.", readIncomingCall},
    {"outgoing-call", "The device's owner calls somebody.", readOutgoingCall},
    {"answer", "The device's owner accepts the ringing call.", plain<kAnswer>},
    {"hang-up", "All calls end.", plain<kHangUp>},
    {"start-route", "Guidance begins.", readStartRoute},
    {"stop-route", "Guidance ends.", plain<kStopRoute>},
    {"reroute", "The driver missed a maneuver.", plain<kReroute>},
    {"destination", "The device sends a destination.", readDestination},
    {"start-location", "The device asks for location data.", readStartLocation},
    {"stop-location", "The device needs no more location data.", plain<kStopLocation>},
    {"session-start", "An application opens an External Accessory session.", readSessionStart},
    {"session-data", "Data of External Accessory sessions can be fetched.", readSessionData},
    {"session-stop", "External Accessory sessions end.", readSessionStop},
    {"offer-file", "The device offers a file.", readFileOffer},
    {"out-of-band-pairing", "Out-of-band Bluetooth pairing begins.", plain<kOutOfBand>},
    {"pairing", "Bluetooth pairing begins.", readPairing},
    {"bluetooth-connection", "A Bluetooth connection comes or goes.", readConnection},
    {"carplay", "What CarPlay can be started by changes.", readCarPlayStep},
    {"wireless-carplay", "The state of wireless CarPlay changes.", readWirelessState},
    {"assistive-touch", "Assistive touch is switched at the device.", readTouch},
    {"hid-report", "The device sends a HID report.", readHidReport},
    {"hid-component", "The device enables or disables a HID component.", readHidComponent},
    {"request-wifi", "The device asks for the accessory's Wi-Fi configuration.", plain<kWiFiRequest>},
    {"usb-audio-attach", "USB device-mode audio begins.", plain<kAudioAttach>},
    {"usb-audio-detach", "USB device-mode audio ends.", plain<kAudioDetach>},
};

void describeActions(Fields& fields) {
    for (const ActionKind& kind : kActions) {
        fields.section(std::string("do \"") + kind.name + "\": " + kind.meaning,
                       [&](Fields& inner) { kind.read(inner, nullptr); });
    }
}

const ActionKind* kindOf(Fields& fields, const std::string& name) {
    const auto* const found = std::find_if(std::begin(kActions), std::end(kActions),
                                           [&](const ActionKind& kind) { return name == kind.name; });
    if (found != std::end(kActions)) return found;
    std::string expected;
    for (const ActionKind& kind : kActions)
        expected += (expected.empty() ? "" : ", ") + std::string(kind.name);
    if (!name.empty()) fields.fail("do", "is nothing that can happen; expected one of " + expected);
    return nullptr;
}

const DeviceProfile* deviceOf(Fields& fields, const std::vector<DeviceProfile>& devices, uint32_t id) {
    const auto found = std::find_if(devices.begin(), devices.end(),
                                    [&](const DeviceProfile& device) { return device.id == id; });
    if (found != devices.end()) return &*found;
    fields.fail("device",
                "there is no device " + std::to_string(id) + "; expected the id of one of the devices");
    return nullptr;
}

}  // namespace

bool readStep(Fields& fields, const std::vector<DeviceProfile>& devices, Step* step) {
    int64_t at = 0;
    fields.seconds("at", &at, "Seconds from the beginning of the timeline.");
    step->at = std::chrono::milliseconds(at);
    step->device = devices.empty() ? 1 : devices.front().id;
    fields.number("device", &step->device, "Identifier of the device; usually the first one.");
    fields.requiredText("do", &step->action, "What happens, see below.");
    if (fields.describing()) return describeActions(fields), false;
    const ActionKind* const kind = kindOf(fields, step->action);
    const DeviceProfile* const device = deviceOf(fields, devices, step->device);
    if (kind == nullptr || device == nullptr) return fields.acceptOthers(), false;
    step->needsAttached = kind->needsAttached;
    step->run = kind->read(fields, device);
    return true;
}

}  // namespace accessory::simulator
