// Arguments that a request cannot carry: each error names the field, what it expects, and what it got.
#include <gtest/gtest.h>

#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

std::string complaint(const char* interface, const char* operation, const std::string& arguments) {
    android::Parcel request;
    try {
        operationOf(interface, operation).encode(json(arguments), &request);
    } catch (const tools::ArgumentError& error) {
        return error.what();
    }
    return "none";
}

std::string managerComplaint(const char* operation, const std::string& arguments) {
    return complaint("IAppleiAP2Manager", operation, arguments);
}
std::string eventComplaint(const char* event, const std::string& arguments) {
    return complaint("IAppleiAP2ManagerNotifier", event, arguments);
}

TEST(ArgumentError, NamesWhatIsMissingOrUnknown) {
    EXPECT_EQ(managerComplaint("setName", "{}"), "name expects a text, got nothing");
    EXPECT_EQ(managerComplaint("setName", R"({"name":"a","nam":1})"), "setName expects no 'nam', got 1");
    EXPECT_EQ(managerComplaint("getAccessoryIds", R"({"ids":[]})"),
              "getAccessoryIds expects no 'ids', got []");
}

TEST(ArgumentError, RefusesNullWhereItCannotBeSent) {
    EXPECT_EQ(managerComplaint("setName", R"({"name":null})"), "name expects a text, got null");
    EXPECT_EQ(managerComplaint("startPowerUpdate", R"({"accId":1,"powerMask":null})"),
              "powerMask expects names of bits joined by '|', 'all', or a number, got null");
    EXPECT_EQ(eventComplaint("CarPlayAvailability",
                             R"({"accId":1,"wired":{"available":true},"wireless":{"available":false}})"),
              "wired.text expects a text, got null");
    EXPECT_EQ(
        managerComplaint("CarPlayStartSession",
                         R"({"accId":1,"wired":{},"value":1,"string1":"a","string2":"b","string3":"c"})"),
        "wired.string1 expects a text, got null");
    EXPECT_EQ(eventComplaint("powerUpdate", R"({"accId":1,"power":null})").substr(0, 31),
              "power expects a structure of cu");
}

TEST(ArgumentError, NamesMembers) {
    EXPECT_EQ(eventComplaint("powerUpdate", R"({"accId":1,"power":{"chargeLevel":"x"}})"),
              "power.chargeLevel expects a number from -2147483648 to 2147483647, got 'x'");
    EXPECT_EQ(managerComplaint("startHID", R"({"accId":1,"attributes":{}})"),
              "startHID expects no 'attributes', got {}");
    EXPECT_EQ(managerComplaint("startMediaLibUpdates", R"({"accId":1,"info":{"values":[1]}})"),
              "info.values expects a list of 5 numbers, got [1]");
    EXPECT_EQ(eventComplaint("StartBluetoothPairing", R"({"accId":1,"id":2,"mac":"0102"})"),
              "mac expects 6 bytes as hex digits (0a1b) or @file, got '0102'");
    EXPECT_EQ(
        eventComplaint("mediaLibUpdateDataReady", R"({"accId":1,"data":{"groupData":[{"type":"song"}]}})"),
        "data.groupData expects a list of structures whose type is item, playlist, deletedItem or "
        R"(deletedPlaylist, got {"type":"song"})");
}

TEST(ArgumentError, RefusesANotifier) {
    EXPECT_EQ(managerComplaint("setNotifier", R"({"notifier":"x"})"),
              "notifier expects null; 'accessoryctl watch' registers a notifier of its own, got 'x'");
}

}  // namespace
}  // namespace accessory::test
