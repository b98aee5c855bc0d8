// The codecs of the kinds that only the iAP2 notifier's events have, records aside.
#pragma once

#include "AppleiAP2/notifier/NotifierRows.h"
#include "tools/rows/CarKeys.h"
#include "tools/rows/FieldCodec.h"
#include "tools/rows/Lists.h"
#include "tools/rows/Structures.h"

namespace accessory::tools {

namespace notifier = wire::iap2_notifier;

/// Shown as a receiver sees it, which takes the length for the component and the first bytes for the length.
template <>
struct FieldCodec<notifier::HidReport> : UnguardedCodec {
    using Field = notifier::HidReport;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made = describeBytes(field.name, 0, 8);
        made.example = "04000000a1a2a3a4";
        made.expects += "; seen as {component, hex}, the length as component and the first 4 bytes as length";
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        const Bytes report = bytes(value, field.name);
        constexpr int kComponentIsNotSent = 0;
        Field::write(out, kComponentIsNotSent, report.data(), static_cast<int>(report.size()));
    }
    static Json::Value show(int component, const void* report, int length) {
        Json::Value shown = bytesToJson(report, static_cast<size_t>(length));
        shown["component"] = component;
        return shown;
    }
};

template <typename Field, typename Structure>
struct EventStructureCodec : UnguardedCodec {
    static constexpr const auto& kMembers = kMembersOf<Structure>;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeStructure(field.name, kMembers);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        Structure made;
        structureFromJson(&made, kMembers, value, field.name, keeper);
        using Argument = std::tuple_element_t<0, typename Field::Arguments>;
        if constexpr (std::is_pointer_v<Argument>) {
            field.write(out, &made);
        } else {
            field.write(out, made);
        }
    }
    static Json::Value show(const Structure& value) { return structureToJson(value, kMembers); }
    static Json::Value show(const Structure* value) { return show(*value); }
};

template <>
struct FieldCodec<notifier::TransferSetup> : EventStructureCodec<notifier::TransferSetup, FileTransferSetup> {
};
template <>
struct FieldCodec<notifier::CallState> : EventStructureCodec<notifier::CallState, CallStateUpdateParam> {};
template <>
struct FieldCodec<notifier::Communications>
    : EventStructureCodec<notifier::Communications, CommunicationsUpdateParam> {};

template <typename Field>
struct CountedBytesCodec : UnguardedCodec {
    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeBytes(field.name, 0, 6);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        Bytes* const raw = keeper->keep(bytes(value, field.name));
        using Pointer = std::tuple_element_t<0, typename Field::Arguments>;
        field.write(out, reinterpret_cast<Pointer>(raw->data()), static_cast<unsigned int>(raw->size()));
    }
    static Json::Value show(const void* raw, unsigned int length) { return bytesToJson(raw, length); }
};

template <>
struct FieldCodec<notifier::AppIcon> : CountedBytesCodec<notifier::AppIcon> {};

/// Its slot ends the process for want of memory, so what it would refuse is refused before.
template <>
struct FieldCodec<notifier::LinkKeyBytes> : CountedBytesCodec<notifier::LinkKeyBytes> {
    static void guard(Reader& in) {
        const size_t position = in.parcel().dataPosition();
        const auto length = static_cast<uint32_t>(in.i32());
        in.parcel().setDataPosition(position);
        if (length <= kMostTransactionBytes) return;
        throw UndecodableParcel("a receiver ends its process: " + std::to_string(length) +
                                " bytes announced");
    }
};

template <>
struct FieldCodec<notifier::OptionalMac> : UnguardedCodec {
    using Field = notifier::OptionalMac;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made = describeBytes(field.name, Field::kBytes, Field::kBytes);
        made.nullable = true;
        made.expects += ", or null";
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        if (value.isNull()) return Field::write(out, nullptr);
        Field::write(out, bytes(value, field.name, Field::kBytes).data());
    }
    static Json::Value show(const unsigned char* mac) {
        return mac != nullptr ? bytesToJson(mac, Field::kBytes) : Json::Value();
    }
};

template <>
struct FieldCodec<notifier::CarKeys> : StringsCodec<notifier::CarKeys> {};

template <>
struct FieldCodec<notifier::AppList> : UnguardedCodec {
    using Field = notifier::AppList;

    static constexpr char kExpected[] = "a list of structures of value16, string1, string2, value32, buffer";

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made = describeStructure(field.name, kMembersOf<AppleAppList>);
        made.shape = Shape::kList;
        made.expects = kExpected;
        Json::Value apps(Json::arrayValue);
        apps.append(made.example);
        made.example = apps;
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        const Json::Value apps = list(value, field.name, kExpected);
        if (apps.size() > UINT16_MAX) refuse(field.name, "at most 65535 structures", apps.size());
        std::vector<AppleAppList> elements(apps.size());
        for (Json::ArrayIndex i = 0; i < apps.size(); ++i)
            structureFromJson(&elements[i], kMembersOf<AppleAppList>, apps[i], field.name, keeper);
        Field::write(out, elements.empty() ? nullptr : elements.data(),
                     static_cast<unsigned short>(apps.size()));
    }
    static Json::Value show(const AppleAppList* apps, unsigned short count) {
        Json::Value shown(Json::arrayValue);
        for (size_t i = 0; apps != nullptr && i < count; ++i)
            shown.append(structureToJson(apps[i], kMembersOf<AppleAppList>));
        return shown;
    }
};

/// The text is there when something is available, and only then.
template <typename Attributes>
struct FieldCodec<notifier::Availability<Attributes>> : UnguardedCodec {
    using Field = notifier::Availability<Attributes>;

    static constexpr auto kMembers =
        std::tuple(member("available", &Attributes::available), optionalMember("text", &Attributes::text));

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeStructure(field.name, kMembers);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        Attributes made;
        structureFromJson(&made, kMembers, value, field.name, keeper);
        const bool incomplete = made.available && made.text == nullptr;
        if (incomplete) refuse(field.name + std::string(".text"), kTextExpected, Json::Value());
        field.write(out, &made);
    }
    static Json::Value show(const Attributes* value) { return structureToJson(*value, kMembers); }
};

}  // namespace accessory::tools
