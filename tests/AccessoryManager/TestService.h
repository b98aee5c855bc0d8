// The service of the tests with two processes: CHILD_ROLE(accessoryService) publishes it, RunningService
// starts it.
#pragma once

#include <accessory/IAccessoryManager.h>

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// A service in a process of its own. Its answers follow rules:
/// getDeviceCount()   3
/// getFeature(id)     ~id; kWaitForever never answers and says "waiting" to the test
/// getPath(id)        id bytes "xyzxyz..."; all identifiers up to 4 MiB
/// getAccessoryId(p)  the sum of p's bytes, each times its place counted from 1
/// dump()             "arguments: ..." with each argument in brackets
class RunningService {
  public:
    static constexpr unsigned int kWaitForever = 0xdead;

    RunningService();

    android::sp<android::IBinder> binder() const { return mBinder; }
    android::sp<IAccessoryManager> manager() const { return IAccessoryManager::asInterface(mBinder); }

    /// What the service has logged under the interface's tag since the last time, as "priority text" with '|'
    /// behind each line.
    std::string log();

    /// The flags with which its latest request arrived.
    std::string flags();

    ChildProcess process;

  private:
    explicit RunningService(const std::string& name);

    android::sp<android::IBinder> mBinder;
};

/// The first @p length bytes of "xyzxyz...".
std::string pathOfLength(size_t length);

/// What the service answers for @p path.
int32_t identifierOf(const std::string& path);

}  // namespace accessory::test
