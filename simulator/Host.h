// Host: the three managers of one world, published under the names of their interfaces.
#pragma once

#include <binder/IBinder.h>

#include <string>

#include "simulator/World.h"
#include "simulator/faults/FaultInjector.h"

namespace accessory::simulator {

class Host {
  public:
    /// Makes the managers. @param world, @param report, @param faults must outlive the process's last call:
    /// stubs once made stay.
    Host(World& world, Report& report, FaultInjector& faults);

    /// Publishes the managers. @return 0; ALREADY_EXISTS when another process has a name; else why it failed.
    /// @param name is set to the one that could not be published.
    android::status_t publish(std::string* name);

  private:
    android::sp<android::IBinder> mAccessoryManager;
    android::sp<android::IBinder> mAP2Manager;
    android::sp<android::IBinder> mUSBAudioManager;
};

}  // namespace accessory::simulator
