// A fuzz target for the accessory manager's stub: any code and any bytes.
#include <android/log.h>

#include <cstdlib>

#include "fuzz/accessorymanager/StubProperty.h"

// In liblog's place: the stub logs every request.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (!accessory::fuzz::answersAsPromised(data, size)) std::abort();
    return 0;
}
