// Lists of strings between C++ and JSON.
#pragma once

#include <string>
#include <vector>

#include "tools/rows/FieldCodec.h"

namespace accessory::tools {

/// For the kinds that carry a vector of strings.
template <typename Field>
struct StringsCodec : UnguardedCodec {
    static constexpr char kExpected[] = "a list of texts, a,b,c";

    static FieldDescription describe(const Field& field, unsigned /*position*/) {
        FieldDescription made;
        made.name = field.name;
        made.shape = Shape::kList;
        made.expects = kExpected;
        made.example.append("first-key");
        made.example.append("second-key");
        return made;
    }
    static void write(const Field& field, Writer& out, const Json::Value& value, Keeper* /*keeper*/) {
        std::vector<std::string> strings;
        for (const Json::Value& each : list(value, field.name, kExpected))
            strings.push_back(text(each, field.name));
        field.write(out, strings);
    }
    static Json::Value show(const std::vector<std::string>& strings) {
        Json::Value shown(Json::arrayValue);
        for (const std::string& each : strings)
            shown.append(textToJson(each.c_str()));
        return shown;
    }
};

}  // namespace accessory::tools
