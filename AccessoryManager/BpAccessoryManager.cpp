#include <accessory/IAccessoryManager.h>

#include "AccessoryManager/AccessoryManagerRows.h"

namespace accessory {

using namespace wire::accessory_manager;

BpAccessoryManager::BpAccessoryManager(const android::sp<android::IBinder>& impl)
    : android::BpInterface<IAccessoryManager>(impl) {}

int BpAccessoryManager::getDeviceCount() {
    return wire::call(kManners, kGetDeviceCount, getInterfaceDescriptor(), remote());
}

int BpAccessoryManager::getFeature(unsigned int accessoryId) {
    return wire::call(kManners, kGetFeature, getInterfaceDescriptor(), remote(), accessoryId);
}

android::String8 BpAccessoryManager::getPath(unsigned int accessoryId) {
    return wire::call(kManners, kGetPath, getInterfaceDescriptor(), remote(), accessoryId);
}

int BpAccessoryManager::getAccessoryId(const android::String8& path) {
    return wire::call(kManners, kGetAccessoryId, getInterfaceDescriptor(), remote(), path);
}

}  // namespace accessory
