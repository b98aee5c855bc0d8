#include "tools/accessoryctl/CaptureLines.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

#include "tools/accessoryctl/BinderCalls.h"
#include "tools/accessoryctl/Text.h"
#include "tools/rows/Values.h"

namespace accessory::ctl {

using tools::Capture;
using tools::Decoded;
using tools::Packet;

namespace {

constexpr uint64_t kSecond = 1'000'000'000;

const char* kindOf(const Packet& packet) {
    switch (packet.kind) {
        case Packet::kRequest:
            return "call";
        case Packet::kReply:
            return "reply";
        default:
            return "oneway";
    }
}

std::string hexOf(uint64_t value) {
    char text[17];
    snprintf(text, sizeof(text), "%016llx", static_cast<unsigned long long>(value));
    return text;
}

Json::Value number(uint64_t value) { return Json::Value(static_cast<Json::UInt64>(value)); }

Json::Value objectsToJson(const Packet& packet) {
    Json::Value objects(Json::arrayValue);
    for (const tools::PacketObject& each : packet.objects) {
        Json::Value object;
        object["offset"] = each.offset;
        object["kind"] = each.isBinder() ? "binder" : "descriptor";
        if (each.isBinder())
            object["object"] = each.isNull() ? Json::Value() : Json::Value(hexOf(each.identity));
        objects.append(object);
    }
    return objects;
}

/// The first bytes of what nobody has a row for.
std::string rawText(const Packet& packet) {
    constexpr size_t kShown = 64;
    if (packet.data.empty()) return {};
    const Json::Value bytes = tools::bytesToJson(packet.data.data(), std::min(packet.data.size(), kShown));
    return std::to_string(packet.data.size()) + " bytes " + readable(bytes) +
           (packet.data.size() > kShown ? "..." : "");
}

std::string contentText(const Packet& packet, const Decoded& decoded) {
    if (packet.kind == Packet::kReply && packet.status != 0) return red(statusName(packet.status));
    if (!decoded.error.empty()) return red(decoded.error);
    if (decoded.operation == nullptr) return rawText(packet);
    return readableMembers(decoded.content, decoded.operation->fields);
}

}  // namespace

std::string timeText(uint64_t nanoseconds, bool timeOfDay) {
    const auto seconds = static_cast<time_t>(nanoseconds / kSecond);
    tm parts{};
    gmtime_r(&seconds, &parts);
    char text[48];
    const size_t length = strftime(text, sizeof(text), timeOfDay ? "%H:%M:%S" : "%Y-%m-%dT%H:%M:%S", &parts);
    snprintf(text + length, sizeof(text) - length, ".%09lluZ",
             static_cast<unsigned long long>(nanoseconds % kSecond));
    return text;
}

Json::Value captureToJson(const Capture& capture) {
    Json::Value object;
    object["file"] = capture.path();
    object["program"] = capture.program();
    object["tables"] = capture.tables().empty() ? Json::Value() : Json::Value(capture.tables());
    object["ownTables"] = tools::tablesDigest();
    object["packets"] = number(capture.places().size());
    object["dropped"] = number(capture.dropped());
    return object;
}

std::string captureWarning(const Capture& capture) {
    std::string text;
    const std::string own = tools::tablesDigest();
    if (!capture.tables().empty() && capture.tables() != own) {
        text += capture.path() + ": the tables of transactions of its writer (" + capture.tables() +
                ") are not those of this program (" + own + "); fields may be wrong.\n";
    }
    if (capture.dropped() > 0) {
        text += capture.path() + ": " + std::to_string(capture.dropped()) +
                " packets are missing, they came faster than they could be written.\n";
    }
    return text;
}

Json::Value packetToJson(const Packet& packet, const Decoded& decoded) {
    Json::Value object;
    object["time"] = timeText(packet.time, false);
    object["kind"] = kindOf(packet);
    object["direction"] = packet.direction == Packet::kOut ? "out" : "in";
    object["number"] = number(packet.number);
    object["pid"] = packet.pid;
    object["uid"] = packet.uid;
    object["tid"] = packet.tid;
    object["peerPid"] = packet.peerPid;
    object["peerUid"] = packet.peerUid;
    object["name"] = decoded.name;
    object["descriptor"] = packet.descriptor.empty() ? Json::Value() : Json::Value(packet.descriptor);
    object["code"] = packet.code;
    object["flags"] = packet.flags;
    object["object"] = hexOf(packet.object);
    object["size"] = number(packet.data.size());
    if (packet.kind == Packet::kReply) object["status"] = statusName(packet.status);
    if (!packet.objects.empty()) object["objects"] = objectsToJson(packet);
    const char* const member = packet.kind == Packet::kReply ? "reply" : "arguments";
    if (!decoded.content.isNull()) object[member] = decoded.content;
    if (!decoded.error.empty()) object["error"] = decoded.error;
    if (decoded.operation == nullptr && !packet.data.empty())
        object["data"] = tools::bytesToJson(packet.data.data(), packet.data.size());
    return object;
}

std::string packetLine(const Packet& packet, const Decoded& decoded) {
    const char* const arrow = packet.direction == Packet::kOut ? " -> " : " <- ";
    std::string line = timeText(packet.time, true) + " " + std::to_string(packet.pid) + arrow +
                       std::to_string(packet.peerPid) + " " + kindOf(packet) + " #" +
                       std::to_string(packet.number) + " " + bold(decoded.name);
    const std::string content = contentText(packet, decoded);
    return content.empty() ? line : line + " " + content;
}

}  // namespace accessory::ctl
