#include "tools/capture/Decode.h"

#include <binder/Binder.h>
#include <binder/IBinder.h>

#include <algorithm>

#include "tables/Digest.h"
#include "tables/Note.h"
#include "tools/rows/Errors.h"

namespace accessory::tools {

namespace {

using android::IBinder;
using android::Parcel;

const Interface* interfaceOf(const std::string& descriptor) {
    const auto& all = allInterfaces();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Interface* each) { return each->descriptor == descriptor; });
    return found != all.end() ? *found : nullptr;
}

/// The calls that every object answers; null for any other.
const char* platformCall(uint32_t code) {
    switch (code) {
        case IBinder::PING_TRANSACTION:
            return "ping";
        case IBinder::INTERFACE_TRANSACTION:
            return "getInterfaceDescriptor";
        case IBinder::DUMP_TRANSACTION:
            return "dump";
        default:
            return nullptr;
    }
}

std::string nameOf(const Packet& packet, const Decoded& decoded) {
    if (decoded.operation != nullptr) return decoded.interface->name + "." + decoded.operation->name;
    const char* const call = platformCall(packet.code);
    if (call != nullptr) return call;
    return packet.descriptor + (packet.descriptor.empty() ? "code " : " code ") + std::to_string(packet.code);
}

/// The parcel as its receiver had it, with a stand-in for every binder.
void fill(Parcel* parcel, const Packet& packet) {
    constexpr size_t kPictureSize = 24;
    size_t position = 0;
    for (const PacketObject& object : packet.objects) {
        if (!object.isBinder()) continue;
        parcel->write(packet.data.data() + position, object.offset - position);
        parcel->writeStrongBinder(object.isNull() ? nullptr : new android::BBinder());
        position = object.offset + kPictureSize;
    }
    parcel->write(packet.data.data() + position, packet.data.size() - position);
    parcel->setDataPosition(0);
}

Json::Value contentOf(const Packet& packet, const Operation& operation) {
    Parcel parcel;
    fill(&parcel, packet);
    return packet.kind == Packet::kReply ? operation.decodeReply(parcel) : operation.decodeRequest(parcel);
}

}  // namespace

Decoded decodePacket(const Packet& packet) {
    Decoded decoded;
    decoded.interface = interfaceOf(packet.descriptor);
    if (decoded.interface != nullptr) decoded.operation = servedOperation(*decoded.interface, packet.code);
    decoded.name = nameOf(packet, decoded);
    const bool isEmpty = packet.kind == Packet::kReply && packet.status != 0;
    if (decoded.operation == nullptr || isEmpty) return decoded;
    try {
        decoded.content = contentOf(packet, *decoded.operation);
    } catch (const UndecodableParcel& error) {
        decoded.error = error.what();
    }
    return decoded;
}

std::string tablesDigest() {
    constexpr auto kNote = wire::tablesNote(wire::tablesDigest());
    return std::string(kNote.data() + wire::kTablesNoteFront, wire::kDigestDigits);
}

}  // namespace accessory::tools
