// A client's notifier as the services see it: it counts the events that reach it, and dies when it is told
// to.
#pragma once

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <algorithm>
#include <vector>

namespace accessory::fuzz {

/// For one thread. Has no interface of its own, so the stubs put a proxy before it.
class SessionClient : public android::BBinder {
  public:
    int events = 0;

    bool isBinderAlive() const override { return mAlive; }

    android::status_t linkToDeath(const android::sp<DeathRecipient>& recipient, void* /*cookie*/,
                                  uint32_t /*flags*/) override {
        if (!mAlive) return android::DEAD_OBJECT;
        mLinked.push_back(recipient);
        return android::NO_ERROR;
    }

    android::status_t unlinkToDeath(const android::wp<DeathRecipient>& recipient, void* /*cookie*/,
                                    uint32_t /*flags*/, android::wp<DeathRecipient>* /*out*/) override {
        const auto found = std::find(mLinked.begin(), mLinked.end(), recipient);
        if (found == mLinked.end()) return android::NAME_NOT_FOUND;
        mLinked.erase(found);
        return android::NO_ERROR;
    }

    /// Tells everyone who is linked, once.
    void die() {
        mAlive = false;
        std::vector<android::wp<DeathRecipient>> bereaved;
        bereaved.swap(mLinked);
        for (const android::wp<DeathRecipient>& weak : bereaved) {
            const android::sp<DeathRecipient> recipient = weak.promote();
            if (recipient != nullptr) recipient->binderDied(this);
        }
    }

    /// Alive again, and linked to nobody: as good as new.
    void revive() {
        mAlive = true;
        mLinked.clear();
        events = 0;
    }

  protected:
    android::status_t onTransact(uint32_t /*code*/, const android::Parcel& /*data*/, android::Parcel* reply,
                                 uint32_t /*flags*/) override {
        ++events;
        reply->writeNoException();
        return reply->writeInt32(0);
    }

  private:
    bool mAlive = true;
    std::vector<android::wp<DeathRecipient>> mLinked;
};

}  // namespace accessory::fuzz
