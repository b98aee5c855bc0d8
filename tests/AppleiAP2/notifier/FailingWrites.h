// FailingWrites: lets the platform's marshaling fail, which in real life takes a parcel beyond 2 GiB or the
// end of memory.
#pragma once

#include <cstddef>

namespace accessory::test {

/// While one lives, every write into a Parcel of this process, from whichever library, changes nothing and
/// returns NO_MEMORY. One at a time.
class FailingWrites {
  public:
    FailingWrites();
    ~FailingWrites();

    FailingWrites(const FailingWrites&) = delete;
    FailingWrites& operator=(const FailingWrites&) = delete;

    /// How many have failed so far.
    size_t count() const;
};

}  // namespace accessory::test
