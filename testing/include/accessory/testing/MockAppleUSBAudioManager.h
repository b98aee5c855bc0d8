// Mocks of the USB audio manager: of the interface, for an application that is given one, and of a service's
// implementation, which a real stub calls.
#pragma once

#include <accessory/IAppleUSBAudioManager.h>
#include <gmock/gmock.h>

namespace accessory::testkit {

/// The requests that the interface and the implementation have in common, mocked once for both.
template <typename Base>
class MockAppleUSBAudioRequests : public Base {
  public:
    MOCK_METHOD(int, startup, (), (override));
    MOCK_METHOD(int, shutdown, (), (override));
    MOCK_METHOD(int, getIds, (unsigned int*, unsigned int*), (override));
    MOCK_METHOD(int, setVolume, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, setSampleRate, (unsigned int, unsigned int), (override));
    MOCK_METHOD(int, start, (unsigned int), (override));
    MOCK_METHOD(int, stop, (unsigned int), (override));
    MOCK_METHOD(int, play, (unsigned int), (override));
    MOCK_METHOD(int, pause, (unsigned int), (override));
};

/// In place of the manager. A binder of this process, so asBinder() and asInterface() lead back to it, and it
/// may be published with addService() for code that looks the service up.
class MockAppleUSBAudioManager
    : public MockAppleUSBAudioRequests<android::BnInterface<IAppleUSBAudioManager>> {
  public:
    MOCK_METHOD(int, setNotifier, (const android::sp<IAppleUSBAudioManagerNotifier>&), (override));
    MOCK_METHOD(int, clearNotifier, (), (override));
};

/// In place of a service, behind a BnAppleUSBAudioManager.
class MockAppleUSBAudioManagerImpl : public MockAppleUSBAudioRequests<AppleUSBAudioManagerImplItf> {
  public:
    /// By which the test raises events; the stub hands it over when it is made. Not an expectation, because
    /// every stub does it.
    android::sp<AppleUSBAudioManagerNotifierItf> broadcaster;

    int addNotifier(const android::sp<AppleUSBAudioManagerNotifierItf>& notifier) override {
        broadcaster = notifier;
        return 0;
    }
    MOCK_METHOD(int, dump, (const android::Vector<android::String16>&, android::String8&), (override));
};

}  // namespace accessory::testkit
