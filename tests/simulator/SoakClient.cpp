// A head unit application under load, in a process of its own: it counts the events that it gets and the
// requests that it makes.
//
// Lines from the test: "begin" starts all up, "requests" ends the requests and "events" asks for a count,
// which are answered with a number; "more" is answered as soon as there are more events.
#include <accessory/IAppleUSBAudioManager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "simulator/Values.h"
#include "tests/simulator/Everything.h"
#include "tests/support/ChildRole.h"

namespace accessory::simulator::test {
namespace {

/// Counts up, and lets somebody wait for that.
class Counter {
  public:
    void add() {
        const std::lock_guard lock(mLock);
        ++mCount;
        mChanged.notify_all();
    }
    uint64_t count() const {
        const std::lock_guard lock(mLock);
        return mCount;
    }
    bool awaitMore(uint64_t than) {
        std::unique_lock lock(mLock);
        return mChanged.wait_for(lock, accessory::test::kPatience, [&] { return mCount > than; });
    }

  private:
    mutable std::mutex mLock;
    std::condition_variable mChanged;
    uint64_t mCount = 0;
};

/// A notifier that counts what arrives before it is looked at.
template <typename Stub>
class CountingStub : public Stub {
  public:
    template <typename Receiver>
    CountingStub(const android::sp<Receiver>& receiver, Counter& events) : Stub(receiver), mEvents(events) {}

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override {
        if (code <= android::IBinder::LAST_CALL_TRANSACTION) mEvents.add();
        return Stub::onTransact(code, data, reply, flags);
    }

  private:
    Counter& mEvents;
};

class AudioListener : public AppleUSBAudioManagerNotifierImplItf {
    int attach(unsigned int /*accessoryId*/) override { return 0; }
    int detach(unsigned int /*accessoryId*/) override { return 0; }
};

template <typename Interface>
android::sp<Interface> find() {
    return Interface::asInterface(android::defaultServiceManager()->getService(Interface::descriptor));
}

class SoakClient {
  public:
    explicit SoakClient(bool leads) : mLeads(leads) {
        android::ProcessState::self()->startThreadPool();
        const android::sp<AppleiAP2ManagerNotifierImplItf> receiver =
            new OnAttach([this](unsigned int accId) { greet(accId); });
        expectDone(mManager->setNotifier(new CountingStub<BnAppleiAP2ManagerNotifier>(receiver, mEvents)));
        const android::sp<AppleUSBAudioManagerNotifierImplItf> audioReceiver = new AudioListener;
        expectDone(
            mAudio->setNotifier(new CountingStub<BnAppleUSBAudioManagerNotifier>(audioReceiver, mEvents)));
    }

    /// Starts the service up, if this one leads, and makes requests between the events from here on.
    void begin() {
        if (mLeads) {
            expectDone(mAudio->startup());
            expectDone(mManager->startup(kTransportUSBHost));
        }
        mAsking = std::thread([this] { ask(); });
    }

    /// @return how many requests were made in all; there will be no more.
    uint64_t endRequests() {
        mEnough = true;
        mAsking.join();
        const std::lock_guard lock(mGreeting);
        return mRequests;
    }

    Counter& events() { return mEvents; }

  private:
    void expectDone(int status) {
        EXPECT_EQ(status, kDone);
        ++mRequests;
    }

    void greet(unsigned int accId) {
        const std::lock_guard lock(mGreeting);
        if (!mLeads || mEnough) return;
        mRequests += static_cast<uint64_t>(askForEverything(*mManager, accId));
        expectDone(mManager->startUSBDeviceModeAudio(accId));
    }

    void ask() {
        unsigned int ids[10];
        unsigned int count = 0;
        while (!mEnough) {
            EXPECT_TRUE(mEvents.awaitMore(mEvents.count()));
            expectDone(mManager->getAccessoryIds(ids, &count));
        }
    }

    const bool mLeads;
    const android::sp<IAppleiAP2Manager> mManager = find<IAppleiAP2Manager>();
    const android::sp<IAppleUSBAudioManager> mAudio = find<IAppleUSBAudioManager>();
    Counter mEvents;
    std::atomic<uint64_t> mRequests{0};
    std::atomic<bool> mEnough{false};
    std::mutex mGreeting;  ///< held while requests are made from a callback
    std::thread mAsking;
};

CHILD_ROLE(soakClient) {
    SoakClient client(args[0] == "leads");
    parent.send("registered");
    uint64_t seen = 0;
    for (std::string order = parent.expectLine(); order != "end"; order = parent.expectLine()) {
        if (order == "begin") client.begin();
        if (order == "more") {
            EXPECT_TRUE(client.events().awaitMore(seen));
            seen = client.events().count();
        }
        parent.send(std::to_string(order == "requests" ? client.endRequests() : client.events().count()));
    }
    return 0;
}

}  // namespace
}  // namespace accessory::simulator::test
