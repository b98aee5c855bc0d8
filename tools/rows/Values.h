// Plain values between C++ and JSON. What comes from a command line is a JSON string, so every reader also
// takes the text of a value for the value.
//
// Readers throw ArgumentError; @p where is the name of the field that it reports.
#pragma once

#include <json/json.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "tools/rows/Errors.h"

namespace accessory::tools {

using Bytes = std::vector<uint8_t>;

/// @p value as one line of JSON.
std::string compactJson(const Json::Value& value);
/// @return false when @p text is not one JSON value.
bool parseJson(const std::string& text, Json::Value* value);

[[noreturn]] void refuse(const std::string& where, const std::string& expects, const Json::Value& got);

/// A text that is a decimal or 0x number, as a JSON number; anything else as it is.
Json::Value numberOfText(const Json::Value& value);
/// "a number from ... to ...".
std::string numberRange(int64_t least, uint64_t most);
int64_t signedNumber(const Json::Value& value, const std::string& where, int64_t least, int64_t most);
uint64_t unsignedNumber(const Json::Value& value, const std::string& where, uint64_t most);

inline constexpr char kTruthExpected[] = "true or false";
bool truth(const Json::Value& value, const std::string& where);

/// A string, or bytes that are no text as {"hex": "..."}.
inline constexpr char kTextExpected[] = "a text";
std::string text(const Json::Value& value, const std::string& where);
/// Null for null; what is not UTF-8 becomes {"hex": "..."}.
Json::Value textToJson(const char* text);

/// "bytes in hex ..." or "6 bytes in hex ...".
std::string bytesExpected(size_t exactly = 0);
/// A hex string, or {"hex": "..."}. @param exactly the number of bytes that it must have; 0 for any.
Bytes bytes(const Json::Value& value, const std::string& where, size_t exactly = 0);
Json::Value bytesToJson(const void* bytes, size_t count);

/// An array; a text is parsed as JSON when it begins with '[', else cut at its commas.
Json::Value list(const Json::Value& value, const std::string& where, const std::string& expects);
/// An object; a text is parsed as JSON. Members other than @p known are refused.
Json::Value object(const Json::Value& value, const std::string& where, const std::string& expects,
                   const std::vector<std::string>& known);

/// Numbers, truth values and enumerations of any width.
template <typename T>
struct Scalar {
    static constexpr bool kIsTruth = std::is_same_v<T, bool>;
    using Integer =
        typename std::conditional_t<std::is_enum_v<T>, std::underlying_type<T>, std::common_type<T>>::type;
    using Limits = std::numeric_limits<Integer>;

    static std::string expects() {
        return kIsTruth
                   ? std::string(kTruthExpected)
                   : numberRange(static_cast<int64_t>(Limits::min()), static_cast<uint64_t>(Limits::max()));
    }

    static T fromJson(const Json::Value& value, const std::string& where) {
        if constexpr (kIsTruth) {
            return truth(value, where);
        } else if constexpr (std::is_signed_v<Integer>) {
            return static_cast<T>(signedNumber(value, where, Limits::min(), Limits::max()));
        } else {
            return static_cast<T>(unsignedNumber(value, where, Limits::max()));
        }
    }

    static Json::Value toJson(T value) {
        if constexpr (kIsTruth) {
            return value;
        } else if constexpr (std::is_signed_v<Integer>) {
            return Json::Value(static_cast<Json::Int64>(value));
        } else {
            return Json::Value(static_cast<Json::UInt64>(value));
        }
    }
};

}  // namespace accessory::tools
