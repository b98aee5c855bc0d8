// MortalRemote: a client's binder as the service sees it, whose death and whose refusals a test decides.
#pragma once

#include <functional>

#include "tests/AccessoryManager/FakeRemote.h"

namespace accessory::test {

/// Notes who is linked to its death and, as the runtime does, keeps them weakly. For one thread at a time.
class MortalRemote : public FakeRemote {
  public:
    android::status_t linkStatus = android::NO_ERROR;
    android::status_t unlinkStatus = android::NO_ERROR;
    std::function<void()> onUnlink;  ///< runs within unlinkToDeath()

    /// In the order of the calls.
    std::vector<android::wp<DeathRecipient>> linked;
    std::vector<android::wp<DeathRecipient>> unlinked;

    /// Whether every call had no cookie, no flags, and nowhere to put the recipient.
    bool plain = true;

    /// Tells the recipients that are linked.
    void die() {
        for (const android::wp<DeathRecipient>& weak : linked) {
            const android::sp<DeathRecipient> recipient = weak.promote();
            if (recipient != nullptr) recipient->binderDied(this);
        }
    }

    android::status_t linkToDeath(const android::sp<DeathRecipient>& recipient, void* cookie,
                                  uint32_t flags) override {
        plain = plain && cookie == nullptr && flags == 0;
        linked.emplace_back(recipient);
        return linkStatus;
    }

    android::status_t unlinkToDeath(const android::wp<DeathRecipient>& recipient, void* cookie,
                                    uint32_t flags, android::wp<DeathRecipient>* outRecipient) override {
        plain = plain && cookie == nullptr && flags == 0 && outRecipient == nullptr;
        unlinked.push_back(recipient);
        if (onUnlink) onUnlink();
        return unlinkStatus;
    }
};

}  // namespace accessory::test
