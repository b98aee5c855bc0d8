#include "AccessoryManager/AccessoryManagerRows.h"
#include "tools/rows/Interfaces.h"
#include "tools/rows/RowOperation.h"

namespace accessory::tools {

const Interface& accessoryManager() {
    namespace rows = wire::accessory_manager;
    static const Interface made =
        makeInterface("IAccessoryManager", false, rows::kRows, rows::kManners, IAccessoryManager::descriptor);
    return made;
}

}  // namespace accessory::tools
