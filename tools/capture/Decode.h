// What a packet says: which operation it is of, and its fields, by the rows.
#pragma once

#include <json/json.h>

#include <string>

#include "tools/capture/Packet.h"
#include "tools/rows/Operation.h"

namespace accessory::tools {

struct Decoded {
    std::string name;  ///< "IAppleiAP2Manager.launchAPP", "ping", "com.example.IOther code 7"
    const Interface* interface = nullptr;  ///< null for one that is not in the rows
    const Operation* operation = nullptr;
    Json::Value
        content;  ///< the arguments, or the fields of the reply with its result; null when there are none
    std::string error;  ///< why there are none although there should be
};

/// Never throws, never ends the process, whatever is in the packet.
Decoded decodePacket(const Packet& packet);

/// The digest of the tables that decodePacket() goes by, as captures carry it.
std::string tablesDigest();

}  // namespace accessory::tools
