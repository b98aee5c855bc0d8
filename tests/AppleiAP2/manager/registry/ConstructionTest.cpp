// The making of stub and registry: traces, the hand-over of the broadcaster, references, and the programming
// errors that end the process.
#include <sys/wait.h>

#include <csignal>
#include <type_traits>

#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::sp;
using testing::KilledBySignal;

const Lines kTraceOfTheStub = {in(kManagerUnit, "BnAppleiAP2Manager"),
                               out(kManagerUnit, "BnAppleiAP2Manager")};

template <typename Derived, typename Base, typename = void>
inline constexpr bool kHasVirtualBase = std::is_base_of_v<Base, Derived>;
template <typename Derived, typename Base>
inline constexpr bool
    kHasVirtualBase<Derived, Base, std::void_t<decltype(static_cast<Derived*>(std::declval<Base*>()))>> =
        false;

/// Raises an event while it is still being handed the broadcaster.
class HastyService : public QuietService {
  public:
    int addNotifier(const sp<AppleiAP2ManagerNotifierItf>& notifier) override {
        raised = notifier->attach(7);
        return QuietService::addNotifier(notifier);
    }
    int raised = -99;
};

TEST(StubConstruction, IsTracedAndLogsNothingElse) {
    LogCatcher log;
    kept(new BnAppleiAP2Manager(new QuietService));
    EXPECT_THAT(log.lines(), are(kTraceOfTheStub));
}

TEST(StubConstruction, HandsTheServiceTheRegistryOnce) {
    const sp<QuietService> service = new QuietService;
    kept(new BnAppleiAP2Manager(service));
    ASSERT_EQ(service->broadcasters.size(), 1u);
    EXPECT_NE(dynamic_cast<AppleiAP2ManagerNotifier*>(service->broadcasters[0].get()), nullptr);
}

TEST(StubConstruction, GivesEveryStubARegistryOfItsOwn) {
    const sp<QuietService> service = new QuietService;
    kept(new BnAppleiAP2Manager(service));
    kept(new BnAppleiAP2Manager(service));
    EXPECT_NE(service->broadcasters.at(0), service->broadcasters.at(1));
}

TEST(StubConstruction, LogsAServiceThatRefusesTheBroadcasterAndGoesOn) {
    for (const int status : {-1, 1, -22}) {
        LogCatcher log;
        const sp<QuietService> service = new QuietService;
        service->addStatus = status;
        const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
        EXPECT_THAT(log.lines(),
                    are({in(kManagerUnit, "BnAppleiAP2Manager"), statusCheck("BnAppleiAP2Manager"),
                         out(kManagerUnit, "BnAppleiAP2Manager")}));
        const RemoteClient client{};
        EXPECT_EQ(stub->setNotifier(client.notifier), 0);
        EXPECT_EQ(service->broadcasters.at(0)->attach(7), 0);
        EXPECT_EQ(client.remote->requests.size(), 1u);
    }
}

TEST(StubConstruction, LetsTheServiceRaiseAnEventAtOnce) {
    const sp<HastyService> service = new HastyService;
    kept(new BnAppleiAP2Manager(service));
    EXPECT_EQ(service->raised, 0);
}

TEST(StubConstruction, LetsStubAndRegistryHoldEachOtherAndTheService) {
    const sp<QuietService> service = new QuietService;
    const int32_t before = service->getStrongCount();
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(service));
    EXPECT_EQ(service->getStrongCount(), before + 1);
    EXPECT_EQ(stub->getStrongCount(), 3) << "this test's, kept()'s and the registry's";
    EXPECT_EQ(service->broadcasters.at(0)->getStrongCount(), 2) << "the service's and the stub's";
}

TEST(RegistryConstruction, LogsNothing) {
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(new QuietService));
    LogCatcher log;
    const sp<AppleiAP2ManagerNotifier> registry = new AppleiAP2ManagerNotifier(stub);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST(RegistryConstruction, HoldsTheManagerAsLongAsTheRegistryLives) {
    const sp<BnAppleiAP2Manager> stub = kept(new BnAppleiAP2Manager(new QuietService));
    const int32_t before = stub->getStrongCount();
    {
        const sp<AppleiAP2ManagerNotifier> registry = new AppleiAP2ManagerNotifier(stub);
        EXPECT_EQ(stub->getStrongCount(), before + 1);
    }
    EXPECT_EQ(stub->getStrongCount(), before);
}

TEST(RegistryConstruction, HasVirtualBases) {
    EXPECT_TRUE((kHasVirtualBase<AppleiAP2ManagerNotifier, AppleiAP2ManagerNotifierItf>));
    EXPECT_TRUE((kHasVirtualBase<AppleiAP2ManagerNotifierItf, android::RefBase>));
    EXPECT_TRUE((std::is_base_of_v<android::IBinder::DeathRecipient, AppleiAP2NotifierDeathRecipient>));
}

TEST(StubConstructionDeathTest, EndsTheProcessWithoutAService) {
    EXPECT_EXIT(new BnAppleiAP2Manager(nullptr), KilledBySignal(SIGABRT),
                "AppleiAP2/IAppleiAP2Manager\\.cpp:[0-9]+: "
                ".*accessory::BnAppleiAP2Manager::BnAppleiAP2Manager\\(.*AppleiAP2ManagerImplItf.*\\): "
                "Assertion `impl\\.get\\(\\)' failed\\.");
}

TEST(StubConstructionDeathTest, IsTracedBeforeTheMissingServiceEndsTheProcess) {
    const auto make = [] {
        setenv("ACCESSORY_TEST_LOG", "1", 1);
        new BnAppleiAP2Manager(nullptr);
    };
    EXPECT_EXIT(
        make(), KilledBySignal(SIGABRT),
        "D/IAppleiAP2Manager: \\[AppleiAP2/IAppleiAP2Manager\\.cpp\\]\\[BnAppleiAP2Manager\\] \\[--IN--\\]"
        "(.|\n)*impl\\.get\\(\\)");
}

TEST(RegistryConstructionDeathTest, EndsTheProcessWithoutAManager) {
    EXPECT_EXIT(
        new AppleiAP2ManagerNotifier(nullptr), KilledBySignal(SIGABRT),
        "AppleiAP2/IAppleiAP2Manager\\.cpp:[0-9]+: "
        ".*accessory::AppleiAP2ManagerNotifier::AppleiAP2ManagerNotifier\\(.*BnAppleiAP2Manager.*\\): "
        "Assertion `manager\\.get\\(\\)' failed\\.");
}

}  // namespace
}  // namespace accessory::test
