// BinderPair: a client's proxy and a service's stub in one process, with every call between them a parcel
// that is recorded.
//
//     const auto service = sp(new testing::NiceMock<MockAppleiAP2ManagerImpl>);
//     const BinderPair<IAppleiAP2Manager> pair(service);
//     Player player(pair.proxy());              // the code under test
//     service->broadcaster->attach(1);          // an event, by parcel, when the player has registered
//     pair.requests().die();                    // the service ends
#pragma once

#include <accessory/testing/Kept.h>
#include <accessory/testing/RecordingBinder.h>
#include <accessory/testing/Sides.h>
#include <gmock/gmock.h>

namespace accessory::testkit {

/// Requests and events run on the thread that makes them, one within the other where the code nests them. As
/// between processes, a client must not register or deregister from within an event. Here it also must not
/// die there, nor make a request upon which the service raises an event at once: the round that runs holds
/// the lock.
///
/// A manager's stub lives as long as the process, and its implementation with it. So the end of the pair does
/// what the end of the implementation would: it checks the expectations of a mock, and it ends the client.
template <typename Interface>
class BinderPair {
    using Implementation = typename Sides<Interface>::Implementation;
    static constexpr bool kRegisters = Sides<Interface>::kRegisters;

  public:
    /// @param implementation a mock or a real one; a stub is made for it.
    explicit BinderPair(const android::sp<Implementation>& implementation)
        : mImplementation(implementation),
          mRequests(new RecordingBinder(stubOf(implementation))),
          mProxy(Interface::asInterface(mRequests)) {
        if constexpr (kRegisters) mRequests->recordBinderIn(kSetNotifier);
    }

    ~BinderPair() {
        if (events() != nullptr) events()->die();
        if constexpr (kRegisters) testing::Mock::VerifyAndClearExpectations(address());
    }

    BinderPair(const BinderPair&) = delete;
    BinderPair& operator=(const BinderPair&) = delete;

    /// What the client is given. Interface::asInterface(binder) makes the same, for code that gets a binder.
    const android::sp<Interface>& proxy() const { return mProxy; }

    /// The service as the client sees it: what it was asked, and what it shall answer.
    RecordingBinder& requests() const { return *mRequests; }

    /// The client as the service sees it: the events that it got; its die() is the client's end. Null until
    /// the client has registered.
    android::sp<RecordingBinder> events() const { return mRequests->received(); }

  private:
    /// Both interfaces with registration begin with it.
    static constexpr uint32_t kSetNotifier = android::IBinder::FIRST_CALL_TRANSACTION;

    android::sp<android::IBinder> stubOf(const android::sp<Implementation>& implementation) {
        const android::sp<android::IBinder> stub = new typename Sides<Interface>::Stub(implementation);
        if constexpr (!kRegisters) return stub;
        testing::Mock::AllowLeak(address());
        return kept(stub);
    }

    /// By which GoogleMock knows a mock: that of the whole object.
    void* address() const { return dynamic_cast<void*>(mImplementation.get()); }

    const android::sp<Implementation> mImplementation;
    const android::sp<RecordingBinder> mRequests;
    const android::sp<Interface> mProxy;
};

}  // namespace accessory::testkit
