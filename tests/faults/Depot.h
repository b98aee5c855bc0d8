// Depot: an object with which others exchange objects and large data, and at which calls can stay for ever.
#pragma once

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <atomic>
#include <mutex>
#include <vector>

#include "tests/platform/TestObjects.h"

namespace accessory::test {

enum DepotCall : uint32_t {
    kEchoAll = android::IBinder::FIRST_CALL_TRANSACTION,  ///< anything -> the same bytes
    kStay,                                                ///< is never answered
    kCrowd,                                               ///< waits at the gate
    kBring,                                               ///< object: keeps it beside a few others
    kTakeOne,                                             ///< -> an object kept, if there is one
    kCallOne,                                             ///< pings an object kept, if there is one
    kGift,                                                ///< -> a new object of the depot's process
    kAnchor,  ///< object: the depot's process wants to know this one
};

/// An object that is counted as long as it lives.
class Gift : public android::BBinder {
  public:
    Gift() { ++sAlive; }
    ~Gift() override { --sAlive; }
    static int alive() { return sAlive; }

  private:
    static inline std::atomic<int> sAlive{0};
};

/// Any number of threads may call it.
class Depot : public android::BBinder {
  public:
    /// Calls so far.
    int calls() const { return mCalls; }
    /// What that process left with kAnchor; null as long as it has not.
    android::sp<android::IBinder> anchorOf(pid_t process);
    /// Drops all that it keeps.
    void clear();

    Gate gate;

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

  private:
    void bring(android::sp<android::IBinder> object);
    android::sp<android::IBinder> one();

    std::atomic<int> mCalls{0};
    std::mutex mLock;  // guards what follows
    std::vector<android::sp<android::IBinder>> mKept;
    android::sp<android::IBinder> mAnchor;
    pid_t mAnchored = 0;
};

}  // namespace accessory::test
