// How an application joins the iAP2 service: find it, register a notifier, notice its end, leave in good
// order.
#pragma once

#include <accessory/IAppleiAP2Manager.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <pthread.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <vector>

namespace examples {

constexpr int kServiceHasEnded = SIGUSR1;

/// The signals that end the program: those of the user, and its own.
inline sigset_t ends() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, kServiceHasEnded})
        sigaddset(&signals, signal);
    return signals;
}

/// Blocks them, for this thread and all that it starts later; ManagerConnection waits for them. To be called
/// first in main().
inline void endOnRequest() {
    const sigset_t signals = ends();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

class ManagerConnection {
  public:
    /// Waits 5 s for the service; check isOpen() afterwards.
    ManagerConnection()
        : mService(android::defaultServiceManager()->getService(accessory::IAppleiAP2Manager::descriptor)),
          mManager(accessory::IAppleiAP2Manager::asInterface(mService)) {
        if (mManager == nullptr) {
            fprintf(stderr, "there is no iAP2 service here; start one first: accessory-simulator\n");
        }
        android::ProcessState::self()->startThreadPool();
    }

    bool isOpen() const { return mManager != nullptr; }
    accessory::IAppleiAP2Manager& manager() const { return *mManager; }

    /// Registers @p events, which hears of everything from now on.
    /// @return false when the service has ended or refuses.
    bool listen(const android::sp<accessory::AppleiAP2ManagerNotifierImplItf>& events) {
        if (mService->linkToDeath(mEndOfService) != android::NO_ERROR) return false;
        return mManager->setNotifier(new accessory::BnAppleiAP2ManagerNotifier(events)) == 0;
    }

    /// Those that are attached already; they raise no more event.
    std::vector<unsigned int> phones() const {
        std::vector<unsigned int> ids(10);  // the most there are
        unsigned int count = 0;
        mManager->getAccessoryIds(ids.data(), &count);
        ids.resize(count);
        return ids;
    }

    /// Returns when the program was asked to end, and then deregisters, or when the service has ended.
    /// @return whether the service still lives.
    bool waitForTheEnd() {
        const sigset_t signals = ends();
        int signal = 0;
        sigwait(&signals, &signal);
        if (signal == kServiceHasEnded) return false;
        mManager->clearNotifier();
        return true;
    }

  private:
    class EndOfService : public android::IBinder::DeathRecipient {
        void binderDied(const android::wp<android::IBinder>& /*who*/) override {
            kill(getpid(), kServiceHasEnded);
        }
    };

    const android::sp<android::IBinder> mService;
    const android::sp<accessory::IAppleiAP2Manager> mManager;
    const android::sp<EndOfService> mEndOfService = new EndOfService;
};

}  // namespace examples
