#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleUSBAudioManager.h>

#include "AppleUSBAudio/USBAudioRows.h"
#include "common/DestructorTrace.h"

namespace accessory {

namespace rows = wire::usb_audio_manager;

namespace {

constexpr const Unit& kUnit = kUSBAudioManagerUnit;

}  // namespace

BpAppleUSBAudioManager::BpAppleUSBAudioManager(const android::sp<android::IBinder>& impl)
    : android::BpInterface<IAppleUSBAudioManager>(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BpAppleUSBAudioManager");
}

BpAppleUSBAudioManager::~BpAppleUSBAudioManager() {
    const DestructorTrace trace(kUnit, "BpAppleUSBAudioManager");
}

template <typename Row, typename... Arguments>
int BpAppleUSBAudioManager::call(const Row& row, const Arguments&... arguments) {
    return wire::call(rows::kManners, row, getInterfaceDescriptor(), remote(), arguments...);
}

int BpAppleUSBAudioManager::startup() { return call(rows::kStartup); }
int BpAppleUSBAudioManager::shutdown() { return call(rows::kShutdown); }

int BpAppleUSBAudioManager::setNotifier(const android::sp<IAppleUSBAudioManagerNotifier>& notifier) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "setNotifier");
    return call(rows::kSetNotifier, notifier);
}

int BpAppleUSBAudioManager::clearNotifier() {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "clearNotifier");
    return call(rows::kClearNotifier);
}

int BpAppleUSBAudioManager::getIds(unsigned int* ids, unsigned int* count) {
    return call(rows::kGetIds, ids, count);
}

int BpAppleUSBAudioManager::setVolume(unsigned int value1, unsigned int value2) {
    return call(rows::kSetVolume, value1, value2);
}

int BpAppleUSBAudioManager::setSampleRate(unsigned int value1, unsigned int value2) {
    return call(rows::kSetSampleRate, value1, value2);
}

int BpAppleUSBAudioManager::start(unsigned int value) { return call(rows::kStart, value); }
int BpAppleUSBAudioManager::stop(unsigned int value) { return call(rows::kStop, value); }
int BpAppleUSBAudioManager::play(unsigned int value) { return call(rows::kPlay, value); }
int BpAppleUSBAudioManager::pause(unsigned int value) { return call(rows::kPause, value); }

}  // namespace accessory
