// What a client sees of a service that dies: 0, an empty path and a log line, never a crash.
#include <binder/Parcel.h>
#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <iterator>
#include <thread>

#include "tests/AccessoryManager/Bytes.h"
#include "tests/AccessoryManager/Spelling.h"
#include "tests/AccessoryManager/TestService.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using android::sp;
using android::String8;
using testing::ElementsAre;

/// How many descriptors this process has open.
ptrdiff_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
}

/// The life of a service that was called once with @p flags.
void callOnce(uint32_t flags) {
    const RunningService service;
    android::Parcel data;
    android::Parcel reply;
    fill(&data, token());
    EXPECT_EQ(service.binder()->transact(1, data, &reply, flags), android::NO_ERROR);
}

/// After one life, a hundred more leave the process as it is.
void expectNothingLeftOf(void (*life)()) {
    life();
    const ptrdiff_t before = openDescriptors();
    for (int i = 0; i < 100; ++i)
        life();
    EXPECT_TRUE(eventually([&] { return openDescriptors() <= before + 2; })) << openDescriptors() - before;
}

void expectNothingFrom(IAccessoryManager& manager) {
    LogCatcher log;
    EXPECT_EQ(manager.getDeviceCount(), 0);
    EXPECT_EQ(manager.getFeature(1), 0);
    EXPECT_EQ(manager.getPath(1).size(), 0u);
    EXPECT_EQ(manager.getAccessoryId(String8("/dev/x")), 0);
    EXPECT_THAT(log.linesWith(kTag), ElementsAre(LoggedCheck(kTag, "getDeviceCount", kHeaderCheck),
                                                 LoggedCheck(kTag, "getFeature", kHeaderCheck),
                                                 LoggedCheck(kTag, "getPath", kHeaderCheck),
                                                 LoggedCheck(kTag, "getAccessoryId", kHeaderCheck)));
}

TEST(ServiceDeath, MakesEveryLaterCallGiveNothing) {
    RunningService service;
    const sp<IAccessoryManager> manager = service.manager();
    EXPECT_EQ(manager->getDeviceCount(), 3);
    service.process.kill(SIGKILL);
    service.process.wait();
    expectNothingFrom(*manager);
    expectNothingFrom(*manager);
}

TEST(ServiceDeath, MakesEveryCallGiveNothingAfterAnOrderlyExitToo) {
    RunningService service;
    const sp<IAccessoryManager> manager = service.manager();
    EXPECT_EQ(manager->getDeviceCount(), 3);
    service.process.send("bye");
    service.process.wait();
    expectNothingFrom(*manager);
}

TEST(ServiceDeath, MakesTheFirstCallGiveNothingWhenItComesTooLate) {
    RunningService service;
    service.process.kill(SIGKILL);
    service.process.wait();
    const sp<IAccessoryManager> manager = service.manager();
    expectNothingFrom(*manager);
}

TEST(ServiceDeath, EndsACallThatIsWaitingForItsAnswer) {
    RunningService service;
    LogCatcher log;
    EXPECT_EQ(service.manager()->getDeviceCount(), 3);
    std::thread killer([&] {
        EXPECT_EQ(service.process.expectLine(), "waiting");
        service.process.kill(SIGKILL);
    });
    EXPECT_EQ(service.manager()->getFeature(RunningService::kWaitForever), 0);
    killer.join();
    EXPECT_THAT(log.linesWith(kTag), ElementsAre(LoggedCheck(kTag, "getFeature", kHeaderCheck)));
}

TEST(ServiceDeath, LeavesAnotherServiceAlone) {
    RunningService dies;
    RunningService lives;
    const sp<IAccessoryManager> manager = lives.manager();
    EXPECT_EQ(dies.manager()->getDeviceCount(), 3);
    EXPECT_EQ(manager->getDeviceCount(), 3);
    dies.process.kill(SIGKILL);
    dies.process.wait();
    EXPECT_EQ(manager->getFeature(2), -3);
}

TEST(ServiceDeath, LeavesNoDescriptorOfItsCallsBehind) {
    expectNothingLeftOf([] { callOnce(0); });
}

TEST(ServiceDeath, LeavesNoDescriptorOfItsOneWayCallsBehind) {
    expectNothingLeftOf([] { callOnce(android::IBinder::FLAG_ONEWAY); });
}

}  // namespace
}  // namespace accessory::test
