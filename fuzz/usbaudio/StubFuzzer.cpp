// A fuzz target for one of the stubs of USB audio, the one of ACCESSORY_FUZZ_PROPERTY: any code and any
// bytes.
#include <android/log.h>

#include <cstdlib>

#include "fuzz/usbaudio/StubProperty.h"

// In liblog's place: the stubs log every request.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (!accessory::fuzz::ACCESSORY_FUZZ_PROPERTY(data, size)) std::abort();
    return 0;
}
