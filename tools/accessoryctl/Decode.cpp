// decode: the transactions of captures, in the order of their time.
#include <cstdio>

#include "tools/accessoryctl/CaptureLines.h"
#include "tools/accessoryctl/OpenCaptures.h"
#include "tools/accessoryctl/Verbs.h"

namespace accessory::ctl {

int decode(const Options& options, const std::vector<std::string>& paths) {
    tools::Captures captures = openCaptures(options, paths);
    readAll(&captures, [&options](const tools::Capture& /*capture*/, const tools::Packet& packet) {
        const tools::Decoded decoded = tools::decodePacket(packet);
        if (options.json) return print(options, "transaction", packetToJson(packet, decoded), "");
        print(options, "", {}, packetLine(packet, decoded) + "\n");
    });
    return kDone;
}

}  // namespace accessory::ctl
