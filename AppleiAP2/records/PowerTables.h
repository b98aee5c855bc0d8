// The table of the power update record.
#pragma once

#include <accessory/PowerRecords.h>

#include "AppleiAP2/records/Kinds.h"

namespace accessory {

/// The table of the power update.
struct PowerUpdateTable {
    using Plain = iAP2PowerUpdate;
    using Parcelable = IiAP2PowerUpdate;
    using Mask = IiAP2PowerUpdate::Mask;

    static constexpr const char* kName = "iAP2PowerUpdate";
    static constexpr auto kFields = fieldTable(
        field(i32, Mask::kCurrentFromAccessory, "currentFromAccessory", &Plain::getCurrentFromAccessory,
              &Parcelable::mCurrentFromAccessory),
        field(i32, Mask::kChargeIsPresent, "chargeIsPresent", &Plain::getChargeIsPresent,
              &Parcelable::mChargeIsPresent),
        field(i32, Mask::kPowerMode, "powerMode", &Plain::getPowerMode, &Parcelable::mPowerMode),
        field(i32, Mask::kExternalChargeConnected, "externalChargeConnected",
              &Plain::getExternalChargeConnected, &Parcelable::mExternalChargeConnected),
        field(i32, Mask::kChargeState, "chargeState", &Plain::getChargeState, &Parcelable::mChargeState),
        field(i32, Mask::kChargeLevel, "chargeLevel", &Plain::getChargeLevel, &Parcelable::mChargeLevel));
};

}  // namespace accessory
