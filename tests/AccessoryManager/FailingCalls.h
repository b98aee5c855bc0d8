// FailingCalls: lets platform calls fail that fail in real life only when memory has run out.
#pragma once

namespace accessory::test {

/// While one lives, every Parcel::writeString8() and String8::append() of this process, from whichever
/// library, changes nothing and returns NO_MEMORY. One at a time.
class FailingCalls {
  public:
    FailingCalls();
    ~FailingCalls();

    FailingCalls(const FailingCalls&) = delete;
    FailingCalls& operator=(const FailingCalls&) = delete;
};

}  // namespace accessory::test
