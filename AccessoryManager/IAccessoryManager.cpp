#include <accessory/IAccessoryManager.h>

namespace accessory {

IMPLEMENT_META_INTERFACE(AccessoryManager, "accessory.AccessoryManager")

AccessoryManagerImplItf::~AccessoryManagerImplItf() = default;
AccessoryManagerNotifierDeathRecipient::~AccessoryManagerNotifierDeathRecipient() = default;

}  // namespace accessory
