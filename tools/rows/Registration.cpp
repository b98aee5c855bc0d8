#include "tools/rows/Registration.h"

#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <accessory/IAppleiAP2ManagerNotifier.h>

#include "AppleUSBAudio/USBAudioRows.h"
#include "AppleiAP2/manager/ManagerRows.h"
#include "tools/rows/Interfaces.h"

namespace accessory::tools {

namespace {

template <typename Notifier, typename Row>
uint32_t encodeRow(const Row& row, const wire::Manners& manners, const android::String16& descriptor,
                   const android::sp<android::IBinder>& binder, android::Parcel* request) {
    wire::Writer out(manners, row.name, *request);
    out.step(request->writeInterfaceToken(descriptor));
    std::get<0>(row.fields).write(out, Notifier::asInterface(binder));
    return row.code;
}

}  // namespace

const Interface& managerOf(const Interface& notifier) {
    return &notifier == &usbAudioNotifier() ? usbAudioManager() : iap2Manager();
}

uint32_t encodeSetNotifier(const Interface& notifier, const android::sp<android::IBinder>& binder,
                           android::Parcel* request) {
    namespace audio = wire::usb_audio_manager;
    namespace iap2 = wire::iap2_manager;
    if (&notifier == &usbAudioNotifier()) {
        return encodeRow<IAppleUSBAudioManagerNotifier>(audio::kSetNotifier, audio::kManners,
                                                        IAppleUSBAudioManager::descriptor, binder, request);
    }
    return encodeRow<IAppleiAP2ManagerNotifier>(iap2::kSetNotifier, iap2::kManners,
                                                IAppleiAP2Manager::descriptor, binder, request);
}

}  // namespace accessory::tools
