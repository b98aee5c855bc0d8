#include "tests/AppleUSBAudio/AudioParts.h"

#include <gtest/gtest-printers.h>

#include <algorithm>
#include <ostream>
#include <utility>

namespace accessory::test {

using android::sp;

std::string AudioService::told() {
    const std::lock_guard lock(mLock);
    return std::exchange(mTold, {});
}

int AudioService::note(const std::string& call) {
    const std::lock_guard lock(mLock);
    mTold += call + '|';
    return answer;
}

int AudioService::note(const std::string& operation, unsigned int value) {
    return note(operation + '(' + std::to_string(value) + ')');
}

int AudioService::note(const std::string& operation, unsigned int value1, unsigned int value2) {
    return note(operation + '(' + std::to_string(value1) + ", " + std::to_string(value2) + ')');
}

int AudioService::addNotifier(const sp<AppleUSBAudioManagerNotifierItf>& notifier) {
    broadcasters.push_back(notifier);
    return addStatus;
}

void AudioService::setIds(std::vector<unsigned int> ids, unsigned int count) {
    const std::lock_guard lock(mLock);
    mIds = std::move(ids);
    mCount = count;
}

int AudioService::getIds(unsigned int* array, unsigned int* countOut) {
    {
        const std::lock_guard lock(mLock);
        roomGiven.assign(array, array + 10);
        roomGiven.push_back(*countOut);
        std::copy_n(mIds.begin(), std::min<size_t>(mIds.size(), 10), array);
        *countOut = mCount;
    }
    return note("getIds()");
}

int AudioService::dump(const android::Vector<android::String16>& args, android::String8& result) {
    dumpArgs = args;
    result.append("audio\n");
    note("dump()");
    return dumpStatus;
}

std::string AudioListener::told() {
    const std::lock_guard lock(mLock);
    return std::exchange(mTold, {});
}

int AudioListener::note(const std::string& operation, unsigned int accessoryId) {
    meanwhile();
    const std::lock_guard lock(mLock);
    mTold += operation + '(' + std::to_string(accessoryId) + ")|";
    return answer;
}

bool operator==(const Answer& left, const Answer& right) {
    return left.status == right.status && left.reply == right.reply;
}

void PrintTo(const Answer& answer, std::ostream* out) {
    *out << "status " << answer.status << ", reply " << testing::PrintToString(answer.reply);
}

sp<BnAppleUSBAudioManager> keptStub(const sp<AppleUSBAudioManagerImplItf>& service) {
    static std::vector<sp<BnAppleUSBAudioManager>>& all = *new std::vector<sp<BnAppleUSBAudioManager>>;
    all.push_back(new BnAppleUSBAudioManager(service));
    return all.back();
}

}  // namespace accessory::test
