// The log tags and source texts of the five interfaces.
#include "common/Unit.h"

#include <gtest/gtest.h>

namespace accessory::test {
namespace {

void expectTexts(const Unit& unit, const char* tag, const char* file) {
    EXPECT_STREQ(unit.tag, tag);
    EXPECT_STREQ(unit.file, file);
}

TEST(Unit, NamesTheAccessoryManager) {
    expectTexts(kAccessoryManagerUnit, "IAccessoryManager", "AccessoryManager/IAccessoryManager.cpp");
}

TEST(Unit, NamesTheiAP2Manager) {
    expectTexts(kiAP2ManagerUnit, "IAppleiAP2Manager", "AppleiAP2/IAppleiAP2Manager.cpp");
}

TEST(Unit, NamesTheiAP2Notifier) {
    expectTexts(kiAP2NotifierUnit, "IAppleiAP2ManagerNotifier", "AppleiAP2/IAppleiAP2ManagerNotifier.cpp");
}

TEST(Unit, NamesTheUSBAudioManager) {
    expectTexts(kUSBAudioManagerUnit, "IAppleUSBAudioManager", "AppleUSBAudio/IAppleUSBAudioManager.cpp");
}

TEST(Unit, NamesTheUSBAudioNotifier) {
    expectTexts(kUSBAudioNotifierUnit, "IAppleUSBAudioManagerNotifier",
                "AppleUSBAudio/IAppleUSBAudioManagerNotifier.cpp");
}

}  // namespace
}  // namespace accessory::test
