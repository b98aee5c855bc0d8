#include "tests/AppleiAP2/manager/ManagerRecorder.h"

#include <algorithm>
#include <utility>

#include "tests/AppleiAP2/manager/ManagerArguments.h"

namespace accessory::test {
namespace {

template <typename Value>
std::string showRoom(const Value* room, unsigned int count) {
    const bool isClear = std::all_of(room, room + 10, [](Value value) { return value == Value{}; });
    return isClear && count == 0 ? "clear" : "dirty";
}

}  // namespace

std::vector<std::string> ManagerRecorder::takeTold() {
    const std::lock_guard lock(mLock);
    return std::exchange(mTold, {});
}

int ManagerRecorder::note(const char* operation, std::initializer_list<std::string> arguments) {
    std::string text;
    for (const std::string& argument : arguments)
        text += (text.empty() ? "" : ", ") + argument;
    const std::lock_guard lock(mLock);
    mTold.push_back(std::string(operation) + "(" + text + ")");
    return answer;
}

int ManagerRecorder::getAccessoryIds(unsigned int* room, unsigned int* count) {
    const std::string before = showRoom(room, *count);
    std::copy(ids.begin(), ids.end(), room);
    *count = idCount;
    return note("getAccessoryIds", {before});
}

int ManagerRecorder::getAPPIds(unsigned int accId, const char** room, unsigned int* count) {
    const std::string before = showRoom(room, *count);
    std::copy(appIds.begin(), appIds.end(), room);
    *count = appIdCount;
    return note("getAPPIds", {show(accId), before});
}

const char* ManagerRecorder::getSupportFeature(unsigned int accId, const char* name) {
    note("getSupportFeature", {show(accId), show(name)});
    return feature;
}

const char* ManagerRecorder::getVersion() {
    note("getVersion", {});
    return version;
}

int ManagerRecorder::getEASessionId(unsigned int accId, int index, int* first, int* second) {
    const std::string before = *first == 0 && *second == 0 ? "clear" : "dirty";
    *first = session[0];
    *second = session[1];
    return note("getEASessionId", {show(accId), show(index), before});
}

int ManagerRecorder::addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) {
    broadcaster = notifier;
    return 0;
}

int ManagerRecorder::dump(const android::Vector<android::String16>&, android::String8&) { return 0; }

int ManagerRecorder::setName(const char* name) { return note("setName", {show(name)}); }

int ManagerRecorder::setSerialNumber(const char* serialNumber) {
    return note("setSerialNumber", {show(serialNumber)});
}

int ManagerRecorder::setDisplayName(const char* displayName) {
    return note("setDisplayName", {show(displayName)});
}

int ManagerRecorder::setBluetoothAddr(unsigned char* addr, unsigned int len) {
    return note("setBluetoothAddr", {show(View{addr, len}), show(len)});
}

int ManagerRecorder::startup(AppleiAP2TransportMode mode) { return note("startup", {show(mode)}); }

int ManagerRecorder::shutdown(AppleiAP2TransportMode mode) { return note("shutdown", {show(mode)}); }

int ManagerRecorder::setConfigPath(AppleiAP2TransportMode mode, const char* path) {
    return note("setConfigPath", {show(mode), show(path)});
}

int ManagerRecorder::start(unsigned int accId) { return note("start", {show(accId)}); }

int ManagerRecorder::stop(unsigned int accId) { return note("stop", {show(accId)}); }

int ManagerRecorder::launchAPP(unsigned int accId, const char* appId, AppLaunchMethod method) {
    return note("launchAPP", {show(accId), show(appId), show(method)});
}

int ManagerRecorder::startHID(unsigned int accId) { return note("startHID", {show(accId)}); }

int ManagerRecorder::dispatchMediaPlaybackRemoteEvent(unsigned int accId, unsigned int value1,
                                                      unsigned int value2) {
    return note("dispatchMediaPlaybackRemoteEvent", {show(accId), show(value1), show(value2)});
}

int ManagerRecorder::stopHID(unsigned int accId) { return note("stopHID", {show(accId)}); }

int ManagerRecorder::startHID(unsigned int accId, HIDReportAttributes* attributes) {
    return note("startHID", {show(accId), show(attributes)});
}

int ManagerRecorder::accHIDReport(unsigned int accId, unsigned char* report, int len) {
    return note("accHIDReport", {show(accId), show(View{report, sizeOf(len, 1)}), show(len)});
}

int ManagerRecorder::updateLocation(unsigned int accId, const unsigned char* data, int len) {
    return note("updateLocation", {show(accId), show(View{data, sizeOf(len, 1)}), show(len)});
}

int ManagerRecorder::OOBBTPAccInfo(unsigned int accId, int value) {
    return note("OOBBTPAccInfo", {show(accId), show(value)});
}

int ManagerRecorder::OOBBTPCompletionInfo(unsigned int accId, int value) {
    return note("OOBBTPCompletionInfo", {show(accId), show(value)});
}

}  // namespace accessory::test
