#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <android/log.h>
#include <binder/IPCThreadState.h>

#include "AppleUSBAudio/USBAudioRows.h"
#include "common/DestructorTrace.h"

namespace accessory {

namespace rows = wire::usb_audio_notifier;

namespace {

constexpr const Unit& kUnit = kUSBAudioNotifierUnit;

}  // namespace

BnAppleUSBAudioManagerNotifier::BnAppleUSBAudioManagerNotifier(
    const android::sp<AppleUSBAudioManagerNotifierImplItf>& impl)
    : mImpl(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BnAppleUSBAudioManagerNotifier");
    ACCESSORY_ASSERT(kUnit, impl.get());
}

BnAppleUSBAudioManagerNotifier::~BnAppleUSBAudioManagerNotifier() {
    const DestructorTrace trace(kUnit, "BnAppleUSBAudioManagerNotifier");
}

android::status_t BnAppleUSBAudioManagerNotifier::onTransact(uint32_t code, const android::Parcel& data,
                                                             android::Parcel* reply, uint32_t flags) {
    if (const android::IPCThreadState* const self = android::IPCThreadState::self()) {
        __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "Calling MSG: PID=%d, UID=%d code=%d",
                            self->getCallingPid(), static_cast<int>(self->getCallingUid()),
                            static_cast<int>(code));
    }
    const auto status = wire::dispatch<rows::kRows>(rows::kManners, *this, code, data, reply);
    return status.has_value() ? *status : android::BBinder::onTransact(code, data, reply, flags);
}

int BnAppleUSBAudioManagerNotifier::attach(unsigned int accessoryId) {
    __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "%s Bn--> in, accessoryId: %d", "attach",
                        static_cast<int>(accessoryId));
    return mImpl->attach(accessoryId);
}

// Not logged, unlike attach().
int BnAppleUSBAudioManagerNotifier::detach(unsigned int accessoryId) { return mImpl->detach(accessoryId); }

}  // namespace accessory
