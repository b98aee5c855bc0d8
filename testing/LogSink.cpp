// liblog's print functions, defined in the test program. The dynamic linker looks there first, so every
// library of the process ends up here. liblog's own callers inside liblog (the fatal __android_log_assert)
// are left alone: they end the process and say why on stderr.
#include "testing/LogSink.h"

#include <android/log.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

namespace {

// Unlike liblog, which cuts a line after 1023 bytes, the whole text is kept.
std::string formatted(const char* format, va_list arguments) {
    char* printed = nullptr;
    const int length = vasprintf(&printed, format, arguments);
    if (length < 0) return std::string("unprintable: ") + format;
    const std::unique_ptr<char, decltype(&std::free)> owned(printed, &std::free);
    return {printed, static_cast<size_t>(length)};
}

/// Like liblog, throws nothing: a line that finds no memory is lost.
template <typename Text>
int sink(int prio, const char* tag, const Text& text) {
    try {
        accessory::testkit::sinkLogLine(prio, tag, text());
        return 1;
    } catch (const std::bad_alloc&) {
        return -ENOMEM;
    }
}

}  // namespace

void accessory::testkit::standInForLiblog() {}

// The project compiles with hidden visibility; a hidden definition would not take liblog's place.
#define VISIBLE __attribute__((visibility("default")))

extern "C" {

VISIBLE int __android_log_write(int prio, const char* tag, const char* text) {
    return sink(prio, tag, [text] { return std::string(text); });
}

VISIBLE int __android_log_vprint(int prio, const char* tag, const char* fmt, va_list ap) {
    return sink(prio, tag, [&] { return formatted(fmt, ap); });
}

VISIBLE int __android_log_print(int prio, const char* tag, const char* fmt, ...) {
    va_list ap;
    va_start(ap, fmt);
    const int result = __android_log_vprint(prio, tag, fmt, ap);
    va_end(ap);
    return result;
}

VISIBLE int __android_log_buf_print(int /*bufID*/, int prio, const char* tag, const char* fmt, ...) {
    va_list ap;
    va_start(ap, fmt);
    const int result = __android_log_vprint(prio, tag, fmt, ap);
    va_end(ap);
    return result;
}

}  // extern "C"
