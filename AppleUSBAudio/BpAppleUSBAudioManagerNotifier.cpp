#include <accessory/IAPAutoTrace.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>

#include "AppleUSBAudio/USBAudioRows.h"
#include "common/DestructorTrace.h"

namespace accessory {

namespace rows = wire::usb_audio_notifier;

namespace {

constexpr const Unit& kUnit = kUSBAudioNotifierUnit;

}  // namespace

BpAppleUSBAudioManagerNotifier::BpAppleUSBAudioManagerNotifier(const android::sp<android::IBinder>& impl)
    : android::BpInterface<IAppleUSBAudioManagerNotifier>(impl) {
    const IAPAutoTrace trace(kUnit.tag, kUnit.file, "BpAppleUSBAudioManagerNotifier");
}

BpAppleUSBAudioManagerNotifier::~BpAppleUSBAudioManagerNotifier() {
    const DestructorTrace trace(kUnit, "BpAppleUSBAudioManagerNotifier");
}

int BpAppleUSBAudioManagerNotifier::attach(unsigned int accessoryId) {
    return wire::call(rows::kManners, rows::kAttach, getInterfaceDescriptor(), remote(), accessoryId);
}

int BpAppleUSBAudioManagerNotifier::detach(unsigned int accessoryId) {
    return wire::call(rows::kManners, rows::kDetach, getInterfaceDescriptor(), remote(), accessoryId);
}

}  // namespace accessory
