#include "Quota.h"

namespace android::runtime {

Quota::Share& Quota::Share::operator=(Share&& other) noexcept {
    std::swap(mQuota, other.mQuota);
    std::swap(mProcess, other.mProcess);
    return *this;
}

Quota::Share::~Share() {
    if (mQuota != nullptr) mQuota->giveBack(mProcess);
}

Quota::Share Quota::take(pid_t process) {
    const std::lock_guard<std::mutex> guard(mLock);
    size_t& count = mByProcess[process];
    if (count >= mMostOfAProcess) return {};
    ++count;
    return {this, process};
}

void Quota::giveBack(pid_t process) {
    const std::lock_guard<std::mutex> guard(mLock);
    const auto found = mByProcess.find(process);
    if (--found->second == 0) mByProcess.erase(found);
}

}  // namespace android::runtime
