// Mocks of the accessory manager: of the interface, for an application that is given one, and of a service's
// implementation, which a real stub calls.
#pragma once

#include <accessory/IAccessoryManager.h>
#include <gmock/gmock.h>

namespace accessory::testkit {

/// The queries, mocked once for both.
template <typename Base>
class MockAccessoryQueries : public Base {
  public:
    MOCK_METHOD(int32_t, getDeviceCount, (), (override));
    MOCK_METHOD(int32_t, getFeature, (unsigned int), (override));
    MOCK_METHOD(android::String8, getPath, (unsigned int), (override));
    MOCK_METHOD(int32_t, getAccessoryId, (const android::String8&), (override));
};

/// In place of the manager. A binder of this process, so asBinder() and asInterface() lead back to it, and it
/// may be published with addService() for code that looks the service up.
class MockAccessoryManager : public MockAccessoryQueries<android::BnInterface<IAccessoryManager>> {};

/// In place of a service, behind a BnAccessoryManager.
class MockAccessoryManagerImpl : public MockAccessoryQueries<AccessoryManagerImplItf> {
  public:
    MOCK_METHOD(int, dump, (const android::Vector<android::String16>&, android::String8&), (override));
};

}  // namespace accessory::testkit
