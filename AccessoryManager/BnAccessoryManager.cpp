#include <accessory/IAccessoryManager.h>
#include <android/log.h>
#include <binder/IPCThreadState.h>

#include "AccessoryManager/AccessoryManagerRows.h"
#include "common/Dump.h"

namespace accessory {

namespace rows = wire::accessory_manager;

namespace {

constexpr const char* kTag = kAccessoryManagerUnit.tag;

}  // namespace

BnAccessoryManager::BnAccessoryManager(const android::sp<AccessoryManagerImplItf>& impl) : mImpl(impl) {}

BnAccessoryManager::~BnAccessoryManager() = default;

android::status_t BnAccessoryManager::onTransact(uint32_t code, const android::Parcel& data,
                                                 android::Parcel* reply, uint32_t flags) {
    const android::IPCThreadState* const self = android::IPCThreadState::self();
    ACCESSORY_ASSERT(kAccessoryManagerUnit, self);
    __android_log_print(ANDROID_LOG_ERROR, kTag, "Calling MSG[%d]: PID=%d, UID=%d", static_cast<int>(code),
                        self->getCallingPid(), static_cast<int>(self->getCallingUid()));
    reply->writeInt32(0);
    const auto status = wire::dispatch<rows::kRows>(rows::kManners, *this, code, data, reply);
    return status.has_value() ? *status : android::BBinder::onTransact(code, data, reply, flags);
}

// A stub made without an implementation would crash here; it answers like an empty service instead.

int BnAccessoryManager::getDeviceCount() {
    return ACCESSORY_CHECK(kAccessoryManagerUnit, mImpl.get()) ? mImpl->getDeviceCount() : 0;
}

int BnAccessoryManager::getFeature(unsigned int accessoryId) {
    return ACCESSORY_CHECK(kAccessoryManagerUnit, mImpl.get()) ? mImpl->getFeature(accessoryId) : 0;
}

android::String8 BnAccessoryManager::getPath(unsigned int accessoryId) {
    return ACCESSORY_CHECK(kAccessoryManagerUnit, mImpl.get()) ? mImpl->getPath(accessoryId)
                                                               : android::String8();
}

int BnAccessoryManager::getAccessoryId(const android::String8& path) {
    return ACCESSORY_CHECK(kAccessoryManagerUnit, mImpl.get()) ? mImpl->getAccessoryId(path) : 0;
}

android::status_t BnAccessoryManager::dump(int fd, const android::Vector<android::String16>& args) {
    android::String8 result;
    if (appendDumpHeader(descriptor, &result) != android::NO_ERROR) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "append the bufff to result failed!!!");
    }
    if (!asksForNotifiers(args) && ACCESSORY_CHECK(kAccessoryManagerUnit, mImpl.get()) &&
        mImpl->dump(args, result) != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag,
                            "the accessory manager implement dump has some error!!!");
    }
    if (writeDump(fd, result) == -1) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "write data to the dump fd failed!!!");
    }
    return android::NO_ERROR;
}

}  // namespace accessory
