#include <accessory/IAppleiAP2Manager.h>

namespace accessory {

IMPLEMENT_META_INTERFACE(AppleiAP2Manager, "accessory.AppleiAP2Manager")

AppleiAP2ManagerImplItf::~AppleiAP2ManagerImplItf() = default;

}  // namespace accessory
