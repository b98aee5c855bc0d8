// IAppleUSBAudioManagerNotifier: the callbacks by which the USB audio service tells its clients that an
// accessory comes or goes.
#pragma once

#include <accessory/Export.h>
#include <binder/IInterface.h>

#include <cstdint>

namespace accessory {

/// The interface "accessory.AppleUSBAudioManagerNotifier". Both operations return the receiver's status, 0
/// for success. Through a proxy they block until the receiver has answered, may be called from any thread,
/// and give 0 when it cannot be reached.
class ACCESSORY_EXPORT IAppleUSBAudioManagerNotifier : public android::IInterface {
  public:
    DECLARE_META_INTERFACE(AppleUSBAudioManagerNotifier)

    /// An audio accessory has been attached.
    virtual int attach(unsigned int accessoryId) = 0;

    /// An audio accessory has been detached.
    virtual int detach(unsigned int accessoryId) = 0;
};

/// The service's side: every operation is one transaction with the client.
class ACCESSORY_EXPORT BpAppleUSBAudioManagerNotifier
    : public android::BpInterface<IAppleUSBAudioManagerNotifier> {
  public:
    /// @param impl the client's binder; held as long as the proxy lives.
    explicit BpAppleUSBAudioManagerNotifier(const android::sp<android::IBinder>& impl);
    ~BpAppleUSBAudioManagerNotifier() override;

    int attach(unsigned int accessoryId) override;
    int detach(unsigned int accessoryId) override;
};

/// What a client implements; called on the Binder runtime's threads.
class ACCESSORY_EXPORT AppleUSBAudioManagerNotifierImplItf : public virtual android::RefBase {
  public:
    ~AppleUSBAudioManagerNotifierImplItf() override;

    /// @name Events
    /// @{

    /// Takes the event of IAppleUSBAudioManagerNotifier that has the same name.
    /// @return 0, or an error, which the service logs.
    virtual int attach(unsigned int accessoryId) = 0;
    virtual int detach(unsigned int accessoryId) = 0;

    /// @}
};

/// The client's side: takes events apart and hands them to the implementation.
class ACCESSORY_EXPORT BnAppleUSBAudioManagerNotifier
    : public android::BnInterface<IAppleUSBAudioManagerNotifier> {
  public:
    /// @param impl held as long as the stub lives; null ends the process.
    explicit BnAppleUSBAudioManagerNotifier(const android::sp<AppleUSBAudioManagerNotifierImplItf>& impl);
    ~BnAppleUSBAudioManagerNotifier() override;

    int attach(unsigned int accessoryId) override;
    int detach(unsigned int accessoryId) override;

    /// What the runtime calls for a request: takes it apart, calls the operation, writes the answer.
    /// @return what the caller's transact() returns.
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags = 0) override;

  private:
    const android::sp<AppleUSBAudioManagerNotifierImplItf> mImpl;
};

}  // namespace accessory
