// The data records as JSON: the fields that are present, by name, against bytes spelt out by hand.
#include <gtest/gtest.h>

#include "tests/AppleiAP2/notifier/Wire.h"
#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

void expectBoth(const std::string& event, const std::string& arguments, const Bytes& behindTheToken) {
    SCOPED_TRACE(event);
    const tools::Operation& operation = operationOf("IAppleiAP2ManagerNotifier", event);
    const Bytes request = parcel({token(u"accessory.AppleiAP2ManagerNotifier"), behindTheToken});
    EXPECT_EQ(encoded(operation, arguments), request);
    EXPECT_EQ(decoded(operation, request), json(arguments));
}

TEST(RecordJson, HoldsWhatTheMaskNames) {
    expectBoth("powerUpdate", R"({"accId":7,"power":{"powerMode":-2,"chargeLevel":80}})",
               parcel({i32(7), i32(0x4 | 0x20), i32(-2), i32(80)}));
    expectBoth("powerUpdate", R"({"accId":7,"power":{}})", parcel({i32(7), i32(0)}));
    expectBoth(
        "nowPlayingUpdate",
        R"({"accId":7,"attribute":{"ID":18446744073709551615,"title":"Blue"},"playback":{"appName":"m"}})",
        parcel({i32(7), i32(0x3), i64(~0ULL), i32(5), cstr("Blue"), i32(0x80), cstr("m")}));
}

TEST(RecordJson, HoldsTheEntriesOfALibraryUpdateByTheirTypes) {
    expectBoth("mediaLibUpdateDataReady",
               R"({"accId":7,"data":{"id":"lib","groupData":[{"type":"item","title":"t","rating":3},
                   {"type":"playlist","name":"p"},{"type":"deletedItem","delId":5},
                   {"type":"deletedPlaylist","delId":6}],"updateProgress":50}})",
               parcel({i32(7), i32(0x1 | 0x3c | 0x80), cstr("lib"), i32(4),  //
                       i32(0), i32(0x2 | 0x8), cstr("t"), i32(3),            //
                       i32(1), i32(0x2), cstr("p"),                          //
                       i32(2), i64(5), i32(3), i64(6), i32(50)}));
}

TEST(RecordJson, HoldsArraysAndLanes) {
    expectBoth("RouteGuidanceUpdates", R"({"accId":7,"info":{"displayID":[1,65535],"ETA":9}})",
               parcel({i32(7), i32(0x1 | 0x20), i32(2), halves({1, 65535}), i64(9)}));
    expectBoth("LaneGuidanceInformation",
               R"({"accId":7,"info":{"laneGuidanceIndex":2,
                   "laneInformation":[{"laneField0":1,"laneAngle":[-90,90]},{}],"laneGuidanceDescription":"d"}})",
               parcel({i32(7), i32(0x2 | 0x4 | 0x8), i32(2), i32(2), i32(0x1 | 0x4), i32(1), i32(2),
                       halves({-90, 90}), i32(0), cstr("d")}));
}

TEST(RecordJson, RefusesNullStringsThatWouldEndTheProcess) {
    android::Parcel request;
    const tools::Operation& operation = operationOf("IAppleiAP2ManagerNotifier", "RouteGuidanceUpdates");
    EXPECT_THROW(operation.encode(json(R"({"accId":7,"info":{"currentRoadName":null}})"), &request),
                 tools::ArgumentError);
}

}  // namespace
}  // namespace accessory::test
