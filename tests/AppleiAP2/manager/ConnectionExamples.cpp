// Bluetooth components, their connections and route guidance through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

std::vector<Example> bluetooth() {
    return {
        {"BTComponentInformation", 55,
         parcel(
             {i32(7), i32(2), raw({1, 2, 3, 4, 5, 6, 7, 8, 0xf1, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8})}),
         "7, [01 02 03 04 05 06 07 08 f1 f2 f3 f4 f5 f6 f7 f8], 2",
         [](M& to) {
             BTComInfo_s infos[] = {{{1, 2, 3, 4, 5, 6, 7, 8}},
                                    {{0xf1, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8}}};
             return to.BTComponentInformation(7, infos, 2);
         }},
        {"BTComponentInformation", 55, parcel({i32(7), i32(0)}), "7, [], 0",
         [](M& to) {
             BTComInfo_s infos[1] = {};
             return to.BTComponentInformation(7, infos, 0);
         }},
        {"StartBTConnectionUpdate", 56, parcel({i32(7), i32(2), i32(0x80000001), i32(2)}),
         "7, [01 00 00 80 02 00 00 00], 2",
         [](M& to) {
             unsigned int ids[] = {0x80000001, 2};
             return to.StartBTConnectionUpdate(7, ids, 2);
         }},
        {"StopBTConnectionUpdate", 57, i32(7), "7", [](M& to) { return to.StopBTConnectionUpdate(7); }},
    };
}

std::vector<Example> routeGuidance() {
    return {
        {"StartRouteGuidanceUpdate", 58, parcel({i32(7), i32(2), i32(-1), i32(2), i32(0x80000009)}),
         "7, [ff ff ff ff 02 00 00 00], 2, 2147483657",
         [](M& to) {
             int ids[] = {-1, 2};
             return to.StartRouteGuidanceUpdate(7, ids, 2, 0x80000009);
         }},
        Example("StartRouteGuidanceUpdate", 58, parcel({i32(7), i32(0), i32(9)}), "7, null, 0, 9",
                [](M& to) {
                    int ids[] = {1};
                    return to.StartRouteGuidanceUpdate(7, ids, 0, 9);
                })
            .gives("7, [], 0, 9"),
        {"StopRouteGuidanceUpdate", 59, parcel({i32(7), i32(1), i32(-2)}), "7, [fe ff ff ff], 1",
         [](M& to) {
             int ids[] = {-2};
             return to.StopRouteGuidanceUpdate(7, ids, 1);
         }},
        {"StopRouteGuidanceUpdate", 59, parcel({i32(7), i32(0)}), "7, null, 0",
         [](M& to) { return to.StopRouteGuidanceUpdate(7, nullptr, 0); }},
    };
}

}  // namespace

std::vector<Example> connectionExamples() {
    std::vector<Example> examples = bluetooth();
    for (const Example& more : routeGuidance())
        examples.push_back(more);
    return examples;
}

}  // namespace accessory::test
