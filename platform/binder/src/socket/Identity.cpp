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

namespace {

/// Spreads every bit over all others, one to one.
uint64_t mixed(uint64_t bits) {
    bits = (bits ^ (bits >> 33)) * 0xff51afd7ed558ccd;
    bits = (bits ^ (bits >> 33)) * 0xc4ceb9fe1a85ec53;
    return bits ^ (bits >> 33);
}

}  // namespace

size_t SecretHash::operator()(const Secret& secret) const {
    static const Secret key = Secret::random();
    return static_cast<size_t>(mixed(mixed(secret.low ^ key.low) + (secret.high ^ key.high)));
}

}  // namespace android::runtime
