// What the sanitizers are asked beyond their defaults; here rather than in the environment, so that it holds
// for tests started by hand and for their child processes too.
#include <unistd.h>

// The library treats an allocation that fails as a checked error, and tests reach that with absurd sizes.
#define NULL_FOR_HUGE_ALLOCATIONS "allocator_may_return_null=1"
#define SANITIZER_HOOK extern "C" __attribute__((visibility("default"), used))

SANITIZER_HOOK const char* __asan_default_options() {
    return NULL_FOR_HUGE_ALLOCATIONS ":detect_stack_use_after_return=1:strict_string_checks=1";
}

SANITIZER_HOOK const char* __ubsan_default_options() { return "print_stacktrace=1"; }

// Debian's libutils is not instrumented: the sanitizer does not see that the last decStrong() of an object
// comes after all others, and takes its destructor for a race.
SANITIZER_HOOK const char* __tsan_default_suppressions() { return "race:android::RefBase::decStrong\n"; }

SANITIZER_HOOK const char* __tsan_default_options() {
    return NULL_FOR_HUGE_ALLOCATIONS ":second_deadlock_stack=1";
}

static const pid_t gProcess = getpid();

// What a thread of the parent was about to use, which a forked child does not have, is no leak of the child.
SANITIZER_HOOK int __lsan_is_turned_off() { return getpid() != gProcess ? 1 : 0; }
