// Reaching services without ever waiting longer than was asked for.
#pragma once

#include <binder/IBinder.h>
#include <binder/Parcel.h>

#include <functional>
#include <memory>
#include <string>

#include "tools/accessoryctl/Output.h"

namespace accessory::ctl {

/// Runs @p work on a thread of its own, for as long as it takes.
/// @param what is waited for, in the message.
/// @throws Failure kTimedOut when it does not end in time. The thread goes on with what @p work holds, which
/// must be its own.
void within(const Options& options, const std::string& what, std::function<void()> work);

/// Whether a thread of within() was left behind: the process must then end with _exit().
bool leftThreadBehind();

/// The service of that name.
/// @throws Failure kNoService, kTimedOut.
android::sp<android::IBinder> reach(const Options& options, const std::string& service);

/// As reach(), null when there is no such service.
android::sp<android::IBinder> look(const Options& options, const std::string& service);

/// What a call brought.
struct Outcome {
    android::status_t status = android::NO_ERROR;
    android::Parcel reply;
};

/// Transacts, with a request that @p write writes.
/// @throws Failure kTimedOut.
std::shared_ptr<Outcome> transact(const Options& options, const android::sp<android::IBinder>& binder,
                                  uint32_t code, const std::string& what,
                                  const std::function<void(android::Parcel*)>& write);

/// "DEAD_OBJECT", or the number of a status without a name.
std::string statusName(android::status_t status);

/// kNoService, and how to wait for it.
Failure noService(const std::string& service);

/// kServiceDied or kFailed, with the name of the status.
Failure transportFailure(const std::string& what, android::status_t status);

}  // namespace accessory::ctl
