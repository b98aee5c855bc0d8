// The platform's functions are taken over as liblog's are: the dynamic linker finds the program's definition
// before the library's. The definitions carry the mangled names because the class is the platform's.
#include "tests/AppleiAP2/notifier/FailingWrites.h"

#include <binder/Parcel.h>
#include <dlfcn.h>

#include <atomic>

namespace {

using android::Parcel;
using android::status_t;

std::atomic<bool> failing{false};
std::atomic<size_t> failures{0};

template <typename... Arguments>
status_t passOn(const char* name, Arguments... arguments) {
    if (failing) {
        ++failures;
        return android::NO_MEMORY;
    }
    using Function = status_t (*)(Arguments...);
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name))(arguments...);
}

}  // namespace

// The letters of int64_t, uint64_t and size_t in a mangled name.
#if __SIZEOF_LONG__ == 8
#define INT64_LETTER "l"
#define UINT64_LETTER "m"
#define SIZE_LETTER "m"
#else
#define INT64_LETTER "x"
#define UINT64_LETTER "y"
#define SIZE_LETTER "j"
#endif

#define TAKES_OVER(name) __asm__(name) __attribute__((visibility("default"), used))
#define WRITE_TOKEN "_ZN7android6Parcel19writeInterfaceTokenERKNS_8String16E"
#define WRITE_INT32 "_ZN7android6Parcel10writeInt32Ei"
#define WRITE_UINT32 "_ZN7android6Parcel11writeUint32Ej"
#define WRITE_INT64 "_ZN7android6Parcel10writeInt64E" INT64_LETTER
#define WRITE_UINT64 "_ZN7android6Parcel11writeUint64E" UINT64_LETTER
#define WRITE_BOOL "_ZN7android6Parcel9writeBoolEb"
#define WRITE_CSTRING "_ZN7android6Parcel12writeCStringEPKc"
#define WRITE_BYTES "_ZN7android6Parcel5writeEPKv" SIZE_LETTER

status_t writeToken(Parcel* parcel, const void* name) TAKES_OVER(WRITE_TOKEN);
status_t writeInt32(Parcel* parcel, int32_t value) TAKES_OVER(WRITE_INT32);
status_t writeUint32(Parcel* parcel, uint32_t value) TAKES_OVER(WRITE_UINT32);
status_t writeInt64(Parcel* parcel, int64_t value) TAKES_OVER(WRITE_INT64);
status_t writeUint64(Parcel* parcel, uint64_t value) TAKES_OVER(WRITE_UINT64);
status_t writeBool(Parcel* parcel, bool value) TAKES_OVER(WRITE_BOOL);
status_t writeCString(Parcel* parcel, const char* text) TAKES_OVER(WRITE_CSTRING);
status_t writeBytes(Parcel* parcel, const void* bytes, size_t length) TAKES_OVER(WRITE_BYTES);

status_t writeToken(Parcel* parcel, const void* name) { return passOn(WRITE_TOKEN, parcel, name); }
status_t writeInt32(Parcel* parcel, int32_t value) { return passOn(WRITE_INT32, parcel, value); }
status_t writeUint32(Parcel* parcel, uint32_t value) { return passOn(WRITE_UINT32, parcel, value); }
status_t writeInt64(Parcel* parcel, int64_t value) { return passOn(WRITE_INT64, parcel, value); }
status_t writeUint64(Parcel* parcel, uint64_t value) { return passOn(WRITE_UINT64, parcel, value); }
status_t writeBool(Parcel* parcel, bool value) { return passOn(WRITE_BOOL, parcel, value); }
status_t writeCString(Parcel* parcel, const char* text) { return passOn(WRITE_CSTRING, parcel, text); }
status_t writeBytes(Parcel* parcel, const void* bytes, size_t length) {
    return passOn(WRITE_BYTES, parcel, bytes, length);
}

namespace accessory::test {

FailingWrites::FailingWrites() {
    failures = 0;
    failing = true;
}

FailingWrites::~FailingWrites() { failing = false; }

size_t FailingWrites::count() const { return failures; }

}  // namespace accessory::test
