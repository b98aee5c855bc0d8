// A notifier that is registered, deregistered or replaced by its own callback.
#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAppleiAP2Manager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <thread>

#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/AppleiAP2/notifier/Recorder.h"
#include "tests/faults/SlowLines.h"
#include "tests/platform/TestService.h"
#include "tests/support/ChildProcess.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

/// Raises an event for each line and answers with its result: "attach", which takes the register's lock, or
/// "hid", which does not.
CHILD_ROLE(eventService) {
    const sp<QuietService> service = new QuietService;
    const sp<BnAppleiAP2Manager> stub = new BnAppleiAP2Manager(service);
    defaultServiceManager()->addService(String16(args.at(0).c_str()), stub);
    ProcessState::self()->startThreadPool();
    AppleiAP2ManagerNotifierItf& events = *service->broadcasters.at(0);
    parent.send("ready");
    for (std::string told = parent.expectLine(); told != "bye"; told = parent.expectLine())
        parent.send(
            std::to_string(told == "attach" ? events.attach(7) : events.hidComponentUpdate(7, 3, true)));
    return 0;
}

/// This process is the client.
class WithinAnEvent : public testing::Test {
  protected:
    WithinAnEvent() {
        ProcessState::self()->startThreadPool();
        EXPECT_EQ("ready", service.expectLine());
        manager =
            IAppleiAP2Manager::asInterface(defaultServiceManager()->checkService(String16(name.c_str())));
        EXPECT_EQ(0, manager->setNotifier(notifier));
    }

    void raise(const std::string& event) {
        service.send(event);
        EXPECT_EQ("0", service.expectLine());
    }

    const std::string name = uniqueServiceName();
    ChildProcess service{"eventService", {name}};
    sp<IAppleiAP2Manager> manager;
    const sp<Recorder> told{new Recorder};
    const sp<Recorder> toldInstead{new Recorder};
    const sp<IAppleiAP2ManagerNotifier> notifier{new BnAppleiAP2ManagerNotifier(told)};
    const sp<IAppleiAP2ManagerNotifier> another{new BnAppleiAP2ManagerNotifier(toldInstead)};
};

constexpr char kHid[] = "hidComponentUpdate(7, 3, true)";

TEST_F(WithinAnEvent, WithoutTheLockASecondRegistrationSucceedsAndChangesNothing) {
    told->meanwhile = [this] { EXPECT_EQ(0, manager->setNotifier(another)); };
    raise("hid");
    told->meanwhile = [] {};
    raise("attach");
    EXPECT_THAT(told->takeTold(), ElementsAre(kHid, "attach(7)"));
    EXPECT_THAT(toldInstead->takeTold(), IsEmpty());
}

TEST_F(WithinAnEvent, WithoutTheLockADeregistrationHoldsFromTheNextEventOn) {
    told->meanwhile = [this] { EXPECT_EQ(0, manager->clearNotifier()); };
    raise("hid");
    raise("attach");
    raise("hid");
    EXPECT_THAT(told->takeTold(), ElementsAre(kHid));
    EXPECT_EQ(-1, manager->clearNotifier());
}

TEST_F(WithinAnEvent, WithoutTheLockAReplacementHearsTheNextEvent) {
    told->meanwhile = [this] {
        EXPECT_EQ(0, manager->clearNotifier());
        EXPECT_EQ(0, manager->setNotifier(another));
    };
    raise("hid");
    raise("hid");
    raise("attach");
    EXPECT_THAT(told->takeTold(), ElementsAre(kHid));
    EXPECT_THAT(toldInstead->takeTold(), ElementsAre(kHid, "attach(7)"));
}

TEST_F(WithinAnEvent, AnotherThreadMayDeregisterWhichWaitsForTheEndOfTheEvent) {
    std::thread clearing;
    told->meanwhile = [&] { clearing = std::thread([this] { EXPECT_EQ(0, manager->clearNotifier()); }); };
    raise("attach");
    clearing.join();
    raise("attach");
    EXPECT_THAT(told->takeTold(), ElementsAre("attach(7)"));
}

// Client and service wait for each other then, and only the end of the service ends it.
TEST_F(WithinAnEvent, TheSameThreadMustNotRegisterUnderTheLockAndTheLogNamesTheService) {
    const LogCatcher log;
    std::atomic<bool> ended{false};
    told->meanwhile = [&] {
        manager->setNotifier(another);
        ended = true;
    };
    service.send("attach");
    EXPECT_TRUE(isToldOf(log, service.pid(), 2));
    EXPECT_THAT(slowLines(log).at(0).call, EndsWith(" of accessory.AppleiAP2Manager"));
    EXPECT_EQ(0, manager->startHID(7)) << "other requests go on";
    EXPECT_FALSE(ended);
    service.kill(SIGKILL);
    EXPECT_TRUE(eventually([&] { return ended.load(); }));
    EXPECT_TRUE(eventually([&] { return lastSlowLine(log).status == DEAD_OBJECT; }));
}

}  // namespace
}  // namespace accessory::test
