// The hand-written events of the iAP2 notifier through JSON and back to the same bytes.
#include <gtest/gtest.h>

#include "tests/AppleiAP2/notifier/Event.h"
#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

TEST(NotifierExamples, BecomeJsonAndTheSameBytesAgain) {
    const tools::Interface& notifier = *tools::findInterface("IAppleiAP2ManagerNotifier");
    for (const Event& event : allEvents()) {
        if (event.told != event.given) continue;  // arrives as another value than it was sent
        SCOPED_TRACE(testing::PrintToString(event));
        const tools::Operation& operation = *tools::servedOperation(notifier, event.code);
        EXPECT_EQ(operation.name, event.operation);
        const Bytes sent = request(event.arguments);
        EXPECT_EQ(encoded(operation, tools::compactJson(decoded(operation, sent))), sent);
    }
}

}  // namespace
}  // namespace accessory::test
