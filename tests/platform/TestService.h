// A service in a process of its own that does whatever a test of the runtime needs from the other side.
#pragma once

#include <binder/IBinder.h>

#include <string>

#include "tests/support/ChildProcess.h"

namespace accessory::test {

/// The calls of a test service. "->" names what is in the reply.
enum ServiceCall : uint32_t {
    kEcho = android::IBinder::FIRST_CALL_TRANSACTION,  ///< anything -> the same, objects included
    kAnswer,                                           ///< status: writes a word and returns that status
    kThrow,         ///< 0 for a std::runtime_error("on purpose"), 1 for a number
    kCaller,        ///< -> calling pid, calling uid, the service's own pid
    kIdentity,      ///< -> calling pid while the identity is cleared, and after it was restored
    kCallerAround,  ///< object: calls it with kEcho -> calling pid before and after that call
    kWait,          ///< waits at the gate -> 1 when that was opened
    kOpenGate,      ///< lets all who wait at the gate pass
    kWaiting,       ///< -> how many calls wait at the gate
    kMake,          ///< -> a new object, which answers every call with kCaller's words
    kMade,          ///< -> how many of those still live
    kKeep,          ///< object: keeps it instead of the one before
    kKept,          ///< -> the object that is kept
    kDrop,          ///< keeps none any more
    kPassKept,      ///< service: sends the kept object there, one way, for it to keep
    kAskKept,       ///< code: calls the kept object -> the status, then its reply
    kRelay,         ///< two services: lets the second keep what the first makes
    kCountDown,     ///< object, depth: unless 0, calls it with kCountDown, this service, depth - 1 -> depth
    kRecord,        ///< sender (0: the calling pid), number: notes both down
    kRecorded,      ///< -> whether two notes were ever taken at once, count, senders and numbers in turn
    kRecordFor,     ///< service, sender, number: sends kRecord there
    kReplyOf,       ///< size: -> that many bytes
    kDescriptors,   ///< -> how many descriptors the process has open
    kReadAll,       ///< descriptor -> whether it is close-on-exec, the text that can be read from it
    kPipes,         ///< count -> that many descriptors, from each of which "pipe" can be read
    kLeaveFree,     ///< count: lets the process open only that many descriptors more; -1 for no such limit
    kAlarms,        ///< lets signals interrupt the process from here on
    kEnd,           ///< one of ServiceEnd
    kForkSleeper,   ///< forks a child that does nothing -> its pid
};

/// How a service process ends; what is listed here can be told apart by whoever waits for it.
enum ServiceEnd : int32_t { kExit, kQuickExit, kKill, kSegfault, kBecomeSleep };

/// Starts a process that serves a test service under a name of its own, and finds that.
class ServiceProcess {
  public:
    /// @param poolThreads 0: the process calls only joinThreadPool().
    explicit ServiceProcess(int poolThreads = 15);

    const std::string& name() const { return mName; }
    pid_t pid() const { return mProcess.pid(); }
    ChildProcess& process() { return mProcess; }

    /// The service; null when the process did not come up, and the test has failed.
    const android::sp<android::IBinder>& object() const { return mObject; }
    /// Forgets the service, as far as this test is concerned.
    void letGo() { mObject = nullptr; }

    /// Kills the process and waits until it is gone.
    void kill();

  private:
    const std::string mName;
    ChildProcess mProcess;
    android::sp<android::IBinder> mObject;
};

/// A test service, for a process that publishes it itself.
android::sp<android::IBinder> makeTestService();

/// A name that no other test uses.
std::string uniqueServiceName();

}  // namespace accessory::test
