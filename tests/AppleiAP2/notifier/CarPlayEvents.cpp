// CarPlay: how it can be started, and digital car keys.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

Event availability(const char* wiredText, const char* wirelessText, const Bytes& words,
                   const std::string& told, const std::string& given) {
    return Event("CarPlayAvailability", 40, parcel({i32(7), words}), told,
                 [wiredText, wirelessText](Notifier& to) {
                     CPAvailabilityWiredAttributes wired;
                     wired.available = wiredText != nullptr;
                     wired.text = wiredText != nullptr ? wiredText : "not sent";
                     CPAvailabilityWirelessAttributes wireless;
                     wireless.available = wirelessText != nullptr;
                     wireless.text = wirelessText;
                     return to.CarPlayAvailability(7, &wired, &wireless);
                 })
        .gives(given);
}

Event matchedKeys(const std::vector<std::string>& keys, const Bytes& words, const std::string& told,
                  ExpectedLines stubLines) {
    stubLines.push_back(debug("CarPlayMatchedDigitalCarKeys enter"));
    constexpr char kTrace[] = "[AppleiAP2/IAppleiAP2ManagerNotifier.cpp][CarPlayMatchedDigitalCarKeys] ";
    return Event("CarPlayMatchedDigitalCarKeys", 46, parcel({i32(7), words}), told,
                 [keys](Notifier& to) {
                     std::vector<std::string> mine = keys;
                     return to.CarPlayMatchedDigitalCarKeys(7, mine);
                 })
        .proxyLogs({debug(std::string(kTrace) + "[--IN--]"), debug(std::string(kTrace) + "[--OUT--]")})
        .stubLogs(std::move(stubLines));
}

}  // namespace

std::vector<Event> carPlayEvents() {
    return {
        availability("usb", "wifi", parcel({i32(1), cstr("usb"), i32(1), cstr("wifi")}),
                     R"(7, {true "usb"}, {true "wifi"})", R"(7, {true "usb"}, {true "wifi"})"),
        availability(nullptr, nullptr, parcel({i32(0), i32(0)}), "7, {false null}, {false null}",
                     R"(7, {false "not sent"}, {false null})"),
        availability(nullptr, "", parcel({i32(0), i32(1), cstr("")}), R"(7, {false null}, {true ""})",
                     R"(7, {false "not sent"}, {true ""})"),
        availability("usb:1", nullptr, parcel({i32(1), cstr("usb:1"), i32(0)}),
                     R"(7, {true "usb:1"}, {false null})", R"(7, {true "usb:1"}, {false null})"),
        matchedKeys({}, i32(0), "7, {}", {}),
        matchedKeys(
            {"one", "", "three 3"}, parcel({i32(3), cstr("one"), cstr(""), cstr("three 3")}),
            R"(7, {"one" "" "three 3"})",
            {debug("keyIdentifier : one"), debug("keyIdentifier : "), debug("keyIdentifier : three 3")}),
    };
}

}  // namespace accessory::test
