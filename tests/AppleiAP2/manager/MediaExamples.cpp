// The media libraries through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using android::sp;
using M = IAppleiAP2Manager;

namespace {

int updates(M& to, const char* first, const char* second) {
    sp<MediaLibUpdateInfo> info = new MediaLibUpdateInfo;
    info->mFirstText = first;
    info->mSecondText = second;
    for (int i = 0; i < 5; ++i)
        info->mValues[i] = i - 2;
    return to.startMediaLibUpdates(7, info);
}

int maskedUpdates(M& to) {
    sp<MediaLibDataMask> data = maskOf<MediaLibDataMask>(0xf1f1f1f1);
    sp<MediaItemMask> item = maskOf<MediaItemMask>(0x02020202);
    sp<MediaPlaylistMask> playlist = maskOf<MediaPlaylistMask>(0x33);
    return to.startMediaLibUpdates(7, "lib", data, item, playlist, "last");
}

const Bytes kFive = parcel({i32(-2), i32(-1), i32(0), i32(1), i32(2)});

std::vector<Example> information() {
    return {
        {"startMediaLibInformation", 19, i32(7), "7", [](M& to) { return to.startMediaLibInformation(7); }},
        {"stopMediaLibInformation", 20, i32(7), "7", [](M& to) { return to.stopMediaLibInformation(7); }},
        {"startMediaLibUpdates", 21, parcel({i32(7), cstr("lib"), cstr("rev 4"), kFive}),
         R"(7, {"lib" "rev 4" -2 -1 0 1 2})", [](M& to) { return updates(to, "lib", "rev 4"); }},
        {"startMediaLibUpdates", 21, parcel({i32(7), cstr("-1"), cstr("-1"), kFive}),
         "7, {null null -2 -1 0 1 2}", [](M& to) { return updates(to, nullptr, nullptr); }},
        Example("startMediaLibUpdates", 21, parcel({i32(7), cstr("-1"), cstr("-10"), kFive}),
                "7, {null \"-10\" -2 -1 0 1 2}", [](M& to) { return updates(to, "-1", "-10"); })
            .gives(R"(7, {"-1" "-10" -2 -1 0 1 2})"),
        // The first mask, 0xf1f1f1f1, lies where the second string is read, and runs on into the two others.
        Example("startMediaLibUpdates", 21,
                parcel({i32(7), cstr("lib"), i32(0xf1f1f1f1), i32(0x02020202), i32(0x33), cstr("last")}),
                "7, {\"lib\" \"\xf1\xf1\xf1\xf1\x02\x02\x02\x02\x33\" 1953718636 0 0 0 0}", maskedUpdates)
            .gives(R"(7, "lib", 4059165169, 33686018, 51, "last")"),
        {"stopMediaLibUpdates", 22, parcel({i32(7), cstr("lib")}), "7, \"lib\"",
         [](M& to) { return to.stopMediaLibUpdates(7, "lib"); }},
    };
}

constexpr auto kType = static_cast<MediaLibCollectionType>(-6);

std::vector<Example> playback() {
    return {
        {"playMediaLibCurrentSelection", 23, parcel({i32(7), cstr("lib")}), "7, \"lib\"",
         [](M& to) { return to.playMediaLibCurrentSelection(7, "lib"); }},
        {"playMediaLibItems", 24,
         parcel({i32(7), cstr("lib"), i32(2), i64(0x8877665544332211), i64(1), i32(-9)}),
         "7, \"lib\", [11 22 33 44 55 66 77 88 01 00 00 00 00 00 00 00], 2, -9",
         [](M& to) {
             unsigned long long ids[] = {0x8877665544332211, 1};
             return to.playMediaLibItems(7, "lib", ids, 2, -9);
         }},
        {"playMediaLibItems", 24, parcel({i32(7), cstr("lib"), i32(0), i32(-9)}), "7, \"lib\", [], 0, -9",
         [](M& to) {
             unsigned long long ids[] = {1};
             return to.playMediaLibItems(7, "lib", ids, 0, -9);
         }},
        {"playMediaLibCollection", 25,
         parcel({i32(7), cstr("lib"), i64(0xffeeddccbbaa9988), i32(-6), i32(-9)}),
         "7, \"lib\", 18441921395520346504, -6, -9",
         [](M& to) { return to.playMediaLibCollection(7, "lib", 0xffeeddccbbaa9988, kType, -9); }},
        {"playMediaLibSpecial", 26, parcel({i32(7), cstr("lib"), i32(-9)}), "7, \"lib\", -9",
         [](M& to) { return to.playMediaLibSpecial(7, "lib", -9); }},
    };
}

}  // namespace

std::vector<Example> mediaExamples() {
    std::vector<Example> examples = information();
    for (const Example& more : playback())
        examples.push_back(more);
    return examples;
}

}  // namespace accessory::test
