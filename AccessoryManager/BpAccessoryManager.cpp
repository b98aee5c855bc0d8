#include <accessory/IAccessoryManager.h>

#include "AccessoryManager/AccessoryManagerRows.h"

namespace accessory {

namespace rows = wire::accessory_manager;

BpAccessoryManager::BpAccessoryManager(const android::sp<android::IBinder>& impl)
    : android::BpInterface<IAccessoryManager>(impl) {}

int BpAccessoryManager::getDeviceCount() {
    return wire::call(rows::kManners, rows::kGetDeviceCount, getInterfaceDescriptor(), remote());
}

int BpAccessoryManager::getFeature(unsigned int accessoryId) {
    return wire::call(rows::kManners, rows::kGetFeature, getInterfaceDescriptor(), remote(), accessoryId);
}

android::String8 BpAccessoryManager::getPath(unsigned int accessoryId) {
    return wire::call(rows::kManners, rows::kGetPath, getInterfaceDescriptor(), remote(), accessoryId);
}

int BpAccessoryManager::getAccessoryId(const android::String8& path) {
    return wire::call(rows::kManners, rows::kGetAccessoryId, getInterfaceDescriptor(), remote(), path);
}

}  // namespace accessory
