// WatchNotifier: takes all transactions of a notifier's interface, knowing only its rows.
#pragma once

#include <binder/Binder.h>

#include <functional>
#include <string>
#include <utility>

#include "tools/rows/Operation.h"

namespace accessory::ctl {

/// An event as it arrived: its arguments, or why it could not be decoded.
struct Event {
    const tools::Interface& notifier;
    const tools::Operation& operation;
    Json::Value arguments;
    std::string error;
};

/// Answers every event with the result 0, as an implementation would.
class WatchNotifier : public android::BBinder {
  public:
    /// Called on the runtime's threads, several at once; the service waits for it, so it must not block.
    using Listener = std::function<void(const Event&)>;

    WatchNotifier(const tools::Interface& notifier, Listener listener)
        : mNotifier(notifier), mDescriptor(notifier.descriptor.c_str()), mListener(std::move(listener)) {}

    const android::String16& getInterfaceDescriptor() const override { return mDescriptor; }

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags) override;

  private:
    const tools::Interface& mNotifier;
    const android::String16 mDescriptor;
    const Listener mListener;
};

}  // namespace accessory::ctl
