#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleUSBAudioManager.h>
#include <android/log.h>
#include <binder/IPCThreadState.h>

#include <cerrno>
#include <cstring>

#include "AppleUSBAudio/USBAudioRows.h"
#include "common/DestructorTrace.h"
#include "common/Dump.h"

namespace accessory {

namespace rows = wire::usb_audio_manager;

namespace {

constexpr const Unit& kUnit = kUSBAudioManagerUnit;

/// The calling thread's state; null, and reported, when there is none.
const android::IPCThreadState* reportedThreadState() {
    const android::IPCThreadState* const self = android::IPCThreadState::self();
    if (self == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "IPCThreadState intance is NULL");
    }
    return self;
}

}  // namespace

BnAppleUSBAudioManager::BnAppleUSBAudioManager(const android::sp<AppleUSBAudioManagerImplItf>& impl)
    : mImpl(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BnAppleUSBAudioManager");
    ACCESSORY_ASSERT(kUnit, impl.get());
    mNotifier = new AppleUSBAudioManagerNotifier(this);
    if (mImpl->addNotifier(mNotifier) != 0) {
        __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "addNotifier error.");
    }
}

BnAppleUSBAudioManager::~BnAppleUSBAudioManager() {
    const DestructorTrace trace(kUnit, "BnAppleUSBAudioManager");
}

android::status_t BnAppleUSBAudioManager::onTransact(uint32_t code, const android::Parcel& data,
                                                     android::Parcel* reply, uint32_t flags) {
    if (const android::IPCThreadState* const self = android::IPCThreadState::self()) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "Calling MSG[%d]: PID=%d, UID=%d",
                            static_cast<int>(code), self->getCallingPid(),
                            static_cast<int>(self->getCallingUid()));
    }
    reply->writeInt32(0);
    const auto status = wire::dispatch<rows::kRows>(rows::kManners, *this, code, data, reply);
    return status.has_value() ? *status : android::BBinder::onTransact(code, data, reply, flags);
}

int BnAppleUSBAudioManager::setNotifier(const android::sp<IAppleUSBAudioManagerNotifier>& notifier) {
    const android::IPCThreadState* const self = reportedThreadState();
    if (self == nullptr) return -1;
    const int pid = self->getCallingPid();
    __android_log_print(ANDROID_LOG_INFO, kUnit.tag, "Calling Process: PID=%d, UID=%d", pid,
                        static_cast<int>(self->getCallingUid()));
    // Null has no binder to watch, and would end every later event early. As a second registration it changes
    // nothing, like any other.
    const android::sp<IAppleUSBAudioManagerNotifier> client =
        notifier != nullptr ? notifier : mNotifier->find(pid);
    if (!ACCESSORY_CHECK_AS(kUnit, client != nullptr, "notifier.get()")) return android::BAD_VALUE;
    if (mNotifier->addNotifier(pid, client) != 0) return 0;
    const android::sp<android::IBinder> binder = android::IInterface::asBinder(client);
    const android::sp<android::IBinder::DeathRecipient> mDeathRecipient =
        new AppleUSBAudioNotifierDeathRecipient(this, pid);
    const ssize_t position = mNotifierDeathRecipients.update([&](DeathRecipients& recipients) {
        return recipients.add(static_cast<unsigned int>(pid), mDeathRecipient);
    });
    // The position where it was put: all but the first are reported.
    ACCESSORY_CHECK_AS(kUnit, position == 0, "!mNotifierDeathRecipients.add(pid, mDeathRecipient)");
    ACCESSORY_CHECK(kUnit, !binder->linkToDeath(mDeathRecipient));
    return 0;
}

int BnAppleUSBAudioManager::clearNotifier() {
    const android::IPCThreadState* const self = reportedThreadState();
    if (self == nullptr) return -1;
    const int pid = self->getCallingPid();
    __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, "remove notifier %d", pid);
    const android::sp<IAppleUSBAudioManagerNotifier> notifier = mNotifier->find(pid);
    if (notifier == nullptr) {
        __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "current pid:%d notifier has not be set", pid);
        return 0;
    }
    const auto recipients = mNotifierDeathRecipients.load();
    const ssize_t index = recipients->indexOfKey(static_cast<unsigned int>(pid));
    if (index < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag,
                            "can't find notifier:%d death recipients in list,error", pid);
        return -1;
    }
    const android::sp<android::IBinder::DeathRecipient> mDeathRecipient =
        recipients->valueAt(static_cast<size_t>(index));
    const android::sp<android::IBinder> binder = android::IInterface::asBinder(notifier);
    ACCESSORY_CHECK(kUnit, !binder->unlinkToDeath(mDeathRecipient));
    mNotifierDeathRecipients.update(
        [pid](DeathRecipients& changed) { return changed.removeItem(static_cast<unsigned int>(pid)); });
    ACCESSORY_CHECK(kUnit, !mNotifier->removeNotifier(pid));
    return 0;
}

int BnAppleUSBAudioManager::startup() { return mImpl->startup(); }
int BnAppleUSBAudioManager::shutdown() { return mImpl->shutdown(); }

int BnAppleUSBAudioManager::getIds(unsigned int* ids, unsigned int* count) {
    return mImpl->getIds(ids, count);
}

int BnAppleUSBAudioManager::setVolume(unsigned int value1, unsigned int value2) {
    return mImpl->setVolume(value1, value2);
}

int BnAppleUSBAudioManager::setSampleRate(unsigned int value1, unsigned int value2) {
    return mImpl->setSampleRate(value1, value2);
}

int BnAppleUSBAudioManager::start(unsigned int value) { return mImpl->start(value); }
int BnAppleUSBAudioManager::stop(unsigned int value) { return mImpl->stop(value); }
int BnAppleUSBAudioManager::play(unsigned int value) { return mImpl->play(value); }
int BnAppleUSBAudioManager::pause(unsigned int value) { return mImpl->pause(value); }

android::status_t BnAppleUSBAudioManager::dump(int fd, const android::Vector<android::String16>& args) {
    android::String8 result;
    ACCESSORY_CHECK_AS(kUnit, appendDumpHeader(descriptor, &result) == 0, "!result.append(buffer)");
    if (asksForNotifiers(args)) {
        ACCESSORY_CHECK(kUnit, !mNotifier->dump(args, result));
    } else {
        ACCESSORY_CHECK(kUnit, !mImpl->dump(args, result));
    }
    if (writeDump(fd, result) < 1) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "write data to dump buffer error:%s",
                            strerror(errno));
    }
    return android::NO_ERROR;
}

AppleUSBAudioNotifierDeathRecipient::AppleUSBAudioNotifierDeathRecipient(
    const android::sp<BnAppleUSBAudioManager>& manager, int pid)
    : mManger(manager), mPid(pid) {}

AppleUSBAudioNotifierDeathRecipient::~AppleUSBAudioNotifierDeathRecipient() = default;

void AppleUSBAudioNotifierDeathRecipient::binderDied(const android::wp<android::IBinder>& /*who*/) {
    __android_log_print(ANDROID_LOG_INFO, kUnit.tag, "%s enter", "binderDied");
    __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "Accessory Application PID[%d] die", mPid);
    ACCESSORY_CHECK(kUnit, !mManger->mNotifier->removeNotifier(mPid));
    __android_log_print(ANDROID_LOG_INFO, kUnit.tag, "%s out", "binderDied");
}

}  // namespace accessory
