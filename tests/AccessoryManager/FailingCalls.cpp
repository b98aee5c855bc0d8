// The platform's functions are taken over as liblog's are: the dynamic linker finds the program's definition
// before the library's. The definitions carry the mangled names because the classes are the platform's.
#include "tests/AccessoryManager/FailingCalls.h"

#include <binder/Parcel.h>
#include <dlfcn.h>
#include <utils/String8.h>

#include <atomic>

namespace {

using android::Parcel;
using android::status_t;
using android::String8;

std::atomic<bool> failing{false};

template <typename... Arguments>
status_t passOn(const char* name, Arguments... arguments) {
    if (failing) return android::NO_MEMORY;
    using Function = status_t (*)(Arguments...);
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name))(arguments...);
}

}  // namespace

#define TAKES_OVER(name) __asm__(name) __attribute__((visibility("default"), used))
#define WRITE_STRING8 "_ZN7android6Parcel12writeString8ERKNS_7String8E"
#define APPEND_CSTR "_ZN7android7String86appendEPKc"
#define APPEND_BYTES "_ZN7android7String86appendEPKcm"
#define APPEND_STRING8 "_ZN7android7String86appendERKS0_"

status_t writeString8(Parcel* parcel, const String8* text) TAKES_OVER(WRITE_STRING8);
status_t appendCString(String8* string, const char* text) TAKES_OVER(APPEND_CSTR);
status_t appendBytes(String8* string, const char* text, size_t length) TAKES_OVER(APPEND_BYTES);
status_t appendString8(String8* string, const String8* text) TAKES_OVER(APPEND_STRING8);

status_t writeString8(Parcel* parcel, const String8* text) { return passOn(WRITE_STRING8, parcel, text); }

status_t appendCString(String8* string, const char* text) { return passOn(APPEND_CSTR, string, text); }

status_t appendBytes(String8* string, const char* text, size_t length) {
    return passOn(APPEND_BYTES, string, text, length);
}

status_t appendString8(String8* string, const String8* text) { return passOn(APPEND_STRING8, string, text); }

namespace accessory::test {

FailingCalls::FailingCalls() { failing = true; }

FailingCalls::~FailingCalls() { failing = false; }

}  // namespace accessory::test
