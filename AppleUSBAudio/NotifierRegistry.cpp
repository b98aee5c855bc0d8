// AppleUSBAudioManagerNotifier: who is registered, the list of them, and the two events.
#include <accessory/AppleUSBAudioManagerNotifier.h>
#include <accessory/IAppleUSBAudioManager.h>
#include <android/log.h>

#include <cstdio>

#include "common/Check.h"

namespace accessory {

namespace {

constexpr const Unit& kUnit = kUSBAudioManagerUnit;
constexpr size_t kBufferBytes = 1024;

}  // namespace

AppleUSBAudioManagerNotifierItf::~AppleUSBAudioManagerNotifierItf() = default;

AppleUSBAudioManagerNotifier::AppleUSBAudioManagerNotifier(const android::sp<BnAppleUSBAudioManager>& manager)
    : mManager(manager) {
    ACCESSORY_ASSERT(kUnit, manager.get());
}

AppleUSBAudioManagerNotifier::~AppleUSBAudioManagerNotifier() = default;

// What adding and removing return is a position, and all but the first are reported although nothing failed.

int AppleUSBAudioManagerNotifier::addNotifier(int pid,
                                              const android::sp<IAppleUSBAudioManagerNotifier>& notifier) {
    const android::Mutex::Autolock lock(mLock);
    const auto before = mNotifiers.load();
    const ssize_t index = before->indexOfKey(pid);
    __android_log_print(ANDROID_LOG_INFO, kUnit.tag, " %s mNotifiers.size %d  index %d = indexOfKey(pid %d)",
                        "addNotifier", static_cast<int>(before->size()), static_cast<int>(index), pid);
    if (index >= 0) {
        __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "notifier for process [%d] is already added", pid);
        return -1;
    }
    const ssize_t position =
        mNotifiers.update([&](Notifiers& notifiers) { return notifiers.add(pid, notifier); });
    ACCESSORY_CHECK_AS(kUnit, position == 0, "!mNotifiers.add(pid, notifier)");
    return 0;
}

int AppleUSBAudioManagerNotifier::removeNotifier(int pid) {
    const android::Mutex::Autolock lock(mLock);
    if (mNotifiers.load()->indexOfKey(pid) < 0) {
        __android_log_print(ANDROID_LOG_WARN, kUnit.tag, "notifier for process [%d] is already removed", pid);
        return -1;
    }
    const ssize_t position =
        mNotifiers.update([pid](Notifiers& notifiers) { return notifiers.removeItem(pid); });
    ACCESSORY_CHECK_AS(kUnit, position == 0, "!mNotifiers.removeItem(pid)");
    return 0;
}

android::sp<IAppleUSBAudioManagerNotifier> AppleUSBAudioManagerNotifier::find(int pid) const {
    const auto notifiers = mNotifiers.load();
    const ssize_t index = notifiers->indexOfKey(pid);
    return index >= 0 ? notifiers->valueAt(static_cast<size_t>(index)) : nullptr;
}

int AppleUSBAudioManagerNotifier::dump(const android::Vector<android::String16>& /*args*/,
                                       android::String8& result) {
    const android::Mutex::Autolock lock(mLock);
    const auto notifiers = mNotifiers.load();
    char buffer[kBufferBytes];
    snprintf(buffer, sizeof(buffer), "notifier size[%d]\n", static_cast<int>(notifiers->size()));
    ACCESSORY_CHECK(kUnit, !result.append(buffer));
    for (size_t i = 0; i < notifiers->size(); ++i) {
        const android::sp<IAppleUSBAudioManagerNotifier>& notifier = notifiers->valueAt(i);
        if (!ACCESSORY_CHECK(kUnit, notifier.get())) return -1;
        snprintf(buffer, sizeof(buffer), "notifier[%p] pid[%d] \n", static_cast<void*>(notifier.get()),
                 notifiers->keyAt(i));
        ACCESSORY_CHECK(kUnit, !result.append(buffer));
    }
    return 0;
}

int AppleUSBAudioManagerNotifier::broadcast(const char* event, const char* check, Operation operation,
                                            unsigned int accessoryId) {
    __android_log_print(ANDROID_LOG_INFO, kUnit.tag, "%s enter", event);
    const android::Mutex::Autolock lock(mLock);
    const auto notifiers = mNotifiers.load();
    for (size_t i = 0; i < notifiers->size(); ++i) {
        const android::sp<IAppleUSBAudioManagerNotifier>& notifier = notifiers->valueAt(i);
        const Site site{kUnit, event, __LINE__};
        if (!holds(site, notifier.get() != nullptr, "notifier.get()")) return -1;
        holds(site, (notifier.get()->*operation)(accessoryId) == 0, check);
    }
    __android_log_print(ANDROID_LOG_INFO, kUnit.tag, "%s out", event);
    return 0;
}

int AppleUSBAudioManagerNotifier::attach(unsigned int accessoryId) {
    return broadcast("attach", "!notifier->attach(accessoryId)", &IAppleUSBAudioManagerNotifier::attach,
                     accessoryId);
}

int AppleUSBAudioManagerNotifier::detach(unsigned int accessoryId) {
    return broadcast("detach", "!notifier->detach(accessoryId)", &IAppleUSBAudioManagerNotifier::detach,
                     accessoryId);
}

}  // namespace accessory
