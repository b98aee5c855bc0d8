#include "tools/accessoryctl/WatchedService.h"

#include "tools/rows/Registration.h"

namespace accessory::ctl {

using android::IBinder;
using android::sp;

struct WatchedService::Recipient : public IBinder::DeathRecipient {
    explicit Recipient(std::function<void()> told) : tell(std::move(told)) {}

    void binderDied(const android::wp<IBinder>& /*who*/) override {
        dead = true;
        tell();
    }

    const std::function<void()> tell;
    std::atomic<bool> dead{false};
};

WatchedService::WatchedService(const tools::Interface& notifier, WatchNotifier::Listener listener,
                               std::function<void()> died)
    : mNotifier(notifier),
      mName(tools::managerOf(notifier).descriptor),
      mBinder(new WatchNotifier(notifier, std::move(listener))),
      mDied(std::move(died)) {}

WatchedService::~WatchedService() = default;

bool WatchedService::connect(const Options& options) {
    const sp<IBinder> service = look(options, mName);
    if (service == nullptr) return false;
    const sp<Recipient> recipient = new Recipient(mDied);
    if (service->linkToDeath(recipient) != android::NO_ERROR) return false;
    android::Parcel trial;
    const uint32_t code = tools::encodeSetNotifier(mNotifier, mBinder, &trial);
    const auto outcome = transact(options, service, code, mName, [this](android::Parcel* request) {
        tools::encodeSetNotifier(mNotifier, mBinder, request);
    });
    if (outcome->status == android::DEAD_OBJECT) return false;
    if (outcome->status != android::NO_ERROR) throw transportFailure(mName, outcome->status);
    const Json::Value answer =
        tools::servedOperation(tools::managerOf(mNotifier), code)->decodeReply(outcome->reply);
    if (answer["result"] != 0) {
        throw Failure(kFailed, mName + " does not take a notifier: result " + answer["result"].asString());
    }
    mService = service;
    mRecipient = recipient;
    return true;
}

bool WatchedService::takeDeath() {
    if (!isConnected() || !mRecipient->dead) return false;
    mService = nullptr;
    mRecipient = nullptr;
    return true;
}

void WatchedService::disconnect(const Options& options) {
    if (!isConnected()) return;
    mService->unlinkToDeath(mRecipient);
    const tools::Operation& clear =
        *tools::findOperations(tools::managerOf(mNotifier), "clearNotifier").front();
    try {
        transact(options, mService, clear.code, mName, [&clear](android::Parcel* request) {
            clear.encode(Json::Value(Json::objectValue), request);
        });
    } catch (const Failure&) {
    }
    mService = nullptr;
}

}  // namespace accessory::ctl
