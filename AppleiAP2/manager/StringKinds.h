// Strings in a request that come with a rule of their own.
#pragma once

#include <string>
#include <tuple>
#include <vector>

#include "common/Kinds.h"

namespace accessory::wire::iap2_manager {

/// A library identifier that the stub logs.
struct LibraryId : CString {
    struct Slot : CString::Slot {
        GiveUp read(Reader& in);
    };
};

/// An application's identifier; a request without one counts as done.
struct BundleId : CString {
    struct Slot : CString::Slot {
        GiveUp read(Reader& in);
    };
};

/// A std::string. One that is missing raises std::logic_error out of the stub, as making a std::string from
/// null does.
struct StdString {
    static constexpr const char* kKind = "cstr";
    using Arguments = std::tuple<const std::string&>;

    const char* name = nullptr;

    static void write(Writer& out, const std::string& value) { out.cstr(value.c_str()); }

    struct Slot {
        std::string value;

        GiveUp read(Reader& in);
        Arguments arguments() { return {value}; }
    };
};

/// A count, and as many strings, each as StdString.
struct CarKeyIds {
    static constexpr const char* kKind = "strings";
    using Arguments = std::tuple<std::vector<std::string>&>;

    const char* name = nullptr;

    static void write(Writer& out, const std::vector<std::string>& keys);

    struct Slot {
        std::vector<std::string> keys;

        GiveUp read(Reader& in);
        Arguments arguments() { return {keys}; }
    };
};

constexpr LibraryId libraryId(const char* name) { return {{name}}; }
constexpr BundleId bundleId(const char* name) { return {{name}}; }
constexpr StdString stdString(const char* name) { return {name}; }
constexpr CarKeyIds carKeyIds(const char* name) { return {name}; }

}  // namespace accessory::wire::iap2_manager
