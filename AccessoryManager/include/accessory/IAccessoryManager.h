// IAccessoryManager: how many accessories are attached, what one supports, where it lives in the device tree,
// and which accessory a path belongs to.
#pragma once

#include <accessory/Export.h>
#include <binder/IInterface.h>
#include <utils/SortedVector.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/TypeHelpers.h>
#include <utils/Vector.h>

#include <cstdint>

namespace accessory {

/// The interface "accessory.AccessoryManager". Through a proxy every operation blocks until the service has
/// answered, may be called from any thread, and gives 0 or an empty string when the service cannot be
/// reached: that is logged, and cannot be told from a service's own answer.
class ACCESSORY_EXPORT IAccessoryManager : public android::IInterface {
  public:
    DECLARE_META_INTERFACE(AccessoryManager)

    /// @return how many accessories are attached.
    virtual int getDeviceCount() = 0;

    /// @return what the accessory supports; the service defines the values.
    virtual int getFeature(unsigned int accessoryId) = 0;

    /// @return where the accessory lives in the device tree; empty when the service knows no such accessory.
    virtual android::String8 getPath(unsigned int accessoryId) = 0;

    /// @return the identifier of the accessory at @p path; the service defines the answer for an unknown one.
    virtual int getAccessoryId(const android::String8& path) = 0;
};

/// The client's side: every operation is one transaction with the service.
class ACCESSORY_EXPORT BpAccessoryManager : public android::BpInterface<IAccessoryManager> {
  public:
    /// @param impl the service's binder; held as long as the proxy lives.
    explicit BpAccessoryManager(const android::sp<android::IBinder>& impl);

    int getDeviceCount() override;
    int getFeature(unsigned int accessoryId) override;
    android::String8 getPath(unsigned int accessoryId) override;
    int getAccessoryId(const android::String8& path) override;
};

/// What a service implements. The operations mirror IAccessoryManager's; they are called on the Binder
/// runtime's threads, several at once.
class ACCESSORY_EXPORT AccessoryManagerImplItf : public virtual android::RefBase {
  public:
    /// @name Requests
    /// @{

    /// Answers the query of IAccessoryManager that has the same name.
    virtual int32_t getDeviceCount() = 0;
    virtual int32_t getFeature(unsigned int accessoryId) = 0;
    virtual android::String8 getPath(unsigned int accessoryId) = 0;
    virtual int32_t getAccessoryId(const android::String8& path) = 0;

    /// @}

    ~AccessoryManagerImplItf() override;

    /// Appends a description of the service's state to @p result, for people to read.
    /// @param args what the caller of the dump asked for.
    /// @return 0, or an error, which is logged.
    virtual int dump(const android::Vector<android::String16>& args, android::String8& result) = 0;
};

/// The element type of a list that every stub has and none fills: this interface offers no registration.
class ACCESSORY_EXPORT AccessoryManagerNotifierDeathRecipient : public android::IBinder::DeathRecipient {
  public:
    ~AccessoryManagerNotifierDeathRecipient() override;
};

/// The service's side: takes requests apart and hands them to the implementation.
class ACCESSORY_EXPORT BnAccessoryManager : public android::BnInterface<IAccessoryManager> {
  public:
    /// @param impl held as long as the stub lives. Null is accepted; every query is then answered with 0 or
    ///             an empty string, and logged.
    explicit BnAccessoryManager(const android::sp<AccessoryManagerImplItf>& impl);
    ~BnAccessoryManager() override;

    int getDeviceCount() override;
    int getFeature(unsigned int accessoryId) override;
    android::String8 getPath(unsigned int accessoryId) override;
    int getAccessoryId(const android::String8& path) override;

    /// Writes a header with the interface's name and, unless the first of @p args is "notifier", the
    /// implementation's dump to @p fd, which stays the caller's. @return 0, whatever happened.
    android::status_t dump(int fd, const android::Vector<android::String16>& args) override;

    /// What the runtime calls for a request: takes it apart, calls the operation, writes the answer.
    /// @return what the caller's transact() returns.
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags = 0) override;

  private:
    using DeathRecipients = android::SortedVector<
        android::key_value_pair_t<unsigned int, android::sp<AccessoryManagerNotifierDeathRecipient>>>;

    const android::sp<AccessoryManagerImplItf> mImpl;
    const DeathRecipients mNotifierDeathRecipients;
};

}  // namespace accessory
