// What a client does with the runtime, told so that it can be done again and again while something fails.
#pragma once

#include <binder/IBinder.h>

#include <ostream>
#include <string>
#include <vector>

namespace accessory::test {

/// How one run of a journey ended.
enum class Outcome {
    kArrived,  ///< everything was as it must be
    kRefused,  ///< with a clear error
    kWrong,    ///< neither of the two
};

/// One way to use the runtime, for one process. The names say what happens between the two ends.
struct Journey {
    const char* name;
    /// What must be there before, not counted as the journey. @p service is the name of a test service.
    void (*prepare)(const std::string& service);
    Outcome (*run)(const std::string& service);
};

/// How GoogleTest shows one.
inline void PrintTo(const Journey& journey, std::ostream* out) { *out << journey.name; }

/// All of both kinds.
const std::vector<Journey>& journeys();
std::vector<Journey> runtimeJourneys();
std::vector<Journey> libraryJourneys();

/// The part of a journey in which an object writes its dump to a pipe.
Outcome dumpOf(const android::sp<android::IBinder>& object);

/// The journey of that name.
const Journey& journeyNamed(const std::string& name);

}  // namespace accessory::test
