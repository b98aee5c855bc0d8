// The n-th allocation or system call of this process fails, once, on whatever thread it falls.
//
// A program that links NthAllocation.cpp or NthSystemCall.cpp has those calls of everything in it counted
// while a failure is armed.
#pragma once

#include <initializer_list>

namespace accessory::test {

/// What is counted.
enum class Failing { kAllocations, kSystemCalls };

/// Arms the failure of the @p n-th, from 1, of the calls that can fail that way.
/// @param error what a system call fails with, if it can; 0 for the first of what it can fail with.
void armFailure(Failing what, int n, int error = 0);

/// @return whether the armed failure has happened. None is armed from here on.
bool disarmFailure();

/// While it lives, what the calling thread does is the test's own business: neither counted nor cut short.
class TestsOwn {
  public:
    TestsOwn();
    ~TestsOwn();
    TestsOwn(const TestsOwn&) = delete;
    TestsOwn& operator=(const TestsOwn&) = delete;

    /// Whether one lives on this thread.
    static bool isHere();
};

/// For the stand-ins: counts one call. @return whether it is the one that fails.
bool isAllocationToFail();
/// @param possible the errors that this call can have. @return the one to fail with; 0 for going on.
int errorToFailWith(std::initializer_list<int> possible);

}  // namespace accessory::test
