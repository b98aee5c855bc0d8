#include <accessory/IAppleUSBAudioManagerNotifier.h>

#include "AppleUSBAudio/USBAudioRows.h"
#include "tools/rows/Interfaces.h"
#include "tools/rows/RowOperation.h"

namespace accessory::tools {

const Interface& usbAudioManager() {
    namespace rows = wire::usb_audio_manager;
    static const Interface made = makeInterface("IAppleUSBAudioManager", false, rows::kRows, rows::kManners,
                                                IAppleUSBAudioManager::descriptor);
    return made;
}

const Interface& usbAudioNotifier() {
    namespace rows = wire::usb_audio_notifier;
    static const Interface made = makeInterface("IAppleUSBAudioManagerNotifier", true, rows::kRows,
                                                rows::kManners, IAppleUSBAudioManagerNotifier::descriptor);
    return made;
}

}  // namespace accessory::tools
