// What the environment says of where and with whom this process speaks.
#pragma once

#include <cstdlib>
#include <string>

namespace android::runtime {

/// Empty for what is not set. So is everything in a program with more rights than the user who started it:
/// he would choose for it whom it trusts.
inline std::string environment(const char* name) {
    const char* const value = secure_getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace android::runtime
