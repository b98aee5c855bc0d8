// Registering a notifier that is no implementation of the notifier's interface but only an object that takes
// its transactions.
#pragma once

#include <binder/IBinder.h>
#include <binder/Parcel.h>

#include "tools/rows/Operation.h"

namespace accessory::tools {

/// The interface of the service that calls the notifiers of @p notifier.
const Interface& managerOf(const Interface& notifier);

/// The request of setNotifier() with @p binder for the notifier.
/// @return its code.
uint32_t encodeSetNotifier(const Interface& notifier, const android::sp<android::IBinder>& binder,
                           android::Parcel* request);

}  // namespace accessory::tools
