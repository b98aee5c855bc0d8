// The codec of the record that asks for a media library's updates.
#pragma once

#include <iterator>

#include "AppleiAP2/manager/MaskKinds.h"
#include "tools/rows/FieldCodec.h"

namespace accessory::tools {

/// All of its numbers, as a list.
struct LibraryValuesMember {
    const char* name = "values";

    static constexpr size_t kCount = std::size(decltype(MediaLibUpdateInfo::mValues){});
    static std::string expected() { return "a list of " + std::to_string(kCount) + " numbers"; }

    FieldDescription describe(unsigned /*position*/) const {
        FieldDescription made;
        made.name = name;
        made.shape = Shape::kList;
        made.expects = expected();
        for (unsigned i = 0; i < kCount; ++i)
            made.example.append(i + 1);
        return made;
    }
    static Json::Value get(const MediaLibUpdateInfo& from) {
        Json::Value shown(Json::arrayValue);
        for (const int32_t value : from.mValues)
            shown.append(value);
        return shown;
    }
    static void set(MediaLibUpdateInfo* to, const Json::Value& value, const std::string& where,
                    Keeper* /*keeper*/) {
        if (value.isNull()) return;
        const Json::Value values = list(value, where, expected());
        if (values.size() != kCount) refuse(where, expected(), value);
        for (unsigned i = 0; i < kCount; ++i)
            to->mValues[i] = Scalar<int32_t>::fromJson(values[i], where);
    }
};

inline constexpr auto kLibraryUpdateMembers =
    std::tuple(optionalMember("firstText", &MediaLibUpdateInfo::mFirstText),
               optionalMember("secondText", &MediaLibUpdateInfo::mSecondText), LibraryValuesMember());

template <>
struct FieldCodec<wire::iap2_manager::LibraryUpdateInfo> : UnguardedCodec {
    using Field = wire::iap2_manager::LibraryUpdateInfo;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeStructure(field.name, kLibraryUpdateMembers);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        const android::sp<MediaLibUpdateInfo> info = new MediaLibUpdateInfo();
        structureFromJson(info.get(), kLibraryUpdateMembers, value, field.name, keeper);
        Field::write(out, info);
    }
    static Json::Value show(const android::sp<MediaLibUpdateInfo>& info) {
        return structureToJson(*info, kLibraryUpdateMembers);
    }
};

}  // namespace accessory::tools
