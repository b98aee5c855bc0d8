// Foreign code that the runtime runs on its own threads: stubs, death recipients, destructors. It may throw,
// and end the thread.
#pragma once

#include <cxxabi.h>

#include <exception>
#include <new>
#include <optional>
#include <string>

namespace android::runtime {

/// "no memory" fits where a short text lies in the string itself, so saying so needs none.
inline std::string inWords(const std::exception& error) {
    try {
        return error.what();
    } catch (const std::bad_alloc&) {
        return "no memory";
    }
}

/// Runs @p action, which may throw whatever it likes; only the cancelling of the thread goes through.
/// @return what was thrown, in words; nothing when it was not.
template <typename Action>
std::optional<std::string> thrownBy(const Action& action) {
    try {
        action();
        return std::nullopt;
    } catch (const abi::__forced_unwind&) {
        throw;
    } catch (const std::bad_alloc&) {
        return "no memory";
    } catch (const std::exception& error) {
        return inWords(error);
    } catch (...) {
        return "not a std::exception";
    }
}

/// @return what @p action returns. When the thread ends in it, by pthread_exit() or because it is cancelled,
/// @p undo leaves behind what others can go on with; it must not throw.
template <typename Action, typename Undo>
auto unlessThreadEnds(const Action& action, const Undo& undo) {
    try {
        return action();
    } catch (const abi::__forced_unwind&) {
        undo();
        throw;
    }
}

}  // namespace android::runtime
