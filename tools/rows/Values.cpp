#include "tools/rows/Values.h"

#include <json/reader.h>
#include <json/writer.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include "tools/rows/Encodings.h"

namespace accessory::tools {

namespace {

/// The digits of a number, or none when @p text is not one.
bool isNumeral(const std::string& text, bool* negative, std::string* digits, int* base) {
    size_t at = 0;
    *negative = text[0] == '-';
    if (*negative) at = 1;
    *base = text.compare(at, 2, "0x") == 0 ? 16 : 10;
    if (*base == 16) at += 2;
    *digits = text.substr(at);
    const char* const allowed = *base == 16 ? "0123456789abcdefABCDEF" : "0123456789";
    return !digits->empty() && digits->find_first_not_of(allowed) == std::string::npos;
}

bool isHexObject(const Json::Value& value) { return value.isObject() && value["hex"].isString(); }

Json::Value cutAtCommas(const std::string& text) {
    Json::Value parts(Json::arrayValue);
    size_t begin = 0;
    while (!text.empty() && begin <= text.size()) {
        const size_t end = std::min(text.find(',', begin), text.size());
        parts.append(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

}  // namespace

std::string compactJson(const Json::Value& value) {
    static const Json::StreamWriterBuilder builder = [] {
        Json::StreamWriterBuilder made;
        made["indentation"] = "";
        made["emitUTF8"] = true;
        return made;
    }();
    return Json::writeString(builder, value);
}

bool parseJson(const std::string& text, Json::Value* value) {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["strictRoot"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    try {
        return reader->parse(text.data(), text.data() + text.size(), value, nullptr);
    } catch (const Json::Exception&) {  // nested too deeply
        return false;
    }
}

void refuse(const std::string& where, const std::string& expects, const Json::Value& got) {
    throw ArgumentError(where, expects, got.isString() ? "'" + got.asString() + "'" : compactJson(got));
}

Json::Value numberOfText(const Json::Value& value) {
    if (!value.isString()) return value;
    bool negative = false;
    std::string digits;
    int base = 10;
    if (!isNumeral(value.asString(), &negative, &digits, &base)) return value;
    errno = 0;
    const unsigned long long magnitude = strtoull(digits.c_str(), nullptr, base);
    constexpr unsigned long long kMostNegative = 1ULL << 63;
    if (errno != 0 || (negative && magnitude > kMostNegative)) return value;
    if (!negative) return Json::Value(static_cast<Json::UInt64>(magnitude));
    return Json::Value(static_cast<Json::Int64>(0 - magnitude));
}

std::string numberRange(int64_t least, uint64_t most) {
    return "a number from " + std::to_string(least) + " to " + std::to_string(most);
}

int64_t signedNumber(const Json::Value& value, const std::string& where, int64_t least, int64_t most) {
    const Json::Value number = numberOfText(value);
    const bool fits = number.isInt64() && number.asInt64() >= least && number.asInt64() <= most;
    if (!fits) refuse(where, numberRange(least, static_cast<uint64_t>(most)), value);
    return number.asInt64();
}

uint64_t unsignedNumber(const Json::Value& value, const std::string& where, uint64_t most) {
    const Json::Value number = numberOfText(value);
    const bool fits = number.isUInt64() && number.asUInt64() <= most;
    if (!fits) refuse(where, numberRange(0, most), value);
    return number.asUInt64();
}

bool truth(const Json::Value& value, const std::string& where) {
    if (value.isBool()) return value.asBool();
    const std::string word = value.isString() ? value.asString() : compactJson(value);
    if (word == "true" || word == "1" || word == "yes" || word == "on") return true;
    if (word == "false" || word == "0" || word == "no" || word == "off") return false;
    refuse(where, kTruthExpected, value);
}

std::string text(const Json::Value& value, const std::string& where) {
    if (isHexObject(value)) {
        const Bytes raw = bytes(value, where);
        if (std::find(raw.begin(), raw.end(), 0) == raw.end()) return {raw.begin(), raw.end()};
    }
    const bool usable = value.isString() && value.asString().find('\0') == std::string::npos;
    if (!usable) refuse(where, kTextExpected, value);
    return value.asString();
}

Json::Value textToJson(const char* text) {
    if (text == nullptr) return {};
    const std::string value = text;
    return isUtf8(value) ? Json::Value(value) : bytesToJson(value.data(), value.size());
}

std::string bytesExpected(size_t exactly) {
    return (exactly != 0 ? std::to_string(exactly) + " bytes" : "bytes") + " as hex digits (0a1b) or @file";
}

Bytes bytes(const Json::Value& value, const std::string& where, size_t exactly) {
    const Json::Value& digits = isHexObject(value) ? value["hex"] : value;
    Bytes raw;
    const bool usable =
        digits.isString() && parseHex(digits.asString(), &raw) && (exactly == 0 || raw.size() == exactly);
    if (!usable) refuse(where, bytesExpected(exactly), value);
    return raw;
}

Json::Value bytesToJson(const void* bytes, size_t count) {
    Json::Value shown(Json::objectValue);
    shown["hex"] = hexDigits(bytes, count);
    return shown;
}

Json::Value list(const Json::Value& value, const std::string& where, const std::string& expects) {
    Json::Value parsed = value;
    if (value.isString()) {
        const std::string given = value.asString();
        if (given.empty() || given[0] != '[') return cutAtCommas(given);
        if (!parseJson(given, &parsed)) refuse(where, expects, value);
    }
    if (!parsed.isArray()) refuse(where, expects, value);
    return parsed;
}

Json::Value object(const Json::Value& value, const std::string& where, const std::string& expects,
                   const std::vector<std::string>& known) {
    Json::Value parsed = value;
    if (value.isString() && !parseJson(value.asString(), &parsed)) refuse(where, expects, value);
    if (!parsed.isObject()) refuse(where, expects, value);
    for (const std::string& name : parsed.getMemberNames()) {
        if (std::find(known.begin(), known.end(), name) == known.end()) {
            throw ArgumentError(where, expects, "the unknown member '" + name + "'");
        }
    }
    return parsed;
}

}  // namespace accessory::tools
