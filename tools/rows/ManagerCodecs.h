// The codecs of the kinds that only the iAP2 manager's requests have.
#pragma once

#include "AppleiAP2/manager/ManagerRows.h"
#include "tools/rows/CarKeys.h"
#include "tools/rows/FieldCodec.h"
#include "tools/rows/Lists.h"
#include "tools/rows/Masks.h"
#include "tools/rows/Structures.h"

namespace accessory::tools {

namespace manager = wire::iap2_manager;

template <typename Field>
struct ArrayCodec : UnguardedCodec {
    using List = ListOf<typename Field::Element>;

    static FieldDescription describe(const Field& field, unsigned position) {
        return List::describe(field.name, position);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        auto elements = List::fromJson(value, field.name);
        using Count = std::tuple_element_t<1, typename Field::Arguments>;
        field.write(out, elements.data(), static_cast<Count>(elements.size()));
    }
    template <typename Pointer, typename Count>
    static Json::Value show(Pointer elements, Count count) {
        return List::toJson(elements, static_cast<size_t>(count));
    }
};

template <typename Pointer, typename Count, const char* kCheck>
struct FieldCodec<manager::CheckedArray<Pointer, Count, kCheck>>
    : ArrayCodec<manager::CheckedArray<Pointer, Count, kCheck>> {};
template <>
struct FieldCodec<manager::BluetoothAddress> : ArrayCodec<manager::BluetoothAddress> {};
template <>
struct FieldCodec<manager::DisplayIds> : ArrayCodec<manager::DisplayIds> {};
template <>
struct FieldCodec<manager::MediaItemIds> : ArrayCodec<manager::MediaItemIds> {};

/// A structure by reference or pointer; a pointer is null when the structure is absent.
template <typename Field, typename Structure, bool kNullable>
struct StructureCodec : UnguardedCodec {
    static constexpr const auto& kMembers = kMembersOf<Structure>;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeStructure(field.name, kMembers, kNullable);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        Structure made;
        const bool absent = kNullable && value.isNull();
        if (!absent) structureFromJson(&made, kMembers, value, field.name, keeper);
        using Argument = std::tuple_element_t<0, typename Field::Arguments>;
        if constexpr (std::is_pointer_v<Argument>) {
            field.write(out, absent ? nullptr : &made);
        } else {
            field.write(out, made);
        }
    }
    static Json::Value show(const Structure& value) { return structureToJson(value, kMembers); }
    static Json::Value show(const Structure* value) {
        return value != nullptr ? show(*value) : Json::Value();
    }
};

template <typename Argument>
struct FieldCodec<manager::RawRecord<Argument>>
    : StructureCodec<manager::RawRecord<Argument>, typename manager::RawRecord<Argument>::Structure, false> {
};
template <>
struct FieldCodec<manager::HidAttributes>
    : StructureCodec<manager::HidAttributes, HIDReportAttributes, false> {};
template <>
struct FieldCodec<manager::CallTarget> : StructureCodec<manager::CallTarget, InitiateCallParam, false> {};
template <>
struct FieldCodec<manager::WiredSession>
    : StructureCodec<manager::WiredSession, CPStartSessionWiredAttributes, true> {};
template <>
struct FieldCodec<manager::WirelessSession>
    : StructureCodec<manager::WirelessSession, CPStartSessionWirelessAttributes, true> {};

template <>
struct FieldCodec<manager::PairingBlock> : UnguardedCodec {
    using Field = manager::PairingBlock;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made = describeBytes(field.name, Field::kBytes, Field::kBytes);
        made.nullable = true;
        made.expects += ", or null";
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        if (value.isNull()) return Field::write(out, nullptr);
        unsigned char block[2][16] = {};
        const Bytes raw = bytes(value, field.name, Field::kBytes);
        std::copy(raw.begin(), raw.end(), &block[0][0]);
        Field::write(out, block);
    }
    static Json::Value show(const unsigned char (*block)[16]) {
        return block != nullptr ? bytesToJson(block, Field::kBytes) : Json::Value();
    }
};

template <>
struct FieldCodec<manager::LibraryId> : TextCodec<manager::LibraryId, false> {};
template <>
struct FieldCodec<manager::BundleId> : TextCodec<manager::BundleId, false> {};

template <>
struct FieldCodec<manager::StdString> : UnguardedCodec {
    using Field = manager::StdString;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeText(field.name, false);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        Field::write(out, text(value, field.name));
    }
    static Json::Value show(const std::string& value) { return textToJson(value.c_str()); }
};

template <>
struct FieldCodec<manager::CarKeyIds> : StringsCodec<manager::CarKeyIds> {};

template <typename MaskClass>
struct FieldCodec<manager::Mask<MaskClass>> : UnguardedCodec {
    using Field = manager::Mask<MaskClass>;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made;
        made.name = field.name;
        made.shape = Shape::kMask;
        made.expects = maskExpected();
        for (const MaskBit& bit : maskBits<MaskClass>())
            made.choices.push_back(bit.name);
        made.example.append(made.choices[0]);
        made.example.append(made.choices[1]);
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        const android::sp<MaskClass> mask = new MaskClass();
        mask->mask = maskFromJson(value, maskBits<MaskClass>(), field.name);
        field.write(out, mask);
    }
    static Json::Value show(const android::sp<MaskClass>& mask) {
        return maskToJson(mask->mask, maskBits<MaskClass>());
    }
};

}  // namespace accessory::tools
