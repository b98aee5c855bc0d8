// CarPlay sessions, Bluetooth pairing and digital car keys through the iAP2 manager.
#include "tests/AppleiAP2/manager/Example.h"

namespace accessory::test {

using M = IAppleiAP2Manager;

namespace {

std::vector<Example> carPlaySessions() {
    return {
        {"CarPlayStartSession", 76,
         parcel({i32(7), i32(1), cstr("wired"), i32(1), cstr("w1"), cstr("w2"), i32(0xf8), cstr("w3"),
                 i32(0x80000032), i32(0x80000004), cstr("s1"), cstr("s2"), cstr("s3")}),
         R"(7, {"wired"}, {"w1" "w2" 248 "w3" 2147483698}, 2147483652, "s1", "s2", "s3")",
         [](M& to) {
             CPStartSessionWiredAttributes wired{"wired"};
             CPStartSessionWirelessAttributes wireless{"w1", "w2", 0xf8, "w3", 0x80000032};
             return to.CarPlayStartSession(7, &wired, &wireless, 0x80000004, "s1", "s2", "s3");
         }},
        {"CarPlayStartSession", 76,
         parcel({i32(7), i32(0), i32(0), i32(4), cstr("s1"), cstr(""), cstr("s3")}),
         R"(7, null, null, 4, "s1", "", "s3")",
         [](M& to) { return to.CarPlayStartSession(7, nullptr, nullptr, 4, "s1", "", "s3"); }},
        {"CarPlayStartSession", 76,
         parcel({i32(7), i32(0), i32(1), cstr("w1"), cstr("w2"), i32(8), cstr("w3"), i32(32), i32(4),
                 cstr("s1"), cstr("s2"), cstr("s3")}),
         R"(7, null, {"w1" "w2" 8 "w3" 32}, 4, "s1", "s2", "s3")",
         [](M& to) {
             CPStartSessionWirelessAttributes wireless{"w1", "w2", 8, "w3", 32};
             return to.CarPlayStartSession(7, nullptr, &wireless, 4, "s1", "s2", "s3");
         }},
        {"CarPlayStartSession", 76,
         parcel({i32(7), i32(1), cstr("wired"), i32(0), i32(4), cstr("s1"), cstr("s2"), cstr("s3")}),
         R"(7, {"wired"}, null, 4, "s1", "s2", "s3")",
         [](M& to) {
             CPStartSessionWiredAttributes wired{"wired"};
             return to.CarPlayStartSession(7, &wired, nullptr, 4, "s1", "s2", "s3");
         }},
    };
}

unsigned char gBlock[2][16] = {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
                               {16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31}};
unsigned char gOther[2][16] = {{0xf0}, {0xf1}};
const Bytes kBlock = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15,
                      16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31};
const Bytes kOther = {0xf0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                      0xf1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
const std::string kBlockTold =
    "[00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f "
    "10 11 12 13 14 15 16 17 18 19 1a 1b 1c 1d 1e 1f]";
const std::string kOtherTold =
    "[f0 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
    "f1 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00]";

std::vector<Example> pairing() {
    return {
        {"BluetoothPairingAccessoryInformation", 78,
         parcel({i32(7), i32(0xfff2), i32(1), kBlock, i32(1), kOther}),
         "7, 65522, " + kBlockTold + ", " + kOtherTold,
         [](M& to) { return to.BluetoothPairingAccessoryInformation(7, 0xfff2, gBlock, gOther); }},
        {"BluetoothPairingAccessoryInformation", 78, parcel({i32(7), i32(2), i32(0), i32(1), kOther}),
         "7, 2, null, " + kOtherTold,
         [](M& to) { return to.BluetoothPairingAccessoryInformation(7, 2, nullptr, gOther); }},
        {"BluetoothPairingAccessoryInformation", 78, parcel({i32(7), i32(2), i32(1), kBlock, i32(0)}),
         "7, 2, " + kBlockTold + ", null",
         [](M& to) { return to.BluetoothPairingAccessoryInformation(7, 2, gBlock, nullptr); }},
        {"BluetoothPairingAccessoryInformation", 78, parcel({i32(7), i32(2), i32(0), i32(0)}),
         "7, 2, null, null",
         [](M& to) { return to.BluetoothPairingAccessoryInformation(7, 2, nullptr, nullptr); }},
        {"BluetoothPairingStatus", 79, parcel({i32(7), i32(0xfff2), i32(0x80000003), i32(1), cstr("t")}),
         R"(7, 65522, 2147483651, "t")",
         [](M& to) { return to.BluetoothPairingStatus(7, 0xfff2, 0x80000003, "t"); }},
        {"BluetoothPairingStatus", 79, parcel({i32(7), i32(2), i32(3), i32(0)}), "7, 2, 3, null",
         [](M& to) { return to.BluetoothPairingStatus(7, 2, 3, nullptr); }},
    };
}

std::vector<Example> carKeys() {
    return {
        {"CarPlayAvailableDigitalCarKeys", 91, parcel({i32(7), i32(3), cstr("k1"), cstr(""), cstr("key3")}),
         R"(7, {"k1" "" "key3"})",
         [](M& to) {
             std::vector<std::string> keys = {"k1", "", "key3"};
             return to.CarPlayAvailableDigitalCarKeys(7, keys);
         }},
        {"CarPlayAvailableDigitalCarKeys", 91, parcel({i32(7), i32(0)}), "7, {}",
         [](M& to) {
             std::vector<std::string> keys;
             return to.CarPlayAvailableDigitalCarKeys(7, keys);
         }},
    };
}

}  // namespace

std::vector<Example> carPlayExamples() {
    std::vector<Example> examples = carPlaySessions();
    for (const std::vector<Example>& more : {pairing(), carKeys()})
        examples.insert(examples.end(), more.begin(), more.end());
    return examples;
}

}  // namespace accessory::test
