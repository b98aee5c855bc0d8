#include <accessory/IAppleUSBAudioManagerNotifier.h>

namespace accessory {

IMPLEMENT_META_INTERFACE(AppleUSBAudioManagerNotifier, "accessory.AppleUSBAudioManagerNotifier")

AppleUSBAudioManagerNotifierImplItf::~AppleUSBAudioManagerNotifierImplItf() = default;

}  // namespace accessory
