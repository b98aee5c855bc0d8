// Replies, spelt out by hand, as JSON.
#include <gtest/gtest.h>

#include "tests/AppleiAP2/notifier/Wire.h"
#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

Json::Value reply(const tools::Operation& operation, const Bytes& bytes) {
    android::Parcel parcel;
    fill(&parcel, bytes);
    return reread(operation.decodeReply(parcel));
}

std::string complaint(const tools::Operation& operation, const Bytes& bytes) {
    try {
        reply(operation, bytes);
    } catch (const tools::UndecodableParcel& error) {
        return error.what();
    }
    return "none";
}

TEST(Reply, HoldsTheFieldsAndTheResult) {
    EXPECT_EQ(
        reply(operationOf("IAppleiAP2Manager", "getEASessionId"), parcel({i32(0), i32(-5), i32(6), i32(1)})),
        json(R"({"first":-5,"second":6,"result":1})"));
    EXPECT_EQ(reply(operationOf("IAppleiAP2Manager", "getAccessoryIds"),
                    parcel({i32(0), i32(2), i32(7), i32(-2), i32(-1)})),
              json(R"({"ids":[7,4294967294],"result":-1})"));
    EXPECT_EQ(reply(operationOf("IAppleiAP2Manager", "getAPPIds"),
                    parcel({i32(0), i32(2), cstr("app.one"), cstr(""), i32(3)})),
              json(R"({"appIds":["app.one",""],"result":3})"));
    EXPECT_EQ(reply(operationOf("IAccessoryManager", "getPath"), parcel({i32(0), string8("/dev/x")})),
              json(R"({"result":"/dev/x"})"));
}

TEST(Reply, OfANotifierHasNoHeader) {
    EXPECT_EQ(reply(operationOf("IAppleiAP2ManagerNotifier", "attach"), i32(-3)), json(R"({"result":-3})"));
    EXPECT_EQ(reply(operationOf("IAppleUSBAudioManagerNotifier", "attach"), i32(0)), json(R"({"result":0})"));
}

TEST(Reply, OfTheVersionMayBeMissing) {
    EXPECT_EQ(reply(operationOf("IAppleiAP2Manager", "getVersion"), parcel({i32(0), cstr("1.2")})),
              json(R"({"result":"1.2"})"));
    EXPECT_EQ(reply(operationOf("IAppleiAP2Manager", "getVersion"), i32(0)), json(R"({"result":null})"));
}

TEST(Reply, WithoutAResultIsNotAResultOfZero) {
    EXPECT_EQ(complaint(operationOf("IAppleiAP2Manager", "stop"), i32(0)),
              "the reply ends before its result");
    EXPECT_EQ(complaint(operationOf("IAppleiAP2Manager", "stop"), {}), "the reply reports exception -129");
    EXPECT_EQ(complaint(operationOf("IAppleiAP2ManagerNotifier", "attach"), {}),
              "the reply ends before its result");
}

}  // namespace
}  // namespace accessory::test
