// Mocks of the USB audio manager's events: of the notifier, of a client's implementation behind a real stub,
// and of the broadcaster, for a service that raises them.
#pragma once

#include <accessory/AppleUSBAudioManagerNotifier.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <gmock/gmock.h>

namespace accessory::testkit {

/// The two events, mocked once for the three classes that have them.
template <typename Base>
class MockAppleUSBAudioEvents : public Base {
  public:
    MOCK_METHOD(int, attach, (unsigned int), (override));
    MOCK_METHOD(int, detach, (unsigned int), (override));
};

/// In place of a client's notifier. A binder of this process, so a service may register it.
class MockAppleUSBAudioManagerNotifier
    : public MockAppleUSBAudioEvents<android::BnInterface<IAppleUSBAudioManagerNotifier>> {};

/// In place of a client, behind a BnAppleUSBAudioManagerNotifier.
class MockAppleUSBAudioManagerNotifierImpl
    : public MockAppleUSBAudioEvents<AppleUSBAudioManagerNotifierImplItf> {};

/// In place of the broadcaster that a service is given with addNotifier().
class MockAppleUSBAudioManagerBroadcaster : public MockAppleUSBAudioEvents<AppleUSBAudioManagerNotifierItf> {
};

}  // namespace accessory::testkit
