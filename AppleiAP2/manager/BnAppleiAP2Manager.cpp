// BnAppleiAP2Manager: dispatch, registration, death of a client, and dump. What only hands a request on to
// the implementation is in BnAppleiAP2ManagerForwarders.cpp.
#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleiAP2Manager.h>
#include <android/log.h>
#include <binder/IPCThreadState.h>

#include <cerrno>
#include <cstring>

#include "AppleiAP2/manager/ManagerRows.h"
#include "common/DestructorTrace.h"
#include "common/Dump.h"

namespace accessory {

namespace rows = wire::iap2_manager;

namespace {

constexpr const Unit& kUnit = kiAP2ManagerUnit;

}  // namespace

BnAppleiAP2Manager::BnAppleiAP2Manager(const android::sp<AppleiAP2ManagerImplItf>& impl) : mImpl(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BnAppleiAP2Manager");
    ACCESSORY_ASSERT(kUnit, impl.get());
    mNotifier = new AppleiAP2ManagerNotifier(this);
    ACCESSORY_CHECK_STATUS(kUnit, mImpl->addNotifier(mNotifier));
}

BnAppleiAP2Manager::~BnAppleiAP2Manager() { const DestructorTrace trace(kUnit, "~BnAppleiAP2Manager"); }

android::status_t BnAppleiAP2Manager::onTransact(uint32_t code, const android::Parcel& data,
                                                 android::Parcel* reply, uint32_t flags) {
    ACCESSORY_CHECK_STATUS(kUnit, reply->writeInt32(0));
    const auto status = wire::dispatch<rows::kRows>(rows::kManners, *this, code, data, reply);
    return status.has_value() ? *status : android::BBinder::onTransact(code, data, reply, flags);
}

int BnAppleiAP2Manager::setNotifier(const android::sp<IAppleiAP2ManagerNotifier>& notifier) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "setNotifier");
    const android::IPCThreadState* const self = android::IPCThreadState::self();
    if (self == nullptr) return 0;
    const int pid = self->getCallingPid();
    // Null has no binder to watch, and would end every later event early. As a second registration it changes
    // nothing, like any other.
    const android::sp<IAppleiAP2ManagerNotifier> client =
        notifier != nullptr ? notifier : mNotifier->find(pid);
    if (!ACCESSORY_CHECK_AS(kUnit, client != nullptr, "notifier.get()")) return android::BAD_VALUE;
    if (mNotifier->addNotifier(pid, client) != 0) return 0;
    const android::sp<android::IBinder> binder = android::IInterface::asBinder(client);
    const android::sp<AppleiAP2NotifierDeathRecipient> recipient =
        new AppleiAP2NotifierDeathRecipient(this, pid);
    const ssize_t added = mNotifierDeathRecipients.update([&](DeathRecipients& recipients) {
        return recipients.add(static_cast<unsigned int>(pid), recipient);
    });
    if (added < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "mNotifierDeathRecipients.add error");
    }
    ACCESSORY_CHECK_STATUS(kUnit, binder->linkToDeath(recipient, nullptr, 0));
    return 0;
}

int BnAppleiAP2Manager::clearNotifier() {
    const android::IPCThreadState* const self = android::IPCThreadState::self();
    if (self == nullptr) return 0;
    const int pid = self->getCallingPid();
    __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "remove notifier %d", pid);
    const android::sp<IAppleiAP2ManagerNotifier> notifier = mNotifier->find(pid);
    if (notifier == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "current pid notifier is NULL");
        return -1;
    }
    const auto recipients = mNotifierDeathRecipients.load();
    const ssize_t index = recipients->indexOfKey(static_cast<unsigned int>(pid));
    if (index < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag,
                            "can't find notifier death recipients in list,error");
        return -1;
    }
    const android::sp<android::IBinder::DeathRecipient> recipient =
        recipients->valueAt(static_cast<size_t>(index));
    const android::sp<android::IBinder> binder = android::IInterface::asBinder(notifier);
    // Inverted, and kept so: the line appears when the link is taken back, and not when that fails.
    ACCESSORY_CHECK_AS(kUnit, binder->unlinkToDeath(recipient, nullptr, 0, nullptr) != 0,
                       "binder->unlinkToDeath(mDeathRecipient)");
    const ssize_t removed = mNotifierDeathRecipients.update(
        [pid](DeathRecipients& changed) { return changed.removeItem(static_cast<unsigned int>(pid)); });
    // The position that was removed: all but the first are reported.
    ACCESSORY_CHECK_AS(kUnit, removed == 0, "! mNotifierDeathRecipients.removeItem(pid)");
    ACCESSORY_CHECK_STATUS(kUnit, mNotifier->removeNotifier(pid));
    return 0;
}

android::status_t BnAppleiAP2Manager::dump(int fd, const android::Vector<android::String16>& args) {
    android::String8 result;
    ACCESSORY_CHECK_STATUS(kUnit, appendDumpHeader(descriptor, &result));
    ACCESSORY_CHECK_STATUS(
        kUnit, asksForNotifiers(args) ? mNotifier->dump(args, result) : mImpl->dump(args, result));
    if (writeDump(fd, result) < static_cast<ssize_t>(result.bytes())) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "write dump info to the file error:%s",
                            strerror(errno));
    }
    return android::NO_ERROR;
}

AppleiAP2NotifierDeathRecipient::AppleiAP2NotifierDeathRecipient(
    const android::sp<BnAppleiAP2Manager>& manager, int pid)
    : mManger(manager), mPid(pid) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "AppleiAP2NotifierDeathRecipient");
}

AppleiAP2NotifierDeathRecipient::~AppleiAP2NotifierDeathRecipient() {
    const DestructorTrace trace(kUnit, "~AppleiAP2NotifierDeathRecipient");
}

void AppleiAP2NotifierDeathRecipient::binderDied(const android::wp<android::IBinder>& /*who*/) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "binderDied");
    __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "Accessory Application PID[%d] die", mPid);
    ACCESSORY_CHECK_STATUS(kUnit, mManger->mNotifier->removeNotifier(mPid));
    const ssize_t removed =
        mManger->mNotifierDeathRecipients.update([this](BnAppleiAP2Manager::DeathRecipients& recipients) {
            return recipients.removeItem(static_cast<unsigned int>(mPid));
        });
    if (removed < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "mNotifierDeathRecipients.removeItem %d,error",
                            mPid);
    }
}

}  // namespace accessory
