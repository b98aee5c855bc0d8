// The operations that the three managers host, by their transaction codes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace accessory::simulator {

struct Operation {
    uint32_t code;
    const char* name;
};

struct HostedInterface {
    const char* name;        ///< e.g. "AppleiAP2Manager"
    const char* descriptor;  ///< also the name of its service
    std::vector<Operation> operations;

    /// "transaction" for an unknown code.
    const char* nameOf(uint32_t code) const;
};

const HostedInterface& accessoryManagerInterface();
const HostedInterface& iAP2ManagerInterface();
const HostedInterface& usbAudioManagerInterface();

}  // namespace accessory::simulator
