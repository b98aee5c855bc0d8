// An object that can be called from another process, seen from either side: BBinder where it lives,
// BpBinder where it does not.
#pragma once

#include <binder/Visibility.h>
#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/String16.h>
#include <utils/Vector.h>

#include <cstdint>

/// Four characters as one number, the first one highest.
#define B_PACK_CHARS(c1, c2, c3, c4) ((((c1) << 24)) | (((c2) << 16)) | (((c3) << 8)) | (c4))

namespace android {

class BBinder;
class BpBinder;
class IInterface;
class Parcel;

/// An object that can be called, here or in another process. Any thread may use it.
class BINDER_EXPORT IBinder : public virtual RefBase {
  public:
    /// Codes of transact(), and its flag.
    enum {
        FIRST_CALL_TRANSACTION = 0x00000001,  ///< first code of an interface's own
        LAST_CALL_TRANSACTION = 0x00ffffff,   ///< last code of an interface's own

        PING_TRANSACTION = B_PACK_CHARS('_', 'P', 'N', 'G'),       ///< pingBinder()
        DUMP_TRANSACTION = B_PACK_CHARS('_', 'D', 'M', 'P'),       ///< dump()
        INTERFACE_TRANSACTION = B_PACK_CHARS('_', 'N', 'T', 'F'),  ///< getInterfaceDescriptor()

        /// Flag of transact(): do not wait for the call to run, there is no reply.
        FLAG_ONEWAY = 0x00000001,
    };

    /// Told when the process that hosts a remote object ends.
    class DeathRecipient : public virtual RefBase {
      public:
        /// Runs once, on a thread of the runtime, never inside linkToDeath().
        /// @param who the dead object; good for comparing addresses, not for promoting.
        virtual void binderDied(const wp<IBinder>& who) = 0;
    };

    /// Lets go of what attachObject() hung on a binder.
    using object_cleanup_func = void (*)(const void* id, void* object, void* cleanupCookie);

    IBinder();

    /// @return the interface itself when the object lives in this process and implements @p descriptor,
    ///         else null.
    virtual sp<IInterface> queryLocalInterface(const String16& descriptor);

    /// The name of the object's interface; a remote object is asked once and the answer kept.
    virtual const String16& getInterfaceDescriptor() const = 0;

    /// False once a call or a death notice has shown that the hosting process, or the object, is gone, or
    /// that nothing it says can be understood.
    virtual bool isBinderAlive() const = 0;

    /// Calls the object without reaching its interface. @return NO_ERROR, or why it cannot be reached.
    virtual status_t pingBinder() = 0;

    /// Lets the object write a description of itself to @p fd, which stays the caller's.
    virtual status_t dump(int fd, const Vector<String16>& args) = 0;

    /// Calls the object and, without FLAG_ONEWAY, waits for its answer.
    /// @param code  FIRST_CALL_TRANSACTION to LAST_CALL_TRANSACTION, or one of the transactions above.
    /// @param reply where the answer goes, may be null. Empty whenever the result is not NO_ERROR, but for
    /// what
    ///              an object of this process has written into it.
    /// @return what the object's onTransact() returned, DEAD_OBJECT when its process is gone, or
    ///         FAILED_TRANSACTION when @p data is too large or could not be sent, or the call was lost though
    ///         the process lives.
    virtual status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0) = 0;

    /// Asks for one call of @p recipient when the hosting process ends. Only a weak reference is kept, so
    /// the caller keeps the recipient alive.
    /// @return NO_ERROR, DEAD_OBJECT when it has ended already (no notice follows), INVALID_OPERATION for
    ///         an object of this process.
    virtual status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr,
                                 uint32_t flags = 0) = 0;

    /// Takes back one linkToDeath() with the same recipient, or with the same cookie when @p recipient is
    /// null and @p cookie is not.
    /// @return NO_ERROR, NAME_NOT_FOUND when there is no such link, DEAD_OBJECT when notices have gone
    ///         out, INVALID_OPERATION for an object of this process.
    virtual status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr,
                                   uint32_t flags = 0, wp<DeathRecipient>* outRecipient = nullptr) = 0;

    /// Whether the object is of the subclass; false unless overridden.
    virtual bool checkSubclass(const void* subclassID) const;

    /// Hangs @p object on this binder under @p objectID until detachObject() or the binder's end, when
    /// @p func (may be null) is called with it. The first object of an ID stays.
    virtual void attachObject(const void* objectID, void* object, void* cleanupCookie,
                              object_cleanup_func func) = 0;
    /// What hangs under @p objectID; null when nothing does.
    virtual void* findObject(const void* objectID) const = 0;
    /// Takes the object off again, without calling its function.
    virtual void detachObject(const void* objectID) = 0;

    virtual BBinder* localBinder();    ///< this object if it lives in this process, else null; borrowed
    virtual BpBinder* remoteBinder();  ///< this object if it lives in another process, else null; borrowed

  protected:
    ~IBinder() override;
};

}  // namespace android
