// BpBinder: an object of another process.
#pragma once

#include <binder/IBinder.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace android {

namespace runtime {
class AttachedObjects;
class RemoteObject;
}  // namespace runtime

/// The one proxy that this process has for a remote object, however often it was received. The hosting
/// process keeps the object alive as long as this proxy exists.
///
/// mLock guards the death links and the cached descriptor; no foreign code runs under it.
class BINDER_EXPORT BpBinder : public IBinder {
  public:
    /// For the runtime, which makes proxies when objects arrive.
    explicit BpBinder(std::unique_ptr<runtime::RemoteObject> remote);

    /// A number that names the remote object inside this process only.
    int32_t handle() const;

    const String16& getInterfaceDescriptor() const override;
    bool isBinderAlive() const override;
    status_t pingBinder() override;
    status_t dump(int fd, const Vector<String16>& args) override;
    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0) final;
    status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr,
                         uint32_t flags = 0) override;
    status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0,
                           wp<DeathRecipient>* outRecipient = nullptr) override;
    void attachObject(const void* objectID, void* object, void* cleanupCookie,
                      object_cleanup_func func) final;
    void* findObject(const void* objectID) const final;
    void detachObject(const void* objectID) final;
    BpBinder* remoteBinder() override;

    /// For the runtime: the hosting process has ended. Tells every linked recipient, once.
    void sendObituary();

    /// For the runtime: the descriptor if it has been asked for before, else an empty one.
    String16 knownDescriptor() const;

    /// For the runtime: how the transport reaches the object.
    runtime::RemoteObject& remoteObject() const { return *mRemote; }

  protected:
    ~BpBinder() override;

  private:
    struct Obituary {
        wp<DeathRecipient> recipient;
        void* cookie;
        uint32_t flags;
    };

    const std::unique_ptr<runtime::RemoteObject> mRemote;
    const std::unique_ptr<runtime::AttachedObjects> mAttached;
    std::atomic<bool> mAlive{true};
    mutable std::mutex mLock;
    bool mObituariesSent = false;
    std::vector<Obituary> mObituaries;
    mutable String16 mDescriptorCache;
    mutable bool mDescriptorCached = false;
};

}  // namespace android
