#include "simulator/faults/Operations.h"

#include "AccessoryManager/AccessoryManagerRows.h"
#include "AppleUSBAudio/USBAudioRows.h"
#include "AppleiAP2/manager/ManagerRows.h"
#include "common/RowInfo.h"

namespace accessory::simulator {

namespace {

template <typename Rows>
std::vector<Operation> operationsOf(const Rows& rows) {
    std::vector<Operation> operations;
    for (const wire::OperationInfo& info : wire::describeAll(rows))
        operations.push_back({info.code, info.name});
    return operations;
}

}  // namespace

const char* HostedInterface::nameOf(uint32_t code) const {
    for (const Operation& operation : operations) {
        if (operation.code == code) return operation.name;
    }
    return "transaction";
}

// Calls are served until the process ends, so none of these is ever destroyed.

const HostedInterface& accessoryManagerInterface() {
    static const auto& hosted = *new HostedInterface{"AccessoryManager", "accessory.AccessoryManager",
                                                     operationsOf(wire::accessory_manager::kRows)};
    return hosted;
}

const HostedInterface& iAP2ManagerInterface() {
    static const auto& hosted = *new HostedInterface{"AppleiAP2Manager", "accessory.AppleiAP2Manager",
                                                     operationsOf(wire::iap2_manager::kRows)};
    return hosted;
}

const HostedInterface& usbAudioManagerInterface() {
    static const auto& hosted = *new HostedInterface{"AppleUSBAudioManager", "accessory.AppleUSBAudioManager",
                                                     operationsOf(wire::usb_audio_manager::kRows)};
    return hosted;
}

}  // namespace accessory::simulator
