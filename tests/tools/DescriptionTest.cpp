// The interfaces and operations as they are described, and how they are found.
#include <gtest/gtest.h>

#include <set>

#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

TEST(Description, FindsAnInterfaceByEachOfItsNames) {
    for (const char* name : {"IAppleiAP2Manager", "AppleiAP2Manager", "accessory.AppleiAP2Manager",
                             "IAPPLEIAP2MANAGER", "accessory.appleiap2manager"}) {
        const tools::Interface* const found = tools::findInterface(name);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(found->name, "IAppleiAP2Manager");
    }
    EXPECT_EQ(tools::findInterface("AppleiAP2"), nullptr);
    EXPECT_EQ(tools::findInterface(""), nullptr);
}

TEST(Description, TellsWhoseRepliesHaveAHeader) {
    for (const tools::Interface* interface : tools::allInterfaces())
        EXPECT_EQ(interface->replyHasHeader, !interface->isNotifier) << interface->name;
}

TEST(Description, HasTheOperationsInTheOrderOfTheirCodes) {
    for (const tools::Interface* interface : tools::allInterfaces()) {
        uint32_t last = 0;
        for (const auto& operation : interface->operations) {
            EXPECT_GE(operation->code, last) << operation->name;
            last = operation->code;
            const bool isServed = tools::servedOperation(*interface, last) == operation.get();
            EXPECT_NE(isServed, operation->onlySent) << operation->name;
        }
        EXPECT_EQ(tools::servedOperation(*interface, last + 1), nullptr);
    }
}

TEST(Description, SaysOfEveryFieldWhatItIs) {
    for (const auto& [interface, operation] : allOperations()) {
        std::set<std::string> names;
        for (const tools::FieldDescription& field : operation->fields) {
            SCOPED_TRACE(operation->name + "." + field.name);
            EXPECT_TRUE(names.insert(field.name).second);
            EXPECT_NE(field.kind, "");
            EXPECT_NE(field.expects, "");
        }
    }
}

}  // namespace
}  // namespace accessory::test
