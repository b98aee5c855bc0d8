// BBinder, the base of every object that other processes may call, and BpRefBase, the base of every
// typed proxy.
#pragma once

#include <binder/IBinder.h>

#include <memory>

namespace android {

namespace runtime {
class AttachedObjects;
}

/// An object that lives in this process. Its calls run on whichever runtime thread received them, several
/// at once, or on the caller's own thread when the caller is in the same process.
class BINDER_EXPORT BBinder : public IBinder {
  public:
    BBinder();

    const String16& getInterfaceDescriptor() const override;
    bool isBinderAlive() const override;
    status_t pingBinder() override;
    status_t dump(int fd, const Vector<String16>& args) override;

    /// Answers a ping itself and hands everything else to onTransact(). Reads @p data from its beginning
    /// and leaves @p reply at its beginning.
    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0) final;

    /// INVALID_OPERATION: an object of this process cannot die without it.
    status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr,
                         uint32_t flags = 0) override;
    status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0,
                           wp<DeathRecipient>* outRecipient = nullptr) override;

    void attachObject(const void* objectID, void* object, void* cleanupCookie,
                      object_cleanup_func func) final;
    void* findObject(const void* objectID) const final;
    void detachObject(const void* objectID) final;

    BBinder* localBinder() override;

    BBinder(const BBinder&) = delete;
    BBinder& operator=(const BBinder&) = delete;

  protected:
    ~BBinder() override;

    /// The object's own part of a call. The base answers INTERFACE_TRANSACTION and DUMP_TRANSACTION, and
    /// UNKNOWN_TRANSACTION to everything else.
    virtual status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0);

  private:
    const std::unique_ptr<runtime::AttachedObjects> mAttached;
};

/// Holds the remote object of a typed proxy, for the proxy's whole life.
class BINDER_EXPORT BpRefBase : public virtual RefBase {
  public:
    BpRefBase(const BpRefBase&) = delete;
    BpRefBase& operator=(const BpRefBase&) = delete;

  protected:
    /// @param o the object behind the proxy; held as long as the proxy lives.
    explicit BpRefBase(const sp<IBinder>& o);
    ~BpRefBase() override;

    /// @name The object behind the proxy
    /// @{

    /// Borrowed; valid as long as this proxy.
    IBinder* remote() { return mRemote.get(); }
    IBinder* remote() const { return mRemote.get(); }

    /// @}

  private:
    const sp<IBinder> mRemote;
};

}  // namespace android
