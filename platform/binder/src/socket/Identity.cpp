#include "Identity.h"

#include <sys/random.h>

#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>

namespace android::runtime {

Secret Secret::random() {
    Secret secret;
    // So few bytes come whole or not at all.
    while (getrandom(&secret, sizeof(secret), 0) != static_cast<ssize_t>(sizeof(secret))) {
        if (errno != EINTR) abort();
    }
    return secret;
}

Secret Secret::parse(const std::string& text) {
    constexpr size_t kDigits = 32;
    if (text.size() != kDigits || text.find_first_not_of("0123456789abcdef") != std::string::npos) return {};
    Secret secret;
    secret.high = std::strtoull(text.substr(0, kDigits / 2).c_str(), nullptr, 16);
    secret.low = std::strtoull(text.substr(kDigits / 2).c_str(), nullptr, 16);
    return secret;
}

std::string Secret::toString() const {
    char text[33];
    std::snprintf(text, sizeof(text), "%016" PRIx64 "%016" PRIx64, high, low);
    return text;
}

}  // namespace android::runtime
