// WatchedService: a service that calls a notifier of ours, from its registration to its death.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/WatchNotifier.h"

namespace accessory::ctl {

/// For one thread, the watcher's. Death is told on a thread of the runtime.
class WatchedService {
  public:
    /// @param died called once for each death of a service that was connected; must not block.
    WatchedService(const tools::Interface& notifier, WatchNotifier::Listener listener,
                   std::function<void()> died);
    ~WatchedService();
    WatchedService(const WatchedService&) = delete;
    WatchedService& operator=(const WatchedService&) = delete;

    const std::string& name() const { return mName; }
    bool isConnected() const { return mService != nullptr; }

    /// Looks for the service and registers the notifier. @return false when there is no service.
    /// @throws Failure when it is there and does not take the notifier.
    bool connect(const Options& options);

    /// Whether the service died since it was connected; it is not connected then any more.
    bool takeDeath();

    /// Takes the notifier back. Failures are of no interest any more.
    void disconnect(const Options& options);

  private:
    struct Recipient;

    const tools::Interface& mNotifier;
    const std::string mName;
    const android::sp<android::IBinder> mBinder;
    const std::function<void()> mDied;
    android::sp<android::IBinder> mService;
    android::sp<Recipient> mRecipient;
};

}  // namespace accessory::ctl
