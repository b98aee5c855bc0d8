// Application discovery, destinations and assistive touch through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

std::vector<Example> applications() {
    return {
        {"StartAppDiscoveryUpdates", 60,
         parcel({i32(7), i32(0x80000001), i32(0xfff2), i32(0xfff3), i32(0x80000004), i32(0xfff5)}),
         "7, 2147483649, 65522, 65523, 2147483652, 65525",
         [](M& to) {
             return to.StartAppDiscoveryUpdates(7, 0x80000001, 0xfff2, 0xfff3, 0x80000004, 0xfff5);
         }},
        {"StopAppDiscoveryUpdates", 61, i32(7), "7", [](M& to) { return to.StopAppDiscoveryUpdates(7); }},
        {"RequestAppDiscoveryAppIcons", 62, parcel({i32(7), cstr("com.example")}), "7, \"com.example\"",
         [](M& to) { return to.RequestAppDiscoveryAppIcons(7, "com.example"); }},
        {"RequestAppDiscoveryAppIcons", 62, parcel({i32(7), cstr("")}), "7, \"\"",
         [](M& to) { return to.RequestAppDiscoveryAppIcons(7, ""); }},
    };
}

std::vector<Example> destinations() {
    return {
        {"StartDestinationInformation", 80, parcel({i32(7), i32(0x80000003)}), "7, 2147483651",
         [](M& to) { return to.StartDestinationInformation(7, 0x80000003); }},
        {"StopDestinationInformation", 81, i32(7), "7",
         [](M& to) { return to.StopDestinationInformation(7); }},
        {"DestinationInformationStatus", 82, parcel({i32(7), cstr("id-1"), i32(0x80000003)}),
         "7, \"id-1\", 2147483651",
         [](M& to) { return to.DestinationInformationStatus(7, "id-1", 0x80000003); }},
    };
}

std::vector<Example> assistiveTouch() {
    return {
        {"StartAssistiveTouch", 85, i32(7), "7", [](M& to) { return to.StartAssistiveTouch(7); }},
        {"StopAssistiveTouch", 86, i32(7), "7", [](M& to) { return to.StopAssistiveTouch(7); }},
        {"StartAssistiveTouchInformation", 87, i32(7), "7",
         [](M& to) { return to.StartAssistiveTouchInformation(7); }},
        {"StopAssistiveTouchInformation", 88, i32(7), "7",
         [](M& to) { return to.StopAssistiveTouchInformation(7); }},
    };
}

}  // namespace

std::vector<Example> discoveryExamples() {
    std::vector<Example> examples = applications();
    for (const std::vector<Example>& more : {destinations(), assistiveTouch()})
        examples.insert(examples.end(), more.begin(), more.end());
    return examples;
}

}  // namespace accessory::test
