// What the runtime does when operator new throws: a step that somebody waits for fails with a status, one
// that nobody could be told of is tried again, and what was done in halves is undone.
#pragma once

#include <utils/Errors.h>

#include <chrono>
#include <new>
#include <thread>

#include "Log.h"

namespace android::runtime {

/// @return what @p action returns, or NO_MEMORY when there is none for it.
template <typename Action>
status_t unlessExhausted(const Action& action) {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        BINDER_LOGE("a step is given up: no memory");
        return NO_MEMORY;
    }
}

/// Runs @p action again and again, for up to a few seconds, until there is memory for it; then std::bad_alloc
/// goes on. An attempt that fails must have changed nothing.
template <typename Action>
auto patiently(const Action& action) {
    constexpr std::chrono::milliseconds kPause{10};
    for (int left = 500; left > 0; --left) {
        try {
            return action();
        } catch (const std::bad_alloc&) {
            std::this_thread::sleep_for(kPause);
        }
    }
    return action();
}

/// @return what @p action returns. When there is no memory for it, @p undo takes back what was done in front
/// of it, and std::bad_alloc goes on.
template <typename Action, typename Undo>
auto elseUndo(const Action& action, const Undo& undo) {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        undo();
        throw;
    }
}

}  // namespace android::runtime
