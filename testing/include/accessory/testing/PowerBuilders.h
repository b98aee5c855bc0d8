// The builder of power updates; how it works is told in <accessory/testing/RecordBuilder.h>.
#pragma once

#include <accessory/PowerRecords.h>
#include <accessory/testing/RecordBuilder.h>

#include <string>

namespace accessory::testkit {

/// PowerUpdate().chargeLevel(80).
class PowerUpdate : public RecordBuilder<IiAP2PowerUpdate> {
  public:
    /// @name Fields
    /// @{

    /// Sets the record's field of that name, and marks it present. Arrays and texts are copied.
    /// @return this builder, for the next field.
    PowerUpdate& currentFromAccessory(int32_t value) {
        return set(this, &Record::setCurrentFromAccessory, value);
    }
    PowerUpdate& chargeIsPresent(int32_t value) { return set(this, &Record::setChargeIsPresent, value); }
    PowerUpdate& powerMode(int32_t value) { return set(this, &Record::setPowerMode, value); }
    PowerUpdate& externalChargeConnected(int32_t value) {
        return set(this, &Record::setExternalChargeConnected, value);
    }
    PowerUpdate& chargeState(int32_t value) { return set(this, &Record::setChargeState, value); }
    PowerUpdate& chargeLevel(int32_t value) { return set(this, &Record::setChargeLevel, value); }

    /// @}
};

}  // namespace accessory::testkit
