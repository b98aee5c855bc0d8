// Descriptor, asInterface() and queryLocalInterface(): telling an object of this process from another's.
#include <binder/IServiceManager.h>

#include "tests/AccessoryManager/FakeRemote.h"
#include "tests/AccessoryManager/StubFixture.h"

namespace accessory::test {
namespace {

using android::IBinder;
using android::IInterface;
using android::sp;
using android::String16;

/// Taken while the program itself is still being initialised; its libraries are by then.
// NOLINTNEXTLINE(cppcoreguidelines-interfaces-global-init): the order is what is tested
const size_t lengthAtLoad = IAccessoryManager::descriptor.size();

class LocalBinder : public StubFixture {
  protected:
    /// Through the base, as asInterface() asks.
    sp<IInterface> query(const String16& descriptor) {
        return static_cast<IBinder*>(stub.get())->queryLocalInterface(descriptor);
    }
};

TEST(AccessoryManagerDescriptor, IsTheInterfacesName) {
    EXPECT_EQ(IAccessoryManager::descriptor, String16("accessory.AccessoryManager"));
}

TEST(AccessoryManagerDescriptor, IsThereAsSoonAsTheLibraryIsLoaded) { EXPECT_EQ(lengthAtLoad, 26u); }

TEST_F(LocalBinder, ReturnsTheDescriptorItselfFromEverySide) {
    const sp<IAccessoryManager> proxy = IAccessoryManager::asInterface(new FakeRemote);
    EXPECT_EQ(&static_cast<IAccessoryManager&>(*stub).getInterfaceDescriptor(),
              &IAccessoryManager::descriptor);
    EXPECT_EQ(&static_cast<IBinder&>(*stub).getInterfaceDescriptor(), &IAccessoryManager::descriptor);
    EXPECT_EQ(&proxy->getInterfaceDescriptor(), &IAccessoryManager::descriptor);
}

TEST_F(LocalBinder, IsNullAsAnInterfaceWhenItIsNull) {
    EXPECT_EQ(IAccessoryManager::asInterface(nullptr), nullptr);
}

TEST_F(LocalBinder, IsTheStubItselfAsAnInterface) {
    const sp<IAccessoryManager> manager = IAccessoryManager::asInterface(stub);
    EXPECT_EQ(manager.get(), static_cast<IAccessoryManager*>(stub.get()));
    EXPECT_EQ(IInterface::asBinder(manager).get(), static_cast<IBinder*>(stub.get()));
}

TEST_F(LocalBinder, IsAProxyAsAnInterfaceWhenItsObjectIsElsewhere) {
    const sp<FakeRemote> remote = new FakeRemote;
    const sp<IAccessoryManager> manager = IAccessoryManager::asInterface(remote);
    EXPECT_NE(dynamic_cast<BpAccessoryManager*>(manager.get()), nullptr);
    EXPECT_EQ(IInterface::asBinder(manager).get(), remote.get());
    EXPECT_TRUE(remote->requests.empty());
}

TEST_F(LocalBinder, IsAnotherProxyEachTime) {
    const sp<FakeRemote> remote = new FakeRemote;
    EXPECT_NE(IAccessoryManager::asInterface(remote), IAccessoryManager::asInterface(remote));
}

TEST_F(LocalBinder, AnswersToItsOwnDescriptor) {
    EXPECT_EQ(query(String16("accessory.AccessoryManager")).get(), static_cast<IInterface*>(stub.get()));
    EXPECT_EQ(query(IAccessoryManager::descriptor).get(), static_cast<IInterface*>(stub.get()));
}

TEST_F(LocalBinder, AnswersToNoOtherDescriptor) {
    for (const char* other :
         {"", "a", "accessory.AccessoryManage", "accessory.AccessoryManagerX", "Accessory.AccessoryManager",
          "accessory.AppleiAP2Manager", "ccessory.AccessoryManager"})
        EXPECT_EQ(query(String16(other)), nullptr) << other;
}

TEST_F(LocalBinder, IsTheStubItselfWhenItsOwnProcessLooksTheServiceUp) {
    ASSERT_EQ(android::defaultServiceManager()->addService(String16("local"), stub), android::NO_ERROR);
    const sp<IBinder> found = android::defaultServiceManager()->checkService(String16("local"));
    EXPECT_EQ(IAccessoryManager::asInterface(found).get(), static_cast<IAccessoryManager*>(stub.get()));
}

TEST_F(LocalBinder, CallsTheImplementationWithoutARequest) {
    EXPECT_CALL(*accessories, getFeature(7)).WillOnce(testing::Return(-3));
    EXPECT_CALL(*accessories, getPath(8)).WillOnce(testing::Return(android::String8("/dev/8")));
    const sp<IAccessoryManager> manager = IAccessoryManager::asInterface(stub);
    EXPECT_EQ(manager->getFeature(7), -3);
    EXPECT_STREQ(manager->getPath(8).string(), "/dev/8");
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

}  // namespace
}  // namespace accessory::test
