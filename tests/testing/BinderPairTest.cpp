// BinderPair: requests and events of one process as parcels, and the ends of both sides.
#include <accessory/testing/BinderPair.h>
#include <accessory/testing/MockAppleUSBAudioManager.h>
#include <accessory/testing/MockAppleUSBAudioManagerNotifier.h>
#include <accessory/testing/MockAppleiAP2Manager.h>
#include <accessory/testing/MockAppleiAP2ManagerNotifier.h>

#include <gtest/gtest-spi.h>

#include <thread>

#include "tests/support/LogCatcher.h"

namespace accessory::testkit {
namespace {

using android::sp;
using testing::NiceMock;
using testing::Return;
using testing::SizeIs;
using testing::StrEq;

constexpr uint32_t kAttach = 2;

class Pair : public testing::Test {
  protected:
    void registerClient() { EXPECT_EQ(pair.proxy()->setNotifier(new BnAppleiAP2ManagerNotifier(client)), 0); }

    const sp<NiceMock<MockAppleiAP2ManagerImpl>> service{new NiceMock<MockAppleiAP2ManagerImpl>};
    const BinderPair<IAppleiAP2Manager> pair{service};
    const sp<NiceMock<MockAppleiAP2ManagerNotifierImpl>> client{
        new NiceMock<MockAppleiAP2ManagerNotifierImpl>};
};

TEST_F(Pair, CarriesRequestsToTheServiceOnTheCallersThread) {
    std::thread::id ran;
    EXPECT_CALL(*service, launchAPP(7, StrEq("com.example.maps"), testing::_)).WillOnce([&] {
        ran = std::this_thread::get_id();
        return 4;
    });
    EXPECT_EQ(pair.proxy()->launchAPP(7, "com.example.maps", static_cast<AppLaunchMethod>(1)), 4);
    EXPECT_EQ(ran, std::this_thread::get_id());
    EXPECT_THAT(pair.requests().transactions(), SizeIs(1));
}

TEST_F(Pair, CarriesEventsToTheClientAsParcels) {
    EXPECT_EQ(pair.events(), nullptr);
    registerClient();
    EXPECT_CALL(*client, attach(7)).WillOnce(Return(0));
    service->broadcaster->attach(7);
    ASSERT_NE(pair.events(), nullptr);
    ASSERT_THAT(pair.events()->transactions(), SizeIs(1));
    EXPECT_EQ(pair.events()->transactions()[0].code, kAttach);
    EXPECT_EQ(wordsOf(pair.events()->transactions()[0].request).back(), 7u);
}

TEST_F(Pair, CarriesNoEventOnceTheClientHasDeregistered) {
    registerClient();
    EXPECT_EQ(pair.proxy()->clearNotifier(), 0);
    EXPECT_CALL(*client, attach).Times(0);
    service->broadcaster->attach(7);
}

TEST_F(Pair, TakesTheRegistrationOfAClientThatDies) {
    registerClient();
    LogCatcher log;
    pair.events()->die();
    EXPECT_CALL(*client, attach).Times(0);
    EXPECT_EQ(service->broadcaster->attach(7), 0);
    EXPECT_THAT(pair.events()->transactions(), testing::IsEmpty());
}

TEST_F(Pair, KeepsTheStandInOfAClientThatRegistersAgain) {
    const sp<IAppleiAP2ManagerNotifier> notifier = new BnAppleiAP2ManagerNotifier(client);
    pair.proxy()->setNotifier(notifier);
    const sp<RecordingBinder> first = pair.events();
    pair.proxy()->clearNotifier();
    pair.proxy()->setNotifier(notifier);
    EXPECT_EQ(pair.events(), first);
}

TEST_F(Pair, PassesANullNotifierOn) {
    EXPECT_EQ(pair.proxy()->setNotifier(nullptr), -22);
    EXPECT_EQ(pair.events(), nullptr);
}

TEST_F(Pair, TellsTheClientOfTheServicesEnd) {
    class Mourner : public android::IBinder::DeathRecipient {
      public:
        void binderDied(const android::wp<android::IBinder>&) override { ++notices; }
        int notices = 0;
    };
    const sp<Mourner> mourner = new Mourner;
    const sp<android::IBinder> binder = android::IInterface::asBinder(pair.proxy());
    EXPECT_EQ(binder->linkToDeath(mourner), 0);
    pair.requests().die();
    EXPECT_EQ(mourner->notices, 1);
    EXPECT_FALSE(binder->isBinderAlive());
    EXPECT_EQ(pair.proxy()->launchAPP(7, "app", static_cast<AppLaunchMethod>(1)), 0);
}

/// What a test with that body ends like.
template <typename Body>
bool fails(Body body) {
    testing::TestPartResultArray failures;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        body();
    }
    return failures.size() > 0;
}

TEST(PairsEnd, ChecksWhatTheServiceWasExpectedToBeAsked) {
    EXPECT_TRUE(fails([] {
        const sp<NiceMock<MockAppleiAP2ManagerImpl>> service = new NiceMock<MockAppleiAP2ManagerImpl>;
        const BinderPair<IAppleiAP2Manager> pair(service);
        EXPECT_CALL(*service, startHID(testing::An<unsigned int>()));
    }));
}

TEST(PairsEnd, ChecksWhatAClientThatStayedWasExpectedToBeTold) {
    EXPECT_TRUE(fails([] {
        const sp<NiceMock<MockAppleiAP2ManagerImpl>> service = new NiceMock<MockAppleiAP2ManagerImpl>;
        const BinderPair<IAppleiAP2Manager> pair(service);
        const sp<NiceMock<MockAppleiAP2ManagerNotifierImpl>> client =
            new NiceMock<MockAppleiAP2ManagerNotifierImpl>;
        pair.proxy()->setNotifier(new BnAppleiAP2ManagerNotifier(client));
        EXPECT_CALL(*client, attach);
    }));
}

TEST(PairsEnd, LetsGoOfTheClient) {
    android::wp<MockAppleUSBAudioManagerNotifierImpl> weak;
    {
        const sp<NiceMock<MockAppleUSBAudioManagerImpl>> service = new NiceMock<MockAppleUSBAudioManagerImpl>;
        const BinderPair<IAppleUSBAudioManager> pair(service);
        const sp<MockAppleUSBAudioManagerNotifierImpl> client = new MockAppleUSBAudioManagerNotifierImpl;
        weak = client;
        pair.proxy()->setNotifier(new BnAppleUSBAudioManagerNotifier(client));
    }
    EXPECT_EQ(weak.promote(), nullptr);
}

TEST(AudioPair, CarriesBothDirections) {
    const sp<NiceMock<MockAppleUSBAudioManagerImpl>> service = new NiceMock<MockAppleUSBAudioManagerImpl>;
    const BinderPair<IAppleUSBAudioManager> pair(service);
    const sp<NiceMock<MockAppleUSBAudioManagerNotifierImpl>> client =
        new NiceMock<MockAppleUSBAudioManagerNotifierImpl>;
    EXPECT_EQ(pair.proxy()->setNotifier(new BnAppleUSBAudioManagerNotifier(client)), 0);
    EXPECT_CALL(*service, setVolume(1001, 40)).WillOnce(Return(-1));
    EXPECT_EQ(pair.proxy()->setVolume(1001, 40), -1);
    EXPECT_CALL(*client, detach(1001)).WillOnce(Return(0));
    service->broadcaster->detach(1001);
    EXPECT_THAT(pair.events()->transactions(), SizeIs(1));
}

}  // namespace
}  // namespace accessory::testkit
