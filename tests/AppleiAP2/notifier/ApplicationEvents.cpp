// Discovered applications and their icons.
#include "tests/AppleiAP2/notifier/Event.h"

namespace accessory::test {
namespace {

using Notifier = IAppleiAP2ManagerNotifier;

AppleAppList app(uint16_t value16, const char* name, uint32_t value32, void* buffer, uint32_t length) {
    AppleAppList app;
    app.value16 = value16;
    app.string1 = name;
    app.string2 = "";
    app.value32 = value32;
    app.buffer = buffer;
    app.bufferLength = length;
    return app;
}

/// The element that app() makes of the same values.
Bytes appWords(uint16_t value16, const char* name, uint32_t value32, const Bytes& buffer) {
    return parcel({i32(value16), cstr(name), cstr(""), i32(value32), i32(static_cast<int64_t>(buffer.size())),
                   raw(buffer)});
}

Event twoLists() {
    return Event(
        "AppDiscoveryUpdate", 36,
        parcel({i32(7), i32(0xfffffffd),                                                                 //
                i32(2), i32(1), appWords(65535, "Maps", 0xfffffffc, {1, 2, 3}), appWords(2, "", 0, {}),  //
                i32(12), i32(1), i32(1), appWords(3, "Radio", 5, {4, 5, 6, 7})}),
        R"(7, 4294967293, [{65535 "Maps" "" 4294967292 [01 02 03] 3} {2 "" "" 0 null 0}], 2, )"
        R"(12, [{3 "Radio" "" 5 [04 05 06 07] 4}], 1)",
        [](Notifier& to) {
            unsigned char bytes[] = {1, 2, 3, 4, 5, 6, 7};
            AppleAppList first[] = {app(65535, "Maps", 0xfffffffc, bytes, 3), app(2, "", 0, nullptr, 0)};
            AppleAppList second[] = {app(3, "Radio", 5, bytes + 3, 4)};
            return to.AppDiscoveryUpdate(7, 0xfffffffd, first, 2, 12, second, 1);
        });
}

Event noLists() {
    return Event("AppDiscoveryUpdate", 36, parcel({i32(7), i32(1), i32(0), i32(0), i32(2), i32(0), i32(0)}),
                 "7, 1, null, 0, 2, null, 0",
                 [](Notifier& to) { return to.AppDiscoveryUpdate(7, 1, nullptr, 0, 2, nullptr, 0); });
}

/// A count without a list, then a list with a count of 0: neither has elements.
Event hollowLists() {
    return Event("AppDiscoveryUpdate", 36,
                 parcel({i32(7), i32(1), i32(65535), i32(0), i32(2), i32(0), i32(1)}),
                 "7, 1, null, 65535, 2, null, 0",
                 [](Notifier& to) {
                     AppleAppList list[] = {app(3, "Radio", 5, nullptr, 0)};
                     return to.AppDiscoveryUpdate(7, 1, nullptr, 65535, 2, list, 0);
                 })
        .gives("7, 1, null, 65535, 2, [], 0");
}

Event icon() {
    return Event(
        "AppDiscoveryAppIcon", 37,
        parcel({i32(7), cstr("com.example.maps"), i32(1), i32(200), i32(5), raw({9, 8, 7, 6, 0xff})}),
        R"(7, "com.example.maps", true, 200, [09 08 07 06 ff], 5)", [](Notifier& to) {
            char bytes[] = {9, 8, 7, 6, '\xff'};
            return to.AppDiscoveryAppIcon(7, "com.example.maps", true, 200, bytes, 5);
        });
}

Event emptyIcon() {
    return Event("AppDiscoveryAppIcon", 37, parcel({i32(7), cstr(""), i32(0), i32(0), i32(0)}),
                 R"(7, "", false, 0, [], 0)", [](Notifier& to) {
                     char none[1] = {};
                     return to.AppDiscoveryAppIcon(7, "", false, 0, none, 0);
                 });
}

}  // namespace

std::vector<Event> applicationEvents() {
    std::vector<Event> events = {twoLists(), noLists(), hollowLists(), icon(), emptyIcon()};
    for (Event& event : events)
        event.proxyLogs({debug(event.operation + " out")});
    return events;
}

}  // namespace accessory::test
