// A fuzz target for the registers: any sequence of registrations, deaths, events and requests, by clients of
// any process, at both services at once.
#include <android/log.h>

#include <cstdlib>

#include "fuzz/sessions/Session.h"

// In liblog's place: every step logs.
extern "C" __attribute__((visibility("default"))) int __android_log_print(int, const char*, const char*,
                                                                          ...) {
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    namespace fuzz = accessory::fuzz;
    for (fuzz::Service* const service : {&fuzz::iAP2Service(), &fuzz::audioService()}) {
        if (!fuzz::Session(*service).run(data, size)) std::abort();
    }
    return 0;
}
