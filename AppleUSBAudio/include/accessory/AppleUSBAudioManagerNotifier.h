// AppleUSBAudioManagerNotifier: the register of a USB audio service's clients, and the broadcaster of its
// events.
#pragma once

#include <accessory/Export.h>
#include <accessory/IAppleUSBAudioManagerNotifier.h>
#include <accessory/Snapshot.h>
#include <utils/KeyedVector.h>
#include <utils/Mutex.h>
#include <utils/String16.h>
#include <utils/String8.h>
#include <utils/Vector.h>

namespace accessory {

class BnAppleUSBAudioManager;

/// By which a service raises its events: each calls all registered clients in the order of their process
/// identifiers and waits for every one of them. A client that fails is logged and the next one is called.
///
/// Any thread may raise an event; one runs at a time, and while it runs no client is registered, removed or
/// listed.
class ACCESSORY_EXPORT AppleUSBAudioManagerNotifierItf : public virtual android::RefBase {
  public:
    ~AppleUSBAudioManagerNotifierItf() override;

    /// @name Events
    /// @{

    /// Calls every client's operation of the same name, see IAppleUSBAudioManagerNotifier.
    /// @return 0, or -1 when the register holds a null notifier, which ends the round.
    virtual int attach(unsigned int accessoryId) = 0;
    virtual int detach(unsigned int accessoryId) = 0;

    /// @}
};

/// One per stub, made by it.
///
/// mLock makes registration, removal, listing and events exclude each other; it is held while clients are
/// called, so a client must not register or deregister from within an event. The library takes no
/// other lock of its own under it.
/// The register itself is replaced as a whole, so that find() may read it without mLock.
class ACCESSORY_EXPORT AppleUSBAudioManagerNotifier : public virtual AppleUSBAudioManagerNotifierItf {
  public:
    /// @param manager the owning stub; held. Null ends the process.
    explicit AppleUSBAudioManagerNotifier(const android::sp<BnAppleUSBAudioManager>& manager);
    ~AppleUSBAudioManagerNotifier() override;

    /// Registers a client's notifier under its process. @return 0, or -1 when the process has one already,
    /// which stays.
    int addNotifier(int pid, const android::sp<IAppleUSBAudioManagerNotifier>& notifier);

    /// @return 0, or -1 when the process had none.
    int removeNotifier(int pid);

    /// The process's notifier, or null. Does not wait for events.
    android::sp<IAppleUSBAudioManagerNotifier> find(int pid) const;

    /// Appends the list of registered clients to @p result.
    /// @return 0, or -1 when the list ended at a null notifier.
    int dump(const android::Vector<android::String16>& args, android::String8& result);

    int attach(unsigned int accessoryId) override;
    int detach(unsigned int accessoryId) override;

  private:
    using Notifiers = android::KeyedVector<int, android::sp<IAppleUSBAudioManagerNotifier>>;
    using Operation = int (IAppleUSBAudioManagerNotifier::*)(unsigned int);

    ACCESSORY_HIDDEN int broadcast(const char* event, const char* check, Operation operation,
                                   unsigned int accessoryId);

    const android::sp<BnAppleUSBAudioManager> mManager;
    Snapshot<Notifiers> mNotifiers;
    android::Mutex mLock;
};

}  // namespace accessory
