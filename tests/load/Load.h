// How long and how wide the load tests are: short unless the environment asks for more.
#pragma once

#include <chrono>
#include <cstdlib>
#include <thread>

namespace accessory::load {

inline int numberFromEnvironment(const char* name, int unlessSet) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::atoi(text) : unlessSet;
}

/// ACCESSORY_LOAD_SECONDS.
inline std::chrono::seconds loadTime(int unlessSet = 3) {
    return std::chrono::seconds(numberFromEnvironment("ACCESSORY_LOAD_SECONDS", unlessSet));
}

/// How long to wait for a child that works that long, on a machine that does other things as well.
inline std::chrono::milliseconds patienceFor(std::chrono::seconds work) {
    return 2 * work + std::chrono::seconds(30);
}

/// For a child that has nothing to say before the load ends.
inline std::chrono::milliseconds untilTheEnd() { return patienceFor(loadTime()) + std::chrono::seconds(60); }

/// For a child that waits while hundreds of others are served.
inline constexpr std::chrono::milliseconds kLongPatience{100'000};

/// A moment in the life of a load; for its shape, never to wait for something.
inline void rest(std::chrono::milliseconds moment) { std::this_thread::sleep_for(moment); }

}  // namespace accessory::load
