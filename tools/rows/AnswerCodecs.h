// The codecs of what the iAP2 manager's replies carry besides the result.
#pragma once

#include "AppleiAP2/manager/AnswerKinds.h"
#include "tools/rows/FieldCodec.h"

namespace accessory::tools {

template <>
struct FieldCodec<wire::iap2_manager::OutWord> {
    using Field = wire::iap2_manager::OutWord;

    static FieldDescription describe(const Field& field, unsigned position) {
        return describeScalar<int>(field.name, position);
    }
    static Json::Value readReply(const Field& /*field*/, Reader& in) {
        int value = 0;
        Field::readReply(in, &value);
        return value;
    }
};

/// A client counts the identifiers and stores none. A tool wants to see them, so it reads on where the kind
/// began, behind the count.
template <>
struct FieldCodec<wire::iap2_manager::AppIds> {
    using Field = wire::iap2_manager::AppIds;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made;
        made.name = field.name;
        made.shape = Shape::kList;
        made.expects = "up to " + std::to_string(wire::kMostIds) + " texts";
        return made;
    }
    static Json::Value readReply(const Field& /*field*/, Reader& in) {
        const size_t begin = in.parcel().dataPosition();
        unsigned int count = 0;
        Field::readReply(in, nullptr, &count);
        const size_t end = in.parcel().dataPosition();
        in.parcel().setDataPosition(begin + sizeof(int32_t));
        Json::Value shown(Json::arrayValue);
        for (unsigned int i = 0; i < count; ++i)
            shown.append(textToJson(in.cstr()));
        in.parcel().setDataPosition(end);
        return shown;
    }
};

}  // namespace accessory::tools
