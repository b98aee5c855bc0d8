// Known values for every field of the power update, and their words in a parcel.
#pragma once

#include "AppleiAP2/records/PowerTables.h"
#include "tests/AppleiAP2/records/Words.h"

namespace accessory::test {

struct PowerUpdateSample {
    using Table = PowerUpdateTable;
    static constexpr size_t kWrites = 7;  ///< that all fields and the mask take
    static android::sp<IiAP2PowerUpdate> filled();
    static std::vector<FieldWords> words();
    /// As filled(), made by a class that was compiled apart, with a mask of its own.
    static android::sp<iAP2PowerUpdate> apart(uint32_t mask);
};

}  // namespace accessory::test
