// FieldCodec: what is new about a kind of field for the tools, how its C++ arguments become JSON and come
// back. The parcel form stays with the kind.
//
// A codec of a kind has
//     describe(field, position)                name, shape, an example
//     write(field, out, value, keeper)         JSON to arguments, handed to the kind's write()
//     show(argument...)                        the arguments of the kind's slot to JSON
//     guard(in)                                throws UndecodableParcel before the slot reads what would
//                                              end the process
// or, for a kind in the reply, describe() and readReply(in).
#pragma once

#include <string>

#include "common/BinderKind.h"
#include "common/IdList.h"
#include "common/Kinds.h"
#include "tools/rows/Members.h"

namespace accessory::tools {

using wire::Reader;
using wire::Writer;

template <typename Field>
struct FieldCodec;

struct UnguardedCodec {
    static void guard(Reader& /*in*/) {}
};

template <typename T>
struct FieldCodec<wire::Word<T>> : UnguardedCodec {
    using Field = wire::Word<T>;

    static FieldDescription describe(const Field& field, unsigned position) {
        return describeScalar<T>(field.name, position);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        field.write(out, Scalar<T>::fromJson(value, field.name));
    }
    static Json::Value show(T value) { return Scalar<T>::toJson(value); }
};

template <typename T>
struct FieldCodec<wire::LongWord<T>> : UnguardedCodec {
    using Field = wire::LongWord<T>;

    static FieldDescription describe(const Field& field, unsigned position) {
        return describeScalar<T>(field.name, position);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        field.write(out, Scalar<T>::fromJson(value, field.name));
    }
    static Json::Value show(T value) { return Scalar<T>::toJson(value); }
};

/// For all kinds that carry a const char*.
template <typename Field, bool kNullable>
struct TextCodec : UnguardedCodec {
    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeText(field.name, kNullable);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* keeper) {
        const bool absent = kNullable && value.isNull();
        field.write(out, absent ? nullptr : keeper->keepText(text(value, field.name)));
    }
    static Json::Value show(const char* value) { return textToJson(value); }
};

template <>
struct FieldCodec<wire::CString> : TextCodec<wire::CString, false> {};
template <>
struct FieldCodec<wire::OptionalCString> : TextCodec<wire::OptionalCString, true> {};

template <>
struct FieldCodec<wire::CountedString> : UnguardedCodec {
    using Field = wire::CountedString;

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        return describeText(field.name, false);
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        field.write(out, android::String8(text(value, field.name).c_str()));
    }
    static Json::Value show(const android::String8& value) { return textToJson(value.string()); }
};

/// An object of this program cannot be given on a command line, so only null can be sent.
template <typename Notifier>
struct FieldCodec<wire::NotifierBinder<Notifier>> : UnguardedCodec {
    using Field = wire::NotifierBinder<Notifier>;

    static constexpr char kExpected[] = "null; 'accessoryctl watch' registers a notifier of its own";

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made;
        made.name = field.name;
        made.shape = Shape::kBinder;
        made.expects = kExpected;
        made.nullable = true;
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        if (!value.isNull()) refuse(field.name, kExpected, value);
        field.write(out, nullptr);
    }
    static Json::Value show(const android::sp<Notifier>& notifier) {
        return notifier != nullptr ? Json::Value("a notifier") : Json::Value();
    }
};

template <>
struct FieldCodec<wire::IdList> {
    static FieldDescription describe(const wire::IdList& field, unsigned /*position*/) {
        FieldDescription made;
        made.name = field.name;
        made.shape = Shape::kList;
        made.expects = "up to " + std::to_string(wire::kMostIds) + " numbers";
        return made;
    }
    static Json::Value readReply(const wire::IdList& /*field*/, Reader& in) {
        unsigned int ids[wire::kMostIds] = {};
        unsigned int count = 0;
        wire::IdList::readReply(in, ids, &count);
        Json::Value shown(Json::arrayValue);
        for (unsigned int i = 0; i < count; ++i)
            shown.append(ids[i]);
        return shown;
    }
};

}  // namespace accessory::tools
