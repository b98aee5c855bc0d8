// The hand-written requests of the iAP2 manager through JSON and back to the same bytes.
#include <gtest/gtest.h>

#include "tests/AppleiAP2/manager/Example.h"
#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

const tools::Interface& manager() { return *tools::findInterface("IAppleiAP2Manager"); }

TEST(ManagerExamples, BecomeJsonAndTheSameBytesAgain) {
    for (const Example& example : allExamples()) {
        if (example.told != example.given) continue;  // arrives as another value than it was sent
        SCOPED_TRACE(testing::PrintToString(example));
        const tools::Operation& operation = *tools::servedOperation(manager(), example.code);
        EXPECT_EQ(operation.name, example.operation);
        const Bytes request = managerRequest(example.arguments);
        EXPECT_EQ(encoded(operation, tools::compactJson(decoded(operation, request))), request);
    }
}

TEST(ManagerExamples, BringTheResultOfTheirReplies) {
    for (const Example& example : allExamples()) {
        if (!example.hasStatus) continue;
        SCOPED_TRACE(testing::PrintToString(example));
        android::Parcel reply;
        fill(&reply, example.replyWith(-77));
        EXPECT_EQ(tools::servedOperation(manager(), example.code)->decodeReply(reply)["result"], -77);
    }
}

}  // namespace
}  // namespace accessory::test
