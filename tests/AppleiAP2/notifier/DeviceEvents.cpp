// What a device tells about itself: its arrival, identity, time, HID, location, USB audio.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

std::vector<Event> comingAndGoing() {
    return {
        Event("notify", 1, parcel({i32(7), i32(0xfffffffe)}), "7, 4294967294",
              [](Notifier& to) { return to.notify(7, 0xfffffffe); })
            .proxyLogs({debug("BpAppleiAP2ManagerNotifier notify enter"),
                        debug("BpAppleiAP2ManagerNotifier notify #"),
                        debug("BpAppleiAP2ManagerNotifier notify #")}),
        Event("attach", 2, i32(0x80000001), "2147483649", [](Notifier& to) { return to.attach(0x80000001); })
            .proxyLogs({debug("BpAppleiAP2ManagerNotifier attach enter")}),
        Event("detach", 3, i32(0xffffffff), "4294967295", [](Notifier& to) { return to.detach(0xffffffff); })
            .proxyLogs({debug("BpAppleiAP2ManagerNotifier detach enter")}),
    };
}

std::vector<Event> identity() {
    return {
        Event("deviceInfoUpdate", 4, parcel({i32(7), cstr("a phone")}), R"(7, "a phone")",
              [](Notifier& to) { return to.deviceInfoUpdate(7, "a phone"); }),
        Event("wirelessCPStateUpdate", 5, parcel({i32(7), i32(-2)}), "7, -2",
              [](Notifier& to) { return to.wirelessCPStateUpdate(7, -2); }),
        Event("DeviceTransportIdentifierNotification", 6,
              parcel({i32(7), i32(1), cstr("bt"), i32(1), cstr("usb:1")}), R"(7, "bt", "usb:1")",
              [](Notifier& to) { return to.DeviceTransportIdentifierNotification(7, "bt", "usb:1"); }),
        Event("DeviceTransportIdentifierNotification", 6, parcel({i32(7), i32(0), i32(0)}), "7, null, null",
              [](Notifier& to) { return to.DeviceTransportIdentifierNotification(7, nullptr, nullptr); }),
        Event("DeviceTransportIdentifierNotification", 6, parcel({i32(7), i32(0), i32(1), cstr("u")}),
              R"(7, null, "u")",
              [](Notifier& to) { return to.DeviceTransportIdentifierNotification(7, nullptr, "u"); }),
        Event("DeviceTransportIdentifierNotification", 6, parcel({i32(7), i32(1), cstr(""), i32(0)}),
              R"(7, "", null)",
              [](Notifier& to) { return to.DeviceTransportIdentifierNotification(7, "", nullptr); }),
        Event("deviceLanguageUpdate", 7, parcel({i32(7), cstr("de")}), R"(7, "de")",
              [](Notifier& to) { return to.deviceLanguageUpdate(7, "de"); }),
        Event("deviceLanguageUpdate", 7, parcel({i32(7), cstr("")}), R"(7, "")",
              [](Notifier& to) { return to.deviceLanguageUpdate(7, ""); }),
        Event("deviceTimeUpdate", 8, parcel({i32(7), i64(0x8877665544332211), i32(-720), i32(-128)}),
              "7, 9833440827789222417, -720, -128",
              [](Notifier& to) { return to.deviceTimeUpdate(7, 0x8877665544332211, -720, -128); }),
        Event("deviceTimeUpdate", 8, parcel({i32(7), i64(1), i32(32767), i32(127)}), "7, 1, 32767, 127",
              [](Notifier& to) { return to.deviceTimeUpdate(7, 1, 32767, 127); }),
        Event("deviceUUIDUpdate", 9, parcel({i32(7), cstr("0011-22\xc3\xa4")}), "7, \"0011-22\xc3\xa4\"",
              [](Notifier& to) { return to.deviceUUIDUpdate(7, "0011-22\xc3\xa4"); }),
    };
}

/// The two sides are built differently: length and first bytes arrive as component and length.
Event hidReport() {
    return Event("deviceHIDReport", 10,
                 parcel({i32(7), i32(12), i32(6), raw({0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6})}),
                 "7, 12, [a1 a2 a3 a4 a5 a6], 6",
                 [](Notifier& to) {
                     unsigned char report[] = {6, 0, 0, 0, 0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6, 0, 0};
                     return to.deviceHIDReport(7, 3, report, 12);
                 })
        .gives("7, 3, [06 00 00 00 a1 a2 a3 a4 a5 a6 00 00], 12");
}

std::vector<Event> inputAndPlace() {
    return {
        hidReport(),
        Event("startLocation", 11, parcel({i32(7), i32(0xf0000001), i32(-9)}), "7, 4026531841, -9",
              [](Notifier& to) { return to.startLocation(7, 0xf0000001, -9); }),
        Event("stopLocation", 12, i32(8), "8", [](Notifier& to) { return to.stopLocation(8); }),
        Event("USBDeviceModeAudioInfo", 17, parcel({i32(7), i32(0x80000000)}), "7, 2147483648",
              [](Notifier& to) { return to.USBDeviceModeAudioInfo(7, 0x80000000); }),
        Event("AssistiveTouchInformation", 44, parcel({i32(7), i32(1)}), "7, true",
              [](Notifier& to) { return to.AssistiveTouchInformation(7, true); }),
        Event("AssistiveTouchInformation", 44, parcel({i32(7), i32(0)}), "7, false",
              [](Notifier& to) { return to.AssistiveTouchInformation(7, false); }),
        Event("hidComponentUpdate", 45, parcel({i32(7), i32(65535), i32(1)}), "7, 65535, true",
              [](Notifier& to) { return to.hidComponentUpdate(7, 65535, true); }),
        Event("hidComponentUpdate", 45, parcel({i32(7), i32(2), i32(0)}), "7, 2, false",
              [](Notifier& to) { return to.hidComponentUpdate(7, 2, false); }),
    };
}

}  // namespace

std::vector<Event> deviceEvents() {
    std::vector<Event> events = comingAndGoing();
    for (const std::vector<Event>& more : {identity(), inputAndPlace()})
        events.insert(events.end(), more.begin(), more.end());
    return events;
}

}  // namespace accessory::test
