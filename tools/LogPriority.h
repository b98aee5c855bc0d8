// Which lines of the platform log a program lets through to its standard error.
#pragma once

#include <android/log.h>

#include <cstdlib>
#include <string>

// Older platforms have no such function, and read ANDROID_LOG_TAGS instead.
extern "C" int __android_log_set_minimum_priority(int priority) __attribute__((weak));

namespace accessory::tools {

/// ACCESSORY_LOG names the least important lines that are wanted.
/// @param unlessTold for when it does not, or names none.
inline void chooseLogPriority(android_LogPriority unlessTold) {
    const char* const wanted = std::getenv("ACCESSORY_LOG");
    int priority = unlessTold;
    int named = ANDROID_LOG_DEBUG;
    for (const char* name : {"debug", "info", "warning", "error", "fatal"}) {
        if (wanted != nullptr && std::string(wanted) == name) priority = named;
        ++named;
    }
    if (__android_log_set_minimum_priority != nullptr) __android_log_set_minimum_priority(priority);
}

}  // namespace accessory::tools
