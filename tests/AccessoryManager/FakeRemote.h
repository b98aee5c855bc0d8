// FakeRemote: a binder that looks like another process's to a proxy: it records what the proxy sends and
// answers with bytes made by hand.
#pragma once

#include <binder/IBinder.h>

#include <vector>

#include "tests/AccessoryManager/Bytes.h"

namespace accessory::test {

/// For one thread. Everything but transact() does nothing.
class FakeRemote : public android::IBinder {
  public:
    struct Request {
        uint32_t code;
        uint32_t flags;
        Bytes bytes;
        bool wantsReply;
    };

    std::vector<Request> requests;
    Bytes answer;                                  ///< of every request
    android::status_t status = android::NO_ERROR;  ///< of every request

    const android::String16& getInterfaceDescriptor() const override { return mName; }
    bool isBinderAlive() const override { return true; }
    android::status_t pingBinder() override { return android::NO_ERROR; }
    android::status_t dump(int fd, const android::Vector<android::String16>& args) override;
    android::status_t transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                               uint32_t flags) override;
    android::status_t linkToDeath(const android::sp<DeathRecipient>& recipient, void* cookie,
                                  uint32_t flags) override;
    android::status_t unlinkToDeath(const android::wp<DeathRecipient>& recipient, void* cookie,
                                    uint32_t flags, android::wp<DeathRecipient>* outRecipient) override;
    void attachObject(const void* id, void* object, void* cookie, object_cleanup_func func) override;
    void* findObject(const void* id) const override;
    void detachObject(const void* id) override;

  private:
    const android::String16 mName;
};

/// A remote that answers with the header, a count of 0xffffffff, the identifiers 1 to 10, and an object:
/// words that are there and cannot be read.
class ObjectAmongIds : public FakeRemote {
  public:
    android::status_t transact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                               uint32_t flags) override;
};

}  // namespace accessory::test
