#include <accessory/IAppleUSBAudioManager.h>

namespace accessory {

IMPLEMENT_META_INTERFACE(AppleUSBAudioManager, "accessory.AppleUSBAudioManager")

AppleUSBAudioManagerImplItf::~AppleUSBAudioManagerImplItf() = default;

}  // namespace accessory
