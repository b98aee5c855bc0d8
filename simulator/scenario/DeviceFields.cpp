// The section "devices" of a scenario.
#include <cstdio>
#include <set>

#include "simulator/scenario/ScenarioReader.h"

namespace accessory::simulator {

namespace {

void readApplication(Fields& fields, Application* application) {
    fields.requiredText("id", &application->id, "Bundle identifier.");
    fields.text("name", &application->name, "What people call it.");
    fields.number("category", &application->category, "Sent with app discovery.");
    fields.flag("playsMedia", &application->playsMedia,
                "Whether launching it makes it the player's application.");
    fields.number("protocol", &application->protocol,
                  "External Accessory protocol in which launching it opens a session; 0: none.", 0);
    fields.number("iconColour", &application->iconColour, "0xRRGGBB as a decimal number.", 0, 0xffffff);
}

void readMac(Fields& fields, MacAddress* address) {
    std::string text = "00:00:00:00:00:00";
    fields.text("bluetoothAddress", &text, "Six bytes in hexadecimal, for pairing.");
    char rest = 0;
    MacAddress& a = *address;
    const int read = sscanf(text.c_str(), "%2hhx:%2hhx:%2hhx:%2hhx:%2hhx:%2hhx%c", &a[0], &a[1], &a[2], &a[3],
                            &a[4], &a[5], &rest);
    if (read != 6)
        fields.fail("bluetoothAddress", "is no address; expected six bytes such as 0a:1b:2c:3d:4e:5f");
}

void readUSBAudio(Fields& fields, USBAudioProfile* audio) {
    fields.number("id", &audio->id, "Identifier of the endpoint; 0: there is none.");
    fields.numbers("sampleRates", &audio->sampleRates, "Hertz; the first one is used until another is set.");
    if (audio->sampleRates.empty()) fields.fail("sampleRates", "is empty; expected at least one");
}

void readConnections(Fields& fields, DeviceProfile* device) {
    fields.object(
        "power", [&](Fields& inner) { readPower(inner, &device->power); }, "Power and battery.");
    fields.object(
        "network", [&](Fields& inner) { readNetwork(inner, &device->network); },
        "What communications events tell besides calls.");
    fields.number("answerAfter", &device->answerAfterMs, "Milliseconds until somebody answers who is called.",
                  0, 600'000);
    fields.object(
        "wifi",
        [&](Fields& inner) {
            inner.text("ssid", &device->wifi.ssid, "Name of the network; empty: the device tells none.");
            inner.text("passphrase", &device->wifi.passphrase, "Of the network.");
        },
        "Answer of requestWiFiInformation().");
    fields.object(
        "usbAudio", [&](Fields& inner) { readUSBAudio(inner, &device->usbAudio); }, "USB device-mode audio.");
    fields.object(
        "carPlay", [&](Fields& inner) { readCarPlay(inner, &device->carPlay); },
        "How CarPlay can be started.");
    fields.texts("digitalKeys", &device->digitalKeys, "Digital car keys that the device knows.");
    fields.flag("assistiveTouch", &device->assistiveTouch, "Whether assistive touch is on in the beginning.");
}

void readIdentity(Fields& fields, DeviceProfile* device) {
    fields.number("id", &device->id, "The accessory identifier.", 1);
    fields.requiredText("name", &device->name, "Told with deviceInfoUpdate().");
    fields.choice("transport", &device->transport,
                  {{"usb", kTransportUSBHost},
                   {"usb-device", kTransportUSBDevice},
                   {"bluetooth", kTransportBluetooth},
                   {"wifi", kTransportWiFi}},
                  "The transport whose startup() attaches the device: modes 0, 1, 2, 3.");
    fields.flag("present", &device->present, "Whether it is plugged in, or in reach, in the beginning.");
    fields.number("feature", &device->feature, "Answer of IAccessoryManager::getFeature().");
    fields.text("path", &device->path, "Where it lives in the device tree.");
    fields.text("uuid", &device->uuid, "Told with deviceUUIDUpdate().");
    fields.text("language", &device->language, "Told with deviceLanguageUpdate().");
    fields.object(
        "time", [&](Fields& inner) { readClock(inner, &device->clock); }, "Told with deviceTimeUpdate().");
    fields.text("usbIdentifier", &device->usbIdentifier, "First transport identifier; empty: null.");
    fields.text("bluetoothIdentifier", &device->bluetoothIdentifier,
                "Second transport identifier; empty: null.");
    readMac(fields, &device->bluetoothAddress);
    fields.dictionary(
        "supports",
        [&](const std::string& feature, const std::string& answer) { device->supports[feature] = answer; },
        "Answers of getSupportFeature(), by feature.");
}

}  // namespace

void readDevice(Fields& fields, DeviceProfile* device) {
    readIdentity(fields, device);
    fields.list(
        "applications", [&](Fields& entry) { readApplication(entry, &device->applications.emplace_back()); },
        "What is installed.");
    fields.object(
        "library", [&](Fields& inner) { readLibrary(inner, &device->library); }, "The media library.");
    readConnections(fields, device);
    fields.list(
        "routes", [&](Fields& entry) { readRoute(entry, &device->routes.emplace_back()); },
        "Routes that the timeline can start.");
}

void readNetwork(Fields& fields, Network* network) {
    fields.number("signalStrength", &network->signalStrength, "Bars.", 0, 5);
    fields.number("registrationStatus", &network->registrationStatus,
                  "0 unknown, 1 searching, 2 home, 3 roaming, 4 denied.", 0, 4);
    fields.flag("airplaneMode", &network->airplaneMode, "Nobody can be called while it is on.");
    fields.text("carrier", &network->carrier, "Name of the network's operator.");
    fields.flag("cellular", &network->cellular, "Whether the device has a cellular modem.");
    fields.flag("telephony", &network->telephony, "Whether calls are possible.");
    fields.flag("videoCalls", &network->videoCalls, "Whether video calls are possible.");
    fields.number("newVoicemails", &network->newVoicemails, "How many there are.", 0);
}

void readPower(Fields& fields, PowerState* power) {
    fields.number("current", &power->currentMilliamps, "Milliamperes drawn from the accessory.", 0);
    fields.flag("willCharge", &power->willCharge, "Whether the battery charges if there is power.");
    fields.number("mode", &power->mode, "Accessory power mode.");
    fields.flag("externalCharger", &power->externalCharger, "Whether a charger is connected.");
    fields.number("chargeState", &power->chargeState, "0 disabled, 1 charging, 2 charged.", 0, 2);
    fields.number("chargeLevel", &power->chargeLevel, "Percent; moves by 1 a minute.", 0, 100);
}

void readCarPlay(Fields& fields, CarPlayProfile* carPlay) {
    fields.flag("wired", &carPlay->wired, "Whether it can be started over the wire.");
    fields.text("wiredIdentifier", &carPlay->wiredIdentifier, "Told when it can.");
    fields.flag("wireless", &carPlay->wireless, "Whether it can be started without a wire.");
    fields.text("wirelessIdentifier", &carPlay->wirelessIdentifier, "Told when it can.");
}

void readClock(Fields& fields, ClockReading* clock) {
    fields.number("seconds", &clock->seconds, "Since 1970.", 0, std::numeric_limits<int32_t>::max());
    fields.number("zoneMinutes", &clock->zoneMinutes, "Minutes east of Greenwich.", -720, 840);
    fields.number("daylightMinutes", &clock->daylightMinutes, "Minutes of daylight saving.", 0, 120);
}

}  // namespace accessory::simulator
