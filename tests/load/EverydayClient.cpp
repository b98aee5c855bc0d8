// A client of the soak: CHILD_ROLE(everydayClient) registers with the managers of two services, makes
// requests of all kinds, and checks every answer and the order of the events.
//
// Arguments: the steady service's prefix, and that of the one that is killed now and then, whose failures are
// forgiven: its managers are found again. "rest" ends the requests and is answered with their number; "leave"
// takes the registrations back and is answered with the numbers of the last rounds that it heard of each
// manager.
#include <accessory/AppleiAP2ManagerNotifierAdapter.h>
#include <accessory/IAccessoryManager.h>
#include <accessory/IAppleUSBAudioManager.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/load/EverydayService.h"
#include "tests/load/Load.h"
#include "tests/simulator/Everything.h"
#include "tests/support/ChildRole.h"
#include "tests/support/Eventually.h"

namespace accessory::load {
namespace {

using android::sp;
using android::String8;

/// Each number follows the one before, from wherever the client came in.
class Rounds {
  public:
    void hear(unsigned int number) {
        if (number < kFirstRound || number > kLastRound) return;
        EXPECT_TRUE(mLast == 0 || number == mLast + 1) << number << " after " << mLast;
        mLast = number;
    }
    unsigned int last() const { return mLast; }

  private:
    std::atomic<unsigned int> mLast{0};
};

class Listener : public AppleiAP2ManagerNotifierAdapter {
  public:
    Rounds rounds;
    int attach(unsigned int number) override {
        rounds.hear(number);
        return 0;
    }
};

class AudioListener : public AppleUSBAudioManagerNotifierImplItf {
  public:
    Rounds rounds;
    int attach(unsigned int number) override {
        rounds.hear(number);
        return 0;
    }
    int detach(unsigned int /*accessoryId*/) override { return 0; }
};

/// The managers of one service, and this client's registrations there.
class Managers {
  public:
    explicit Managers(const std::string& prefix)
        : mAccessories(find<IAccessoryManager>(prefix)),
          mManager(find<IAppleiAP2Manager>(prefix)),
          mAudio(find<IAppleUSBAudioManager>(prefix)) {}

    bool areFound() const { return mAccessories != nullptr && mManager != nullptr && mAudio != nullptr; }

    bool enter() { return mManager->setNotifier(mNotifier) == 0 && mAudio->setNotifier(mAudioNotifier) == 0; }

    /// @return whether all is given back: nobody but this client holds its notifiers.
    bool leave() {
        if (mManager->clearNotifier() != 0 || mAudio->clearNotifier() != 0) return false;
        return test::eventually(
            [this] { return mNotifier->getStrongCount() == 1 && mAudioNotifier->getStrongCount() == 1; });
    }

    static constexpr uint64_t kRequestsOfAsk = 9;

    /// So many requests, of every manager. @return false when one was not answered as it should be.
    bool ask() {
        unsigned int ids[10] = {};
        unsigned int count = 0;
        return mAccessories->getDeviceCount() == 3 && mAccessories->getFeature(8) == 9 &&
               mAccessories->getPath(70) == String8(std::string(70, 'x').c_str()) &&
               mAccessories->getAccessoryId(String8("four")) == 4 && mManager->setName("everyday") == 0 &&
               mManager->stopHID(1) == 0 && mAudio->getIds(ids, &count) == 0 && count == 1 && ids[0] == 5 &&
               mAudio->setVolume(1, 2) == 0 && mAudio->play(1) == 0;
    }

    int askForAllUpdates() { return simulator::test::askForEverything(*mManager, 1); }
    std::string lastRounds() const {
        return std::to_string(mListener->rounds.last()) + ' ' + std::to_string(mAudioListener->rounds.last());
    }

  private:
    template <typename Interface>
    static sp<Interface> find(const std::string& prefix) {
        return Interface::asInterface(
            android::defaultServiceManager()->checkService(everydayName(prefix, Interface::descriptor)));
    }

    const sp<IAccessoryManager> mAccessories;
    const sp<IAppleiAP2Manager> mManager;
    const sp<IAppleUSBAudioManager> mAudio;
    const sp<Listener> mListener{new Listener};
    const sp<AudioListener> mAudioListener{new AudioListener};
    const sp<IAppleiAP2ManagerNotifier> mNotifier{new BnAppleiAP2ManagerNotifier(mListener)};
    const sp<IAppleUSBAudioManagerNotifier> mAudioNotifier{
        new BnAppleUSBAudioManagerNotifier(mAudioListener)};
};

class EverydayClient {
  public:
    EverydayClient(const std::string& steady, std::string mortal)
        : mSteady(steady), mMortal(std::move(mortal)) {
        EXPECT_TRUE(mSteady.areFound() && mSteady.enter());
        mAsking = std::thread([this] { askSteady(); });
        mReturning = std::thread([this] { askMortal(); });
    }

    uint64_t endRequests() {
        mEnough = true;
        mAsking.join();
        mReturning.join();
        return mRequests;
    }

    std::string leave() {
        EXPECT_TRUE(mSteady.leave());
        return mSteady.lastRounds();
    }

  private:
    void askSteady() {
        while (!mEnough) {
            EXPECT_TRUE(mSteady.ask());
            mRequests += Managers::kRequestsOfAsk + static_cast<uint64_t>(mSteady.askForAllUpdates());
            rest(std::chrono::milliseconds(2));
        }
    }

    /// Enters anew whenever the service does not answer any more.
    void askMortal() {
        while (!mEnough) {
            Managers managers(mMortal);
            if (managers.areFound() && managers.enter()) {
                while (!mEnough && managers.ask())
                    rest(std::chrono::milliseconds(2));
            }
            rest(std::chrono::milliseconds(2));
        }
    }

    Managers mSteady;
    const std::string mMortal;
    std::atomic<bool> mEnough{false};
    std::atomic<uint64_t> mRequests{0};
    std::thread mAsking;
    std::thread mReturning;
};

CHILD_ROLE(everydayClient) {
    android::ProcessState::self()->startThreadPool();
    EverydayClient client(args.at(0), args.at(1));
    parent.send("ready");
    for (std::string order = parent.expectLine(untilTheEnd()); order != "bye";
         order = parent.expectLine(untilTheEnd())) {
        if (order == "rest") parent.send(std::to_string(client.endRequests()));
        if (order == "leave") parent.send(client.leave());
    }
    return 0;
}

}  // namespace
}  // namespace accessory::load
