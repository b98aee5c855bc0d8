// RecordingBinder: stands between a proxy and a stub of one process and makes them deal with each other as if
// there were two: every call becomes a parcel, is kept, and can be made to fail; the other side can die.
#pragma once

#include <accessory/testing/Transaction.h>
#include <binder/Binder.h>

#include <map>
#include <mutex>
#include <vector>

namespace accessory::testkit {

/// Looks like an object of another process: asInterface() makes a proxy of it. Calls run on the caller's
/// thread. Any threads may use it; no lock is held while the target, a death recipient or a client runs.
///
/// It uses nothing but the platform's public API and passes through parcels as an object of this process, so
/// it also works with a target's own libbinder. What it cannot do: remoteBinder() is null, the calling
/// process is always this one (so one client per service), and PING_TRANSACTION itself is neither kept nor
/// refused, only pingBinder() is.
class RecordingBinder : public android::BBinder {
  public:
    /// @param target the stub that answers. Null: there is none, and a call without a set answer gets
    ///               UNKNOWN_TRANSACTION.
    explicit RecordingBinder(const android::sp<android::IBinder>& target = nullptr);
    ~RecordingBinder() override;

    /// The calls so far, in the order in which they ended.
    std::vector<Transaction> transactions() const;

    /// Those of one operation.
    std::vector<Transaction> transactions(uint32_t code) const;

    /// Forgets the calls so far.
    void forget();

    /// From now on @p code gets this reply instead of the target's.
    void answer(uint32_t code, Bytes reply);

    /// From now on @p code fails with @p status and does not reach the target.
    void fail(uint32_t code, android::status_t status);

    /// The other side dies in the next call of @p code, after the target has run and before it can answer.
    void dieIn(uint32_t code);

    /// Takes answer(), fail() and dieIn() back.
    void passOn(uint32_t code);

    /// The request @p code brings a binder behind its token, and nothing else: the target gets a
    /// RecordingBinder in its place, so that calls in the other direction are parcels, too.
    void recordBinderIn(uint32_t code);

    /// What stands for the binder that came last in such a request; null before the first, or for a null one.
    android::sp<RecordingBinder> received() const;

    /// The other side ends: the linked recipients are told, on this thread and once; from now on calls and
    /// links get DEAD_OBJECT.
    void die();

    bool isBinderAlive() const override;
    android::status_t pingBinder() override;
    const android::String16& getInterfaceDescriptor() const override;
    /// Passed on to the object.
    android::status_t dump(int fd, const android::Vector<android::String16>& args) override;

    /// As for a remote object: recipients are kept weakly. The flags are not looked at.
    android::status_t linkToDeath(const android::sp<DeathRecipient>& recipient, void* cookie = nullptr,
                                  uint32_t flags = 0) override;
    /// Takes one linkToDeath() back, as for a remote object.
    android::status_t unlinkToDeath(const android::wp<DeathRecipient>& recipient, void* cookie = nullptr,
                                    uint32_t flags = 0,
                                    android::wp<DeathRecipient>* outRecipient = nullptr) override;

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t flags = 0) override;

  private:
    /// What happens to an operation instead of reaching the target.
    struct Plan {
        enum class Kind { kAnswer, kFail, kDie };
        Kind kind = Kind::kAnswer;
        Bytes reply{};
        android::status_t status = android::NO_ERROR;
    };
    struct Link {
        android::wp<DeathRecipient> recipient;
        void* cookie;
    };

    android::status_t serve(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                            uint32_t flags);
    android::status_t reachTarget(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                  uint32_t flags);
    android::sp<RecordingBinder> wrapped(const android::Parcel& data);
    const Plan* planFor(uint32_t code, Plan* copy) const;
    bool brings(uint32_t code) const;
    void plan(uint32_t code, Plan what);

    const android::sp<android::IBinder> mTarget;
    mutable std::mutex mLock;  ///< guards all below
    std::vector<Transaction> mTransactions;
    std::map<uint32_t, Plan> mPlans;
    std::vector<uint32_t> mBringing;  ///< the codes of recordBinderIn()
    android::sp<RecordingBinder> mReceived;
    std::vector<Link> mLinks;
    bool mAlive = true;
};

}  // namespace accessory::testkit
