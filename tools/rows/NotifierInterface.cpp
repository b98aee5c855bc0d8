#include "tools/rows/Interfaces.h"
#include "tools/rows/NotifierCodecs.h"
#include "tools/rows/RecordCodecs.h"
#include "tools/rows/RowOperation.h"

namespace accessory::tools {

const Interface& iap2Notifier() {
    static const Interface made = makeInterface("IAppleiAP2ManagerNotifier", true, notifier::kRows,
                                                notifier::kManners, IAppleiAP2ManagerNotifier::descriptor);
    return made;
}

}  // namespace accessory::tools
