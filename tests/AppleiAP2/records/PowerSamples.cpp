#include "tests/AppleiAP2/records/PowerSamples.h"

#include "tests/AppleiAP2/records/ApartRecords.h"

namespace accessory::test {

using android::sp;

sp<IiAP2PowerUpdate> PowerUpdateSample::filled() {
    sp<IiAP2PowerUpdate> record = new IiAP2PowerUpdate;
    record->setCurrentFromAccessory(1000)
        .setChargeIsPresent(-1001)
        .setPowerMode(1002)
        .setExternalChargeConnected(-1003)
        .setChargeState(1004)
        .setChargeLevel(-1005);
    return record;
}

std::vector<FieldWords> PowerUpdateSample::words() {
    return {
        {0, Words().i32(1000)},  {1, Words().i32(-1001)}, {2, Words().i32(1002)},
        {3, Words().i32(-1003)}, {4, Words().i32(1004)},  {5, Words().i32(-1005)},
    };
}

sp<iAP2PowerUpdate> PowerUpdateSample::apart(uint32_t mask) { return makeApartPowerUpdate(mask); }

}  // namespace accessory::test
