// The notifier that a client registers.
#pragma once

#include <binder/IInterface.h>

#include <tuple>

#include "common/Kinds.h"

namespace accessory::wire {

/// A notifier, by its binder.
template <typename Notifier>
struct NotifierBinder {
    static constexpr const char* kKind = "binder";
    using Arguments = std::tuple<const android::sp<Notifier>&>;

    const char* name = nullptr;
    const char* check = nullptr;  ///< names the step where only named ones are reported

    void write(Writer& out, const android::sp<Notifier>& notifier) const {
        out.binder(android::IInterface::asBinder(notifier), check);
    }

    struct Slot {
        android::sp<Notifier> notifier;

        GiveUp read(Reader& in) {
            notifier = Notifier::asInterface(in.binder());
            return kGoOn;
        }
        Arguments arguments() { return {notifier}; }
    };
};

}  // namespace accessory::wire
