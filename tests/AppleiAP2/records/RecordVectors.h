// The parcel forms spelt by hand, by record: what the replay starts from, and the fuzzers.
#pragma once

#include <vector>

#include "tests/AppleiAP2/records/Words.h"

namespace accessory::test {

/// For each parcelable with a reader: nothing, all fields, each field alone, and counts that a peer made up.
template <typename Record>
std::vector<Words> vectorsOf();

}  // namespace accessory::test
