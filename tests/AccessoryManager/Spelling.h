// What the tests of the accessory manager's two sides spell: its tag, its check of a reply, paths.
#pragma once

#include <utils/String8.h>

#include <string>

namespace accessory::test {

inline constexpr char kTag[] = "IAccessoryManager";
inline constexpr char kHeaderCheck[] = "!reply.readExceptionCode()";

/// The characters of @p path, those behind a NUL too.
inline std::string text(const android::String8& path) { return std::string(path.string(), path.size()); }

inline android::String8 string8Of(const std::string& path) {
    return android::String8(path.data(), path.size());
}

}  // namespace accessory::test
