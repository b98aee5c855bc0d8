// How the fields of the transactions lie in a parcel: one overload of layout() for each kind. A kind without
// one does not compile.
#pragma once

#include "AccessoryManager/AccessoryManagerRows.h"
#include "AppleUSBAudio/USBAudioRows.h"
#include "tools/dissector/Nodes.h"
#include "tools/dissector/RecordLayouts.h"
#include "tools/rows/Masks.h"
#include "tools/rows/Structures.h"

namespace accessory::dissector {

namespace manager = wire::iap2_manager;
namespace notifier = wire::iap2_notifier;

template <typename T>
Node layout(const wire::Word<T>& field) {
    return word<T>(field.name);
}
template <typename T>
Node layout(const wire::LongWord<T>& field) {
    return word<T>(field.name);
}
inline Node layout(const wire::CString& field) { return text(field.name); }
inline Node layout(const manager::StdString& field) { return text(field.name); }
inline Node layout(const wire::OptionalCString& field) { return optional(text(field.name)); }
inline Node layout(const wire::CountedString& field) { return node("text8", field.name); }
template <typename Notifier>
Node layout(const wire::NotifierBinder<Notifier>& field) {
    return node("binder", field.name);
}
inline Node layout(const wire::IdList& field) { return nodeOf("list", field.name, {word<uint32_t>("")}); }
inline Node layout(const manager::AppIds& field) { return nodeOf("list", field.name, {text("")}); }
inline Node layout(const manager::OutWord& field) { return word<int32_t>(field.name); }
inline Node layout(const manager::CarKeyIds& field) { return nodeOf("list", field.name, {text("")}); }
inline Node layout(const notifier::CarKeys& field) { return nodeOf("list", field.name, {text("")}); }
template <typename Pointer, typename Count>
Node layout(const manager::Array<Pointer, Count>& field) {
    return array<typename manager::Array<Pointer, Count>::Element>(field.name);
}

template <typename MaskClass>
Node layout(const manager::Mask<MaskClass>& field) {
    std::vector<Node> names;
    for (const tools::MaskBit& bit : tools::maskBits<MaskClass>())
        names.push_back("{bit=" + std::to_string(bit.bit) + ",name=" + quoted(bit.name) + "}");
    return node("mask", field.name, ",names=" + nodeList(names));
}

/// Structures of nothing but bytes, one after the other.
template <typename Argument>
Node layout(const manager::RawRecord<Argument>& field) {
    using Structure = typename manager::RawRecord<Argument>::Structure;
    std::vector<Node> names;
    std::apply([&names](const auto&... member) { (names.push_back(quoted(member.name)), ...); },
               tools::kMembersOf<Structure>);
    return node("raw", field.name,
                ",size=" + std::to_string(sizeof(Structure)) + ",names=" + nodeList(names));
}

inline Node layout(const manager::CallTarget& field) {
    return nodeOf("struct", field.name,
                  {word<int32_t>("type"), optional(text("destinationId")), word<int32_t>("service"),
                   optional(text("addressBookId"))});
}
inline Node layout(const manager::WiredSession& field) {
    return optional(nodeOf("struct", field.name, {text("string1")}));
}
inline Node layout(const manager::WirelessSession& field) {
    return optional(nodeOf("struct", field.name,
                           {text("string1"), text("string2"), word<uint8_t>("value8"), text("string3"),
                            word<uint32_t>("value32")}));
}
inline Node layout(const manager::PairingBlock& field) {
    return optional(fixedBytes(field.name, manager::PairingBlock::kBytes));
}
inline Node layout(const manager::HidAttributes& field) {
    return nodeOf("struct", field.name,
                  {word<uint16_t>("componentId"), word<uint16_t>("vendorId"), word<uint16_t>("productId"),
                   word<uint8_t>("countryCode"), countedBytes("reportDescriptor")});
}
inline Node layout(const manager::LibraryUpdateInfo& field) {
    constexpr size_t kValues = std::size(decltype(MediaLibUpdateInfo::mValues){});
    std::vector<Node> nodes = {text("firstText"), text("secondText")};
    nodes.insert(nodes.end(), kValues, word<int32_t>("values"));
    return nodeOf("struct", field.name, nodes);
}

/// As the receiver takes it.
inline Node layout(const notifier::HidReport& field) {
    return nodeOf("struct", field.name, {word<int32_t>("component"), countedBytes("bytes")});
}
inline Node layout(const notifier::TransferSetup& field) {
    return nodeOf("struct", field.name,
                  {word<uint32_t>("value1"), word<uint32_t>("value2"), word<uint32_t>("value3"),
                   word<uint32_t>("value4"), word<uint32_t>("value5"), word<uint32_t>("emptyWord"),
                   word<uint32_t>("length"), word<uint32_t>("value8"), countedBytes("buffer")});
}
inline Node layout(const notifier::LinkKeyBytes& field) { return countedBytes(field.name); }
inline Node layout(const notifier::AppIcon& field) { return countedBytes(field.name); }
inline Node layout(const notifier::OptionalMac& field) {
    return optional(fixedBytes(field.name, notifier::OptionalMac::kBytes));
}
inline Node layout(const notifier::AppList& field) {
    return nodeOf("applist", field.name,
                  {word<uint16_t>("value16"), text("string1"), text("string2"), word<uint32_t>("value32"),
                   countedBytes("buffer")});
}
template <typename Attributes>
Node layout(const notifier::Availability<Attributes>& field) {
    return nodeOf("available", field.name, {text("text")});
}

/// Optional fields, each with its presence word. A 64-bit one is read with 32 bits.
template <typename Structure>
Node optionalFields(const char* name) {
    std::vector<Node> nodes;
    const auto add = [&nodes](const auto& member) {
        using Pointed =
            std::remove_const_t<std::remove_pointer_t<std::decay_t<decltype(Structure().*member.place)>>>;
        if constexpr (std::is_same_v<Pointed, char>) {
            nodes.push_back(optional(text(member.name)));
        } else if constexpr (std::is_same_v<Pointed, int64_t>) {
            nodes.push_back(optional(word<int32_t>(member.name)));
        } else {
            nodes.push_back(optional(word<Pointed>(member.name)));
        }
    };
    std::apply([&add](const auto&... member) { (add(member), ...); }, tools::kMembersOf<Structure>);
    return nodeOf("struct", name, nodes);
}
inline Node layout(const notifier::CallState& field) {
    return optionalFields<CallStateUpdateParam>(field.name);
}
inline Node layout(const notifier::Communications& field) {
    return optionalFields<CommunicationsUpdateParam>(field.name);
}

inline Node layout(const notifier::Destination& field) {
    using Info = DestinationInfo;
    const auto member = [](uint32_t bit, const Node& node) {
        return "{bit=" + std::to_string(bit) + ",node=" + node + "}";
    };
    return nodeOf(
        "record", field.name,
        {member(Info::kFirstString, text("firstString")), member(Info::kSecondString, text("secondString")),
         member(Info::kEightBytes, fixedBytes("eightBytes", sizeof(Info::eightBytes))),
         member(Info::kThirdString, text("thirdString")), member(Info::kPoints, array<Info::Point>("points")),
         member(Info::kValue, word<uint32_t>("value")), member(Info::kFourthString, text("fourthString")),
         member(Info::kFifthString, text("fifthString"))});
}

}  // namespace accessory::dissector
