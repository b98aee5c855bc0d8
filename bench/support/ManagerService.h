// An iAP2 manager that is published, and the way to it from another process.
#pragma once

#include <accessory/IAppleiAP2Manager.h>

#include <functional>
#include <string>

namespace accessory::bench {

/// Keeps the log to errors: programs in the field keep the rest off, and clients that end are no news here.
void quietLog();

/// Publishes a stub around @p implementation.
/// @return the stub; ends the process with a message when it cannot be published.
android::sp<android::IBinder> publishManager(const android::sp<AppleiAP2ManagerImplItf>& implementation,
                                             const std::string& name);

/// As publishManager(); then serves with this thread and the pool until the process is killed.
/// @param ready  called once the service can be reached.
[[noreturn]] void serveManager(const android::sp<AppleiAP2ManagerImplItf>& implementation,
                               const std::string& name, const std::function<void()>& ready);

/// The published manager.
/// @throw std::runtime_error when there is none.
android::sp<IAppleiAP2Manager> managerNamed(const std::string& name);

}  // namespace accessory::bench
