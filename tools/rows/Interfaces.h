// The five interfaces, each made from its rows when it is asked for first, and kept.
#pragma once

#include "tools/rows/Operation.h"

namespace accessory::tools {

const Interface& accessoryManager();
const Interface& iap2Manager();
const Interface& iap2Notifier();
const Interface& usbAudioManager();
const Interface& usbAudioNotifier();

}  // namespace accessory::tools
