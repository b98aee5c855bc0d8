#include <algorithm>

#include "tools/rows/AnswerCodecs.h"
#include "tools/rows/Interfaces.h"
#include "tools/rows/LibraryUpdateCodec.h"
#include "tools/rows/ManagerCodecs.h"
#include "tools/rows/RowOperation.h"

namespace accessory::tools {

namespace {

/// The form that stubs do not serve stands behind the one with which it shares its code.
void addOnlySent(Interface* interface) {
    using Row = decltype(manager::kStartMediaLibUpdatesByMasks);
    auto operation = std::make_unique<RowOperation<std::decay_t<Row>>>(
        manager::kStartMediaLibUpdatesByMasks, manager::kManners, IAppleiAP2Manager::descriptor);
    operation->onlySent = true;
    const auto isBehind = [&operation](const auto& each) { return each->code > operation->code; };
    auto& all = interface->operations;
    const auto place = std::find_if(all.begin(), all.end(), isBehind);
    all.insert(place, std::move(operation));
}

Interface makeManager() {
    Interface made = makeInterface("IAppleiAP2Manager", false, manager::kRows, manager::kManners,
                                   IAppleiAP2Manager::descriptor);
    addOnlySent(&made);
    return made;
}

}  // namespace

const Interface& iap2Manager() {
    static const Interface made = makeManager();
    return made;
}

}  // namespace accessory::tools
