// The two check forms: when they log, the exact text, and that the function goes on.
#include "common/Check.h"

#include <gmock/gmock.h>
#include <utils/RefBase.h>

#include <string>

#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kTag[] = "IAccessoryManager";

/// Stands for a parcel whose writes end with a given status, and counts them.
struct Step {
    android::status_t status = android::NO_ERROR;
    int calls = 0;

    android::status_t writeString8(const char* /*path*/) {
        ++calls;
        return status;
    }
};

bool startup() { return ACCESSORY_CHECK_STATUS(kiAP2ManagerUnit, -1); }

TEST(ConditionCheck, LogsTheConditionAsItIsWritten) {
    const LogCatcher log;
    Step data{android::NO_MEMORY};
    const char* path = "/dev/a";
    EXPECT_FALSE(ACCESSORY_CHECK(kAccessoryManagerUnit, !data.writeString8(path)));
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck(kTag, "TestBody", "!data.writeString8(path)")));
}

TEST(ConditionCheck, NamesTheLineItStandsOn) {
    const LogCatcher log;
    const std::string line = std::to_string(__LINE__ + 1);
    ACCESSORY_CHECK(kAccessoryManagerUnit, false);
    EXPECT_EQ(log.lines().at(0).text, "[TestBody][" + line + "] check 'false' failed");
    EXPECT_EQ(log.lines().at(0).priority, 6);
}

TEST(ConditionCheck, IsSatisfiedByAZeroStatusBehindAnExclamationMark) {
    const LogCatcher log;
    Step data;
    EXPECT_TRUE(ACCESSORY_CHECK(kAccessoryManagerUnit, !data.writeString8("")));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(ConditionCheck, IsSatisfiedByAnyOtherValueWithoutOne) {
    const LogCatcher log;
    Step binder{android::NAME_NOT_FOUND};
    const android::sp<android::RefBase> notifier;
    EXPECT_TRUE(ACCESSORY_CHECK(kAccessoryManagerUnit, binder.writeString8("")));
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_FALSE(ACCESSORY_CHECK(kAccessoryManagerUnit, notifier.get()));
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck(kTag, "TestBody", "notifier.get()")));
}

TEST(ConditionCheck, EvaluatesItsConditionOnceAndTheFunctionGoesOn) {
    const LogCatcher log;
    Step data{android::BAD_VALUE};
    ACCESSORY_CHECK(kAccessoryManagerUnit, !data.writeString8("first"));
    ACCESSORY_CHECK(kAccessoryManagerUnit, !data.writeString8("second"));
    EXPECT_EQ(data.calls, 2);
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck(kTag, "TestBody", "!data.writeString8(\"first\")"),
                                         LoggedCheck(kTag, "TestBody", "!data.writeString8(\"second\")")));
}

TEST(ConditionCheck, ShowsTheTextItIsGivenInPlaceOfTheSource) {
    const LogCatcher log;
    EXPECT_FALSE(ACCESSORY_CHECK_AS(kUSBAudioManagerUnit, 1 == 2, "!binder->linkToDeath(mDeathRecipient)"));
    EXPECT_TRUE(ACCESSORY_CHECK_AS(kUSBAudioManagerUnit, 2 == 2, "not shown"));
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck("IAppleUSBAudioManager", "TestBody",
                                                     "!binder->linkToDeath(mDeathRecipient)")));
}

TEST(ConditionCheck, TakesItsTextAsItIs) {
    const LogCatcher log;
    ACCESSORY_CHECK_AS(kAccessoryManagerUnit, false, "100%s%d");
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck(kTag, "TestBody", "100%s%d")));
}

TEST(ReturnValueCheck, LogsEveryStatusThatIsNotZero) {
    for (const android::status_t status : {-1, -22, -129, 1, INT32_MIN, INT32_MAX}) {
        const LogCatcher log;
        EXPECT_FALSE(ACCESSORY_CHECK_STATUS(kiAP2NotifierUnit, status)) << status;
        EXPECT_THAT(log.lines(), ElementsAre(LoggedStatusCheck("IAppleiAP2ManagerNotifier", "TestBody")));
    }
}

TEST(ReturnValueCheck, NamesTheLineItStandsOn) {
    const LogCatcher log;
    const std::string line = std::to_string(__LINE__ + 1);
    ACCESSORY_CHECK_STATUS(kiAP2ManagerUnit, -1);
    EXPECT_EQ(log.lines().at(0).text, "TestBody " + line + ":check return value failed");
    EXPECT_EQ(log.lines().at(0).priority, 6);
}

TEST(ReturnValueCheck, KeepsSilentAboutZero) {
    const LogCatcher log;
    EXPECT_TRUE(ACCESSORY_CHECK_STATUS(kiAP2ManagerUnit, 0));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(ReturnValueCheck, EvaluatesItsCallOnceAndTheFunctionGoesOn) {
    const LogCatcher log;
    Step data{android::BAD_VALUE};
    ACCESSORY_CHECK_STATUS(kiAP2ManagerUnit, data.writeString8(""));
    ACCESSORY_CHECK_STATUS(kiAP2ManagerUnit, data.writeString8(""));
    EXPECT_EQ(data.calls, 2);
    EXPECT_EQ(log.lines().size(), 2u);
}

TEST(ReturnValueCheck, NamesTheFunctionItStandsInByItsShortName) {
    const LogCatcher log;
    EXPECT_FALSE(startup());
    EXPECT_THAT(log.lines(), ElementsAre(LoggedStatusCheck("IAppleiAP2Manager", "startup")));
}

}  // namespace
}  // namespace accessory::test
