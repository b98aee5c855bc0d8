// Which accessories there are, their sessions and applications, through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

constexpr auto kMethod = static_cast<AppLaunchMethod>(-4);

int accessoryIds(M& to) {
    unsigned int ids[10] = {};
    unsigned int count = 0;
    return to.getAccessoryIds(ids, &count);
}

int supportFeature(M& to) {
    to.getSupportFeature(7, "navigation");
    return 0;
}

int appIds(M& to) {
    const char* ids[10] = {};
    unsigned int count = 0;
    return to.getAPPIds(7, ids, &count);
}

}  // namespace

std::vector<Example> lifecycleExamples() {
    return {
        Example("getAccessoryIds", 10, {}, "clear", accessoryIds)
            .brings(parcel({i32(3), i32(11), i32(0xfffffffe), i32(13)}), 4),
        Example("getSupportFeature", 11, parcel({i32(7), cstr("navigation")}), "7, \"navigation\"",
                supportFeature)
            .brings(cstr("yes, it does"), 1)
            .hasNoStatus(),
        Example("getAPPIds", 12, i32(7), "7, clear", appIds)
            .brings(parcel({i32(3), cstr("app.one"), cstr(""), cstr("c")}), 4),
        {"launchAPP", 13, parcel({i32(7), cstr("com.example.maps"), i32(-4)}), "7, \"com.example.maps\", -4",
         [](M& to) { return to.launchAPP(7, "com.example.maps", kMethod); }},
        {"start", 83, i32(0xffffffff), "4294967295", [](M& to) { return to.start(0xffffffff); }},
        {"stop", 84, i32(0x80000000), "2147483648", [](M& to) { return to.stop(0x80000000); }},
    };
}

}  // namespace accessory::test
