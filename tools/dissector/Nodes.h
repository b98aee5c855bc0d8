// The nodes in which the dissector is told how a field lies in a parcel: Lua tables, as text.
//
// kinds.lua tells what each type of node reads.
#pragma once

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

namespace accessory::dissector {

/// The expression of a Lua table.
using Node = std::string;

inline std::string quoted(const std::string& text) { return "\"" + text + "\""; }

/// @param rest further members, "bits=16"; each with a comma in front.
inline Node node(const char* type, const std::string& name, const std::string& rest = {}) {
    return "{t=" + quoted(type) + ",n=" + quoted(name) + rest + "}";
}

inline Node nodeList(const std::vector<Node>& nodes) {
    std::string list;
    for (const Node& each : nodes)
        list += (list.empty() ? "" : ",") + each;
    return "{" + list + "}";
}

/// A node with nodes in it.
inline Node nodeOf(const char* type, const std::string& name, const std::vector<Node>& of) {
    return node(type, name, ",of=" + nodeList(of));
}

/// "bits" and "signed" of an integer.
template <typename T>
std::string integerMembers() {
    if constexpr (std::is_enum_v<T>) {
        return integerMembers<std::underlying_type_t<T>>();
    } else {
        return ",bits=" + std::to_string(sizeof(T) * 8) + (std::is_signed_v<T> ? ",signed=true" : "");
    }
}

/// A number or truth value in a cell of its own.
template <typename T>
Node word(const char* name) {
    if constexpr (std::is_same_v<T, bool>) {
        return node("bool", name);
    } else if constexpr (sizeof(T) == sizeof(int64_t)) {
        return node("long", name);
    } else {
        return node("int", name, integerMembers<T>());
    }
}

inline Node text(const char* name) { return node("text", name); }
inline Node optional(const Node& present) { return "{t=\"optional\",of={" + present + "}}"; }
inline Node fixedBytes(const char* name, size_t size) {
    return node("bytes", name, ",size=" + std::to_string(size));
}
inline Node countedBytes(const char* name) { return node("array", name, ",size=1"); }

/// A count and as many elements as they lie in memory.
template <typename T>
Node array(const char* name) {
    const std::string size = ",size=" + std::to_string(sizeof(T));
    const bool isNumber = (std::is_integral_v<T> || std::is_enum_v<T>)&&sizeof(T) > 1;
    if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
        return node("array", name, size + (isNumber ? integerMembers<T>() : ""));
    } else {
        return node("array", name, size + ",block=true");
    }
}

}  // namespace accessory::dissector
