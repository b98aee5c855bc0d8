// The register of AppleiAP2ManagerNotifier: who is registered, and the list of them.
#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAppleiAP2Manager.h>
#include <android/log.h>

#include <cstdio>

#include "common/Check.h"

namespace accessory {

namespace {

constexpr const Unit& kUnit = kiAP2ManagerUnit;
constexpr size_t kLineBytes = 1024;

void logState(const char* format, const char* operation, size_t size, ssize_t index, int pid) {
    __android_log_print(ANDROID_LOG_DEBUG, kUnit.tag, format, operation, size, index, pid);
}

constexpr char kState[] = " %s mNotifiers.size %zu  index %zd = indexOfKey(pid %d)";
constexpr char kStateAfter[] = " %s out mNotifiers.size %zu  index %zd = indexOfKey(pid %d)";

}  // namespace

AppleiAP2ManagerNotifierItf::~AppleiAP2ManagerNotifierItf() = default;

AppleiAP2ManagerNotifier::AppleiAP2ManagerNotifier(const android::sp<BnAppleiAP2Manager>& manager)
    : mManager(manager) {
    ACCESSORY_ASSERT(kUnit, manager.get());
}

AppleiAP2ManagerNotifier::~AppleiAP2ManagerNotifier() = default;

int AppleiAP2ManagerNotifier::addNotifier(int pid, const android::sp<IAppleiAP2ManagerNotifier>& notifier) {
    const android::Mutex::Autolock lock(mLock);
    const auto before = mNotifiers.load();
    const ssize_t index = before->indexOfKey(pid);
    logState(kState, "addNotifier", before->size(), index, pid);
    if (index >= 0) {
        __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "notifier for process [%d] is already added", pid);
        return -1;
    }
    const ssize_t added =
        mNotifiers.update([&](Notifiers& notifiers) { return notifiers.add(pid, notifier); });
    if (added < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "mNotifier add failed");
        ACCESSORY_ASSERT_AS(kUnit, false, "0");
    }
    logState(kStateAfter, "addNotifier", mNotifiers.load()->size(), index, pid);
    return 0;
}

int AppleiAP2ManagerNotifier::removeNotifier(int pid) {
    const android::Mutex::Autolock lock(mLock);
    const ssize_t index = mNotifiers.load()->indexOfKey(pid);
    if (index < 0) {
        __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "notifier for process [%d] is already removed", pid);
        return -1;
    }
    const ssize_t removed =
        mNotifiers.update([pid](Notifiers& notifiers) { return notifiers.removeItem(pid); });
    if (removed < 0) {
        __android_log_print(ANDROID_LOG_ERROR, kUnit.tag, "didn't find adapt notifier,ret:%d",
                            static_cast<int>(removed));
    }
    logState(kState, "removeNotifier", mNotifiers.load()->size(), index, pid);
    return 0;
}

android::sp<IAppleiAP2ManagerNotifier> AppleiAP2ManagerNotifier::find(int pid) const {
    const auto notifiers = mNotifiers.load();
    const ssize_t index = notifiers->indexOfKey(pid);
    return index >= 0 ? notifiers->valueAt(static_cast<size_t>(index)) : nullptr;
}

int AppleiAP2ManagerNotifier::dump(const android::Vector<android::String16>& /*args*/,
                                   android::String8& result) {
    const android::Mutex::Autolock lock(mLock);
    const auto notifiers = mNotifiers.load();
    char line[kLineBytes];
    snprintf(line, sizeof(line), "notifier size[%zu]\n", notifiers->size());
    ACCESSORY_CHECK_STATUS(kUnit, result.append(line));
    for (size_t i = 0; i < notifiers->size(); ++i) {
        const android::sp<IAppleiAP2ManagerNotifier>& notifier = notifiers->valueAt(i);
        if (!ACCESSORY_CHECK(kUnit, notifier.get())) return -1;
        const int pid = notifiers->keyAt(i);
        const int length =
            snprintf(line, sizeof(line), "notifier[%p] pid[%d] \n", static_cast<void*>(notifier.get()), pid);
        if (length < 1) {
            __android_log_print(ANDROID_LOG_ERROR, kUnit.tag,
                                "sprintf notifier pid:%d to the buffer failed,ret:%d", pid, length);
        }
        ACCESSORY_CHECK_STATUS(kUnit, result.append(line));
    }
    return 0;
}

}  // namespace accessory
