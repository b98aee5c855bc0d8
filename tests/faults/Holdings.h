// What a process holds that another one's death must not leave behind.
#pragma once

#include <iosfwd>

namespace accessory::test {

/// Counts of this process.
struct Holdings {
    int descriptors = 0;
    int threads = 0;
    int sharedBlocks = 0;  ///< mappings of the runtime's blocks for large calls, its own and those of others

    /// As they are now.
    static Holdings now();

    bool operator==(const Holdings& other) const {
        return descriptors == other.descriptors && threads == other.threads &&
               sharedBlocks == other.sharedBlocks;
    }
};

/// How GoogleTest shows them.
void PrintTo(const Holdings& holdings, std::ostream* out);

/// Whether a socket is still open here, the standard streams aside, whose other end is gone.
bool holdsASocketOfTheDead();

/// How many threads of the runtime's pool this process has.
int poolThreads();

}  // namespace accessory::test
