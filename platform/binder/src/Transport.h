// The seam between the objects of this runtime and whatever carries their calls to other processes.
//
// Parcel, BBinder, BpBinder and everything above them know only these two classes, so that another carrier
// (the kernel's Binder driver, say) can stand beside the sockets of socket/ without touching them.
#pragma once

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <chrono>
#include <string>
#include <vector>

namespace android::runtime {

/// One object of another process. Owned by its BpBinder; destroying it gives the reference back.
class RemoteObject {
  public:
    virtual ~RemoteObject() = default;

    /// Names the object inside this process.
    virtual int32_t handle() const = 0;

    /// As IBinder::transact(). Any thread.
    virtual status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) = 0;
};

/// This process's way to the others. One instance; any thread may use it.
class Transport {
  public:
    /// The carrier in use, made on first use and never destroyed. Ends the process with a clear message
    /// when it was forked off from one that had used the runtime.
    static Transport& instance();
    /// Whether instance() has been called in this process.
    static bool isRunning();

    virtual ~Transport() = default;

    /// As ProcessState::startThreadPool() and IPCThreadState::joinThreadPool().
    virtual void startThreadPool() = 0;
    virtual void setMaxThreads(size_t count) = 0;
    [[noreturn]] virtual void joinThreadPool() = 0;

    /// As IServiceManager; a name that is not there yet is waited for as long as @p patience.
    virtual status_t publish(const std::string& name, const sp<BBinder>& service) = 0;
    virtual sp<IBinder> find(const std::string& name, std::chrono::milliseconds patience) = 0;
    virtual std::vector<std::string> names() = 0;

    /// Where this process meets the others, for people to read.
    virtual std::string meetingPlace() const = 0;
};

/// The largest parcel that a transaction carries, in bytes.
constexpr size_t kMaxTransaction = 1024 * 1024 - 8 * 1024;

}  // namespace android::runtime
