// The mocks: each takes its interface's place, and a stub works upon those of implementations.
#include <accessory/testing/Kept.h>
#include <accessory/testing/MockAccessoryManager.h>
#include <accessory/testing/MockAppleUSBAudioManager.h>
#include <accessory/testing/MockAppleUSBAudioManagerNotifier.h>
#include <accessory/testing/MockAppleiAP2Manager.h>
#include <accessory/testing/MockAppleiAP2ManagerNotifier.h>
#include <binder/IServiceManager.h>

namespace accessory::testkit {
namespace {

using android::sp;
using testing::A;
using testing::Return;

TEST(Mocks, OfInterfacesAreBindersThatLeadBackToThem) {
    const sp<IAppleiAP2Manager> manager = new MockAppleiAP2Manager;
    const sp<IAppleiAP2ManagerNotifier> notifier = new MockAppleiAP2ManagerNotifier;
    const sp<IAppleUSBAudioManager> audio = new MockAppleUSBAudioManager;
    const sp<IAppleUSBAudioManagerNotifier> audioNotifier = new MockAppleUSBAudioManagerNotifier;
    const sp<IAccessoryManager> accessories = new MockAccessoryManager;
    using android::IInterface;
    EXPECT_EQ(IAppleiAP2Manager::asInterface(IInterface::asBinder(manager)), manager);
    EXPECT_EQ(IAppleiAP2ManagerNotifier::asInterface(IInterface::asBinder(notifier)), notifier);
    EXPECT_EQ(IAppleUSBAudioManager::asInterface(IInterface::asBinder(audio)), audio);
    EXPECT_EQ(IAppleUSBAudioManagerNotifier::asInterface(IInterface::asBinder(audioNotifier)), audioNotifier);
    EXPECT_EQ(IAccessoryManager::asInterface(IInterface::asBinder(accessories)), accessories);
}

TEST(Mocks, OfInterfacesAreFoundByCodeThatLooksTheServiceUp) {
    const sp<MockAccessoryManager> published = new MockAccessoryManager;
    const android::String16 name("mocked");
    ASSERT_EQ(android::defaultServiceManager()->addService(name, published), 0);
    const sp<IAccessoryManager> found =
        IAccessoryManager::asInterface(android::defaultServiceManager()->getService(name));
    testing::Mock::AllowLeak(published.get());  // the directory of services keeps it
    EXPECT_CALL(*published, getDeviceCount).WillOnce(Return(2));
    EXPECT_EQ(found->getDeviceCount(), 2);
}

TEST(Mocks, TellOperationsOfOneNameApart) {
    const sp<MockAppleiAP2Manager> manager = new MockAppleiAP2Manager;
    EXPECT_CALL(*manager, startHID(A<unsigned int>())).WillOnce(Return(1));
    EXPECT_CALL(*manager, startHID(A<unsigned int>(), A<HIDReportAttributes*>())).WillOnce(Return(2));
    HIDReportAttributes attributes;
    EXPECT_EQ(manager->startHID(7), 1);
    EXPECT_EQ(manager->startHID(7, &attributes), 2);
}

TEST(Mocks, OfServicesKeepTheBroadcasterThatTheStubHandsOver) {
    const sp<MockAppleiAP2ManagerImpl> service = new MockAppleiAP2ManagerImpl;
    const sp<MockAppleUSBAudioManagerImpl> audio = new MockAppleUSBAudioManagerImpl;
    kept(new BnAppleiAP2Manager(service));
    kept(new BnAppleUSBAudioManager(audio));
    EXPECT_NE(service->broadcaster, nullptr);
    EXPECT_NE(audio->broadcaster, nullptr);
}

TEST(Mocks, OfBroadcastersHearWhatAServiceRaises) {
    const sp<MockAppleiAP2ManagerBroadcaster> broadcaster = new MockAppleiAP2ManagerBroadcaster;
    const sp<MockAppleUSBAudioManagerBroadcaster> audio = new MockAppleUSBAudioManagerBroadcaster;
    EXPECT_CALL(*broadcaster, detach(7)).WillOnce(Return(0));
    EXPECT_CALL(*audio, attach(8)).WillOnce(Return(-1));
    EXPECT_EQ(sp<AppleiAP2ManagerNotifierItf>(broadcaster)->detach(7), 0);
    EXPECT_EQ(sp<AppleUSBAudioManagerNotifierItf>(audio)->attach(8), -1);
}

TEST(Kept, LivesOnWhenNobodyElseHoldsIt) {
    const android::wp<MockAccessoryManagerImpl> weak = kept(new MockAccessoryManagerImpl);
    EXPECT_NE(weak.promote(), nullptr);
    testing::Mock::AllowLeak(weak.promote().get());
}

}  // namespace
}  // namespace accessory::testkit
