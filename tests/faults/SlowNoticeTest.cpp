// A death recipient that takes long holds up later notices: the log says so.
#include <gtest/gtest.h>

#include "tests/faults/SlowLines.h"
#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using testing::ContainsRegex;
using testing::Field;

/// A warning of the runtime about the notices of a process's death.
testing::Matcher<const LogLine&> telling(pid_t process, const std::string& rest) {
    return testing::AllOf(Field(&LogLine::priority, ANDROID_LOG_WARN), Field(&LogLine::tag, "Binder"),
                          Field(&LogLine::text, ContainsRegex("^telling of the death of process " +
                                                              std::to_string(process) + rest)));
}

TEST(ABlockingRecipient, IsToldOfWhileOthersWaitBehindItAndInTheEnd) {
    const LogCatcher log;
    ServiceProcess first;
    ServiceProcess second;
    Gate gate;
    const sp<Recipient> blocking = new Recipient([&] { EXPECT_TRUE(gate.pass()); });
    const sp<Recipient> waiting = new Recipient;
    ASSERT_EQ(NO_ERROR, first.object()->linkToDeath(blocking));
    ASSERT_EQ(NO_ERROR, second.object()->linkToDeath(waiting));
    first.kill();
    EXPECT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    second.kill();
    EXPECT_TRUE(log.arrives(
        telling(first.pid(), " has been going on for 0\\.[0-9] s; [1-9][0-9]* notices wait behind it$")));
    EXPECT_EQ(0, waiting->notices());
    gate.open();
    EXPECT_TRUE(waiting->isTold());
    EXPECT_TRUE(log.arrives(telling(first.pid(), " has ended after [0-9.]+ s; notices go on$")));
}

TEST(ARecipient, ThatIsQuickIsNotToldOf) {
    const LogCatcher log;
    for (int i = 0; i < 5; ++i) {
        ServiceProcess service;
        const sp<Recipient> recipient = new Recipient;
        ASSERT_EQ(NO_ERROR, service.object()->linkToDeath(recipient));
        service.kill();
        EXPECT_TRUE(recipient->isTold());
    }
    for (const LogLine& line : log.linesWith("Binder"))
        EXPECT_EQ(std::string::npos, line.text.find("notices")) << line.text;
}

}  // namespace
}  // namespace accessory::test
