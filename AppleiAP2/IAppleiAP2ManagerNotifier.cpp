#include <accessory/IAppleiAP2ManagerNotifier.h>

namespace accessory {

IMPLEMENT_META_INTERFACE(AppleiAP2ManagerNotifier, "accessory.AppleiAP2ManagerNotifier")

AppleiAP2ManagerNotifierImplItf::~AppleiAP2ManagerNotifierImplItf() = default;

}  // namespace accessory
