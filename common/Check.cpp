#include "common/Check.h"

#include <android/log.h>

// <assert.h> hides its report when NDEBUG is defined; ours must end the process in every build type.
extern "C" [[noreturn]] void __assert_fail(const char* assertion, const char* file, unsigned int line,
                                           const char* function) noexcept;

namespace accessory {

bool holds(const Site& site, bool condition, const char* text) {
    if (!condition) {
        __android_log_print(ANDROID_LOG_ERROR, site.unit.tag, "[%s][%d] check '%s' failed", site.function,
                            site.line, text);
    }
    return condition;
}

bool succeeded(const Site& site, android::status_t status) {
    if (status != android::NO_ERROR) {
        __android_log_print(ANDROID_LOG_ERROR, site.unit.tag, "%s %d:check return value failed",
                            site.function, site.line);
    }
    return status == android::NO_ERROR;
}

void assertionFailed(const Unit& unit, const char* text, int line, const char* signature) {
    __assert_fail(text, unit.file, static_cast<unsigned int>(line), signature);
}

}  // namespace accessory
