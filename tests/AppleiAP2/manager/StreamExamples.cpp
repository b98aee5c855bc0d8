// Now playing, power, USB audio and Wi-Fi through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using android::sp;
using M = IAppleiAP2Manager;

namespace {

std::vector<Example> playing() {
    return {
        {"startNowPlayingUpdate", 27, parcel({i32(7), i32(0x80000001), i32(0xfe)}), "7, 2147483649, 254",
         [](M& to) {
             sp<iAP2ItemAttributeMask> attributes = maskOf<iAP2ItemAttributeMask>(0x80000001);
             sp<iAP2MediaPlaybackMask> playback = maskOf<iAP2MediaPlaybackMask>(0xfe);
             return to.startNowPlayingUpdate(7, attributes, playback);
         }},
        {"stopNowPlayingUpdate", 28, i32(7), "7", [](M& to) { return to.stopNowPlayingUpdate(7); }},
        {"setNowPlayingInfo", 29, parcel({i32(7), i32(0xfffffff0), i32(3)}), "7, 4294967280, 3",
         [](M& to) { return to.setNowPlayingInfo(7, 0xfffffff0, 3); }},
    };
}

std::vector<Example> power() {
    return {
        {"startPowerUpdate", 30, parcel({i32(7), i32(0xc0000003)}), "7, 3221225475",
         [](M& to) {
             sp<iAP2PowerUpdateMask> mask = maskOf<iAP2PowerUpdateMask>(0xc0000003);
             return to.startPowerUpdate(7, mask);
         }},
        {"stopPowerUpdate", 31, i32(7), "7", [](M& to) { return to.stopPowerUpdate(7); }},
        {"powerSourceUpdate", 32, parcel({i32(7), i32(2100), i32(1)}), "7, 2100, true",
         [](M& to) { return to.powerSourceUpdate(7, 2100, true); }},
        {"powerSourceUpdate", 32, parcel({i32(7), i32(2100), i32(0)}), "7, 2100, false",
         [](M& to) { return to.powerSourceUpdate(7, 2100, false); }},
        {"startUSBDeviceModeAudio", 33, i32(7), "7", [](M& to) { return to.startUSBDeviceModeAudio(7); }},
        {"stopUSBDeviceModeAudio", 34, i32(7), "7", [](M& to) { return to.stopUSBDeviceModeAudio(7); }},
    };
}

constexpr auto kSecurity = static_cast<WiFiSecurityType>(-5);

std::vector<Example> wireless() {
    return {
        {"requestWiFiInformation", 35, i32(7), "7", [](M& to) { return to.requestWiFiInformation(7); }},
        {"accessoryWiFiConfigInforamtion", 36,
         parcel({i32(7), cstr("net"), cstr("secret!"), i32(-5), i32(0xf9)}),
         R"(7, "net", "secret!", -5, 249)",
         [](M& to) { return to.accessoryWiFiConfigInforamtion(7, "net", "secret!", kSecurity, 0xf9); }},
    };
}

}  // namespace

std::vector<Example> streamExamples() {
    std::vector<Example> examples = playing();
    for (const std::vector<Example>& more : {power(), wireless()})
        examples.insert(examples.end(), more.begin(), more.end());
    return examples;
}

}  // namespace accessory::test
