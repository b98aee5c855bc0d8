// FailingLists: lets the platform's sorted lists, and the formatting of numbers, fail, as they do only when
// memory has run out or never.
#pragma once

namespace accessory::test {

/// While one lives, calls of this process from whichever library fail as told. One at a time.
class FailingLists {
  public:
    static constexpr int kNever = 1'000'000;

    /// @param goodAdds    how many SortedVectorImpl::add() succeed before all of them give NO_MEMORY.
    /// @param goodRemoves how many SortedVectorImpl::remove() succeed before all of them give kRemoveError.
    explicit FailingLists(int goodAdds, int goodRemoves = kNever);
    ~FailingLists();

    FailingLists(const FailingLists&) = delete;
    FailingLists& operator=(const FailingLists&) = delete;

    static constexpr int kRemoveError = -75;
};

/// While one lives, snprintf() of a format with "pid[%d]" in it writes "?" and returns -7. One at a time.
class FailingFormat {
  public:
    FailingFormat();
    ~FailingFormat();

    FailingFormat(const FailingFormat&) = delete;
    FailingFormat& operator=(const FailingFormat&) = delete;
};

}  // namespace accessory::test
