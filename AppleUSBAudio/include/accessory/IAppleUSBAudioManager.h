// IAppleUSBAudioManager: the requests from applications to the service that drives USB device-mode audio.
#pragma once

#include <accessory/AppleUSBAudioManagerNotifier.h>
#include <accessory/Export.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <accessory/Snapshot.h>
#include <binder/IInterface.h>
#include <utils/KeyedVector.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

#include <cstdint>

namespace accessory {

/// The interface "accessory.AppleUSBAudioManager". Every operation returns the service's status, 0 for
/// success; the meaning and units of the arguments are the service's. Through a proxy an operation blocks
/// until the service has answered, may be called from any thread, and gives 0 when the service cannot be
/// reached, which cannot be told from a service's own answer.
class ACCESSORY_EXPORT IAppleUSBAudioManager : public android::IInterface {
  public:
    DECLARE_META_INTERFACE(AppleUSBAudioManager)

    /// Starts the audio function.
    virtual int startup() = 0;

    /// Shuts the audio function down.
    virtual int shutdown() = 0;

    /// Registers the calling process for all events, until clearNotifier() or its death. A second
    /// registration changes nothing and succeeds. @return -22 for null, from a process without a
    /// registration.
    virtual int setNotifier(const android::sp<IAppleUSBAudioManagerNotifier>& notifier) = 0;

    /// Takes the calling process's registration back. @return 0 when there was none, too.
    virtual int clearNotifier() = 0;

    /// Tells which audio endpoints there are. @param ids room for 10 identifiers, the most there are; an
    /// implementation must not write an eleventh. @param count how many were filled in; more than 10 are cut.
    virtual int getIds(unsigned int* ids, unsigned int* count) = 0;

    /// Sets the volume. What the values mean is between the service and its clients.
    virtual int setVolume(unsigned int value1, unsigned int value2) = 0;

    /// Sets the sample rate. What the values mean is between the service and its clients.
    virtual int setSampleRate(unsigned int value1, unsigned int value2) = 0;

    /// Starts a stream.
    virtual int start(unsigned int value) = 0;

    /// Stops a stream.
    virtual int stop(unsigned int value) = 0;

    /// Plays a stream.
    virtual int play(unsigned int value) = 0;

    /// Pauses a stream.
    virtual int pause(unsigned int value) = 0;
};

/// The client's side: every operation is one transaction with the service.
class ACCESSORY_EXPORT BpAppleUSBAudioManager : public android::BpInterface<IAppleUSBAudioManager> {
  public:
    /// @param impl the service's binder; held as long as the proxy lives.
    explicit BpAppleUSBAudioManager(const android::sp<android::IBinder>& impl);
    ~BpAppleUSBAudioManager() override;

    int startup() override;
    int shutdown() override;
    int setNotifier(const android::sp<IAppleUSBAudioManagerNotifier>& notifier) override;
    int clearNotifier() override;
    int getIds(unsigned int* ids, unsigned int* count) override;
    int setVolume(unsigned int value1, unsigned int value2) override;
    int setSampleRate(unsigned int value1, unsigned int value2) override;
    int start(unsigned int value) override;
    int stop(unsigned int value) override;
    int play(unsigned int value) override;
    int pause(unsigned int value) override;

  private:
    template <typename Row, typename... Arguments>
    ACCESSORY_HIDDEN int call(const Row& row, const Arguments&... arguments);
};

/// What a service implements; called on the Binder runtime's threads, several at once. The array of
/// identifiers that it fills in has room for 10.
class ACCESSORY_EXPORT AppleUSBAudioManagerImplItf : public virtual android::RefBase {
  public:
    ~AppleUSBAudioManagerImplItf() override;

    /// @name Operations
    /// @{

    /// Carries out the operation of IAppleUSBAudioManager that has the same name, where its arguments are
    /// told. @return what the client gets; 0 for success.
    virtual int startup() = 0;
    virtual int shutdown() = 0;

    /// Called once, while the stub is made, with the broadcaster by which the service raises its events.
    /// @return 0, or an error, which is logged.
    virtual int addNotifier(const android::sp<AppleUSBAudioManagerNotifierItf>& notifier) = 0;

    virtual int getIds(unsigned int* ids, unsigned int* count) = 0;
    virtual int start(unsigned int value) = 0;
    virtual int stop(unsigned int value) = 0;
    virtual int setSampleRate(unsigned int value1, unsigned int value2) = 0;
    virtual int setVolume(unsigned int value1, unsigned int value2) = 0;
    virtual int play(unsigned int value) = 0;
    virtual int pause(unsigned int value) = 0;

    /// @}

    /// Appends a description of the service's state to @p result, for people to read.
    /// @param args what the caller of the dump asked for.
    /// @return 0, or an error, which is logged.
    virtual int dump(const android::Vector<android::String16>& args, android::String8& result) = 0;
};

/// The service's side: takes requests apart, hands them to the implementation, and keeps the register of
/// clients.
///
/// The stub, its registry and its death recipients hold each other strongly, so a stub once made stays.
class ACCESSORY_EXPORT BnAppleUSBAudioManager : public android::BnInterface<IAppleUSBAudioManager> {
  public:
    /// @param impl held as long as the stub lives; null ends the process.
    explicit BnAppleUSBAudioManager(const android::sp<AppleUSBAudioManagerImplItf>& impl);
    ~BnAppleUSBAudioManager() override;

    int startup() override;
    int shutdown() override;
    int setNotifier(const android::sp<IAppleUSBAudioManagerNotifier>& notifier) override;
    int clearNotifier() override;
    int getIds(unsigned int* ids, unsigned int* count) override;
    int setVolume(unsigned int value1, unsigned int value2) override;
    int setSampleRate(unsigned int value1, unsigned int value2) override;
    int start(unsigned int value) override;
    int stop(unsigned int value) override;
    int play(unsigned int value) override;
    int pause(unsigned int value) override;

    /// Writes a header with the interface's name and the implementation's dump, or the registered clients
    /// when the first of @p args is "notifier", to @p fd, which stays the caller's. @return 0, whatever
    /// happened.
    android::status_t dump(int fd, const android::Vector<android::String16>& args) override;

    /// What the runtime calls for a request: takes it apart, calls the operation, writes the answer.
    /// @return what the caller's transact() returns.
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags = 0) override;

  private:
    friend class AppleUSBAudioNotifierDeathRecipient;
    using DeathRecipients = android::KeyedVector<unsigned int, android::sp<android::IBinder::DeathRecipient>>;

    android::sp<AppleUSBAudioManagerNotifier> mNotifier;
    const android::sp<AppleUSBAudioManagerImplItf> mImpl;
    /// By process. Several threads change it at once, without a lock.
    Snapshot<DeathRecipients> mNotifierDeathRecipients;
};

/// Takes a client's registration away when its process ends. Its own entry with the stub stays until the
/// process number registers again.
class ACCESSORY_EXPORT AppleUSBAudioNotifierDeathRecipient : public android::IBinder::DeathRecipient {
  public:
    /// @param manager the stub that the client is registered with; held.
    /// @param pid     the client's process.
    AppleUSBAudioNotifierDeathRecipient(const android::sp<BnAppleUSBAudioManager>& manager, int pid);
    ~AppleUSBAudioNotifierDeathRecipient() override;

    /// Called by the runtime when the client's process has ended.
    void binderDied(const android::wp<android::IBinder>& who) override;

  private:
    const android::sp<BnAppleUSBAudioManager> mManger;
    const int mPid;
};

}  // namespace accessory
