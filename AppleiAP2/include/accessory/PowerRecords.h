// The power update record: what the device draws, and the state of its battery.
//
// Its shape is told in <accessory/MediaLibraryRecords.h>.
#pragma once

#include <accessory/Export.h>
#include <utils/RefBase.h>

#include <cstdint>
#include <string>

namespace android {
class Parcel;
}

namespace accessory {

/// Which fields a power update has, or a client asks for.
class ACCESSORY_EXPORT iAP2PowerUpdateMask : public virtual android::RefBase {
  public:
    /// Each is the presence of the field whose getter has its name.
    enum Bit : uint32_t {
        kCurrentFromAccessory = 1u << 0,
        kChargeIsPresent = 1u << 1,
        kPowerMode = 1u << 2,
        kExternalChargeConnected = 1u << 3,
        kChargeState = 1u << 4,
        kChargeLevel = 1u << 5,
    };

    ~iAP2PowerUpdateMask() override;

    uint32_t mask = 0;  ///< of the bits above
};

/// One power update of the device. Units and value sets are the device's.
class ACCESSORY_EXPORT iAP2PowerUpdate : public virtual android::RefBase {
  public:
    virtual uint32_t getMask() const = 0;                 ///< the bits of the fields that are present
    virtual int32_t getCurrentFromAccessory() const = 0;  ///< current drawn from the accessory
    virtual int32_t getChargeIsPresent() const = 0;  ///< 0 or 1: the battery will charge if power is present
    virtual int32_t getPowerMode() const = 0;        ///< accessory power mode
    virtual int32_t getExternalChargeConnected() const = 0;  ///< 0 or 1: another charger is connected
    virtual int32_t getChargeState() const = 0;              ///< battery charging state
    virtual int32_t getChargeLevel() const = 0;              ///< battery charge level

    /// Declared last: the getters take the first seven places of the virtual table.
    ~iAP2PowerUpdate() override;
};

/// A power update that can be built and sent.
class ACCESSORY_EXPORT IiAP2PowerUpdate : public iAP2PowerUpdate {
  public:
    using Mask = iAP2PowerUpdateMask;  ///< names the bits

    IiAP2PowerUpdate();
    ~IiAP2PowerUpdate() override;

    /// The record at the position of @p parcel; what the parcel lacks is 0.
    static android::sp<IiAP2PowerUpdate> FromParcel(const android::Parcel& parcel);
    /// Appends any implementation of the plain record, through its getters; it must not be null. Failed
    /// writes are logged, and writing goes on.
    static void writeToParcel(android::Parcel* parcel, const android::sp<iAP2PowerUpdate>& record);

    uint32_t getMask() const override { return mMask->mask; }
    int32_t getCurrentFromAccessory() const override { return mCurrentFromAccessory; }
    int32_t getChargeIsPresent() const override { return mChargeIsPresent; }
    int32_t getPowerMode() const override { return mPowerMode; }
    int32_t getExternalChargeConnected() const override { return mExternalChargeConnected; }
    int32_t getChargeState() const override { return mChargeState; }
    int32_t getChargeLevel() const override { return mChargeLevel; }

    /// @name Setters
    /// @{

    /// Stores the value and marks the field present.
    IiAP2PowerUpdate& setCurrentFromAccessory(int32_t value) {
        return set(Mask::kCurrentFromAccessory, mCurrentFromAccessory, value);
    }
    IiAP2PowerUpdate& setChargeIsPresent(int32_t value) {
        return set(Mask::kChargeIsPresent, mChargeIsPresent, value);
    }
    IiAP2PowerUpdate& setPowerMode(int32_t value) { return set(Mask::kPowerMode, mPowerMode, value); }
    IiAP2PowerUpdate& setExternalChargeConnected(int32_t value) {
        return set(Mask::kExternalChargeConnected, mExternalChargeConnected, value);
    }
    IiAP2PowerUpdate& setChargeState(int32_t value) { return set(Mask::kChargeState, mChargeState, value); }
    IiAP2PowerUpdate& setChargeLevel(int32_t value) { return set(Mask::kChargeLevel, mChargeLevel, value); }

    /// @}

    android::sp<iAP2PowerUpdateMask> mMask;  ///< never null

    /// @name Fields
    /// @{

    /// What the getter of the same name gives; 0 or null while absent.
    int32_t mCurrentFromAccessory = 0;
    int32_t mChargeIsPresent = 0;
    int32_t mPowerMode = 0;
    int32_t mExternalChargeConnected = 0;
    int32_t mChargeState = 0;
    int32_t mChargeLevel = 0;

    /// @}

  private:
    template <typename T>
    IiAP2PowerUpdate& set(uint32_t bit, T& field, T value) {
        field = value;
        mMask->mask |= bit;
        return *this;
    }
};

/// The record for a reader: its name and the fields that are present, e.g.
/// `iAP2PowerUpdate{chargeLevel: 80}`.
ACCESSORY_EXPORT std::string toString(const iAP2PowerUpdate& record);

}  // namespace accessory
