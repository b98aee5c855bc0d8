// Identification, configuration and HID of the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

constexpr auto kMode = static_cast<AppleiAP2TransportMode>(-3);

std::vector<Example> names() {
    return {
        {"setName", 3, cstr("Head unit"), "\"Head unit\"", [](M& to) { return to.setName("Head unit"); }},
        {"setName", 3, cstr(""), "\"\"", [](M& to) { return to.setName(""); }},
        {"setSerialNumber", 4, cstr("SN7"), "\"SN7\"", [](M& to) { return to.setSerialNumber("SN7"); }},
        {"setDisplayName", 5, cstr("\xc3\x84uto"), "\"\xc3\x84uto\"",
         [](M& to) { return to.setDisplayName("\xc3\x84uto"); }},
        {"setBluetoothAddr", 6, parcel({i32(6), raw({1, 2, 3, 0xfd, 0xfe, 0xff})}), "[01 02 03 fd fe ff], 6",
         [](M& to) {
             unsigned char address[] = {1, 2, 3, 0xfd, 0xfe, 0xff};
             return to.setBluetoothAddr(address, 6);
         }},
        {"setBluetoothAddr", 6, i32(0), "[], 0",
         [](M& to) {
             unsigned char address[1] = {9};
             return to.setBluetoothAddr(address, 0);
         }},
    };
}

std::vector<Example> configuration() {
    return {
        {"startup", 7, i32(-3), "-3", [](M& to) { return to.startup(kMode); }},
        {"shutdown", 8, i32(-3), "-3", [](M& to) { return to.shutdown(kMode); }},
        {"setConfigPath", 9, parcel({i32(-3), cstr("/etc/iap2")}), "-3, \"/etc/iap2\"",
         [](M& to) { return to.setConfigPath(kMode, "/etc/iap2"); }},
        {"setProperty", 77, parcel({i32(-3), cstr("key"), cstr("a value")}), R"(-3, "key", "a value")",
         [](M& to) { return to.setProperty(kMode, "key", "a value"); }},
        {"setProperty", 77, parcel({i32(-3), cstr(""), cstr("")}), R"(-3, "", "")",
         [](M& to) { return to.setProperty(kMode, "", ""); }},
        Example("getVersion", 75, {}, "",
                [](M& to) {
                    to.getVersion();
                    return 0;
                })
            .brings(cstr("1.2.3"), 1)
            .hasNoStatus(),
    };
}

std::vector<Example> humanInterface() {
    return {
        {"startHID", 14, i32(7), "7", [](M& to) { return to.startHID(7); }},
        {"dispatchMediaPlaybackRemoteEvent", 15, parcel({i32(7), i32(0x80000001), i32(2)}),
         "7, 2147483649, 2", [](M& to) { return to.dispatchMediaPlaybackRemoteEvent(7, 0x80000001, 2); }},
        {"stopHID", 17, i32(7), "7", [](M& to) { return to.stopHID(7); }},
        {"updateLocation", 18, parcel({i32(7), i32(5), raw({'$', 'G', 'P', 0, 0xff})}),
         "7, [24 47 50 00 ff], 5",
         [](M& to) {
             const unsigned char data[] = {'$', 'G', 'P', 0, 0xff};
             return to.updateLocation(7, data, 5);
         }},
        {"updateLocation", 18, parcel({i32(7), i32(0)}), "7, [], 0",
         [](M& to) {
             const unsigned char data[] = {1};
             return to.updateLocation(7, data, 0);
         }},
        {"startHID", 89,
         parcel({i32(7), i32(0xfff1), i32(0xfff2), i32(0xfff3), i32(0xf4), i32(3), raw({0xa1, 0xa2, 0xa3})}),
         "7, {65521 65522 65523 [a1 a2 a3] 3 244}",
         [](M& to) {
             const uint8_t descriptor[] = {0xa1, 0xa2, 0xa3};
             HIDReportAttributes attributes{0xfff1, 0xfff2, 0xfff3, descriptor, 3, 0xf4};
             return to.startHID(7, &attributes);
         }},
        {"startHID", 89, parcel({i32(7), i32(1), i32(2), i32(3), i32(4), i32(0)}), "7, {1 2 3 [] 0 4}",
         [](M& to) {
             const uint8_t descriptor[] = {0xa1};
             HIDReportAttributes attributes{1, 2, 3, descriptor, 0, 4};
             return to.startHID(7, &attributes);
         }},
        {"accHIDReport", 90, parcel({i32(7), i32(4), raw({9, 8, 7, 6})}), "7, [09 08 07 06], 4",
         [](M& to) {
             unsigned char report[] = {9, 8, 7, 6};
             return to.accHIDReport(7, report, 4);
         }},
        {"OOBBTPAccInfo", 53, parcel({i32(7), i32(-2)}), "7, -2",
         [](M& to) { return to.OOBBTPAccInfo(7, -2); }},
        {"OOBBTPCompletionInfo", 54, parcel({i32(7), i32(-2)}), "7, -2",
         [](M& to) { return to.OOBBTPCompletionInfo(7, -2); }},
    };
}

}  // namespace

std::vector<Example> identityExamples() {
    std::vector<Example> examples = names();
    for (const std::vector<Example>& more : {configuration(), humanInterface()})
        examples.insert(examples.end(), more.begin(), more.end());
    return examples;
}

}  // namespace accessory::test
