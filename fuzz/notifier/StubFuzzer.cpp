// A fuzz target for the notifier's stub: any code and any bytes, over an implementation that reads all it is
// given.
#include <android/log.h>

#include <cstdlib>

#include "fuzz/notifier/StubProperty.h"

// In liblog's place: the stub logs what it refuses, which is most of what a fuzzer makes up.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (accessory::fuzz::StubInput(data, size).isWasteful()) return 0;
    if (!accessory::fuzz::answersAsPromised(data, size)) std::abort();
    return 0;
}
